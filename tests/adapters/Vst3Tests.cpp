// SPDX-License-Identifier: GPL-3.0-or-later
#include "PodSender.h"
#include "adapters/RawHost.h"

#include <juce_audio_formats/juce_audio_formats.h>
#include <juce_audio_processors/juce_audio_processors.h>

namespace
{

using Audio = juce::AudioSampleBuffer;
constexpr int latency = 4096;
constexpr ParamID bypassTag = 0x62706173, programTag = 0x70727374;

Audio noise (int channels, int samples)
{
    juce::Random random (1);
    Audio audio (channels, samples);

    for (int i = 0; i < channels * samples; ++i)
        audio.setSample (i % channels, i / channels, random.nextFloat() - 0.5f);

    return audio;
}

/** A stretch of some audio, which stays where it is. */
Audio stretch (Audio& audio, int start, int length)
{
    return { audio.getArrayOfWritePointers(), audio.getNumChannels(), start,
             std::min (length, audio.getNumSamples() - start) };
}

/** @returns the first sample from `start` on at which a channel is not what it was 4096 samples before, or -1. */
int findFault (const Audio& heard, const Audio& source, int channel, int start)
{
    for (int i = start; i < heard.getNumSamples(); ++i)
        if (heard.getSample (channel, i) != (i < latency ? 0.0f : source.getSample (channel, i - latency)))
            return i;

    return -1;
}

juce::String toText (const TChar* text)
{
    return juce::CharPointer_UTF16 (reinterpret_cast<const juce::CharPointer_UTF16::CharType*> (text));
}

struct Vst3Test : PlugInTest
{
};
struct Vst3NullTest : PlugInTest
{
    Vst3NullTest() : PlugInTest ("real") {}
};

/** Stands between the two ends, as hosts do that record what the two say. */
struct Proxy final : HostObject<IConnectionPoint>
{
    tresult PLUGIN_API connect (IConnectionPoint*) override { return kNotImplemented; }
    tresult PLUGIN_API disconnect (IConnectionPoint*) override { return kNotImplemented; }
    tresult PLUGIN_API notify (IMessage* message) override
    {
        return end != nullptr ? end->notify (message) : kResultFalse;
    }
    IConnectionPoint* end = nullptr;   // messages are lost while there is none
};

}   // namespace

TEST_F (Vst3Test, ExportsItsEntryPointsAloneAndDescribesItsClassesByteForByte)
{
    juce::ChildProcess reader;
    ASSERT_TRUE (reader.start (juce::StringArray { DUO_SYMBOL_READER, "-D", "--defined-only", DUO_PLUGIN_FILE }));
    auto symbols = juce::StringArray::fromLines (reader.readAllProcessOutput().trim());

    for (auto& symbol : symbols)
        symbol = symbol.fromLastOccurrenceOf (" ", false, false);

    symbols.sort (false);
    EXPECT_EQ (symbols.joinIntoString (" "), "ExitDll GetPluginFactory InitDll ModuleEntry ModuleExit");
    EXPECT_TRUE (module.find<bool()> ("InitDll")() && module.find<bool()> ("ExitDll")());

    PFactoryInfo factoryInfo;
    EXPECT_EQ (module.factory->getFactoryInfo (&factoryInfo), kResultOk);
    EXPECT_STREQ (factoryInfo.vendor, "ORVEX Audio");
    EXPECT_EQ (factoryInfo.flags, 16);
    EXPECT_EQ (module.factory->countClasses(), 2);
    TUID controllerClass;
    EXPECT_EQ (module.make<IComponent> (0)->getControllerClassId (controllerClass), kResultOk);

    for (const auto& [index, id, category] :
         { std::tuple (0, "\x69\xB6\xDB\x0C\xD5\x85\xA9\x48TRKPLMW0", "Audio Module Class"),
           { 1, "\x6A\xB6\xDB\x0C\xD5\x85\xA9\x48TRKPLMW0", "Component Controller Class" } })
    {
        PClassInfo2 info;
        EXPECT_EQ (FUnknownPtr<IPluginFactory2> (module.factory)->getClassInfo2 (index, &info), kResultOk);
        EXPECT_EQ (std::memcmp (index == 0 ? info.cid : controllerClass, id, 16) | std::memcmp (info.cid, id, 16), 0);
        EXPECT_EQ (juce::StringArray (
                       { info.category, info.name, info.subCategories, info.vendor, info.version, info.sdkVersion })
                       .joinIntoString (","),
                   juce::String (category) + ",ORVEX DuoJudge,Fx|Other,ORVEX Audio,1.1.2.0,VST 3.6.5");
        EXPECT_EQ (info.cardinality, 0x7fffffff);
        EXPECT_EQ (info.classFlags, 0u);
    }
}

