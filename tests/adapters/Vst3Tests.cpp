// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/RawHost.h"

namespace
{

constexpr ParamID bypassTag = 0x62706173, programTag = 0x70727374;

/** Stands between the two ends, and loses what comes before both are there. */
struct Proxy final : HostObject<IConnectionPoint>
{
    tresult PLUGIN_API connect (IConnectionPoint*) override { return kNotImplemented; }
    tresult PLUGIN_API disconnect (IConnectionPoint*) override { return kNotImplemented; }
    tresult PLUGIN_API notify (IMessage* message) override
    {
        return end != nullptr ? end->notify (message) : kResultFalse;
    }
    IConnectionPoint* end = nullptr;
};

using Vst3Test = PlugInTest;

}   // namespace

TEST_F (Vst3Test, ExportsEntryPointsAloneAsItsManagerDoesAndDescribesItsClassesByteForByte)
{
    for (const auto& [file, names] :
         { std::pair (DUO_PLUGIN_FILE,
                      "ACFCanUnloadNow\nACFGetClassFactory\nACFGetSDKVersion\nACFRegisterComponent\nACFRegisterPlugin\n"
                      "ACFShutdown\nACFStartup\nExitDll\nGetPluginFactory\nInitDll\nModuleEntry\nModuleExit\n"
                      "NewPlugIn\nVSTPluginMain\n_PI_GetRoutineDescriptor\n"),
           { DUO_MANAGER_FILE, "BayLinkManagerConnect2\nBayLinkManagerVersion\n" } })
    {
        juce::ChildProcess reader;
        ASSERT_TRUE (reader.start (juce::StringArray { DUO_SYMBOL_READER, "-Dj", "--defined-only", file }));
        EXPECT_EQ (reader.readAllProcessOutput(), names);
    }
    EXPECT_TRUE (module.find<bool()> ("InitDll")() && module.find<bool()> ("ExitDll")());

    PFactoryInfo factory;
    module.factory->getFactoryInfo (&factory);
    juce::String told (factory.vendor);
    told << factory.flags;

    for (int32 index = 0; index < module.factory->countClasses(); ++index)
    {
        PClassInfo2 info;
        FUnknownPtr<IPluginFactory2> (module.factory)->getClassInfo2 (index, &info);
        told << "\n"
             << juce::String::toHexString (info.cid, 16) << info.category << info.name << info.subCategories
             << info.vendor << info.version << info.sdkVersion << info.cardinality << int (info.classFlags);
    }

    EXPECT_EQ (told, "ORVEX Audio16\n69 b6 db 0c d5 85 a9 48 54 52 4b 50 4c 4d 57 30Audio Module ClassORVEX DuoJudge"
                     "Fx|OtherORVEX Audio1.1.2.0VST 3.6.521474836470\n6a b6 db 0c d5 85 a9 48 54 52 4b 50 4c 4d 57 30"
                     "Component Controller ClassORVEX DuoJudgeFx|OtherORVEX Audio1.1.2.0VST 3.6.521474836470");
}

TEST_F (Vst3Test, PublishesTheBypassAndTheParametersThatHostsMaySee)
{
    Instance instance (module, host);
    EXPECT_EQ (instance.controller->initialize (nullptr), kResultOk);   // once more, as some hosts do
    juce::String told;

    for (int32 index = 0; index < instance.controller->getParameterCount(); ++index)
    {
        ParameterInfo info {};
        String128 on;
        instance.controller->getParameterInfo (index, info);
        instance.controller->getParamStringByValue (info.id, 1.0, on);
        told << int (info.id) << toText (info.title) << toText (on) << info.stepCount << info.defaultNormalizedValue
             << info.flags << "\n";
    }

    EXPECT_EQ (told, "1651532147Master BypassOn1065537\n3Toggle A and BOn001\n4Toggle X and YOn001\n5Blind TestOn001\n"
                     "6Choose AudioOn001\n7End TestOn001\n8Reveal StatisticsOn001\n9Resume TestOn001\n");
}

