// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/ParentWindow.h"
#include "adapters/Vst2Host.h"
#include "support/AudioThreadGuard.h"

namespace
{

struct Vst2Test : PlugInTest
{
    Vst2Host host2;
};

/** An arrangement with room for no speaker: the effect may read and write no further. */
struct Arrangement
{
    int type, numChannels;
};

t_fstPtrInt arrange (const Vst2Effect& effect, Arrangement in, Arrangement out)
{
    return effect.call (effSetSpeakerArrangement, 0, reinterpret_cast<t_fstPtrInt> (&in), &out);
}

}   // namespace

TEST_F (Vst2Test, DescribesItselfInItsRecordAndItsTexts)
{
    const auto entry = module.find<t_fstEffect*(audioMasterCallback)> ("VSTPluginMain");
    const Vst2Effect effect (module, host2);
    EXPECT_EQ (
        std::tuple (effect->magic, effect->numPrograms, effect->numParams, effect->numInputs, effect->numOutputs),
        std::tuple (0x56737450, 46, 10, 2, 2));
    EXPECT_EQ (std::tuple (effect->flags, effect->uniqueID, effect->version), std::tuple (0x31, 0x51595730, 1120));
    EXPECT_EQ (effect.text (effGetEffectName) + effect.text (effGetProductString) + effect.text (effGetVendorString),
               "ORVEX DuoJudgeORVEX DuoJudgeORVEX Audio");
    std::map<t_fstPtrInt, std::string> answers;

    for (const char* text : { "receiveVstTimeInfo", "conformsToWindowRules", "bypass", "receiveVstEvents",
                              "receiveVstMidiEvent", "receiveVstMidiEvents", "sendVstEvents", "sendVstMidiEvent",
                              "sendVstMidiEvents", "openCloseAnyThread", "supportsViewDpiScaling", "" })
        answers[effect.call (effCanDo, 0, 0, const_cast<char*> (text))] += *text;

    EXPECT_EQ (answers,
               (std::map<t_fstPtrInt, std::string> { { 1, "rcb" }, { -1, "rrrssso" }, { 0, std::string ("s\0", 2) } }));
    host2.version = 0;
    EXPECT_TRUE (entry (Vst2Host::answer) == nullptr && entry (nullptr) == nullptr);
    EXPECT_EQ (module.find<long()> ("NewPlugIn")() + module.find<long()> ("_PI_GetRoutineDescriptor")(), 0);
}

TEST_F (Vst2Test, RefusesWhatIsNotItsOwnAndEveryCallWithNothingInIt)
{
    const std::map<int, t_fstPtrInt> answered { { 22, 0x4e764566 }, { 35, 1 },  { 44, 1 },      { 49, 1120 },
                                                { 58, 2400 },       { 63, -1 }, { 73, INT_MAX } };
    auto open = std::make_unique<Vst2Effect> (module, host2);
    auto* const effect = open->effect;

    for (const auto closed : { false, true })
    {
        for (const auto index : { -1, 10, 46, INT_MAX, INT_MIN })
            for (int opcode = -1; opcode < 120; ++opcode)
            {
                const auto isPointer = opcode == effSetSpeakerArrangement || opcode == effGetSpeakerArrangement;
                const auto found = closed ? answered.end() : answered.find (opcode);

                if (opcode == effClose)
                    continue;

                ASSERT_EQ (effect->dispatcher (effect, opcode, index, isPointer ? 0 : INT_MAX, nullptr, -1.0f),
                           found == answered.end() ? 0 : found->second)
                    << closed << opcode;
            }

        effect->setParameter (effect, 10, 1.0f), effect->setParameter (effect, -1, 1.0f);
        EXPECT_EQ (effect->getParameter (effect, 10) + effect->getParameter (effect, 9004), 0.0f);
        effect->processReplacing (effect, nullptr, nullptr, 64);
        open.reset();
    }

    const Vst2Effect later (module, host2);   // is not reached by way of the closed one
    effect->setParameter (effect, 3, 1.0f);
    EXPECT_EQ (later->getParameter (later.effect, 3), 0.0f);
}