TEST_F (Vst3Test, PublishesTheBypassAndTheParametersThatHostsMaySee)
{
    Instance instance (module, host);
    EXPECT_EQ (instance.controller->initialize (nullptr), kResultOk);   // once more, as some hosts do
    juce::String told;
    String128 text;

    for (int32 index = 0; index < instance.controller->getParameterCount(); ++index)
    {
        ParameterInfo info {};
        instance.controller->getParameterInfo (index, info);
        instance.controller->getParamStringByValue (info.id, 1.0, text);
        told << juce::String::toHexString (int (info.id)) << "," << toText (info.title) << "," << toText (text) << ","
             << info.stepCount << "," << info.defaultNormalizedValue << "," << juce::String::toHexString (info.flags)
             << "\n";
    }

    EXPECT_EQ (told, "62706173,Master Bypass,On,1,0,10001\n"
                     "3,Toggle A and B,On,0,0,1\n"
                     "4,Toggle X and Y,On,0,0,1\n"
                     "5,Blind Test,On,0,0,1\n"
                     "6,Choose Audio,On,0,0,1\n"
                     "7,End Test,On,0,0,1\n"
                     "8,Reveal Statistics,On,0,0,1\n"
                     "9,Resume Test,On,0,0,1\n");
}

TEST_F (Vst3Test, TakesTheLastPointOfAQueueAlsoWithNoAudioAtAll)
{
    Instance instance (module, host);
    auto& controller = *instance.controller;
    instance.set (5, { 1.0, 0.25, 0.75 });
    instance.set (9, {});
    instance.set (4, { 1.0 });
    instance.set (programTag, { 1.0 });
    instance.set (4000000000, { 1.0 });
    instance.set (bypassTag, { 0.0, 0.51 });
    EXPECT_EQ (controller.getParamNormalized (5), 0.75);
    EXPECT_EQ (controller.getParamNormalized (9), 0.0);
    EXPECT_EQ (controller.getParamNormalized (programTag), 0.0);
    EXPECT_EQ (controller.getParamNormalized (bypassTag), 1.0);
    EXPECT_EQ (host.edits, (std::map<ParamID, ParamValue> { { 3, 1.0 } }));   // which the fourth one flips
    instance.set (bypassTag, { 1.0, 0.5 });
    EXPECT_EQ (controller.getParamNormalized (bypassTag), 0.0);
}

TEST_F (Vst3Test, RefusesWhatItCannotProcess)
{
    Instance instance (module, host);
    auto audio = noise (2, 64);
    EXPECT_EQ (instance.process (&audio, nullptr), kResultFalse);
    EXPECT_EQ (instance.process (nullptr, &audio), kResultFalse);
    EXPECT_EQ (instance.setUp (44100.0, 64, kSample64), kResultFalse);
    EXPECT_EQ (instance.audio->canProcessSampleSize (kSample64), kResultFalse);
    SpeakerArrangement stereo[] { SpeakerArr::kStereo, SpeakerArr::kStereo };

    for (const auto& [ins, outs] : { std::pair (2, 1), { 1, 2 }, { 0, 1 }, { 1, 0 }, { 0, 0 } })
        EXPECT_EQ (instance.audio->setBusArrangements (stereo, ins, stereo, outs), kNotImplemented);
}

