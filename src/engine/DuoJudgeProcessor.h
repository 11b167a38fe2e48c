// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/Ballot.h"
#include "engine/Coin.h"
#include "engine/Crossfade.h"
#include "engine/VoteFade.h"
#include "framework/OxJuceProcessorBase.h"
#include "framework/ProductNames.h"
#include "metering/OxJuceObserverRmsMeter.h"
#include "pod/OxJucePodUser.h"

/** Ids of the product's parameters; keys, names and texts stand in one table in the source. */
namespace duoJudge
{

enum ParamId : int
{
    Routing = 0,
    TimecodeFramerate,
    ParamMapVersion,
    ToggleAB,
    ToggleXY,
    Test,
    Choose,
    EndTest,
    Reveal,
    Resume,
    RoutingDefault = kPersistentIdBase,
    RoutingDefault_7_1,
    RoutingDefault_7_1_2,
    TimecodeFramerateDefault,
    PersistentParamMapVersion,
    ExportSupport,
    UseTimestampedPodAudioOverride,
    ShowBaseMenu = kTransientIdBase,
    Undo,
    Redo,
    AB,
    AtoB,
    PresetNext,
    PresetPrev,
    ShowProfiling = kTransientIdBase + 8,
    ResetToPreset,
    SendGain,
    DummyTransient
};

}   // namespace duoJudge

/** The plug-in on source A's track: delays it by 4096 samples, so that source B can be read from a pod beside it, and lets
    one of them out.

    `ToggleAB` chooses, openly or not: in a test the listener turns it by `ToggleXY` without seeing where it stands. Pressing
    and releasing `Choose` votes for what plays; then a toss sets `ToggleAB` for the next round while a fade keeps silence. */
class DuoJudgeProcessor : public OxJuceProcessorBase, public OxJucePodUser
{
public:
    explicit DuoJudgeProcessor (int typeOfWrapper);
    ~DuoJudgeProcessor() override;

    /** The user's name for source A [any thread but the audio thread]. */
    juce::String getInstanceName() const;
    void setInstanceName (const juce::String& newName);

    /** Sets the selection to a fresh toss of the coin [any thread, the audio thread too]. */
    void drawSource();

    /** Replaces the coin of the draw; only while no audio runs. */
    void setCoin (Coin newCoin) { coin = std::move (newCoin); }

    /** Makes `podId` source B, or none with -1; the pod brings its own send gain along [message thread]. */
    void connectToPod (baylink::PodId podId);

    /** The votes so far [any thread]. */
    VoteStatistics getVoteStatistics() const noexcept { return ballot.getStatistics(); }
    baylink::PodId getSelectedPodId() const noexcept { return selectedPodId; }

    /** A vote is cast and its fade not over [any thread]: until then no other one counts. */
    bool isVoteFadeActive() const noexcept { return ballot.isFading(); }

    /** Who holds `Choose` in the window cannot let go of it any more [message thread]. */
    void disarmVote() noexcept { ballot.disarm(); }

    /** What `getParameterText` would say if the parameter held `value`; a code in force (routing, frame rate, map version)
        is told as it is. */
    juce::String getTextOfValue (int paramId, float value);

    /** @param index 0 to 3: twice the channel, and one more for the pod's signal */
    OxJuceObserverRmsMeter& getMeter (int index) noexcept { return meters[static_cast<std::size_t> (index)]; }

    Relaxed<bool> nameChanged = false;   // a load brought a name that the window has not shown yet

    // juce::AudioProcessor
    const juce::String getName() const override { return "ORVEX DuoJudge"; }
    juce::AudioProcessorEditor* createEditor() override;
    const juce::String getParameterName (int id) override;
    const juce::String getParameterText (int id) override;
    using juce::AudioProcessor::getParameterName;
    using juce::AudioProcessor::getParameterText;
    bool acceptsMidi() const override { return false; }
    bool producesMidi() const override { return false; }
    bool isParameterAutomatable (int id) const override;

