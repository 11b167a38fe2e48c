// SPDX-License-Identifier: GPL-3.0-or-later
// What the history and the host hear of a change, and when.
#include "framework/Rig.h"
#include "framework/Settings.h"
#include "framework/SoundChanges.h"
#include "support/LockWithin.h"

#include <future>
#include <thread>

using namespace duoJudge;
using namespace std::chrono_literals;

TEST (SoundChangesTest, AFullQueueJoinsTheChangesOfAParameterAndLosesNoEnd)
{
    const auto changes = std::make_unique<SoundChanges>();
    juce::String heard;
    const auto hear = [&] (int id, float before, float after) { heard << id << ":" << before << ">" << after << " "; };

    for (int i = 0; i < SoundChanges::kCapacity; ++i)
        changes->add (3, float (i % 2), float (1 - i % 2));

    for (const auto& [id, before, after] : { std::tuple (4, 0.0f, 1.0f), { 3, 0.0f, 0.5f }, { 4, 1.0f, 0.25f } })
        changes->add (id, before, after);

    changes->drain (hear);
    EXPECT_EQ (heard, juce::String::repeatedString ("3:0>1 3:1>0 ", SoundChanges::kCapacity / 2) + "3:0>0.5 4:0>0.25 ");
    heard.clear(), changes->drain (hear), changes->add (4, 0.25f, 0.5f), changes->drain (hear);
    EXPECT_EQ (heard, "4:0.25>0.5 ");
}

TEST (SoundChangesTest, EveryWritersChangesArriveInOrderWhoeverElseWrites)
{
    constexpr int numWriters = 4, numChanges = 20000;
    const auto changes = std::make_unique<SoundChanges>();
    std::vector<std::thread> writers;
    std::array<float, numWriters> last {};
    std::atomic<int> running { numWriters };
    const auto hear = [&] (int id, float before, float after)
    { EXPECT_EQ (std::exchange (last[unsigned (id)], after), before) << id; };

    for (int id = 0; id < numWriters; ++id)
        writers.emplace_back (
            [&, id]
            {
                for (int i = 0; i < numChanges; ++i)
                    changes->add (id, float (i), float (i + 1));

                --running;
            });

    while (running > 0)
        changes->drain (hear);

    for (auto& writer : writers)
        writer.join();

    changes->drain (hear);

    for (const auto value : last)
        EXPECT_EQ (value, float (numChanges));
}

TEST (SoundStepTest, IsUndoneInItsTurnAndTakesAwayNothingThatCanBeRedone)
{
    auto rig = std::make_unique<Rig>();
    rig->setCoin ([] { return 1; });
    const auto expect = [&] (const char* told, int values, bool canRedo)   // of Reveal, Resume and ToggleAB, as digits
    {
        const auto value = [&] (int id) { return juce::roundToInt (rig->getParameter (id)); };
        EXPECT_EQ (std::exchange (rig->told, {}), told);
        EXPECT_EQ (100 * value (Reveal) + 10 * value (Resume) + value (ToggleAB), values);
        EXPECT_EQ (rig->canRedo(), canRedo);
    };
    const auto press = [&] (int param) { rig->beginNewTransaction(), rig->setParamUndoable (param, 1.0f, true); };
    press (Reveal), rig->drawSource();
    expect ("8=1 ", 101, false);
    press (Resume);   // the draw belongs to what was done before it
    expect ("3=1 9=1 ", 111, false);
    press (Undo);
    expect ("9=0 ", 101, true);
    rig->setParameter (ToggleXY, 1.0f);   // by automation
    expect ("", 100, true);
    rig->timerCallback();
    expect ("3=0 ", 100, true);
    press (Undo);
    expect ("3=1 ", 101, true);
    rig->setParameter (ToggleXY, 0.0f), press (Redo);   // after which what sounds stays
    expect ("3=0 9=1 ", 110, false);
    press (Undo), press (Undo);
    expect ("9=0 3=0 8=0 ", 0, true);
    rig->setParameter (ToggleXY, 1.0f), press (Reveal), press (Undo);   // undone with the step that follows
    expect ("3=1 8=1 8=0 3=0 ", 0, true);
}

