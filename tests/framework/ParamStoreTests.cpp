// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/Rig.h"

using namespace duoJudge;

TEST (ParamStoreTest, EveryPathClampsAndOnlyTheUndoableOneDropsWhatChangesNothing)
{
    for (const auto& [path, story] : { std::pair ("host", "0>1! 1>1 1>0! 0>nan! 4"),
                                       { "direct", "0>1! 1>1 1>0! 0>nan! 9=1 9=1 9=0 9=nan 4" },
                                       { "undoable", "0>1! 0>1 1>0! 1>0 9=1 9=0 2" } })
    {
        auto rig = std::make_unique<Rig>();
        auto& record = rig->parameter (Resume);
        juce::String found;

        for (const auto value : { 1.5f, 1.0f, -2.0f, std::nanf ("") })
        {
            rig->clearChangedFlags();
            *path == 'h'   ? rig->setParameter (Resume, value)
            : *path == 'd' ? rig->setParamDirect (Resume, value, true)
                           : rig->setParamUndoable (Resume, value, true);
            found << record.previousValue << ">" << record.value << (record.changed ? "! " : " ");
        }
        EXPECT_EQ (found + rig->told + juce::String (rig->hooks.load()), story) << path;
    }
}

TEST (ParamStoreTest, TheHookHearsWhereEveryWriteComesFrom)
{
    struct ShownRig : Rig
    {
        using Rig::finishConstruction;
    };
    auto rig = std::make_unique<ShownRig>();
    juce::String heard;
    juce::MemoryBlock state;
    rig->origins = &heard;
    rig->getStateInformation (state);
    const auto press = [&] (int param) { rig->setParamUndoable (param, 1.0f, true); };
    const auto ofAll = [] (const char* origin)
    {
        juce::String all;

        for (int id = 0; id < 10; ++id)
            all << id << origin;

        return all;
    };

    const std::pair<std::function<void()>, juce::String> rows[] {
        { [&] { rig->setParameter (Routing, 0.2f); }, "0host " },
        { [&] { rig->setParameter (ToggleXY, 1.0f); }, "4host 3consequence " },
        { [&] { rig->setParamUndoable (ToggleXY, 0.0f, true); }, "4user 3consequence " },
        { [&] { press (Undo); }, "4undo 3undo " },
        { [&] { press (Redo); }, "3undo 4undo " },
        { [&] { rig->drawSource(); }, "3consequence " },
        { [&] { rig->setFramerateCode (2); }, "1host " },
        { [&] { rig->parameter (Routing).editedByGui = true, rig->setParamUndoable (Routing, 0.001f, true); },
          "9000consequence 0user " },
        { [&] { rig->setParameter (Routing, 0.1f); }, "0host " },   // held, and yet no choice of the user
        { [&] { rig->setCurrentProgram (1); }, "" },
        { [&] { rig->setParamDirect (Reveal, 0.5f, false), heard.clear(), press (ResetToPreset); },
          "8reset 9109user " },
        { [&] { press (AB); }, "9103swap " + ofAll ("swap ") },
        { [&] { press (Undo); }, "9103undo " + ofAll ("undo ") },
        { [&] { rig->setStateInformation (state.getData(), int (state.getSize())); }, ofAll ("load ") },
        { [&] { rig->finishConstruction(), rig->stopTimer(); }, ofAll ("defaults ") },
    };

    for (const auto& [write, origins] : rows)
    {
        heard.clear(), rig->beginNewTransaction(), write();
        EXPECT_EQ (heard.upToFirstOccurrenceOf ("9000defaults", false, false), origins) << &write - &rows[0].first;
    }
    EXPECT_EQ (rig->getParameter (Routing), 0.1f);
}

TEST (ParamStoreTest, IdsThatAreNoneShareARecordAndDoNothing)
{
    auto rig = std::make_unique<Rig>();

    for (const int id : { -1, 10, 5000, 10000, kNoParam })
    {
        EXPECT_EQ (&rig->parameter (id), &rig->parameter (kNoParam)) << id;
        rig->parameter (id).value = 1.0f, rig->setParameter (id, 0.5f);
        EXPECT_TRUE (rig->parameter (id).value == 1.0f && rig->getParameter (id) == 0.0f && rig->hooks == 0) << id;
    }
}

TEST (GestureTest, FollowersAreHeldUntilTheLastHandLetsGo)
{
    auto rig = std::make_unique<Rig>();
    rig->setParamUndoable (Reveal, 1.0f, true);

    for (const int held : { ToggleXY, Resume })
    {
        rig->parameter (held).editedByGui = true;
        rig->beginGesture (held);
        rig->setParamUndoable (held, 1.0f, true);
    }
    rig->setParamUndoable (ToggleAB, 0.0f, true);
    rig->endGesture (ToggleXY);
    rig->endGesture (Resume);
    EXPECT_EQ (rig->told, "8=1 4< 3< 3=1 4=1 9< 9=1 3=0 4> 9> 3> ");
}
