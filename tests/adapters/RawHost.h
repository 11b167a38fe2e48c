// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/HostTools.h"
#include "platform/Library.h"
#include "pod/IPod.h"
#include "support/AudioThreadGuard.h"
#include "support/LockWithin.h"

#include <map>
#include <mutex>
#include <poll.h>
#include <random>
#include <thread>

#include <public.sdk/source/vst/hosting/hostclasses.h>

#include <juce_audio_processors/format_types/juce_VST3Headers.h>

using namespace Steinberg;
using namespace Steinberg::Vst;

/** A host's own lock, which it takes in every call by which a plug-in tells it something, and may hold when it calls. */
inline std::recursive_mutex hostLock;
inline std::atomic<int> hostCalls { 0 };

/** Comes first in every such call: none may come from a watched thread. */
inline void enterHost()
{
    AudioThreadGuard::note (&AudioThreadGuard::Counts::hostCalls);
    ++hostCalls;
    const auto held = lockWithinSeconds (hostLock);
    EXPECT_TRUE (held.owns_lock()) << "host and plug-in wait for each other";
}

/** The latest value that a host was told of each parameter, on whatever thread. */
struct Edits
{
    void add (int id, double value)
    {
        enterHost();
        const std::lock_guard<std::mutex> lock (mutex);
        values[id] = value;
    }
    std::map<int, double> get() const
    {
        const std::lock_guard<std::mutex> lock (mutex);
        return values;
    }
    void clear()
    {
        const std::lock_guard<std::mutex> lock (mutex);
        values.clear();
    }
    mutable std::mutex mutex;
    std::map<int, double> values;
};

/** What a plug-in holds by reference: it must have let go when the object ends. */
template <typename... Interfaces>
struct HostObject : Interfaces...
{
    ~HostObject() { EXPECT_EQ (references, 0u); }
    tresult PLUGIN_API queryInterface (const TUID wanted, void** object) override
    {
        *object = nullptr;
        ((*object = FUnknownPrivate::iidEqual (wanted, Interfaces::iid) ? static_cast<Interfaces*> (this) : *object),
         ...);
        return *object != nullptr ? (addRef(), kResultOk) : kNoInterface;
    }
    uint32 PLUGIN_API addRef() override { return ++references; }
    uint32 PLUGIN_API release() override { return --references; }
    std::atomic<uint32> references { 0 };
};

/** Changes of one parameter in one block. */
struct Changes final : HostObject<IParameterChanges, IParamValueQueue>
{
    Changes (ParamID changed, std::vector<ParamValue> points) : id (changed), values (std::move (points)) {}
    int32 PLUGIN_API getParameterCount() override { return 1; }
    IParamValueQueue* PLUGIN_API getParameterData (int32) override { return this; }
    IParamValueQueue* PLUGIN_API addParameterData (const ParamID&, int32&) override { return nullptr; }
    ParamID PLUGIN_API getParameterId() override { return id; }
    int32 PLUGIN_API getPointCount() override { return static_cast<int32> (values.size()); }
    tresult PLUGIN_API getPoint (int32 index, int32&, ParamValue& value) override
    {
        const auto exists = index >= 0 && index < getPointCount();
        return exists ? (value = values[static_cast<unsigned> (index)], kResultTrue) : kResultFalse;
    }
    tresult PLUGIN_API addPoint (int32, ParamValue, int32&) override { return kResultFalse; }
    const ParamID id;
    const std::vector<ParamValue> values;
};

/** What a plug-in tells in one block. Nothing allocates. */
struct Outputs final : HostObject<IParameterChanges, IParamValueQueue>
{
    int32 PLUGIN_API getParameterCount() override { return count; }
    IParamValueQueue* PLUGIN_API getParameterData (int32) override { return nullptr; }
    IParamValueQueue* PLUGIN_API addParameterData (const ParamID& id, int32& index) override
    {
        return count < 16 ? (told[index = count++].first = id, this) : nullptr;
    }
    ParamID PLUGIN_API getParameterId() override { return told[count - 1].first; }
    int32 PLUGIN_API getPointCount() override { return 1; }
    tresult PLUGIN_API getPoint (int32, int32&, ParamValue&) override { return kResultFalse; }
    tresult PLUGIN_API addPoint (int32 offset, ParamValue value, int32&) override
    {
        return told[count - 1].second = offset + value, kResultTrue;
    }
    int32 count = 0;
    std::pair<ParamID, double> told[16];   // the value, and how many samples into the block
};

