// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/BypassLines.h"
#include "framework/HostNotices.h"
#include "framework/OxJuceChannelUser.h"
#include "framework/OxJucePreset.h"
#include "framework/OxJuceProcessorAnswers.h"
#include "framework/OxJuceProcessorHooks.h"
#include "framework/OxJuceProfilerItem.h"
#include "framework/OxJuceUndoableAction.h"
#include "framework/SoundChanges.h"

#include <deque>

#include <juce_data_structures/juce_data_structures.h>

/** What every product of the family stands on: parameters with their history, programs and presets, saved states, and all
    dealings with a host that are the same whatever becomes of the audio.

    The number of a parameter tells how long it lives: from 0 on in a program, which the session saves and the host sees;
    from 9000 on with the machine; from 9100 on with the instance. Records have no lock: any thread may read and write them.
    The product gives keys, roles and the audio through its hooks, and names and texts as the toolkit asks for them; the
    object is several megabytes large and belongs on the heap. */
class OxJuceProcessorBase : public OxJuceProcessorAnswers,
                            public juce::Timer,
                            public juce::UndoManager,
                            public OxJuceProcessorHooks,
                            public OxJuceChannelUser,
                            protected CDelayFilter<float>
{
public:
    explicit OxJuceProcessorBase (int typeOfWrapper);
    ~OxJuceProcessorBase() override;

    // Parameters: reading ---------------------------------------------------------------------------------------------

    /** [any thread] Ids of no group share a record, so that a wrong one does no harm. */
    OxParamRecord& parameter (int id) noexcept;

    /** The whole number that a parameter holds in thousandths. */
    int getParamCode (int id) noexcept { return thousandths::toCode (parameter (id).value); }

    /** Takes a snapshot of the normal parameters' values; all else in `set` stays [message thread]. */
    void captureParamSet (OxParamSet& set);

    // Parameters: writing ---------------------------------------------------------------------------------------------

    /** Stores a value, clamped to 0 to 1, and sees to what follows from it [any thread but the audio thread]: a
        machine-wide one goes to the settings, the hooks run, and with `notifyHost` the host hears of a parameter that it
        sees. */
    void setParamDirect (int id, float value, bool notifyHost, ParamOrigin origin = ParamOrigin::user);

    /** Writes as a user does [any thread but the audio thread]: an equal value is no write, a command parameter does its
        command instead, and what the product lets a user undo goes into the history. */
    void setParamUndoable (int id, float value, bool notifyHost, ParamOrigin origin = ParamOrigin::user);

    /** Writes a normal parameter for what sounds at once and is decided by the product itself, as a consequence [any thread,
        the audio thread too]. The window and the hooks hear of it right away; nothing allocates, waits or calls the host.
        The history, where a user may undo the parameter, and the host hear of it at the next tick or before the history's
        next step: as of a step that is done already, and of the value that stands by then. */
    void setParamInSound (int id, float value) noexcept { writeInSound (id, value, ParamOrigin::consequence); }

    /** Calls `tell (id, value)` for what the host has yet to hear of such writes, so that a block can bring it [any thread,
        the audio thread too]. What `tell` gives false for waits for the next tick. */
    template <typename Tell>
    void takeSoundChanges (Tell&& tell)
    {
        soundChanges.takeUntold (numParams, [&] (int id) { return tell (id, parameter (id).value.get()); });
    }

    /** Writes all normal parameters from `set` as the user would, and makes it the set that a reset returns to [any
        thread but the audio thread].
        @param keepExcluded leave out what a preset recall leaves alone */
    void applyParamSet (const OxParamSet& set, bool keepExcluded, ParamOrigin origin);

    /** Tells the hooks of a write [any thread]; also used once for every id when a product is built. */
    void afterParamChange (int id, ParamOrigin origin);

    /** Marks every parameter as seen by the editor [message thread]. */
    void clearChangedFlags();

    /** Sends the values of all normal parameters that the host can see to the host [message thread]. */
    void sendAutomatableParams();

    /** Tells the host that names, programs or the like are others now [any thread but the audio thread]. */
    void tellDisplayChanged() { hostNotices.add (HostNotices::Kind::display, kNoParam); }

    // Gestures: for the editor, and for what a user's write takes along [any thread] -----------------------------------

    /** `id` is in a user's hand, or follows one that is. */
    void beginGesture (int id);

    /** `id` is let go of. With none held any more, those that followed end too. */
    void endGesture (int id);

    // Undo ------------------------------------------------------------------------------------------------------------

    /** Performs an action, which is owned from here on, under the undo lock [any thread but the audio thread]. An action
        that comes up while an undo or a redo writes its parameters on the same thread is dropped: the history holds its
        result already. While an undo or a redo loads a preset it is performed and not kept. */
    bool performUndoable (juce::UndoableAction* action);

    /** What is performed from now on is undone in one step, until the next call, undo or redo [any thread but the audio
        thread]. */
    void beginNewTransaction (const juce::String& name = {});

    // Offline passes --------------------------------------------------------------------------------------------------

    /** Processes a clip of any length, no more than 1024 samples at a time [the host's render thread]. Positions count from
        where the pass was prepared; in between the timer's work is done. */
    void renderOfflineInChunks (juce::AudioSampleBuffer& block, juce::MidiBuffer& midi);
    void analyseOfflineInChunks (juce::AudioSampleBuffer& block, juce::MidiBuffer& midi);

    // Saved state: none of these runs on the audio thread, and bytes of any kind are let come -------------------------

    /** The state without the product's binary block. A load that finds no state in the bytes changes no parameter. */
    void saveXmlState (juce::MemoryBlock& block);
    void loadXmlState (const void* data, int size);

    /** The state of a format whose hosts may hand over what an earlier version stored in its own way [any thread of the
        host]: such bytes are kept, and saved again for as long as the user has not given them up. */
    void loadStream (const void* data, std::size_t size);
    void saveStream (juce::MemoryBlock& dest);

    /** Asks the user, once in the life of this processor, whether the bytes of an earlier version may be lost. */
    void warnIncompatibleState();

    /** Converts parameters of older versions, and warns of newer ones [message thread, at each refresh of the editor]. */
    void checkParamMapVersionCompatibility();

    /** The private command entry [any thread of the host]: 0 for a wrong magic or an unknown opcode.
        @param pointer what it points to depends on the opcode; null is let pass */
    virtual juce::int64 handleVendorCommand (juce::int32 magic, juce::int32 opcode, void* pointer, float opt);

    // Profiler --------------------------------------------------------------------------------------------------------

    /** Adds an item to those that are measured and reported [while the processor is being built]. */
    void addProfilerItem (const juce::String& name);

    /** Switches all items on or off together, as the parameter that shows profiling says: any value but zero is on
        [message thread]. */
    void updateProfilerEnabled();

    // Presets: programs, or files where the product says so -----------------------------------------------------------

    bool keepsPresetFiles() const noexcept { return usesPresetFiles; }
    const OxJucePreset& getPresetState() const noexcept { return presetState; }

    /** The defaults in the machine's settings [message thread]. */
    bool hasStoredDefaults();
    void eraseStoredDefaults();

    /** Saves the parameters as the preset "Default" in the root. @returns whether it is kept */
    bool writeDefaultPreset();

    int getPluginType() const noexcept { return pluginType; }
    const juce::String& getPluginTypeName() const noexcept { return pluginTypeName; }
    const juce::String& getFileDetailsPath() const noexcept { return fileDetailsPath; }

    /** @returns how many processors live in this process. */
    static int getInstanceCount() noexcept;

    /** How requests to the maker's server name the format, like "WIN_VST3". */
    juce::String getPlatformTag() const { return "WIN_" + pluginTypeName; }

    // juce::AudioProcessor --------------------------------------------------------------------------------------------

    void prepareToPlay (double newSampleRate, int newBlockSize) override;
    void processBlock (juce::AudioSampleBuffer& block, juce::MidiBuffer& midi) override;
    void processBlockBypassed (juce::AudioSampleBuffer& block, juce::MidiBuffer& midi) override;
    using juce::AudioProcessor::processBlock;
    using juce::AudioProcessor::processBlockBypassed;

    bool isBusesLayoutSupported (const BusesLayout& layouts) const override;
    void numChannelsChanged() override;

    int getNumParameters() override { return numParams; }
    const juce::String getParameterName (int id) override = 0;
    const juce::String getParameterText (int id) override = 0;
    using juce::AudioProcessor::getParameterName;
    using juce::AudioProcessor::getParameterText;
    float getParameter (int index) override;
    void setParameter (int index, float value) override;

    int getNumPrograms() override { return numPrograms; }
    int getCurrentProgram() override { return currentProgram; }
    void setCurrentProgram (int index) override;
    const juce::String getProgramName (int index) override;
    void changeProgramName (int index, const juce::String& name) override;

    void getStateInformation (juce::MemoryBlock& dest) override;
    void setStateInformation (const void* data, int size) override;
    void getCurrentProgramStateInformation (juce::MemoryBlock& dest) override { getStateInformation (dest); }
    void setCurrentProgramStateInformation (const void* data, int size) override { setStateInformation (data, size); }

    /** Channels of the wider side, be it input or output. */
    virtual int getMaxNumChannels() const;

    void timerCallback() override;

    // Duties of the framework that a product may take over --------------------------------------------------------------

    /** Takes the path of the processed file from a "FILEDETAILS" element and drops the element [the host's thread]. */
    virtual void setFileDetails (std::unique_ptr<juce::XmlElement> xml);

    virtual int getNumPersistentParams() { return numPersistentParams; }
    virtual int getNumTransientParams() { return numTransientParams; }

    /** Swaps the normal parameters with the alternate side, or copies them to it, as an undoable step [message thread].
        @param value what a swap stores in the parameter that tells which side is seen */
    virtual void toggleAlternate (float value);
    virtual void copyToAlternate (float value);

    /** Has new instances on this machine begin as this one stands. */
    virtual void saveAsDefault();

    /** @returns whether a stored default was found. */
    virtual bool loadDefault();

    /** Writes id, key and value of a parameter to the log [any thread but the audio thread]. */
    virtual void logParam (int id);

    // The current preset file [message thread, or a host's thread that loads a state or changes the channel count]. A file
    // that is missing or no preset leaves the parameters as they are.

    /** Applies the first preset in the root, or else the first of all. */
    virtual void selectDefaultPreset();

    /** Applies the preset in the root that is called "Default". */
    virtual void loadNamedDefaultPreset();

    /** Applies a preset, and converts one of another version. @returns whether it was there */
    virtual bool loadPreset (const juce::String& folder, const juce::String& file);

    /** Reads the file again and applies nothing. @returns whether it was there */
    virtual bool reloadPreset();

    /** Steps in the folder that no undo takes back. */
    virtual void nextPreset();
    virtual void previousPreset();

    /** @returns whether a parameter has moved from what the file holds. */
    virtual bool isPresetModified();

    /** Begin an offline pass at sample 0 [the host's render thread]. */
    virtual void prepareOfflineRender();
    virtual void prepareOfflineAnalysis();

    /** The routing code in force for a channel count, -1 meaning the processor's own. A code that is not valid for the
        count is replaced. */
    virtual int getRoutingForChannels (int numChannels);

    /** The plug-in format's own order of channels. */
    virtual int getDefaultRouting (int numChannels);

    /** The frame rate code in force, 0 to 12 [any thread, the audio thread too]. A code out of range is replaced. That, like
        every change, is a host's write and no step of the history. */
    virtual int getFramerateCode();
    virtual void setFramerateCode (int code);

    // Shared with the editor and the adapters -------------------------------------------------------------------------

    Relaxed<int> pendingParameterTextId = kNoParam;   // whose text the window has yet to show
    Relaxed<bool> guiUpdatePending = true;            // until a tick of the editor has seen to it
    Relaxed<bool> pluginDisabled = false;             // the window is covered, and takes no click
    Relaxed<juce::int64> blockStartSample = 0;        // where the block lies on the timeline; stands when the host does
    Relaxed<juce::int64> offlineSamplePos = 0;        // how many samples a pass has come so far
    Relaxed<int> processMode = realTime;
    std::atomic<int> deferredUpdateState { 1 };     // 0: done, 1: due, 2: due, and asked for again since
    std::deque<OxJuceProfilerItem> profilerItems;   // audio block, timer, render, GUI update, then what a product adds
    Relaxed<bool> profilerEnabled = false;          // profiling is shown
    bool isVenueVersion = false;
    Relaxed<bool> isAudioSuite = false;   // the host has this instance for offline passes

    Relaxed<bool> stateRestored = false;              // bytes that bear the state's magic were loaded
    Relaxed<bool> paramMapVersionFound = false;       // the state loaded last named one
    Relaxed<bool> loadedFromPrev = false;             // the session is one of an earlier version
    Relaxed<bool> prevStateStored = false;            // `prevState` holds what that version stored
    std::atomic<bool> incompatibleWarned { false };   // the user was asked what becomes of it

    /** Log every parameter write of a host, in the whole process. */
    static Relaxed<bool> logParameterChanges;

protected:
    // For the product's constructor, once the groups have their sizes -------------------------------------------------

    void addNormalParam (const char* key, int id, float value);
    void addPersistentParam (const char* key, int id, float value);
    void addTransientParam (const char* key, int id, float value);

    /** Shows a box and returns at once [any thread].
        @param answered told on the message thread whether OK was pressed, perhaps when this processor is gone, and never
                        where there is no screen; null for a box with nothing to choose */
    virtual void showBox (const juce::String& title, const juce::String& text, std::function<void (bool ok)> answered);

    /** Loads the stored defaults, fills and names the programs, and shows every parameter to the hooks once. */
    void finishConstruction();

    int numParams = 0, numPersistentParams = 0, numTransientParams = 0;
    bool hostPlays = false;          // at this block [audio thread]
    bool usesPresetFiles = false;    // presets are files, not programs; set before `finishConstruction`
    bool fillsUserPrograms = true;   // give the programs that the product has not filled its values and a name
    const int pluginType;

private:
    friend class OxJuceABUndoableAction;
    friend class OxJucePresetNavUndoableAction;
    friend class OxJuceUndoableAction;

    enum class Group
    {
        normal,
        persistent,
        transient,
        none
    };

    Group getGroup (int id) const noexcept;
    int getCurrentProgramIndex() const noexcept;
    void copyRoutingToDefault (float value);
    void openSupportLog();
    void openSharedLog();
    void closeLogs();
    juce::String getDefaultKey (int id);
    void fillPrograms();
    bool applyPresetState();
    void savePresetPlace (juce::XmlElement& xml);
    void loadPresetPlace (const juce::XmlElement& xml);
    void saveProgram (int index, juce::XmlElement& xml);
    void loadRoot (const juce::XmlElement& root);
    void loadProgram (int index, const juce::XmlElement& xml, bool tellsHooks);
    void stepPreset (bool forward);
    void goToPreset (const juce::String& folder, const juce::String& file);
    void storeValue (OxParamRecord& record, int id, float value) noexcept;
    void writeInSound (int id, float value, ParamOrigin origin) noexcept;
    void useCurrentProgram (ParamOrigin origin);
    ParamOrigin originOfStep (ParamOrigin whenNew) const;
    void replay (bool undoes);
    void hearSoundChanges();
    void recordSoundChanges();
    bool takeBackUnrecorded();
    void recordUnrecorded();
    OxParamSet copyCurrentProgram();
    void setSides (const OxParamSet& live, const OxParamSet& alternate);
    void tellGesture (HostNotices::Kind kind, int id);
    void tellHost (HostNotices::Kind kind, int id);
    void runPendingTimers();
    void updateTransport();

    template <typename Process>
    void processInChunks (juce::AudioSampleBuffer& block, Process&& process);

    const juce::String pluginTypeName;
    std::array<OxParamSet, kMaxPrograms> programs;
    OxParamSet transientParams, persistentParams;
    OxParamSet resetParams;       // what a reset returns to: the set applied last
    OxParamSet alternateParams;   // what a swap of the A/B compare brings back [message thread]
    OxParamRecord invalidParam;
    const int numPrograms = kMaxPrograms;
    int numFactoryPrograms = 0, numUserPrograms = 0;
    Relaxed<int> currentProgram = 0;
    OxJucePreset presetState { this, {}, {} };   // the current preset file
    const float undoThreshold = 0.0f;            // a change must exceed it

    juce::CriticalSection stateLock;   // saving and loading exclude each other
    juce::CriticalSection keptLock;    // guards `prevState` and the programs' names; nothing is called while it is held
    juce::MemoryBlock prevState;       // byte for byte
    std::shared_ptr<Relaxed<bool>> overwriteOnSave = std::make_shared<Relaxed<bool>> (true);   // the user's answer
    Relaxed<bool> foreignIsCurrent = false;   // no state of this format was loaded over the foreign one
    static std::atomic<bool> newerVersionWarned;

    HostNotices hostNotices { [this] (auto kind, int id) { tellHost (kind, id); } };
    juce::CriticalSection gestureLock, linkedGestureLock, undoLock;
    bool replaysStep = false;    // an undo or redo loads a preset; guarded by undoLock
    SoundChanges soundChanges;   // drained under undoLock
    std::vector<std::unique_ptr<OxJuceUndoableAction>>
        unrecorded;                         // on top of what can be redone; guarded by undoLock
    juce::Array<int> gestureParams;         // held by a user now
    juce::Array<int> linkedGestureParams;   // moved as a consequence meanwhile

    BypassLines delayLines;                                    // one an input channel
    Relaxed<juce::Thread::ThreadID> messageThread = nullptr;   // that of the last tick
    juce::String fileDetailsPath;
    bool persistentMapVersionFound = false;
    bool vendorFlag = false;
    std::unique_ptr<juce::FileLogger> logger;   // the support log, if the machine's setting asks for one

    JUCE_DECLARE_NON_COPYABLE_WITH_LEAK_DETECTOR (OxJuceProcessorBase)
};