    // OxJuceProcessorBase
    bool isParameterHostVisible (int id) const override;
    void initialiseProduct() override;
    void shutdownProduct() override;
    juce::String getParamKey (int id) override;
    int getParamIdForKey (const juce::String& key) override;
    bool isParamExcludedFromPresets (int id) override;
    bool isParamShownOnChange (int id) override;
    bool isParamUndoable (int id) override;
    void parameterChanged (int id, ParamOrigin origin) override;
    void writeExtraState (juce::XmlElement& xml) override;
    void readExtraState (const juce::XmlElement& xml) override;
    void processAudio (juce::AudioSampleBuffer& block, juce::MidiBuffer& midi) override;
    void bypassAudio (const juce::AudioSampleBuffer& block) override;
    void prepareAudio (double newSampleRate, int newBlockSize) override;
    bool updateFromParams() override;
    void timerTick() override;
    int getMenuParam() const override { return duoJudge::ShowBaseMenu; }
    int getUndoParam() const override { return duoJudge::Undo; }
    int getRedoParam() const override { return duoJudge::Redo; }
    int getAbParam() const override { return duoJudge::AB; }
    int getAtoBParam() const override { return duoJudge::AtoB; }
    int getPresetNextParam() const override { return duoJudge::PresetNext; }
    int getPresetPrevParam() const override { return duoJudge::PresetPrev; }
    int getProfilingParam() const override { return duoJudge::ShowProfiling; }
    int getExportSupportParam() const override { return duoJudge::ExportSupport; }
    int getRoutingParam() const override { return duoJudge::Routing; }
    int getRoutingDefaultParam() const override { return duoJudge::RoutingDefault; }
    int getRoutingDefault71Param() const override { return duoJudge::RoutingDefault_7_1; }
    int getRoutingDefault712Param() const override { return duoJudge::RoutingDefault_7_1_2; }
    int getFramerateParam() const override { return duoJudge::TimecodeFramerate; }
    int getFramerateDefaultParam() const override { return duoJudge::TimecodeFramerateDefault; }
    int getParamMapVersionParam() const override { return duoJudge::ParamMapVersion; }
    int getPersistentParamMapVersionParam() const override { return duoJudge::PersistentParamMapVersion; }
    int getResetToPresetParam() const override { return duoJudge::ResetToPreset; }

    // baylink::IPod
    const char* getPodName() override { return "DuoJudge"; }
    std::int32_t getTypeKey() override { return baylink::kDuoJudgeTypeKey; }
    bool getPodFlag() override { return true; }
    void onPodRemoved (baylink::PodId podId) override;
    void onPodLinked (baylink::PodId ownId, baylink::PodId podId) override;

private:
    void addParameters();
    juce::String getRoutingText (const juce::StringArray& names);

    bool holdPod (baylink::PodId podId);
    void takeUpPod (baylink::PodId podId);
    bool readPod (int numSamples, int numChannelsOfSilence);
    void clearPod (int numChannels);
    bool readsAtTimeline();
    void applyVoteFade (juce::AudioSampleBuffer& block);

    void flipSource (ParamOrigin origin);
    void chooseWritten (const OxParamRecord& record, ParamOrigin origin);
    void requestUpdate();

    std::array<OxJuceObserverRmsMeter, 4> meters;
    std::vector<std::unique_ptr<CDelayFilter<float>>> delays;   // one a channel
    Crossfade fader;
    VoteFade voteFade;
    std::unique_ptr<juce::AudioSampleBuffer> podBuffer;              // room for a block of any pod [audio thread]
    juce::AudioSampleBuffer pod;                                     // what is there of it now [audio thread]
    baylink::PodId heardPodId = baylink::kNoPod;                     // read for the last block [audio thread]
    std::atomic<baylink::PodId> selectedPodId { baylink::kNoPod };   // source B
    Relaxed<bool> detectTimestamps = true;                           // this host's positions can be trusted
    Relaxed<float> podGain = 1.0f;                                   // linear, from `SendGain`
    Ballot ballot;
    Relaxed<int> ticks = 0, echoesUntil = 0;   // of the timer; until when the host's presses may be the user's
    Coin coin = makeFairCoin();
    mutable juce::CriticalSection nameLock;
    juce::String instanceName;   // guarded by nameLock: hosts save and load on threads of their own

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (DuoJudgeProcessor)
};
