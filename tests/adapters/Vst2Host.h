// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/RawHost.h"

#include <climits>

#include <pluginterfaces/fst/aeffectx.h>

/** What a host of the older interface offers. */
struct Vst2Host
{
    static t_fstPtrInt answer (t_fstEffect* effect, int opcode, int index, t_fstPtrInt, void* const, float opt)
    {
        auto& host = effect != nullptr && effect->resvd1 != 0 ? *reinterpret_cast<Vst2Host*> (effect->resvd1) : *made;

        switch (opcode)
        {
            case audioMasterVersion:
                return host.version;
            case audioMasterGetTime:
                return reinterpret_cast<t_fstPtrInt> (host.time);
            case audioMasterAutomate:
                return host.edits.add (index, opt), 0;
            case 13:
                return countHostCall(), ++host.ioChanges, 0;
            case 42:
            case audioMasterBeginEdit:
            case audioMasterEndEdit:
                return countHostCall(), 0;
            default:
                return 0;
        }
    }

    static inline Vst2Host* made;   // whose effect is being made
    int version = 2400;
    t_fstTimeInfo* time = nullptr;
    Edits edits;
    std::atomic<int> ioChanges { 0 };
};

/** An effect from its making to its closing. */
struct Vst2Effect
{
    Vst2Effect (const Module& module, Vst2Host& host)
    {
        Vst2Host::made = &host;
        effect = module.find<t_fstEffect*(audioMasterCallback)> ("VSTPluginMain") (Vst2Host::answer);
        effect->resvd1 = reinterpret_cast<t_fstPtrInt> (&host);
    }
    ~Vst2Effect() { call (effClose); }
    Vst2Effect (const Vst2Effect&) = delete;

    t_fstEffect* operator->() const { return effect; }
    t_fstPtrInt call (int opcode, int index = 0, t_fstPtrInt value = 0, void* pointer = nullptr, float opt = 0.0f) const
    {
        return effect->dispatcher (effect, opcode, index, value, pointer, opt);
    }
    std::string text (int opcode, int index = 0) const
    {
        char place[128] = "unset";
        call (opcode, index, 0, place);
        return place;
    }
    void start (double rate, int block) const
    {
        call (effMainsChanged, 0, 0);
        call (effSetSampleRate, 0, 0, nullptr, float (rate)), call (effSetBlockSize, 0, block);
        call (effMainsChanged, 0, 1);
    }
    void process (Audio& in, Audio& out) const
    {
        effect->processReplacing (effect, const_cast<float**> (in.getArrayOfWritePointers()),
                                  const_cast<float**> (out.getArrayOfWritePointers()), in.getNumSamples());
    }
    std::string save (int index = 0) const
    {
        char* chunk = nullptr;
        const auto size = call (effGetChunk, index, 0, &chunk);
        return { chunk, static_cast<std::size_t> (size) };
    }
    t_fstEffect* effect = nullptr;
};
