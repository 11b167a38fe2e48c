// SPDX-License-Identifier: GPL-3.0-or-later
#include "BayLinkSendProcessor.h"

#include "BayLinkSendEditor.h"

namespace
{

constexpr const char* kNamelessTrack = "Pod";

constexpr const char* kStateTag = "BAYLINKSEND";
constexpr const char* kTypedNameAttribute = "TYPEDNAME";
constexpr const char* kTrackNameAttribute = "TRACKNAME";
constexpr const char* kIdAttribute = "UNIQUEID";

/** What a pod can be called: cut to the bytes that the manager keeps, between two characters. */
juce::String toPodName (const juce::String& text)
{
    constexpr auto mostBytes = sizeof (baylink::PodInfo::name) - 1;
    auto name = text.trim().substring (0, static_cast<int> (mostBytes));

    while (name.getNumBytesAsUTF8() > mostBytes)
        name = name.dropLastCharacters (1);

    return name;
}

/** @returns null for anything but the state of a sender. */
std::unique_ptr<juce::XmlElement> parseState (const void* data, int size)
{
    // The parser calls itself for each nested element and for each entity within an entity, without an end in sight, and
    // makes something of a text that breaks off. A state is short, declares nothing and is one closed element.
    constexpr auto mostBytes = 4096;

    const auto* const bytes = static_cast<const char*> (data);

    if (data == nullptr || size <= 0 || size > mostBytes || ! juce::CharPointer_UTF8::isValidString (bytes, size))
        return nullptr;

    const auto text = juce::String::fromUTF8 (bytes, size);

    if (text.contains ("<!") || ! text.endsWith ("/>"))
        return nullptr;

    auto xml = juce::parseXML (text);
    return xml != nullptr && xml->hasTagName (kStateTag) ? std::move (xml) : nullptr;
}

}   // namespace

BayLinkSendProcessor::BayLinkSendProcessor() :
    AudioProcessor (BusesProperties()
                        .withInput ("Input", juce::AudioChannelSet::stereo())
                        .withOutput ("Output", juce::AudioChannelSet::stereo())),
    savedId (baylink::kNoPod), pod (kNamelessTrack)
{
    setLatencySamples (baylink::kMatchedLatency);
}

void BayLinkSendProcessor::setTypedName (const juce::String& newName)
{
    {
        const juce::ScopedLock lock (nameLock);
        typedName = toPodName (newName);
        namePod();
    }

    updateHostDisplay (ChangeDetails().withNonParameterStateChanged (true));
}

juce::String BayLinkSendProcessor::getTypedName() const
{
    const juce::ScopedLock lock (nameLock);
    return typedName;
}

juce::String BayLinkSendProcessor::getTrackName() const
{
    const juce::ScopedLock lock (nameLock);
    return trackName.isNotEmpty() ? trackName : kNamelessTrack;
}

float BayLinkSendProcessor::takePeak() noexcept
{
    const float taken = peak;
    peak = 0.0f;
    return taken;
}

bool BayLinkSendProcessor::isBusesLayoutSupported (const BusesLayout& layout) const
{
    const auto& track = layout.getMainOutputChannelSet();
    return layout.getMainInputChannelSet() == track &&
           (track == juce::AudioChannelSet::mono() || track == juce::AudioChannelSet::stereo());
}

void BayLinkSendProcessor::prepareToPlay (double, int largestBlock)
{
    pod.prepare (getTotalNumInputChannels(), largestBlock);
}

void BayLinkSendProcessor::processBlock (juce::AudioSampleBuffer& block, juce::MidiBuffer&)
{
    if (const auto blockPeak = block.getMagnitude (0, block.getNumSamples()); blockPeak > peak)
        peak = blockPeak;

    pod.process (block, findPosition());
}

void BayLinkSendProcessor::processBlockBypassed (juce::AudioSampleBuffer& block, juce::MidiBuffer& midi)
{
    processBlock (block, midi);
}

std::optional<std::int64_t> BayLinkSendProcessor::findPosition() const
{
    auto* const host = getPlayHead();

    if (host == nullptr)
        return {};

    const auto now = host->getPosition();

    if (! now.hasValue() || ! now->getIsPlaying() || ! now->getTimeInSamples().hasValue())
        return {};

    return *now->getTimeInSamples();
}

void BayLinkSendProcessor::updateTrackProperties (const TrackProperties& properties)
{
    const auto newName = toPodName (properties.name);

    if (newName.isEmpty())
        return;

    const juce::ScopedLock lock (nameLock);
    trackName = newName;
    namePod();
}

/** Lets the pod bear the name that counts now [under the lock]. */
void BayLinkSendProcessor::namePod()
{
    pod.setName (typedName.isNotEmpty() ? typedName : getTrackName());
}

juce::AudioProcessorEditor* BayLinkSendProcessor::createEditor()
{
    return new BayLinkSendEditor (*this);
}

void BayLinkSendProcessor::getStateInformation (juce::MemoryBlock& state)
{
    juce::XmlElement xml (kStateTag);
    const juce::ScopedLock lock (nameLock);
    xml.setAttribute (kTypedNameAttribute, typedName);
    xml.setAttribute (kTrackNameAttribute, trackName);
    xml.setAttribute (kIdAttribute, pod.isConnected() ? pod.id : savedId);
    const auto text = xml.toString (juce::XmlElement::TextFormat().singleLine());
    state.replaceAll (text.toRawUTF8(), text.getNumBytesAsUTF8());
}

void BayLinkSendProcessor::setStateInformation (const void* data, int size)
{
    const auto xml = parseState (data, size);

    if (xml == nullptr)
        return;

    const auto id = xml->getIntAttribute (kIdAttribute, baylink::kNoPod);

    {
        const juce::ScopedLock lock (nameLock);
        typedName = toPodName (xml->getStringAttribute (kTypedNameAttribute));

        // The host knows better, once it has told.
        if (trackName.isEmpty())
            trackName = toPodName (xml->getStringAttribute (kTrackNameAttribute));

        namePod();
        savedId = id;
    }

    // With the lock open: listeners that take the link may have to wait for threads that ask for a name.
    pod.restore (id);
}

juce::AudioProcessor* JUCE_CALLTYPE createPluginFilter()
{
    return new BayLinkSendProcessor();
}
