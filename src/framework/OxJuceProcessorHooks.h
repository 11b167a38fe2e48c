// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/OxParamRecord.h"
#include "framework/ParamOrigin.h"

#include <juce_audio_basics/juce_audio_basics.h>

/** What a product tells the framework about itself, and what it does where the framework lets it: the keys and properties of
    its parameters, its audio, what it adds to a saved state, and which of its parameters has which duty.

    The framework's processor calls all of these and gives none of them a body; what has no default here every product
    gives. An answer about a parameter must not change while a product lives. */
class OxJuceProcessorHooks
{
public:
    virtual ~OxJuceProcessorHooks() = default;

    /** For the product's constructor and destructor to call: from those of a base no override would be reached. */
    virtual void initialiseProduct() {}
    virtual void shutdownProduct() {}

    // Parameters [any thread] -----------------------------------------------------------------------------------------

    /** @returns whether hosts get to see the parameter. */
    virtual bool isParameterHostVisible (int) const { return true; }

    /** Names a parameter in states and settings, which outlive a version: no version may change it. */
    virtual juce::String getParamKey (int id) = 0;
    virtual int getParamIdForKey (const juce::String& key) = 0;

    /** @returns whether the recall of a preset leaves the parameter alone. */
    virtual bool isParamExcludedFromPresets (int id) = 0;
    virtual bool isParamShownOnChange (int id) = 0;
    virtual bool isParamUndoable (int id) = 0;

    /** @returns whether a change of the parameter makes the preset a modified one. */
    virtual bool isParamCompared (int) { return true; }

    /** A parameter of any group was written [the writer's thread]. What the product changes because of it is decided by
        where the write comes from: a set or a step of the history holds it already. */
    virtual void parameterChanged (int id, ParamOrigin origin) = 0;

    /** The versions of the meaning of the normal and of the persistent parameters, and a step of conversion from an older
        one [message thread]. */
    virtual int getParamMapVersion() { return 1; }
    virtual int getPersistentParamMapVersion() { return 1; }
    virtual void convertParamMap (int) {}
    virtual void convertPersistentParamMap (int) {}

    // Audio -----------------------------------------------------------------------------------------------------------

    /** The product's audio [audio thread]: `block` is changed in place. */
    virtual void processAudio (juce::AudioSampleBuffer& block, juce::MidiBuffer& midi) = 0;
    virtual void prepareAudio (double, int) {}

    /** What a bypassed product would have got for a block [audio thread]: it may keep up with it, and changes nothing. */
    virtual void bypassAudio (const juce::AudioSampleBuffer&) {}

    /** The host has the instance for offline passes from now on, or plays it again [its thread, or the audio thread]. */
    virtual void audioSuiteChanged (bool) {}

    virtual void finishOfflineRender() {}
    virtual void finishOfflineAnalysis() {}
    virtual void renderOffline (juce::AudioSampleBuffer& block, juce::MidiBuffer& midi) { processAudio (block, midi); }
    virtual void analyseOffline (juce::AudioSampleBuffer& block, juce::MidiBuffer& midi) { processAudio (block, midi); }

    /** Recomputes what audio needs from the parameters, after one of them has changed [message thread, or that of an
        offline pass].
        @returns false to be called again at the next tick */
    virtual bool updateFromParams() { return true; }

    /** The product's share of the timer's work: at 50 ms [message thread], or chunk by chunk [an offline pass's]. */
    virtual void timerTick() {}

    // Saved state and presets [the thread that saves or loads] ----------------------------------------------------------

    virtual void getExtraStateBlock (juce::MemoryBlock&) {}
    virtual void setExtraStateBlock (const void*, int) {}
    virtual void writeExtraState (juce::XmlElement&) {}
    virtual void readExtraState (const juce::XmlElement&) {}

    /** The full path to use in place of `path`, a root of preset folders. */
    virtual juce::String adjustPresetFolder (const juce::String& path) { return path; }

    // Private commands [any thread of the host] -------------------------------------------------------------------------

    virtual void handleVendorPointer (void*) {}
    virtual bool handleVendorArguments (const juce::StringArray&) { return true; }

    // Roles: the product's constant id behind each duty of the framework ------------------------------------------------

    virtual int getMenuParam() const = 0;
    virtual int getUndoParam() const = 0;
    virtual int getRedoParam() const = 0;
    virtual int getAbParam() const = 0;
    virtual int getAtoBParam() const = 0;
    virtual int getPresetNextParam() const = 0;
    virtual int getPresetPrevParam() const = 0;
    virtual int getProfilingParam() const = 0;
    virtual int getExportSupportParam() const = 0;
    virtual int getRoutingParam() const = 0;
    virtual int getRoutingDefaultParam() const = 0;
    virtual int getRoutingDefault71Param() const = 0;
    virtual int getRoutingDefault712Param() const = 0;
    virtual int getFramerateParam() const = 0;
    virtual int getFramerateDefaultParam() const = 0;
    virtual int getParamMapVersionParam() const = 0;
    virtual int getPersistentParamMapVersionParam() const = 0;
    virtual int getResetToPresetParam() const = 0;
    virtual int getNoParamId() const { return kNoParam; }
};
