// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ChannelRule.h"
#include "engine/EngineRig.h"

using namespace duoJudge;

namespace
{

Signal lowSine (double hertz)
{
    return [hertz] (int channel, std::int64_t sample)
    { return 0.5f * static_cast<float> (std::sin (hertz / 7000.0 * static_cast<double> (sample) + channel)); };
}

/** Does anything at any time, in an order drawn from a seed, and holds each sample that leaves against its neighbour and,
    where no fade can run, against the one source that is selected. */
struct Story : EngineRig
{
    Story (int seed, int channels) : EngineRig (44100.0, 64, channels), random (seed), lastHeard (channels)
    {
        random.nextBool() ? play (noise (1), noise (2)) : play (lowSine (40.0), lowSine (70.0));
        processor->setCoin ([this] { return random.nextInt (2); });
    }

    void tell()
    {
        for (int actions = 0; actions < 40 && ! testing::Test::HasFailure(); ++actions)
        {
            act (random.nextInt (12));
            listen (1 + random.nextInt (random.nextInt (4) == 0 ? 16000 : 1500));
        }
    }

    void act (int action)
    {
        trace << " " << action << "@" << position;
        formerRate = rate;

        switch (action)
        {
            case 0:
                click (EndTest);
                break;
            case 1:
                pod.reset();
                mayStep = true;
                break;
            case 2:
                bringPod (std::array { 1, 2, 8 }[static_cast<std::size_t> (random.nextInt (3))]);
                break;
            case 3:
                set (SendGain, random.nextFloat()), processor->timerCallback();
                mayStep = true;
                break;
            case 4:
                mayStep = ! bypassed || processor->isVoteFadeActive();
                bypassed = ! bypassed;
                break;
            case 5:
                rate = std::array { 44100.0, 48000.0, 96000.0 }[static_cast<std::size_t> (random.nextInt (3))];
                prepare (rate, 1 + random.nextInt (random.nextBool() ? 100 : 4096));
                break;
            case 6:
                set (ToggleXY, 1.0f - processor->getParameter (ToggleXY));
                break;
            case 7:
                click (Choose);
                break;
            case 8:
                click (Reveal);
                break;
            default:
                set (ToggleAB, 1.0f - processor->getParameter (ToggleAB));
        }

        // Two ramps of a vote, at the ends of blocks.
        mayFadeUntil = position + static_cast<int> (rate) / 10 + 2 * blockSize + 10;

        if (action == 7 || processor->isVoteFadeActive())
            mayVoteUntil = mayFadeUntil;
    }

    /** Another pod comes in its place, or the one that is there gets another number of channels. */
    void bringPod (int numChannels)
    {
        const auto stays = pod != nullptr && random.nextBool();

        if (! stays || numChannels != podChannels)
            podStart = position, mayStep = true;

        if (stays)
            pod->prepare (podChannels = numChannels, blockSize);
        else
            addPod (numChannels);
    }

    void listen (int numSamples)
    {
        const auto start = position;
        const auto heard = run (numSamples);
        podIsHeard = processor->getSelectedPodId() != baylink::kNoPod && processor->getParameter (ToggleAB) != 0.0f;

        for (int channel = 0; channel < trackChannels; ++channel)
            for (int i = 0; i < numSamples; ++i)
            {
                const auto at = start + i;
                const auto now = heard.getSample (channel, i), own = late (track, channel, at), other = b (channel, at);
                auto& last = lastHeard[static_cast<std::size_t> (channel)];

                if (bypassed || at >= mayFadeUntil || (pod == nullptr && at >= mayVoteUntil))
                {
                    ASSERT_EQ (now, podIsHeard && ! bypassed ? other : own) << where (channel, at);
                }
                if (i > 0 || ! mayStep)
                {
                    // A ramp that changes its rate goes on with the nearest of its new samples.
                    const auto steps = i == 0 && rate != formerRate ? 2.0f : 1.0f;
                    const auto hertz = static_cast<float> (i == 0 ? std::min (rate, formerRate) : rate);
                    const auto slope = std::max (std::abs (own - last.own), std::abs (other - last.other));
                    const auto apart = std::max (std::abs (own - other), std::abs (last.own - last.other));
                    const auto loudest =
                        std::max ({ std::abs (own), std::abs (other), std::abs (last.own), std::abs (last.other) });
                    const auto ramps = steps * (apart / std::floor (hertz * 0.04f) + 20.0f / hertz * loudest);
                    ASSERT_LE (std::abs (now - last.heard), slope + ramps + 1e-5f) << where (channel, at);
                }
                last = { now, own, other };
            }

        mayStep = false;
    }

    /** What of the pod belongs to a channel of the track. */
    float b (int channel, std::int64_t at)
    {
        if (channel > 1 || at - podStart < baylink::kMatchedLatency)
            return channel > 1 ? late (track, channel, at) : 0.0f;

        const auto decibels = (processor->parameter (SendGain).value - 0.5f) * 20.0f;
        const auto gain = static_cast<float> (std::exp (decibels * std::log (10.0) / 20.0));
        const auto heardChannel = podChannels == 1 ? 0 : trackChannels == 1 ? 1 : channel;
        const auto sample = late (podSignal, heardChannel, at) * gain;
        return podChannels == 1 && trackChannels > 1 ? sample * channelRule::kPairGain : sample;
    }

    std::string where (int channel, std::int64_t at)
    {
        return "channel " + std::to_string (channel) + " of " + std::to_string (trackChannels) + " at " +
               std::to_string (at) + " after" + trace.toStdString();
    }

    struct Sample
    {
        float heard = 0.0f, own = 0.0f, other = 0.0f;
    };

    juce::Random random;
    juce::String trace;   // what was done when
    std::vector<Sample> lastHeard;
    double rate = 44100.0, formerRate = 44100.0;
    std::int64_t podStart = 0, mayFadeUntil = 0, mayVoteUntil = 0;
    bool mayStep = false, podIsHeard = false;
};

/** DUO_STORIES tells how many for each count of channels, if more than the suite has time for. */
TEST (NoStepTest, NothingThatAnybodyDoesIsHeardAsAStep)
{
    const auto numStories = juce::SystemStats::getEnvironmentVariable ("DUO_STORIES", "4").getIntValue();

    for (const auto channels : { 1, 2, 3, 8 })
        for (int seed = 0; seed < numStories && ! HasFailure(); ++seed)
        {
            SCOPED_TRACE (seed);
            Story (seed, channels).tell();
        }
}

}   // namespace
