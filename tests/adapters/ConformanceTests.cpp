// SPDX-License-Identifier: GPL-3.0-or-later
// What the plug-in promises its hosts in every format.
#include "adapters/AaxHost.h"
#include "adapters/ParentWindow.h"
#include "adapters/Vst2Host.h"
#include "support/AudioThreadGuard.h"

namespace
{

constexpr int bypassId = -1;

/** On an audio thread: nothing but one lock, that of the pods. */
void expectNothingOf (const AudioThreadGuard& guard)
{
    const auto [allocations, locks, systemCalls, hostCalls] = guard.counts();
    EXPECT_EQ (std::tuple (allocations, systemCalls, hostCalls), std::tuple (0, 0, 0));
    EXPECT_LE (locks, 1);
}

/** An instance as a host of some format holds it. */
struct Form
{
    virtual ~Form() = default;
    virtual bool arrange (int channels) = 0;                              // before a start
    virtual int start (double rate, int block) = 0;                       // gives the latency
    virtual void process (Audio& in, Audio& out, juce::int64 time) = 0;   // while the host plays
    virtual void set (int id, float value) = 0;
    virtual void setFrameRate (int number) = 0;   // by the host's own
    virtual float get (int id) = 0;
    virtual std::string save() = 0;
    virtual void load (std::string state) = 0;
    virtual std::pair<int, int> open (::Window parent) = 0;   // gives the size
    virtual void close() = 0;
};

struct Vst3Form : Form
{
    Vst3Form (PlugInTest& test) : instance (test.module, test.host) {}
    bool arrange (int channels) override
    {
        instance.component->setActive (0);
        SpeakerArrangement speakers = (SpeakerArrangement (1) << channels) - 1;
        return instance.audio->setBusArrangements (&speakers, 1, &speakers, 1) == kResultOk;
    }
    int start (double rate, int block) override
    {
        instance.component->setActive (0);
        EXPECT_EQ (instance.setUp (rate, block) | instance.component->setActive (1), kResultOk);
        return int (instance.audio->getLatencySamples());
    }
    void process (Audio& in, Audio& out, juce::int64 time) override
    {
        context.state = ProcessContext::kPlaying | ProcessContext::kSmpteValid, context.projectTimeSamples = time;
        outputs.count = 0;
        EXPECT_EQ (instance.process (&in, &out, nullptr, &context, &outputs), kResultOk);
    }
    void set (int id, float value) override
    {
        Changes changes (id == bypassId ? 0x62706173u : unsigned (id), { value });
        const AudioThreadGuard guard;
        EXPECT_EQ (instance.process (nullptr, nullptr, &changes), kResultOk);   // a block of nothing else
        expectNothingOf (guard);
    }
    void setFrameRate (int number) override { context.frameRate.framesPerSecond = unsigned (24 + number % 2); }
    float get (int id) override { return float (instance.controller->getParamNormalized (unsigned (id))); }
    std::string save() override { return ::save (*instance.component); }
    void load (std::string state) override { instance.load (state); }
    std::pair<int, int> open (::Window parent) override
    {
        ViewRect size;
        view = owned (instance.controller->createView (ViewType::kEditor));
        EXPECT_EQ (view->attached (reinterpret_cast<void*> (parent), kPlatformTypeX11EmbedWindowID), kResultOk);
        return view->getSize (&size), std::pair (size.getWidth(), size.getHeight());
    }
    void close() override { view->removed(), view = nullptr; }
    Instance instance;
    ProcessContext context {};
    Outputs outputs;
    IPtr<IPlugView> view;
};

struct Vst2Form : Form
{
    Vst2Form (PlugInTest& test) : effect (test.module, host) { host.time = &time; }
    bool arrange (int channels) override
    {
        int arrangement[] { -2, channels };
        return effect.call (effSetSpeakerArrangement, 0, reinterpret_cast<t_fstPtrInt> (&arrangement), &arrangement) ==
               1;
    }
    int start (double rate, int block) override
    {
        effect.start (rate, block), time.sampleRate = rate;
        return effect->initialDelay;
    }
    void process (Audio& in, Audio& out, juce::int64 at) override
    {
        time.samplePos = double (at), time.flags = kVstTransportPlaying | kVstSmpteValid;
        effect.process (in, out);
    }
    void set (int id, float value) override
    {
        const AudioThreadGuard guard;
        id == bypassId ? void (effect.call (44, 0, value > 0.0f)) : effect->setParameter (effect.effect, id, value);
        expectNothingOf (guard);
    }
    void setFrameRate (int number) override { time.smpteFrameRate = number; }
    float get (int id) override { return effect->getParameter (effect.effect, id); }
    std::string save() override { return effect.save(); }
    void load (std::string state) override { effect.call (effSetChunk, 0, t_fstPtrInt (state.size()), state.data()); }
    std::pair<int, int> open (::Window parent) override
    {
        t_fstRectangle* size = nullptr;
        EXPECT_NE (effect.call (effEditGetRect, 0, 0, &size), 0);
        EXPECT_EQ (effect.call (effEditOpen, 0, 0, reinterpret_cast<void*> (parent)), 1);
        return { size->right, size->bottom };
    }
    void close() override { effect.call (effEditClose); }
    Vst2Host host;
    t_fstTimeInfo time {};
    Vst2Effect effect;
};

struct AaxForm : Form
{
    AaxForm (PlugInTest& test) : host (test.module) { host.start(), host.playing = true; }
    bool arrange (int channels) override
    {
        stem = channels == 1 ? AAX_eStemFormat_Mono : AAX_eStemFormat_Stereo;
        return channels < 3;
    }
    int start (double rate, int) override { return host.start (rate, stem), host.latency; }
    void process (Audio& in, Audio& out, juce::int64 time) override { host.location = time, host.process (in, out); }
    static std::string idOf (int id) { return id == bypassId ? "MasterBypassID" : std::to_string (id); }
    void set (int id, float value) override { host.set (idOf (id).c_str(), value); }   // on no audio thread
    void setFrameRate (int number) override { host.frameRate = AAX_EFrameRate (1 + number % 2); }
    float get (int id) override { return float (host.get (idOf (id).c_str())); }
    std::string save() override { return host.save(); }
    void load (std::string state) override { host.load (state); }
    std::pair<int, int> open (::Window parent) override { return host.open (parent); }
    void close() override { host.gui->SetViewContainer (nullptr); }
    AaxHost host;
    AAX_EStemFormat stem = AAX_eStemFormat_Stereo;
};

struct Format
{
    const char* name;
    std::unique_ptr<Form> (*make) (PlugInTest&);
};

template <typename Made>
std::unique_ptr<Form> make (PlugInTest& test)
{
    return std::make_unique<Made> (test);
}

const Format formats[] { { "Vst3", make<Vst3Form> }, { "Vst2", make<Vst2Form> }, { "Aax", make<AaxForm> } };

struct ConformanceTest : PlugInTest, testing::WithParamInterface<Format>
{
    std::unique_ptr<Form> makeForm() { return GetParam().make (*this); }
};

INSTANTIATE_TEST_SUITE_P (Formats, ConformanceTest, testing::ValuesIn (formats),
                          [] (const auto& format) { return std::string (format.param.name); });

}   // namespace

