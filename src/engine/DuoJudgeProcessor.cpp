// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/DuoJudgeProcessor.h"

#include "framework/HostType.h"
#include "framework/Settings.h"

using namespace duoJudge;

const ProductNames& getProductNames() noexcept
{
    static constexpr ProductNames names {
        "DuoJudge_1",          "DuoJudge",
        "Duo Judge",           "1.1.2.0",
        "ORVEX Audio",         "https://orvex-audio.example/",
        "orvex-audio.example", "support@orvex-audio.example",
    };
    return names;
}

namespace
{

/** Brings a whole set of values, or a step of the history, in which all consequences are already. */
bool isSetOrStep (ParamOrigin origin)
{
    return origin != ParamOrigin::host && origin != ParamOrigin::user && origin != ParamOrigin::consequence;
}

}   // namespace

DuoJudgeProcessor::DuoJudgeProcessor (int typeOfWrapper) : OxJuceProcessorBase (typeOfWrapper)
{
    numParams = 10;
    numPersistentParams = 7;
    numTransientParams = 12;
    addParameters();
    isVenueVersion = readMakerSetting ("ISVENUEVERSION") == "1";
    initialiseProduct();
    finishConstruction();
}

DuoJudgeProcessor::~DuoJudgeProcessor()
{
    stopTimer();   // the last tick must not meet a product that is half gone
    shutdownProduct();
}

void DuoJudgeProcessor::initialiseProduct()
{
    for (int index = 0; index < static_cast<int> (meters.size()); ++index)
    {
        getMeter (index).channel = index / 2;
        getMeter (index).readingOffsetDb = 3.0f;
    }

    selectedPodId = baylink::kNoPod;
    podBuffer = std::make_unique<juce::AudioSampleBuffer> (baylink::kMaxPodChannels, 1);
    updateFromParams();
    setInstanceName ({});
    nameChanged = false;
    const auto host = getHostType();
    detectTimestamps = ! hostType::isAnyWavelab (host) && host != hostType::premiere;
    connect (2);
}

void DuoJudgeProcessor::shutdownProduct()
{
    if (manager != nullptr)
        manager->disconnect (id);

    podBuffer.reset();
}

bool DuoJudgeProcessor::updateFromParams()
{
    constexpr auto range = 10.0f, limit = 200.0f;   // decibels
    const auto decibels = (parameter (SendGain).value - 0.5f) * 2.0f * range;
    podGain = decibels > limit ? 1e10f : static_cast<float> (std::exp (decibels * std::log (10.0) / 20.0));
    return true;
}

void DuoJudgeProcessor::requestUpdate()
{
    auto none = 0;

    if (! deferredUpdateState.compare_exchange_strong (none, 1))
        deferredUpdateState = 2;
}

void DuoJudgeProcessor::parameterChanged (int paramId, ParamOrigin origin)
{
    const auto& record = parameter (paramId);
    const float value = record.value;

    if (isSetOrStep (origin) && paramId < kPersistentIdBase)
    {
        ballot.disarm();   // what is held was pressed in another set, or at another time

        if (origin != ParamOrigin::undo)
            ballot.endFade();   // the set holds the selection
    }

    if (paramId == Choose)
        chooseWritten (record, origin);

    if (value == record.previousValue)
        return;

    // A parameter that is only shown at construction has pressed and flipped nothing.
    if (record.previousValue == kNeverWritten)
    {
        requestUpdate();
        return;
    }

    switch (paramId)
    {
        case ToggleAB:
        case Choose:
        case ShowBaseMenu:
            break;
        case ToggleXY:
            flipSource (origin);
            break;
        case EndTest:
            ballot.clear();
            guiUpdatePending = true;
            break;
        case SendGain:
            if (selectedPodId != baylink::kNoPod && manager != nullptr)
                manager->setPodGain (selectedPodId, value);
            requestUpdate();
            break;
        case Reveal:
            ballot.endFade();
            [[fallthrough]];
        default:
            requestUpdate();
            break;
    }
}

/** The host hears of what a user presses, and may write it again at any time soon, as a press and a release of its own.
    Nothing but the time tells those from automation: for a while after a user's press none of the host's counts. */
void DuoJudgeProcessor::chooseWritten (const OxParamRecord& record, ParamOrigin origin)
{
    constexpr int longestEcho = 40;   // ticks: two seconds
    const float value = record.value;
    const auto byUser = origin == ParamOrigin::user, byHost = origin == ParamOrigin::host;

    if (value == record.previousValue || ! (byUser || byHost))
        return;

    if (value > 0.0f && byUser)
        echoesUntil = ticks + longestEcho;

    if (value > 0.0f && (byUser || ticks >= echoesUntil))
        ballot.press();
    else if (value == 0.0f && ballot.release (parameter (ToggleAB).value != 0.0f))
        guiUpdatePending = true;   // the window may have looked since the value was stored
}

void DuoJudgeProcessor::flipSource (ParamOrigin origin)
{
    const auto flipped = parameter (ToggleAB).value == 0.0f ? 1.0f : 0.0f;

    // What is written as a whole holds the selection as well.
    if (origin == ParamOrigin::user)
        setParamUndoable (ToggleAB, flipped, true, ParamOrigin::consequence);
    else if (origin == ParamOrigin::host || origin == ParamOrigin::consequence)
        setParamInSound (ToggleAB, flipped);
}

void DuoJudgeProcessor::drawSource()
{
    setParamInSound (ToggleAB, static_cast<float> (coin() & 1));
}

void DuoJudgeProcessor::writeExtraState (juce::XmlElement& xml)
{
    writePodState (xml);
    xml.setAttribute ("A_SELECT_NAME", getInstanceName());
}

void DuoJudgeProcessor::readExtraState (const juce::XmlElement& xml)
{
    readPodState (xml);
    const auto& name = xml.getStringAttribute ("A_SELECT_NAME");

    if (name.isEmpty())
        return;

    setInstanceName (name);
    nameChanged = true;
    guiUpdatePending = true;
}

juce::String DuoJudgeProcessor::getInstanceName() const
{
    const juce::ScopedLock lock (nameLock);
    return instanceName;
}

void DuoJudgeProcessor::setInstanceName (const juce::String& newName)
{
    const juce::ScopedLock lock (nameLock);
    instanceName = newName;
}