TEST (SoundStepTest, TheFrameRateOfTheHostIsNone)
{
    struct Head : juce::AudioPlayHead
    {
        juce::Optional<PositionInfo> getPosition() const override
        {
            PositionInfo info;
            info.setIsPlaying (true);
            info.setFrameRate (FrameRate (fps25));
            return info;
        }
    } head;
    auto rig = std::make_unique<Rig>();
    juce::AudioSampleBuffer block (2, 64);
    rig->setPlayHead (&head);

    for (const int param : { Reveal, Resume, Undo, Undo })
        rig->beginNewTransaction(), rig->setParamUndoable (param, 1.0f, true);

    rig->guiUpdatePending = false;
    rig->processBlock (block, rig->midi);
    EXPECT_TRUE (rig->getParamCode (TimecodeFramerate) == 2 && rig->guiUpdatePending && ! rig->canUndo());
    rig->setParamDirect (TimecodeFramerate, 1.0f, false);
    EXPECT_EQ (rig->getFramerateCode(), 6);   // repaired
    rig->timerCallback();

    for (const int param : { Redo, Redo })
        rig->setParamUndoable (param, 1.0f, true);

    EXPECT_EQ (rig->getParameter (Reveal) + rig->getParameter (Resume), 2.0f);
    rig->setPlayHead (nullptr);
}

namespace
{

/** A host that guards what it is told, and what it calls, by one lock, and tries from there whether ours are free. */
struct GuardingHost : juce::AudioProcessorListener
{
    explicit GuardingHost (Rig& listened) : rig (listened) { rig.addListener (this); }
    ~GuardingHost() override { rig.removeListener (this); }

    void hear()
    {
        tries.push_back (std::async (std::launch::async,
                                     [this]
                                     {
                                         juce::MemoryBlock state;
                                         rig.beginNewTransaction(), rig.beginGesture (Test);
                                         rig.getStateInformation (state);
                                         const juce::ScopedLock pods (rig.podLock), settings (settingsLock);
                                     }));
        EXPECT_EQ (tries.back().wait_for (10s), std::future_status::ready) << "a lock of ours is held";
        ++calls;
        const auto held = lockWithinSeconds (lock);
        EXPECT_TRUE (held.owns_lock()) << "the two wait for each other";
    }
    void audioProcessorParameterChanged (juce::AudioProcessor*, int, float) override { hear(); }
    void audioProcessorParameterChangeGestureBegin (juce::AudioProcessor*, int) override { hear(); }
    void audioProcessorParameterChangeGestureEnd (juce::AudioProcessor*, int) override { hear(); }
    void audioProcessorChanged (juce::AudioProcessor*, const ChangeDetails&) override { hear(); }

    Rig& rig;
    std::mutex lock;
    std::atomic<int> calls { 0 };
    std::vector<std::future<void>> tries;   // a `future` waits when it goes
};

}   // namespace

TEST (HostLockTest, AHostThatGuardsBothWaysByOneLockIsNeverHeldUp)
{
    auto rig = std::make_unique<Rig>();
    juce::MemoryBlock state;
    rig->setParamDirect (Resume, 0.5f, false), rig->getStateInformation (state),
        rig->setParamDirect (Resume, 0.0f, false);
    const auto press = [&] (int param) { rig->setParamUndoable (param, 1.0f, true); };

    const auto hold = [&] (bool isHeld) { rig->parameter (duoJudge::Test).editedByGui = isHeld; };

    const std::function<void()> deeds[] {
        [&] { press (ToggleXY); },
        [&] { rig->setParamUndoable (Reveal, 1.0f - rig->getParameter (Reveal), true), press (Undo), press (Redo); },
        [&] { press (AB), press (Undo); },
        [&] { press (AtoB); },
        [&] { press (PresetNext); },
        [&] { press (PresetPrev); },
        [&] { rig->setParamDirect (Reveal, 0.25f, false), press (ResetToPreset); },
        [&] { hold (true), press (duoJudge::Test), hold (false), rig->endGesture (duoJudge::Test); },
        [&] { rig->setStateInformation (state.getData(), int (state.getSize())); },
        [&] { rig->setParameter (ToggleXY, 1.0f - rig->getParameter (ToggleXY)), rig->timerCallback(); },
        [&] { rig->numChannelsChanged(), rig->sendAutomatableParams(); },
    };

    for (const auto& deed : deeds)
    {
        GuardingHost host (*rig);
        std::unique_lock held (host.lock);
        auto done = std::async (std::launch::async, deed);

        while (host.calls == 0 && done.wait_for (1ms) != std::future_status::ready)
            std::this_thread::yield();

        EXPECT_GT (host.calls, 0) << &deed - deeds;
        juce::MemoryBlock saved;
        rig->setParameter (Choose, 1.0f), press (Reveal), press (Undo), rig->getStateInformation (saved);
        rig->beginNewTransaction(), rig->timerCallback(),
            rig->setStateInformation (saved.getData(), int (saved.getSize()));
        held.unlock(), done.wait();
    }
}