TEST_F (Vst2Test, CutsTheNamesOfProgramsAndTellsWhatItChangesItself)
{
    const Vst2Effect effect (module, host2);
    const auto name = std::string (23, 'n');
    char place[26] = "", end = place[25] = '#';
    effect.call (effSetProgram, 0, 45), effect.call (effSetProgram, 0, 46);
    effect.call (effSetProgramName, 0, 0, (name + "\xc3\xa4\xc3\xa4").data());   // of which no half is left
    EXPECT_EQ (effect.call (effGetProgramNameIndexed, 45, 0, place) + effect.call (effGetProgram), 46);
    EXPECT_EQ (std::tuple (effect.text (effGetProgramName), std::string (place), end),
               std::tuple (name, name, place[25]));

    EXPECT_EQ (effect.text (effGetParamName, 3) + effect.text (effGetParamDisplay, 3) +
                   effect.text (effGetParamLabel, 3),
               "Toggle A and BOff");
    EXPECT_EQ (effect.call (effCanBeAutomated, 2) * 2 + effect.call (effCanBeAutomated, 3), 1);
    effect->setParameter (effect.effect, 4, 1.0f);
    await ([this] { return host2.edits.get() == std::map<int, double> { { 3, 1.0 } }; });
    auto program = effect.save (1);
    EXPECT_EQ (program, effect.save (0));
    effect->setParameter (effect.effect, 4, 0.0f);
    effect.call (effSetChunk, 1, t_fstPtrInt (program.size()), program.data());
    EXPECT_EQ (effect->getParameter (effect.effect, 4), 1.0f);

    constexpr int magic = 0x5a3c17e6;
    EXPECT_EQ (effect.call (effVendorSpecific, 1, 203) + effect.call (effVendorSpecific, magic, 202), 0);
    EXPECT_EQ (effect.call (effVendorSpecific, magic, 203) + effect.call (effVendorSpecific, magic, 202), 1);
    EXPECT_EQ (effect.call (effVendorSpecific, magic, 214, nullptr, 0.5f), 1);
    effect.start (44100.0, 64);
    await ([this] { return host2.ioChanges == 1; });   // the latency came with the start
}

TEST_F (Vst2Test, TakesMonoAndStereoArrangementsAlone)
{
    const Vst2Effect effect (module, host2);
    t_fstSpeakerArrangement* told[2];

    for (const auto& [in, out, numChannels, taken] : { std::tuple (Arrangement { 0, 1 }, Arrangement { 0, 1 }, 1, 1),
                                                       { { 1, 2 }, { 0, 1 }, 1, 0 },
                                                       { { 0, 2 }, { 0, 2 }, 1, 0 },
                                                       { { 5, 2 }, { 2, 2 }, 2, 1 },
                                                       { { -1, 0 }, { -1, 0 }, 2, 0 },
                                                       { { -2, INT_MIN }, { -2, INT_MIN }, 2, 0 },
                                                       { { -2, INT_MAX }, { -2, INT_MAX }, 2, 0 },
                                                       { { -2, 1 }, { -2, 1 }, 1, 1 },
                                                       { { 15, 6 }, { 15, 6 }, 1, 0 },
                                                       { { 1, INT_MAX }, { 1, INT_MAX }, 1, 0 } })
    {
        t_fstPinProperties pin {};
        EXPECT_EQ (arrange (effect, in, out), taken) << in.type << " " << in.numChannels;
        EXPECT_EQ (effect.call (effGetSpeakerArrangement, 0, reinterpret_cast<t_fstPtrInt> (&told[0]), &told[1]), 1);
        EXPECT_EQ (std::pair (told[0]->numChannels, told[1]->numChannels), std::pair (numChannels, numChannels));
        EXPECT_EQ (effect.call (effGetInputProperties, numChannels - 1, 0, &pin), 1);
        EXPECT_EQ (effect.call (effGetOutputProperties, numChannels, 0, &pin), 0);
        EXPECT_EQ (std::pair (pin.flags, std::atoi (pin.label)), std::pair (numChannels == 1 ? 5 : 7, numChannels));
    }
}