TEST_P (ConformanceTest, LetsEitherSourceOutToTheSampleAndDelaysWhatIsBypassed)
{
    constexpr int length = 6 * 4096, settled = 2 * 4096;
    auto own = noise (2, length, 1), pod = noise (2, length, 2), heard = own;
    manager.audio = [&pod] (float* const* channels, int numSamples, juce::int64 at)
    {
        for (int i = 0; i < 2 * numSamples; ++i)
            channels[i % 2][i / 2] = at + i / 2 < 4096 ? 0.0f : pod.getSample (i % 2, int (at) + i / 2 - 4096);
    };
    const auto form = makeForm();

    for (const auto& [rate, block, toggle, bypassed] :
         { std::tuple (44100.0, 512, 0.0f, false), { 96000.0, 4096, 1.0f, false }, { 48000.0, 333, 1.0f, true } })
    {
        EXPECT_EQ (form->start (rate, block), 4096);
        form->set (3, toggle), form->set (bypassId, bypassed);

        for (int start = 0; start < length; start += block)
        {
            auto in = stretch (own, start, block), out = stretch (heard, start, block);
            const AudioThreadGuard guard;
            form->process (in, out, start);
            expectNothingOf (guard);
        }

        for (const auto channel : { 0, 1 })
            EXPECT_TRUE (isLate (heard, toggle > 0.0f && ! bypassed ? pod : own, channel, settled)) << rate;
    }
}

TEST_P (ConformanceTest, KeepsTheAudioThreadFreeThroughVotesAutomationAndChangesOfFrameRate)
{
    constexpr int block = 64, choose = 6;
    const auto form = makeForm();
    juce::int64 time = 0;

    for (int channels = 1; channels <= 10; ++channels)
    {
        if (! form->arrange (channels))
            continue;

        SCOPED_TRACE (channels);
        auto audio = noise (channels, block);
        const auto play = [&] (int blocks)
        {
            for (int i = 0; i < blocks; ++i, time += block)
            {
                const AudioThreadGuard guard;
                form->process (audio, audio, time);
                expectNothingOf (guard);
            }
        };
        EXPECT_EQ (form->start (44100.0, block), 4096);

        for (int id = bypassId; id < 10; ++id)
            for (const auto value : { 1.0f, 0.0f })
                form->set (id, value), play (2);

        form->set (choose, 1.0f), form->set (choose, 0.0f);
        play (200);   // the fall, the draw and the rise

        for (const auto rate : { 1, 0, 1 })
            form->setFrameRate (rate), play (2);

        EXPECT_EQ (std::lround (form->get (1) * 1000), 2) << "25 frames a second";
    }
}

TEST_P (ConformanceTest, BringsASessionOfAnyFormatBack)
{
    const auto loaded = makeForm();

    for (const auto& format : formats)
    {
        const auto saved = format.make (*this);
        saved->set (8, 1.0f), saved->set (7, 0.25f), loaded->set (8, 0.0f);
        const auto state = saved->save();

        for (std::size_t size = 0; size < state.size(); size += 1 + state.size() / 16)
            loaded->load (state.substr (0, size));

        loaded->load (state);
        EXPECT_EQ (std::pair (loaded->get (8), loaded->get (7)), std::pair (1.0f, 0.25f)) << format.name;
        EXPECT_EQ (loaded->save(), state) << format.name;
    }
}

TEST_P (ConformanceTest, OpensItsEditorInTheHostsWindowAndClosesIt)
{
    ParentWindow parent;
    const auto form = makeForm(), other = makeForm();

    for (int round = 0; round < 2; ++round)
    {
        const auto size = form->open (parent.window);
        EXPECT_GT (size.first, 100);
        await ([&] { return parent.getContentSize() == size; });
        EXPECT_FALSE (ticksHere());
        form->close();
        EXPECT_EQ (parent.getContentSize(), std::pair (0, 0));
    }
}

TEST_P (ConformanceTest, ComesAndGoesInAnyOrderAndTicksWithNoEventLoop)
{
    std::vector<std::unique_ptr<Form>> forms (20);

    for (auto& form : forms)
        form = makeForm();

    EXPECT_FALSE (ticksHere());
    std::shuffle (forms.begin(), forms.end(), std::mt19937 (1));
}