TEST_F (Vst3Test, TakesTheLastPointOfAQueueWithNoAudioAtAllAndRefusesWhatItCannotProcess)
{
    Instance instance (module, host);
    const auto get = [&] (ParamID id) { return instance.controller->getParamNormalized (id); };
    instance.set (5, { 1.0, 0.25, 0.75 }), instance.set (9, {}), instance.set (4, { 1.0 });
    instance.set (programTag, { 1.0 }), instance.set (4000000000, { 1.0 }), instance.set (bypassTag, { 0.0, 0.51 });
    EXPECT_EQ (std::tuple (get (5), get (9), get (programTag), get (bypassTag)), std::tuple (0.75, 0.0, 0.0, 1.0));
    await ([this] { return host.edits.get() == std::map<int, double> { { 3, 1.0 } }; });   // which the fourth one flips
    instance.set (bypassTag, { 1.0, 0.5 });
    EXPECT_EQ (get (bypassTag), 0.0);

    auto audio = noise (2, 64);
    EXPECT_EQ (instance.process (&audio, nullptr) & instance.process (nullptr, &audio), kResultFalse);
    EXPECT_EQ (instance.audio->canProcessSampleSize (kSample64) & instance.setUp (44100.0, 64, kSample64),
               kResultFalse);
    SpeakerArrangement stereo[] { SpeakerArr::kStereo, SpeakerArr::kStereo };

    for (const auto& [ins, outs] : { std::pair (2, 1), { 1, 2 }, { 0, 1 }, { 1, 0 }, { 0, 0 } })
        EXPECT_EQ (instance.audio->setBusArrangements (stereo, ins, stereo, outs), kNotImplemented);
}

TEST_F (Vst3Test, TellsWhatABlockHasChangedWithTheBlockAndNoMoreOrElseByTheNextTick)
{
    Instance instance (module, host);
    auto audio = noise (2, 64);
    Outputs outputs;

    for (const auto& [value, room, given] :
         { std::tuple (1.0, 0, &outputs), { 0.0, 0, nullptr }, { 1.0, 16, &outputs } })
    {
        Changes changes (4, { value });   // flips the third parameter
        const std::map<int, double> flipped { { 3, value } };
        outputs.count = room, host.edits.clear();
        EXPECT_EQ (instance.process (&audio, &audio, &changes, nullptr, given), kResultOk);
        EXPECT_EQ (outputs.count, room + (given != nullptr && room == 0 ? 1 : 0));
        const auto byBlock = outputs.count == 1;
        EXPECT_TRUE (! byBlock || outputs.told[0] == std::pair (ParamID (3), 63 + value));

        if (! byBlock)
            await ([&] { return host.edits.get() == flipped; });

        await ([this, now = manager.ticks.load()] { return manager.ticks > now + 2; });
        EXPECT_TRUE (host.edits.get() == flipped || byBlock) << value;
        EXPECT_EQ (host.edits.get().empty(), byBlock) << value;
    }
}

TEST_F (Vst3Test, DelaysEveryLayoutByItsLatencyAtAnyRateAndBlockLength)
{
    constexpr SpeakerArrangement twelve = 0xfff;
    Instance instance (module, host);

    for (auto [layout, late, bypass, rate, block, mode] :
         { std::tuple (SpeakerArr::kMono, 1, 0.0, 96000.0, 333, kRealtime),
           { SpeakerArr::k51, 6, 1.0, 44100.0, 1, kOffline },
           { twelve, 10, 1.0, 192000.0, 8192, kPrefetch },
           { twelve, 2, 0.0, 8000.0, 4097, kRealtime } })
    {
        const auto channels = SpeakerArr::getChannelCount (layout);
        auto source = noise (channels, 3 * 4096), heard = source;
        BusInfo info {};
        EXPECT_EQ (instance.audio->setProcessing (0) | instance.component->setActive (0) |
                       instance.audio->setBusArrangements (&layout, 1, &layout, 1) |
                       instance.setUp (rate, block, kSample32, mode) | instance.component->setActive (1) |
                       instance.audio->setProcessing (1) | instance.component->getBusInfo (kAudio, kOutput, 0, info),
                   kResultOk);
        EXPECT_EQ (info.channelCount, channels);
        instance.set (bypassTag, { bypass });

        for (int start = 0; start < source.getNumSamples(); start += block)
        {
            auto in = stretch (source, start, block), out = stretch (heard, start, block);
            EXPECT_EQ (instance.process (&in, &out), kResultOk);
        }

        for (int channel = 0; channel < channels; ++channel)
            EXPECT_TRUE (channel < late ? isLate (heard, source, channel, 4096)
                                        : channel < 10 || std::equal (source.getReadPointer (channel),
                                                                      source.getReadPointer (channel) + 3 * 4096,
                                                                      heard.getReadPointer (channel)))
                << channels << " " << channel;
    }
}