TEST_F (Vst2Test, ProcessesWhatHostsReallyHandOver)
{
    const Vst2Effect effect (module, host2);
    auto source = noise (2, 3 * 4096), heard = source;
    auto *const in = source.getWritePointer (0), *const out = heard.getWritePointer (0);
    effect.process (source, heard);   // not started
    EXPECT_TRUE (isLate (heard, source, 0, 0) && isLate (heard, source, 1, 0));

    // One channel's memory for both, none for the second, and no second; all in a block longer than is prepared for.
    for (auto [numChannels, secondIn, secondOut] :
         { std::tuple (2, in, out), { 2, nullptr, nullptr }, { 1, out + 1, in + 1 } })
    {
        float *ins[] { in, secondIn }, *outs[] { out, secondOut };
        EXPECT_EQ (arrange (effect, { -2, numChannels }, { -2, numChannels }), 1);
        effect.start (48000.0, 100);

        for (const auto stopped : { false, true })   // after which some hosts go on
        {
            stopped ? effect.call (effMainsChanged) : 0;
            std::fill_n (out, 3 * 4096, 0.0f);
            const AudioThreadGuard guard;
            effect->processReplacing (effect.effect, ins, outs, 3 * 4096);
            EXPECT_EQ (guard.counts().allocations, 0) << stopped;
            EXPECT_TRUE (isLate (heard, source, 0, 4096)) << numChannels << stopped;
        }
    }
}

TEST_F (Vst2Test, HandsTheTimelineOnWhileTheHostPlays)
{
    constexpr int play = kVstTransportPlaying, framed = play | kVstSmpteValid;
    const Vst2Effect effect (module, host2);
    auto audio = noise (2, 96);
    t_fstTimeInfo time {};
    effect.start (44100.0, 64);
    time.sampleRate = 44100.0, host2.time = &time;

    for (const auto& [flags, at, rate, start, code] : { std::tuple (play, 4999.6, 1, 5064, 6l),
                                                        { 0, 6000.0, 1, 5064, 6l },
                                                        { framed, 1.0, 0, 65, 1l },
                                                        { framed, 2.0, 1, 66, 2l },
                                                        { framed, 3.0, 2, 67, 4l },
                                                        { framed, 4.0, 3, 68, 6l },
                                                        { framed, 5.0, 4, 69, 3l },
                                                        { framed, 6.0, 5, 70, 5l },
                                                        { framed, 7.0, 10, 71, 0l },
                                                        { framed, 8.0, 99, 72, 0l },
                                                        { kVstTransportRecording, 9.0, 0, 73, 0l } })
    {
        time.flags = flags, time.samplePos = at, time.smpteFrameRate = rate;
        effect.process (audio, audio);   // in two pieces: the second starts 64 samples on
        EXPECT_EQ (std::pair (int (manager.start), std::lround (effect->getParameter (effect.effect, 1) * 1000)),
                   std::pair (start, code));
    }
}

TEST_F (Vst2Test, RunsItsEventsOnTheHostsThreadWhileThatComesByForAWindow)
{
    ParentWindow parent;
    const Vst2Effect first (module, host2), second (module, host2);
    const auto idle = [&] { return first.call (effEditIdle) + second.call (effEditIdle); };
    const auto ticksOnThisThread = [&]
    {
        idle();   // from here on the ticks count
        await ([&, now = manager.ticks.load()] { return idle() == 0 && manager.ticks > now + 1; });
        return manager.ticker.load() == std::this_thread::get_id();
    };
    EXPECT_FALSE (ticksOnThisThread());   // no window yet

    for (const auto* const shown : { &first, &second })
        EXPECT_EQ (shown->call (effEditOpen, 0, 0, reinterpret_cast<void*> (parent.window)), 1);

    EXPECT_TRUE (ticksOnThisThread());
    first.call (effEditClose);
    parent.destroy();
    EXPECT_TRUE (ticksOnThisThread());
    second.call (effEditClose);
    EXPECT_FALSE (ticksOnThisThread());
}
