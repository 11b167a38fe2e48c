// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/OxJuceChannelUser.h"
#include "platform/Relaxed.h"

#include <juce_audio_basics/juce_audio_basics.h>

/** Makes of each block a level, for one display that asks when it draws; the audio itself stays as it is. */
class OxJuceObserver : public OxJuceChannelUser
{
public:
    /** What `channel` may name besides a channel's own number. */
    enum Signal : int
    {
        none = -1,
        mid = 100,    // half the sum of the first two channels
        side = 101,   // half their difference
        all = 102     // the largest of all channels; peak meters only
    };

    OxJuceObserver() = default;
    virtual ~OxJuceObserver() = default;
    OxJuceObserver (const OxJuceObserver&) = delete;
    OxJuceObserver& operator= (const OxJuceObserver&) = delete;

    /** Starts from silence. Only while no other thread uses the observer. */
    virtual void reset() = 0;

    /** [audio thread] A block that does not hold the signal changes nothing. */
    virtual void process (const juce::AudioSampleBuffer& block) = 0;

    /** The level in decibels with the meter's ballistics; consumes the block level [the one reader's thread]. */
    virtual float getLevelDb() = 0;

    /** The level read last in decibels, without ballistics; consumes nothing [the one reader's thread]. */
    virtual float getInstantLevelDb() = 0;

    juce::String name;
    Relaxed<float> readingOffsetDb = 0.0f;   // added to every level given out
    Relaxed<int> channel = none;
};

/** The steps between an observer and a level meter of one signal; nothing else derives from them. */
class OxJuceObserverTimeDomain : public OxJuceObserver
{
};

class OxJuceObserverTimeDomainLevel : public OxJuceObserverTimeDomain
{
};

class OxJuceObserverTimeDomainLevelSingleChannel : public OxJuceObserverTimeDomainLevel
{
};