TEST_F (Vst3Test, DelaysEveryLayoutByItsLatencyAtAnyRateAndBlockLength)
{
    struct Case
    {
        SpeakerArrangement layout;
        int channels;
        ParamValue bypass;
        double rate;
        int block;
        int32 mode;
    };
    Instance instance (module, host);

    for (const auto& row : { Case { SpeakerArr::kStereo, 2, 0.0, 44100.0, 8192, kRealtime },
                             { SpeakerArr::kMono, 1, 0.0, 96000.0, 333, kRealtime },
                             { SpeakerArr::kMono, 1, 1.0, 96000.0, 64, kOffline },
                             { SpeakerArr::k51, 6, 1.0, 44100.0, 1, kOffline },
                             { 0xfff, 12, 1.0, 192000.0, 8192, kPrefetch },
                             { 0xfff, 12, 0.0, 8000.0, 4097, kRealtime },
                             { SpeakerArr::kStereo, 2, 1.0, 48000.0, 1000, kOffline } })
    {
        auto layout = row.layout;
        EXPECT_EQ (instance.component->setActive (0) | instance.audio->setProcessing (0), kResultOk);
        EXPECT_EQ (instance.audio->setBusArrangements (&layout, 1, &layout, 1), kResultTrue);
        EXPECT_EQ (instance.setUp (row.rate, row.block, kSample32, row.mode), kResultOk);
        EXPECT_EQ (instance.component->setActive (1) | instance.audio->setProcessing (1), kResultOk);
        EXPECT_EQ (instance.audio->getLatencySamples(), 4096u);
        BusInfo info {};
        EXPECT_EQ (instance.component->getBusInfo (kAudio, kOutput, 0, info), kResultTrue);
        EXPECT_EQ (info.channelCount, row.channels);
        instance.set (bypassTag, { row.bypass });

        auto source = noise (row.channels, 3 * latency), heard = source;
        heard.applyGain (0.0f);

        for (int start = 0; start < source.getNumSamples(); start += row.block)
        {
            auto in = stretch (source, start, row.block), out = stretch (heard, start, row.block);
            EXPECT_EQ (instance.process (&in, &out), kResultOk);
        }

        for (int channel = 0; channel < (row.bypass > 0.0 ? std::min (row.channels, 10) : std::min (row.channels, 2));
             ++channel)
            EXPECT_EQ (findFault (heard, source, channel, latency), -1) << row.channels << " " << channel;

        for (int channel = 10; channel < row.channels; ++channel)
            EXPECT_EQ (heard.getMagnitude (channel, 0, heard.getNumSamples()), 0.0f);
    }
}

TEST_F (Vst3Test, HandsTheTimelineOnWhileItIsActiveAndTheHostPlays)
{
    constexpr uint32 playing = ProcessContext::kPlaying, framed = playing | ProcessContext::kSmpteValid;
    struct Case
    {
        uint32 state;
        int64 time;
        uint32 framesPerSecond;
        uint32 flags;
        int64 start;
        int framerate;
    };
    Instance instance (module, host);
    auto audio = noise (2, 64);

    for (const auto& row : { Case { playing, 5000, 25, 0, 5000, 6 },
                             { 0, 6000, 25, 0, 5000, 6 },
                             { playing, -7, 0, 0, 0, 6 },
                             { framed, 1LL << 40, 24, 0, 1LL << 40, 1 },
                             { framed, 1, 25, 0, 1, 2 },
                             { framed, 2, 29, 0, 2, 5 },
                             { framed, 3, 30, 0, 3, 6 },
                             { framed, 4, 30, FrameRate::kDropRate, 4, 5 },
                             { framed, 5, 60, 0, 5, 5 } })
    {
        ProcessContext context {};
        context.state = row.state;
        context.projectTimeSamples = row.time;
        context.frameRate = { row.framesPerSecond, row.flags };

        for (auto* const given :
             { &context, static_cast<ProcessContext*> (nullptr) })   // without one the former counts
        {
            EXPECT_EQ (instance.process (&audio, &audio, nullptr, given), kResultOk);
            EXPECT_EQ (manager.start, row.start);
            EXPECT_EQ (std::lround (instance.controller->getParamNormalized (1) * 1000), row.framerate) << row.time;
        }

        instance.component->setActive (0), context.projectTimeSamples = 99;
        EXPECT_EQ (instance.process (&audio, &audio, nullptr, &context), kResultOk);
        EXPECT_EQ (manager.start, row.start);
        instance.component->setActive (1);
    }
}

