// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/AdaptedProcessor.h"
#include "adapters/vst2/EditorCompWrapper.h"
#include "adapters/vst2/Interface.h"

/** One `DuoJudgeProcessor` as an effect of the older plug-in interface.

    The host has one function for nearly everything. Each room of this class answers the opcodes that belong to it, and
    what none answers is refused with 0, which is also what a null pointer or an index out of range gets. `processReplacing`
    belongs to the host's audio thread, parameters to any thread, all else to its main thread. */
class JuceVSTWrapper : private juce::AudioProcessorListener, private juce::AudioPlayHead, private juce::Timer
{
public:
    /** Makes an instance, which the host ends by closing the effect [the host's main thread].
        @returns null without a host that knows the interface */
    static t_fstEffect* create (audioMasterCallback host);

private:
    struct Call
    {
        int opcode;
        int index;
        t_fstPtrInt value;
        void* pointer;
        float opt;
    };

    using Answer = std::optional<t_fstPtrInt>;   // none: another room's

    explicit JuceVSTWrapper (audioMasterCallback ownHost);
    ~JuceVSTWrapper() override;

    // What the host calls. An effect that is closed has no wrapper and answers 0.
    static JuceVSTWrapper* of (t_fstEffect* effect);
    static t_fstPtrInt dispatch (t_fstEffect*, int opcode, int index, t_fstPtrInt value, void* const pointer,
                                 float opt);
    static void setParameter (t_fstEffect*, int index, float value);
    static float getParameter (t_fstEffect*, int index);
    static void processReplacing (t_fstEffect*, float** inputs, float** outputs, int numSamples);

    t_fstPtrInt callHost (int opcode, int index = 0, t_fstPtrInt value = 0, void* pointer = nullptr, float opt = 0.0f);
    DuoJudgeProcessor& judge() const noexcept { return processor->get(); }

    /** Copies a text with its end into `size` bytes of the host's. @returns 1, or 0 if there is no place */
    static t_fstPtrInt give (const juce::String& text, void* place, std::size_t size);

    // The rooms
    Answer answerIdentity (const Call& call);
    static t_fstPtrInt canDo (const char* text);

    Answer answerParameters (const Call& call);
    Answer answerPrograms (const Call& call);

    Answer answerState (const Call& call);
    t_fstPtrInt giveChunk (bool programAlone, void** place);
    void takeChunk (bool programAlone, const void* data, t_fstPtrInt size);

    Answer answerLayout (const Call& call);
    t_fstPtrInt describePin (bool isInput, int index, t_fstPinProperties* pin);
    bool setLayout (const t_fstSpeakerArrangement* newInput, const t_fstSpeakerArrangement* newOutput);

    Answer answerProcess (const Call& call);
    void resume();
    void suspend();
    bool isHostOffline();
    void readTimeline();
    void process (float** inputs, float** outputs, int numSamples);

    Answer answerView (const Call& call);
    bool makeEditor();
    t_fstPtrInt openEditor (void* parent);
    void closeEditor();
    t_fstPtrInt giveEditorSize (t_fstRectangle** place);
    void runHostEvents();
    void adoptCallingThread();

    // juce::AudioProcessorListener [the thread that wrote]
    void audioProcessorParameterChanged (juce::AudioProcessor*, int id, float value) override;
    void audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int id) override;
    void audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int id) override;
    void audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails& details) override;

    // juce::AudioPlayHead [audio thread]
    juce::Optional<PositionInfo> getPosition() const override { return position; }

    // juce::Timer: what a host is told a little later, and the chunk that it had time to copy
    void timerCallback() override;

    MessageThread::User toolkit;   // goes last
    const audioMasterCallback host;
    t_fstEffect& effect;   // outlives this
    const AdaptedProcessor::Ptr processor;

    double sampleRate = 44100.0;   // until the host speaks
    int blockSize = 1024;
    juce::AudioChannelSet input = juce::AudioChannelSet::stereo(), output = juce::AudioChannelSet::stereo();
    vst2::SpeakerArrangement told[2];   // the latest answer about input and output
    Relaxed<bool> processing = false;
    bool firstBlock = true;                  // since the start [audio thread]
    juce::Optional<PositionInfo> position;   // of the block [audio thread]
    juce::AudioSampleBuffer scratch;         // a block, apart from what the host's pointers share [audio thread]
    std::atomic<bool> latencyChanged { false }, displayChanged { false };   // not yet told

    juce::CriticalSection chunkLock;
    juce::MemoryBlock chunk;   // the host copies it after the call
    juce::uint32 chunkTime = 0;

    std::unique_ptr<EditorCompWrapper> editor;
    t_fstRectangle editorSize {};
    std::optional<MessageThread::Loan> loan;   // this host's thread runs our events
};
