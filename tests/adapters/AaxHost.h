// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/RawHost.h"
#include "adapters/aax/sdk/AAX_Effect.h"

#include <sstream>

/** A host with one instance of the plug-in; it notes what it hears, each thing with a space after it. */
struct AaxHost final : AAX_ICollection, AAX_IEffectDescriptor, AAX_IController, AAX_ITransport, AAX_IViewContainer
{
    explicit AaxHost (const Module& module)
    {
        EXPECT_EQ (module.find<AAX_Result (AAX_ICollection*)> ("ACFRegisterPlugin") (this), AAX_SUCCESS);
    }
    AAX_Result start (double hertz = 44100.0, AAX_EStemFormat format = AAX_eStemFormat_Stereo)
    {
        gui = nullptr, clips = nullptr;
        rate = hertz, stem = format, latency = -1, prepared = 0;
        effect.reset (makeParameters()), gui.reset (makeGui()), clips.reset (makeClips());
        const auto result = effect->Initialize (this);
        EXPECT_EQ (gui->Initialize (this) | clips->Initialize (this) | effect->ResetFieldData (3, &data, sizeof (data)),
                   0);
        return effect->ResetFieldData (4, &prepared, sizeof (prepared)), result;
    }
    void process (Audio& in, Audio& out)
    {
        auto* ins = in.getArrayOfReadPointers();
        auto* outs = out.getArrayOfWritePointers();
        auto length = in.getNumSamples();
        const void* fields[] { ins, outs, &length, &data, &prepared };
        void* contexts[] { fields };
        algorithm (contexts, contexts + 1);
    }
    double get (AAX_CParamID id) const
    {
        double value = -1.0;
        return effect->GetParameterNormalizedValue (id, &value) == AAX_SUCCESS ? value : -1.0;
    }
    AAX_Result set (AAX_CParamID id, double value) { return effect->UpdateParameterNormalizedValue (id, value); }
    std::string save (std::uint32_t id = 0x6a756365) const
    {
        AAX_SPlugInChunk chunk {};
        EXPECT_EQ (effect->GetChunkSize (id, &chunk.size), AAX_SUCCESS);
        std::string bytes (chunk.size, '#');
        chunk.data = bytes.data();
        EXPECT_EQ (effect->GetChunk (id, &chunk), AAX_SUCCESS);
        return bytes;
    }
    AAX_Result load (std::string bytes, std::uint32_t id = 0x6a756365) const
    {
        const AAX_SPlugInChunk chunk { std::uint32_t (bytes.size()), bytes.data() };
        return effect->SetChunk (id, &chunk);
    }
    std::pair<int, int> open (std::uintptr_t window)
    {
        AAX_Point size {};
        parent = reinterpret_cast<void*> (window);
        EXPECT_EQ (gui->SetViewContainer (this) | gui->GetViewSize (&size), AAX_SUCCESS);
        return { int (size.horizontal), int (size.vertical) };
    }
    template <typename... Things>
    AAX_Result note (Things... things)
    {
        countHostCall();
        const std::lock_guard<std::mutex> lock (mutex);
        return (heard << ... << things) << " ", AAX_SUCCESS;
    }
    std::string takeNotes()
    {
        const std::lock_guard<std::mutex> lock (mutex);
        return std::exchange (heard, {}).str();
    }

    // What the plug-in tells of itself
    AAX_IEffectDescriptor* NewDescriptor() override { return this; }
    AAX_Result AddEffect (const char*, AAX_IEffectDescriptor* whole) override { return note (whole == this); }
    AAX_Result AddName (const char* name) override { return note (name); }
    AAX_Result AddCategory (std::uint32_t category) override { return note (category); }
    AAX_Result AddCreator (AAX_IEffectParameters* (*make)()) override { return makeParameters = make, AAX_SUCCESS; }
    AAX_Result AddCreator (AAX_IEffectGUI* (*make)()) override { return makeGui = make, AAX_SUCCESS; }
    AAX_Result AddCreator (AAX_IHostProcessor* (*make)()) override { return makeClips = make, AAX_SUCCESS; }
    AAX_Result AddType (AAX_CProcessProc given, const AAX_SProperty* properties, int number) override
    {
        for (algorithm = given; --number >= 0; ++properties)
            note (properties->number, "=", std::hex, properties->value, std::dec);

        return AAX_SUCCESS;
    }

    // What an instance asks, and does
    AAX_Result GetSampleRate (double* hertz) const override { return *hertz = rate, AAX_SUCCESS; }
    AAX_Result GetInputStemFormat (AAX_EStemFormat* format) const override { return *format = stem, AAX_SUCCESS; }
    AAX_Result GetOutputStemFormat (AAX_EStemFormat* format) const override { return *format = stem, AAX_SUCCESS; }
    AAX_Result SetSignalLatency (std::int32_t samples) override { return latency = samples, AAX_SUCCESS; }
    AAX_Result PostTouch (AAX_CParamID id) override { return note ("touch", id); }
    AAX_Result PostValue (AAX_CParamID id, double value) override { return note (id, "=", value), set (id, value); }
    AAX_Result PostRelease (AAX_CParamID id) override { return note ("release", id); }
    AAX_IEffectParameters* GetEffectParameters() override { return foreign ? nullptr : effect.get(); }
    AAX_ITransport* GetTransport() override { return timeline ? this : nullptr; }
    AAX_Result IsTransportPlaying (bool* is) const override { return *is = playing, AAX_SUCCESS; }
    AAX_Result GetCurrentSampleLocation (std::int64_t* at) const override { return *at = location, AAX_SUCCESS; }
    AAX_Result GetFrameRate (AAX_EFrameRate* frames) const override { return *frames = frameRate, AAX_SUCCESS; }
    AAX_EViewContainer_Type GetType() const override { return type; }
    void* GetPtr() const override { return parent; }
    AAX_Result SetViewSize (const AAX_Point&) override { return AAX_SUCCESS; }
    AAX_Result hear (const char* what, AAX_CParamID id, std::uint32_t modifiers)
    {
        return note (what, id, ":", modifiers), takesMouse ? AAX_SUCCESS : AAX_ERROR_INVALID_ID;
    }
    AAX_Result HandleParameterMouseDown (AAX_CParamID id, unsigned keys) override { return hear ("down", id, keys); }
    AAX_Result HandleParameterMouseDrag (AAX_CParamID id, unsigned keys) override { return hear ("drag", id, keys); }
    AAX_Result HandleParameterMouseUp (AAX_CParamID id, unsigned keys) override { return hear ("up", id, keys); }

    AAX_IEffectParameters* (*makeParameters)() = nullptr;
    AAX_IEffectGUI* (*makeGui)() = nullptr;
    AAX_IHostProcessor* (*makeClips)() = nullptr;
    AAX_CProcessProc algorithm = nullptr;
    double rate = 0.0;
    AAX_EStemFormat stem = AAX_eStemFormat_None;
    std::int32_t latency = -1, prepared = 0;
    bool foreign = false, timeline = true, playing = false;
    std::atomic<bool> takesMouse { true };
    std::int64_t location = 0;
    AAX_EFrameRate frameRate {};
    AAX_EViewContainer_Type type = AAX_eViewContainer_Type_Window;
    void *parent = nullptr, *data = nullptr;
    std::mutex mutex;
    std::ostringstream heard;
    std::unique_ptr<AAX_IEffectParameters> effect;
    std::unique_ptr<AAX_IEffectGUI> gui;
    std::unique_ptr<AAX_IHostProcessor> clips;
};