TEST_F (Vst3Test, BringsASessionBackWholeAndOutlivesBytesOfAnyKind)
{
    Instance saved (module, host), loaded (module, host);
    saved.set (8, { 1.0 });
    const auto state = saved.save();
    loaded.load (state);
    EXPECT_EQ (loaded.controller->getParamNormalized (8), 1.0);
    EXPECT_EQ (state.substr (0, 4), "VC2!");

    for (std::size_t length = 0; length < state.size(); length += 1 + length / 64)
        loaded.load (state.substr (0, length));

    for (const auto* const bytes : { "VC2!", "VC2!\xff\xff\xff\xff<", "VC2!\xff\xff\xff\x7f<MYPLUGINSETTINGS>" })
        loaded.load (bytes);

    Instance older (module, host);
    older.load ("bytes of an earlier version");
    EXPECT_EQ (older.save(), "bytes of an earlier version");
    older.load (state);
    EXPECT_EQ (older.save().substr (0, 4), "VC2!");
    EXPECT_EQ (older.controller->getParamNormalized (8), 1.0);
}

TEST_F (Vst3Test, EachControllerFindsItsOwnProcessorHoweverTheHostConnectsThem)
{
    for (const auto& [messages, proxied, controllerFirst] : { std::tuple (true, false, false),
                                                              { true, true, false },
                                                              { true, true, true },
                                                              { false, false, true },
                                                              { false, true, false } })
    {
        constexpr unsigned count = 4;
        host.makesMessages = messages;
        Proxy proxies[count][2];
        IPtr<IComponent> components[count];
        IPtr<IEditController> controllers[count];
        std::vector<std::thread> threads;

        for (auto& component : components)
            threads.emplace_back ([&]
                                  { component = module.make<IComponent> (0), component->initialize (host.context()); });

        for (auto& thread : threads)
            thread.join();

        for (auto& controller : controllers)
            controller = module.make<IEditController> (1), controller->initialize (host.context());

        for (unsigned i = 0; i < count; ++i)
        {
            FUnknownPtr<IConnectionPoint> ends[] { components[i].get(), controllers[i].get() };

            for (const unsigned end : { controllerFirst ? 1u : 0u, controllerFirst ? 0u : 1u })
            {
                proxies[i][1 - end].end = ends[end];
                auto* const other = proxied ? &proxies[i][end] : ends[1 - end].getInterface();
                EXPECT_EQ (ends[end]->connect (other), kResultOk);
            }
        }

        for (unsigned changed = 0; changed < count; ++changed)
        {
            EXPECT_EQ (controllers[changed]->setParamNormalized (9, 1.0), kResultOk);

            for (unsigned i = 0; i < count; ++i)
            {
                MemoryStream state;
                components[i]->getState (&state);
                EXPECT_EQ (std::string (state.getData(), unsigned (state.getSize())).find (" Resume=\"1\"") !=
                               std::string::npos,
                           i <= changed);
            }
        }

        for (unsigned i = 0; i < count; ++i)
            i % 2 == 0 ? (components[i]->terminate(), controllers[i]->terminate())
                       : (controllers[i]->terminate(), components[i]->terminate());
    }
}

TEST_F (Vst3Test, SurvivesAControllerAloneAndOneThatOutlivesItsComponent)
{
    const auto alone = module.make<IEditController> (1);
    MemoryStream stream;
    EXPECT_EQ (alone->initialize (host.context()) | alone->setComponentHandler (&host), kResultOk);
    EXPECT_EQ (alone->setParamNormalized (3, 1.0), kResultFalse);
    EXPECT_EQ (alone->getParamNormalized (3) + alone->getParamNormalized (bypassTag), 0.0);
    EXPECT_EQ (alone->createView (ViewType::kEditor), nullptr);
    EXPECT_EQ (alone->setComponentState (&stream), kResultFalse);

    auto instance = std::make_unique<Instance> (module, host);
    const auto survivor = instance->controller;
    FUnknownPtr<IConnectionPoint> (alone.get())->connect (instance->ends[0]);
    instance->set (3, { 1.0 });
    EXPECT_EQ (alone->getParameterCount(), 0);   // whom the component does not know
    instance.reset();
    EXPECT_EQ (survivor->getParamNormalized (3), 1.0);
    EXPECT_EQ (survivor->initialize (host.context()), kResultOk);
    EXPECT_EQ (survivor->getParameterCount(), 8);
    survivor->terminate(), alone->terminate();
    FUnknownPtr<IConnectionPoint> (alone.get())->disconnect (nullptr);
}

