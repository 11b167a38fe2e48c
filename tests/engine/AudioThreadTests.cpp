// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/EngineRig.h"
#include "support/AudioThreadGuard.h"

#include <thread>

using namespace duoJudge;
using Counts = AudioThreadGuard::Counts;

namespace
{

/** Counts what the host is told on a thread that is watched. */
struct CountingHost : juce::AudioProcessorListener
{
    void audioProcessorParameterChanged (juce::AudioProcessor*, int, float) override { count(); }
    void audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int) override { count(); }
    void audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int) override { count(); }
    void audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails&) override { count(); }
    static void count() { AudioThreadGuard::note (&Counts::hostCalls); }
};

}   // namespace

TEST (AudioThreadTest, NeitherAllocatesNorCallsSystemOrHostAndTakesOneLock)
{
    for (const int channels : { 1, 2, 3, 8, 10 })
    {
        SCOPED_TRACE (channels);
        CountingHost host;
        EngineRig rig (44100.0, 64, channels);
        auto& processor = *rig.processor;
        juce::AudioSampleBuffer block (channels, 64);
        block.clear(), rig.addPod(), processor.addListener (&host);

        const auto check =
            [&] (
                const char* what, int blocks, int locksPerBlock, const std::function<void()>& first = [] {})
        {
            Counts counts;
            std::thread audio (
                [&]
                {
                    AudioThreadGuard guard;

                    for (int i = 0; i < blocks; ++i, rig.position += 64)
                        i == 0 ? first() : void(), rig.process (block);

                    counts = guard.counts();
                });
            audio.join();
            EXPECT_EQ (counts.allocations + counts.systemCalls + counts.hostCalls, 0) << what;
            EXPECT_TRUE (counts.locks == locksPerBlock * blocks || ! AudioThreadGuard::canCountLocks()) << what;
        };
        check ("the first blocks", 2, 1);

        for (const auto toggle : { 1.0f, 0.0f })
            rig.set (ToggleAB, toggle), check ("a crossfade and its source", 40, 1);

        rig.click (Choose), check ("a vote, its draw and the rise after it", 200, 1);
        EXPECT_EQ (processor.getParameter (ToggleAB), 1.0f);
        rig.click (Choose).bypassed = true, check ("a vote in the bypass", 200, 1);
        EXPECT_FALSE (processor.isVoteFadeActive());
        rig.bypassed = false, rig.click (Choose), check ("the fall of a vote", 9, 1);
        rig.click (Reveal), check ("a fade that is broken off", 20, 1);

        for (int tick = 0; tick < 40; ++tick)
            processor.timerCallback();   // what the host presses from now on is no echo

        for (int id = 0; id < processor.getNumParameters(); ++id)
            for (const auto value : { 1.0f, 0.5f, 0.0f })
                check ("automation", 3, 1, [&] { processor.setParameter (id, value); });

        check ("a vote by automation", 200, 1,
               [&] { processor.setParameter (Choose, 1), processor.setParameter (Choose, 0); });
        EXPECT_EQ (processor.getVoteStatistics().votes, 1) << "since the end of the test, by automation as well";
        EXPECT_FALSE (processor.isVoteFadeActive());
        check ("more changes than are kept apart", 2, 1,
               [&]
               {
                   for (int i = 0; i < 1000; ++i)
                       processor.setParameter (ToggleXY, float (i % 2));
               });

        for (const auto rate :
             { juce::AudioPlayHead::fps25, juce::AudioPlayHead::fps24, juce::AudioPlayHead::fpsUnknown })
            rig.frameRate = rate, check ("another frame rate", 2, 1);

        rig.pod.reset(), rig.run (6400);
        check ("without a pod", 10, 0);
        juce::AudioSampleBuffer wide (channels + 2, 64);
        wide.clear();
        const AudioThreadGuard guard;
        processor.processBlock (wide, rig.midi), processor.processBlockBypassed (wide, rig.midi);
        EXPECT_EQ (guard.counts().allocations, 0) << "more channels than were told";
        processor.removeListener (&host);
    }
}