/** What a host offers. Its loop takes each descriptor once. */
struct Host final : HostObject<IComponentHandler, IPlugFrame, Linux::IRunLoop>
{
    void pump()
    {
        for (const auto& [descriptor, handler] : std::map (handlers))
            if (pollfd entry { descriptor, POLLIN, 0 }; handlers.count (descriptor) > 0 && ::poll (&entry, 1, 1) > 0)
                handler->onFDIsSet (descriptor);
    }
    tresult PLUGIN_API queryInterface (const TUID wanted, void** object) override
    {
        const auto hidden = ! loop && FUnknownPrivate::iidEqual (wanted, Linux::IRunLoop::iid);
        return hidden ? (*object = nullptr, kNoInterface) : HostObject::queryInterface (wanted, object);
    }
    tresult PLUGIN_API beginEdit (ParamID) override { return enterHost(), kResultOk; }
    tresult PLUGIN_API performEdit (ParamID id, ParamValue value) override
    {
        return edits.add (int (id), value), kResultOk;
    }
    tresult PLUGIN_API endEdit (ParamID) override { return enterHost(), kResultOk; }
    tresult PLUGIN_API restartComponent (int32) override { return enterHost(), kResultOk; }
    tresult PLUGIN_API resizeView (IPlugView* view, ViewRect* size) override { return view->onSize (size); }
    tresult PLUGIN_API registerEventHandler (Linux::IEventHandler* handler, int descriptor) override
    {
        const auto twice = loop == kResultOk && ! handlers.emplace (descriptor, handler).second;
        return twice ? (++refusals, kResultFalse) : *loop;
    }
    tresult PLUGIN_API unregisterEventHandler (Linux::IEventHandler*) override { return handlers.clear(), *loop; }
    tresult PLUGIN_API registerTimer (Linux::ITimerHandler*, uint64) override { return kNotImplemented; }
    tresult PLUGIN_API unregisterTimer (Linux::ITimerHandler*) override { return kNotImplemented; }
    std::optional<tresult> loop;   // what it answers to an event handler, if there is a loop at all
    int refusals = 0;
    std::map<int, Linux::IEventHandler*> handlers;   // by descriptor
    Edits edits;
    HostApplication messages;
    FUnknown* context = &messages;   // null for a host that makes none
};

/** A manager with one pod that links to everybody; it notes who ticks, and where blocks are read. */
struct NotingManager final : baylink::IPodManager
{
    NotingManager()
    {
        static IPodManager* current;
        current = this;
        const auto connect = [] (baylink::IPod* pod, int channels)
        { channels > 0 ? (pod->manager = current, pod->id = 7) : 0; };
        const auto library = platform::loadLibrary (DUO_HOME "/.local/lib/ORVEX Audio/ORVEX BayLinkLib 64bit.dll");
        *static_cast<void (**) (baylink::IPod*, int)> (platform::findExport (library, "answer")) = connect;
    }
    void disconnect (int) override {}
    int getPodIds (int* ids) override { return ticker = std::this_thread::get_id(), ++ticks, *ids = 1; }
    baylink::PodInfo getPodInfo (int) override { return { 1, 0, baylink::kSenderTypeKey, 2, 0, 0.5f, "Pod" }; }
    void restorePod (baylink::IPod*, int, const char*, int, int, const int*) override {}
    bool link (int, int) override { return true; }
    void unlink (int, int) override {}
    int getLinkedPods (int* ids, int) override { return *ids = 1; }
    void setChannels (int, int) override {}
    void setBlockSize (int, int) override {}
    bool openStream (int, int) override { return false; }
    void writeAudio (int, const float* const*, int) override {}
    void writeAudioAt (int, const float* const*, int, std::int64_t) override {}
    void setPodName (int, const char*) override {}
    void readAudio (int, float* const*, int, int) override {}
    void readAudioAt (int, float* const* channels, int numSamples, int, std::int64_t at) override
    {
        if (start = at; audio)
            audio (channels, numSamples, at);
    }
    void setPlaying (baylink::PodId, bool) override {}
    void setPodGain (int, float) override {}
    std::function<void (float* const*, int, std::int64_t)> audio;   // of the pod, stereo
    std::atomic<std::int64_t> start { -1 };
    std::atomic<int> ticks { 0 };
    std::atomic<std::thread::id> ticker;
};

/** The built plug-in as a host holds it, from its entry to its unloading. */
struct Module
{
    Module() { EXPECT_TRUE (find<bool (void*)> ("ModuleEntry") (this)); }
    ~Module()
    {
        factory->release();
        EXPECT_TRUE (find<bool()> ("ModuleExit")());
        platform::freeLibrary (library);
    }
    template <typename Function>
    Function* find (const char* name) const
    {
        return reinterpret_cast<Function*> (platform::findExport (library, name));
    }

    /** Makes an object of the class at `index`: 0 the component, 1 the controller. */
    template <typename Interface>
    IPtr<Interface> make (int32 index)
    {
        PClassInfo info;
        void* made = nullptr;
        EXPECT_EQ (factory->getClassInfo (index, &info) | factory->createInstance (info.cid, Interface::iid, &made),
                   kResultOk);
        return owned (static_cast<Interface*> (made));
    }
    const platform::LibraryHandle library = platform::loadLibrary (DUO_PLUGIN_FILE);
    IPluginFactory* const factory = find<IPluginFactory*()> ("GetPluginFactory")();
};