TEST_F (Vst3Test, ComesAndGoesInAnyOrderAndFromSeveralThreadsAndTicksWithNoEventLoop)
{
    juce::Random random (1);
    std::vector<std::unique_ptr<Instance>> instances (50);

    for (auto& instance : instances)
        instance = std::make_unique<Instance> (module, host);

    await ([this, before = manager.ticks.load()] { return manager.ticks > before + 100; });
    EXPECT_NE (manager.ticker.load(), std::this_thread::get_id());
    std::shuffle (instances.begin(), instances.end(), std::mt19937 (1));
    instances.clear();

    std::vector<std::thread> threads;
    auto audio = noise (2, 512);

    for (int i = 0; i < 4; ++i)
        threads.emplace_back (
            [&, block = audio]() mutable
            {
                for (int round = 0; round < 10; ++round)
                    EXPECT_EQ (Instance (module, host).process (&block, &block), kResultOk);
            });

    for (auto& thread : threads)
        thread.join();
}

TEST_F (Vst3NullTest, CancelsARecordingAgainstItselfToTheLastBit)
{
    juce::FlacAudioFormat format;
    const std::unique_ptr<juce::AudioFormatReader> reader (
        format.createReaderFor (new juce::FileInputStream (juce::File (DUO_RECORDING)), true));
    ASSERT_NE (reader, nullptr);
    Audio source (2, int (reader->lengthInSamples));
    reader->read (&source, 0, source.getNumSamples(), 0, true, true);
    ASSERT_GT (source.getMagnitude (0, source.getNumSamples()), 0.1f);

    PodSender sender ("Reference");
    sender.prepare (2, 8192);
    Instance a (module, host), b (module, host);
    await ([&] { return sender.countListeners() == 2; });
    b.set (3, { 1.0 });
    auto heardA = source, heardB = source;
    ProcessContext context {};
    juce::Random random (1);

    for (int start = 0, length = 0; start < source.getNumSamples(); start += length)
    {
        length = 1 + random.nextInt (random.nextBool() ? 64 : 4096);
        auto in = stretch (source, start, length), outA = stretch (heardA, start, length),
             outB = stretch (heardB, start, length);
        const auto send = [&]
        {
            Audio sent;
            sent.makeCopyOf (in);
            sender.process (sent, start);
        };
        const auto sendsFirst = random.nextBool();
        context.state = ProcessContext::kPlaying;
        context.projectTimeSamples = start;

        if (sendsFirst)
            send();

        EXPECT_EQ (a.process (&in, &outA, nullptr, &context) | b.process (&in, &outB, nullptr, &context), kResultOk);

        if (! sendsFirst)
            send();
    }

    for (const auto channel : { 0, 1 })
    {
        EXPECT_EQ (findFault (heardA, source, channel, 0), -1);
        EXPECT_EQ (findFault (heardB, source, channel, 0), -1);
    }
}

TEST (Vst3InToolkitHostTest, LoadsPlaysAndKeepsItsSession)
{
    ::setenv ("HOME", DUO_HOMES "real", 1);
    juce::VST3PluginFormat format;
    juce::OwnedArray<juce::PluginDescription> found;
    juce::String error;
    format.findAllTypesForFile (found, DUO_PLUGIN_BUNDLE);
    ASSERT_EQ (found.size(), 1);
    EXPECT_EQ (found[0]->name + found[0]->version, "ORVEX DuoJudge1.1.2.0");
    const auto saved = format.createInstanceFromDescription (*found[0], 48000.0, 512, error),
               loaded = format.createInstanceFromDescription (*found[0], 48000.0, 512, error);
    ASSERT_TRUE (saved != nullptr && loaded != nullptr) << error;
    saved->prepareToPlay (48000.0, 512);
    EXPECT_EQ (saved->getLatencySamples(), latency);
    ASSERT_EQ (saved->getParameters().size(), 8);
    saved->getParameters()[6]->setValue (1.0f);

    auto source = noise (2, 16384), heard = source;
    juce::MidiBuffer midi;

    for (int start = 0; start < source.getNumSamples(); start += 512)
    {
        auto block = stretch (heard, start, 512);
        saved->processBlock (block, midi);
    }

    EXPECT_EQ (findFault (heard, source, 0, 0), -1);
    EXPECT_EQ (findFault (heard, source, 1, 0), -1);
    juce::MemoryBlock state;
    saved->getStateInformation (state);
    loaded->setStateInformation (state.getData(), int (state.getSize()));
    EXPECT_EQ (loaded->getParameters()[6]->getValue(), 1.0f);
}
