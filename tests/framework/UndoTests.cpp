// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/Rig.h"

#include <thread>

using namespace duoJudge;

using Side = std::array<float, 10>;

/** All that the history covers, as it is between two transactions. */
struct Moment
{
    std::array<Side, kMaxPrograms> programs;
    Side alternate;
    int program = 0;
    float side = 0.0f;
};

TEST (UndoTest, ALongWalkMeetsAModelThatKeepsWholeMoments)
{
    auto rig = std::make_unique<Rig>();
    const auto readLive = [&rig]
    {
        Side live;

        for (int id = 0; id < 10; ++id)
            live[id] = rig->getParameter (id);

        return live;
    };
    std::vector<Moment> moments { { {}, readLive() } };
    moments[0].programs.fill (readLive());
    std::size_t now = 0;
    bool due = true;   // the next step begins a transaction
    juce::Random random (4);
    const int params[] { 3, 4, 5, 6, 7, 8, 9, Undo, Undo, Redo, AB, AtoB, PresetNext, PresetPrev };

    for (int step = 0; step < 20000; ++step)
    {
        if (random.nextInt (5) == 0)
            rig->beginNewTransaction(), due = true;

        const auto param = params[random.nextInt (std::size (params))];
        const auto value = static_cast<float> (random.nextInt (3)) / 2.0f;
        const auto isPress = value == 1.0f;
        rig->setParamUndoable (param, value, true);
        auto next = moments[now];
        auto& live = next.programs[next.program];
        auto performs = isPress && param != Undo && param != Redo;

        if (isPress && (param == Undo ? now > 0 : param == Redo && now + 1 < moments.size()))
            due = true, param == Undo ? --now : ++now;
        else if (param == AB)
            performs = true, std::swap (live, next.alternate), next.side = value;
        else if (param == AtoB && isPress)
            next.alternate = live;
        else if (param >= PresetNext && isPress)
            next.program = (next.program + (param == PresetNext ? 1 : kMaxPrograms - 1)) % kMaxPrograms;
        else if (param < 10 && (performs = std::exchange (live[param], value) != value) && param == ToggleXY)
            live[ToggleAB] = live[ToggleAB] == 0.0f ? 1.0f : 0.0f;

        if (performs)
        {
            moments.resize (now += std::exchange (due, false) ? 1 : 0);
            moments.push_back (next);
        }
        const auto& expected = moments[now];
        ASSERT_EQ (rig->getCurrentProgram() + rig->parameter (AB).value, expected.program + expected.side) << step;
        ASSERT_EQ (readLive(), expected.programs[expected.program]) << "step " << step << ", parameter " << param;
        rig->told.clear();
    }
}

TEST (UndoTest, ADragIsOneActionUnlessItEndsOnTheValueOfTheStepBefore)
{
    auto rig = std::make_unique<Rig>();
    rig->setParamUndoable (SendGain, 0.6f, true);
    rig->setParamUndoable (SendGain, 0.7f, true);
    rig->setParamDirect (SendGain, 0.9f, false);
    rig->setParamUndoable (SendGain, 0.7f, true);
    EXPECT_EQ (rig->getNumActionsInCurrentTransaction(), 2);
}

TEST (UndoTest, DrawsOfTheAudioThreadLeaveTheHistoryWhole)
{
    auto rig = std::make_unique<Rig>();
    rig->removeListener (rig.get());
    rig->setCoin ([toss = 0]() mutable { return ++toss; });
    std::thread audio (
        [&]
        {
            for (int draw = 0; draw < 3000; ++draw)
                rig->drawSource();
        });

    for (const auto param : { AB, Undo, Redo, AtoB, Undo })
        for (int step = 0; step < 400; ++step)
        {
            rig->beginNewTransaction ("Blind test " + juce::String (step));
            rig->setParamUndoable (param, 1.0f, true);
        }

    audio.join();

    while (rig->canUndo())
        rig->setParamUndoable (Undo, 1.0f, true);

    rig->setParamUndoable (Reveal, 1.0f, true);
    EXPECT_EQ (rig->getNumberOfUnitsTakenUpByStoredCommands(), 10);
}