inline juce::String toText (const TChar* text)
{
    return juce::CharPointer_UTF16 (reinterpret_cast<const juce::int16*> (text));
}

inline std::string save (IComponent& component)
{
    MemoryStream stream;
    EXPECT_EQ (component.getState (&stream), kResultOk);
    return { stream.getData(), static_cast<std::size_t> (stream.getSize()) };
}

/** A component and its controller in a host's usual order of calls. */
struct Instance
{
    Instance (Module& module, Host& host) :
        component (module.make<IComponent> (0)), controller (module.make<IEditController> (1))
    {
        EXPECT_EQ (component->initialize (host.context) | controller->initialize (host.context), kResultOk);
        EXPECT_EQ (controller->setComponentHandler (&host), kResultOk);
        EXPECT_EQ (ends[0]->connect (ends[1]) | ends[1]->connect (ends[0]), kResultOk);
        EXPECT_EQ (setUp (44100.0, 8192) | component->setActive (1), kResultOk);
    }
    ~Instance()
    {
        component->setActive (0);
        ends[0]->disconnect (ends[1]), ends[1]->disconnect (ends[0]);
        controller->terminate(), component->terminate();
    }
    tresult setUp (double rate, int32 blockSize, int32 sampleSize = kSample32, int32 mode = kRealtime)
    {
        ProcessSetup setup { mode, sampleSize, blockSize, rate };
        return audio->setupProcessing (setup);
    }

    /** Processes `in` into `out`; with neither there is no sample and no bus. */
    tresult process (Audio* in, Audio* out, IParameterChanges* changes = nullptr, ProcessContext* context = nullptr,
                     Outputs* outputs = nullptr)
    {
        AudioBusBuffers buses[2];
        ProcessData data;
        const auto fill = [&data] (Audio* audioOfBus, AudioBusBuffers& bus, AudioBusBuffers*& list, int32& count)
        {
            if (audioOfBus == nullptr)
                return;

            data.numSamples = audioOfBus->getNumSamples(), bus.numChannels = audioOfBus->getNumChannels();
            bus.channelBuffers32 = const_cast<float**> (audioOfBus->getArrayOfWritePointers());
            list = &bus, count = 1, bus.silenceFlags = 3;
        };
        fill (in, buses[0], data.inputs, data.numInputs);
        fill (out, buses[1], data.outputs, data.numOutputs);
        data.inputParameterChanges = changes, data.processContext = context;
        data.outputParameterChanges = outputs;
        const auto result = audio->process (data);
        EXPECT_TRUE (result != kResultOk || buses[1].silenceFlags == 0);
        return result;
    }
    void set (ParamID id, std::vector<ParamValue> points)
    {
        Changes changes (id, std::move (points));
        EXPECT_EQ (process (nullptr, nullptr, &changes), kResultOk);
    }
    void load (std::string state)
    {
        for (const auto isController : { false, true })
        {
            MemoryStream stream (state.data(), static_cast<TSize> (state.size()));
            EXPECT_EQ (isController ? controller->setComponentState (&stream) : component->setState (&stream),
                       kResultOk);
        }
    }
    const IPtr<IComponent> component;
    const IPtr<IEditController> controller;
    const FUnknownPtr<IAudioProcessor> audio { component };
    const FUnknownPtr<IConnectionPoint> ends[2] { component.get(), controller.get() };
};

/** Loads the plug-in; at the end no thread of it may be left. */
struct PlugInTest : testing::Test
{
    ~PlugInTest() override
    {
        await ([this] { return threads.getNumberOfChildFiles (1) <= threadsBefore; });
    }

    /** Waits for what another thread brings about. */
    static void await (const std::function<bool()>& condition)
    {
        for (const auto end = juce::Time::currentTimeMillis() + 20000; ! condition();)
            if (std::this_thread::yield(); juce::Time::currentTimeMillis() > end)
                break;

        EXPECT_TRUE (condition());
    }

    /** Waits for a few ticks that come from now on. @returns whether they come on this thread, which runs the host's loop */
    bool ticksHere()
    {
        await ([this, now = manager.ticks.load()] { return host.pump(), manager.ticks > now + 1; });
        return manager.ticker.load() == std::this_thread::get_id();
    }
    const juce::File threads { "/proc/self/task" };

    // A sanitizer starts a thread of its own with the first one, which the system may still count after it was joined.
    const int threadsBefore =
        (::setenv ("HOME", DUO_HOME, 1), std::thread ([] {}).join(), threads.getNumberOfChildFiles (1));
    NotingManager manager;
    Host host;
    Module module;
};