TEST_F (Vst3Test, HandsTheTimelineOnWhileItIsActiveAndTheHostPlays)
{
    constexpr uint32 play = ProcessContext::kPlaying, framed = play | ProcessContext::kSmpteValid,
                     drop = FrameRate::kDropRate;
    Instance instance (module, host);
    auto audio = noise (2, 64);

    const std::tuple<uint32, int, uint32, uint32, int, long> cases[] {
        { play, 5000, 25, 0, 5000, 6 }, { 0, 6000, 25, 0, 5000, 6 },   { play, -7, 0, 0, 0, 6 },
        { framed, 1, 24, 0, 1, 1 },     { framed, 2, 25, drop, 2, 2 }, { framed, 3, 29, 0, 3, 5 },
        { framed, 4, 30, 0, 4, 6 },     { framed, 5, 30, drop, 5, 5 }, { framed, 6, 60, 0, 6, 5 }
    };

    for (const auto& [state, time, rate, flags, start, code] : cases)
    {
        ProcessContext context {}, other {};
        other.state = context.state = state, context.projectTimeSamples = time, context.frameRate = { rate, flags };
        const auto process = [&, start = start, code = code] (ProcessContext* given)
        {
            EXPECT_EQ (instance.process (&audio, &audio, nullptr, given), kResultOk);
            EXPECT_EQ (
                std::pair (int (manager.start), std::lround (instance.controller->getParamNormalized (1) * 1000)),
                std::pair (start, long (code)));
        };
        process (&context), process (nullptr);   // without one the former counts
        instance.component->setActive (0);
        process (&other);
        instance.component->setActive (1);
    }
}

TEST_F (Vst3Test, KeepsTheBytesOfAnEarlierVersionUntilItLoadsASession)
{
    Instance saved (module, host), older (module, host);
    saved.set (8, { 1.0 });

    for (const auto* const bytes : { "VC2!\xff\xff\xff\x7f<MYPLUGINSETTINGS>", "bytes of an earlier version" })
        older.load (bytes);

    EXPECT_EQ (save (*older.component), "bytes of an earlier version");
    older.load (save (*saved.component));
    EXPECT_EQ (older.controller->getParamNormalized (8), 1.0);
    EXPECT_EQ (save (*older.component).substr (0, 4), "VC2!");
}

TEST_F (Vst3Test, EachControllerFindsItsOwnProcessorHoweverTheHostConnectsThem)
{
    for (const auto& [messages, proxied, last] :
         { std::tuple (true, false, 1), { true, true, 1 }, { true, true, 0 }, { false, false, 0 }, { false, true, 1 } })
    {
        host.context = messages ? &host.messages : nullptr;
        Proxy proxies[4][2];
        IPtr<IComponent> components[4];
        IPtr<IEditController> controllers[4];
        std::vector<std::thread> makers;

        for (auto& component : components)
            makers.emplace_back ([&]
                                 { component = module.make<IComponent> (0), component->initialize (host.context); });

        for (auto& maker : makers)
            maker.join();

        for (auto& controller : controllers)
            controller = module.make<IEditController> (1), controller->initialize (host.context);

        for (unsigned i = 0; i < 4; ++i)
        {
            FUnknownPtr<IConnectionPoint> ends[] { components[i].get(), controllers[i].get() };

            for (const auto end : { 1 - last, last })
            {
                proxies[i][1 - end].end = ends[end];
                EXPECT_EQ (ends[end]->connect (proxied ? &proxies[i][end] : ends[1 - end].getInterface()), kResultOk);
            }
        }

        for (unsigned changed = 0; changed < 4; ++changed)
        {
            EXPECT_EQ (controllers[changed]->setParamNormalized (9, 1.0), kResultOk);

            for (unsigned i = 0; i < 4; ++i)
                EXPECT_EQ (save (*components[i]).find (" Resume=\"1\"") != std::string::npos, i <= changed)
                    << proxied << last;
        }

        for (unsigned i = 0; i < 4; ++i)
            for (const unsigned end : { i % 2, 1 - i % 2 })
                end == 0 ? components[i]->terminate() : controllers[i]->terminate();
    }
}

TEST_F (Vst3Test, SurvivesAControllerAloneAndOneThatOutlivesItsComponent)
{
    const auto alone = module.make<IEditController> (1);
    MemoryStream stream;
    EXPECT_EQ (alone->initialize (host.context) | alone->setComponentHandler (&host), kResultOk);
    EXPECT_EQ (alone->setParamNormalized (3, 1.0) & alone->setComponentState (&stream), kResultFalse);
    EXPECT_EQ (alone->getParamNormalized (3) + alone->getParamNormalized (bypassTag), 0.0);
    EXPECT_EQ (alone->createView (ViewType::kEditor), nullptr);

    auto instance = std::make_unique<Instance> (module, host);
    const auto survivor = instance->controller;
    instance->set (3, { 1.0 });
    instance.reset();
    EXPECT_EQ (survivor->initialize (host.context), kResultOk);
    EXPECT_EQ (std::pair (survivor->getParamNormalized (3), survivor->getParameterCount()), std::pair (1.0, 8));
    survivor->terminate(), alone->terminate();
}
