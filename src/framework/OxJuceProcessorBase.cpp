// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/OxJuceProcessorBase.h"

#include "framework/Settings.h"

namespace
{

constexpr int kBaseFilterCapacity = 65536;   // samples
constexpr int kTimerPeriod = 50;             // milliseconds

juce::String getNameOfPluginType (int type)
{
    switch (type)
    {
        case OxJuceProcessorBase::typeVst:
            return "VST";
        case OxJuceProcessorBase::typeAu:
            return "AU";
        case OxJuceProcessorBase::typeRtas:
            return "RTAS";
        case OxJuceProcessorBase::typeAax:
            return "AAX";
        case OxJuceProcessorBase::typeAudioSuite:
            return "AS";
        case OxJuceProcessorBase::typeVst3:
            return "VST3";
        default:
            return "UNDEFINED_PLUGIN_TYPE";
    }
}

}   // namespace

Relaxed<bool> OxJuceProcessorBase::logParameterChanges = false;

OxJuceProcessorBase::OxJuceProcessorBase (int typeOfWrapper) :
    OxJuceProcessorAnswers (BusesProperties()
                                .withInput ("Input", juce::AudioChannelSet::stereo())
                                .withOutput ("Output", juce::AudioChannelSet::stereo())),
    CDelayFilter<float> (kBaseFilterCapacity), pluginType (typeOfWrapper),
    pluginTypeName (getNameOfPluginType (typeOfWrapper))
{
    for (const auto* const name :
         { "Processor_processBlock (vs sampleRate)", "Processor_timerCallback", "Editor_render", "Editor_updateGui" })
        addProfilerItem (name);

    profilerItems[2].showFrequency = true;
    delayLines.make (getTotalNumInputChannels());
    openSupportLog();
    openSharedLog();

    // No version reads as 1.0, which stands for 1000: with this default it tells that none is stored yet.
    persistentMapVersionFound = readSettingFloat ("PersistentParamMapVersion", 1.0) != 1.0f;
}

OxJuceProcessorBase::~OxJuceProcessorBase()
{
    closeLogs();
}

void OxJuceProcessorBase::addProfilerItem (const juce::String& name)
{
    profilerItems.emplace_back (name);
}

void OxJuceProcessorBase::updateProfilerEnabled()
{
    profilerEnabled = parameter (getProfilingParam()).value != 0.0f;

    for (auto& item : profilerItems)
        item.enabled = profilerEnabled;
}

void OxJuceProcessorBase::finishConstruction()
{
    presetState.setFileVersion (getParamMapVersion());

    if (! usesPresetFiles)
    {
        loadDefault();
        fillPrograms();
    }
    else if (hasStoredDefaults())
    {
        // Left by a version that kept programs: they become a file, once.
        loadDefault();

        if (writeDefaultPreset())
            eraseStoredDefaults();
    }

    alternateParams = copyCurrentProgram();

    const auto showToHooks = [this] (int firstId, int count)
    {
        for (int id = firstId; id < firstId + count; ++id)
        {
            afterParamChange (id, ParamOrigin::defaults);
            guiUpdatePending = true;
        }
    };
    showToHooks (0, numParams);
    showToHooks (kPersistentIdBase, numPersistentParams);
    showToHooks (kTransientIdBase, numTransientParams);

    startTimer (kTimerPeriod);
}

void OxJuceProcessorBase::prepareToPlay (double newSampleRate, int newBlockSize)
{
    delayLines.make (getTotalNumInputChannels());
    prepareAudio (newSampleRate, newBlockSize);
    timerCallback();
}

void OxJuceProcessorBase::processBlock (juce::AudioSampleBuffer& block, juce::MidiBuffer& midi)
{
    const auto numSamples = block.getNumSamples();
    const auto sampleRate = getSampleRate();
    OxJuceProfilerItem::Scope profile (profilerItems[0], sampleRate > 0.0 ? numSamples / sampleRate * 1000.0 : 0.0);

    delayLines.push (block);
    updateTransport();
    runPendingTimers();

    switch (processMode)
    {
        case realTime:
            processAudio (block, midi);
            break;
        case offlineAnalysis:
            analyseOffline (block, midi);
            break;
        case offlineRender:
            renderOffline (block, midi);
            break;
        default:
            break;
    }

    offlineSamplePos += numSamples;
}

void OxJuceProcessorBase::processBlockBypassed (juce::AudioSampleBuffer& block, juce::MidiBuffer&)
{
    if (isSuspended())
        return;

    updateTransport();
    bypassAudio (block);
    delayLines.process (block, getLatencySamples());
}

void OxJuceProcessorBase::runPendingTimers()
{
    // A host that renders on the message thread lets no timer through by itself. The toolkit's own answer takes a lock,
    // so the audio thread asks it only when it may be yes.
    if (messageThread == juce::Thread::getCurrentThreadId() && juce::MessageManager::existsAndIsCurrentThread())
        juce::Timer::callPendingTimersSynchronously();
}

void OxJuceProcessorBase::timerCallback()
{
    OxJuceProfilerItem::Scope profile (profilerItems[1]);

    if (juce::MessageManager::existsAndIsCurrentThread())
        messageThread = juce::Thread::getCurrentThreadId();

    // A change that comes in between raises the state again, so that it is never lost.
    if (auto state = deferredUpdateState.load(); state != 0 && updateFromParams())
        deferredUpdateState.compare_exchange_strong (state, state - 1);

    hearSoundChanges();
    timerTick();
}

bool OxJuceProcessorBase::isBusesLayoutSupported (const BusesLayout& layouts) const
{
    return ! layouts.getMainInputChannelSet().isDisabled() && ! layouts.getMainOutputChannelSet().isDisabled();
}

int OxJuceProcessorBase::getMaxNumChannels() const
{
    return std::max (getTotalNumInputChannels(), getTotalNumOutputChannels());
}
