// SPDX-License-Identifier: GPL-3.0-or-later
// A host of the older plug-in interface that calls anything, with memory of the size that the interface gives.
#include "Choices.h"
#include "FuzzTarget.h"
#include "adapters/Export.h"
#include "adapters/vst2/Interface.h"

#include <climits>
#include <cmath>
#include <vector>

#include <juce_core/juce_core.h>

DUO_EXPORT t_fstEffect* VSTPluginMain (audioMasterCallback host);

namespace
{

constexpr int kVendorMagic = 0x5a3c17e6, kAnswerFalse = 105, kFileDetails = 204, kMostSamples = 5000;

t_fstTimeInfo timeline {};

t_fstPtrInt answer (t_fstEffect*, int opcode, int, t_fstPtrInt, void* const, float)
{
    if (opcode == audioMasterGetTime)
        return reinterpret_cast<t_fstPtrInt> (&timeline);

    return opcode == audioMasterVersion ? 2400 : 0;
}

int chooseNumber (Choices& choices)
{
    const auto number = choices.byte();
    return number < 250 ? number - 1 : choices.among ({ kVendorMagic, INT_MAX, INT_MIN, 1 << 16, 9004, 9999 });
}

float chooseReal (Choices& choices)
{
    return choices.among ({ 0.0f, 1.0f, 0.5f, -1.0f, 44100.0f, 192000.0f, 1e30f, std::nanf (""), HUGE_VALF });
}

/** Bytes that a host gives for the answer to an opcode. */
std::size_t getRoom (int opcode)
{
    switch (opcode)
    {
        case effGetParamLabel:
        case effGetParamDisplay:
        case effGetParamName:
        case effGetProgramName:
        case effGetProgramNameIndexed:
            return 25;
        case effGetInputProperties:
        case effGetOutputProperties:
            return sizeof (t_fstPinProperties);
        default:
            return 64;
    }
}

void dispatch (t_fstEffect& effect, Choices& choices)
{
    const auto opcode = choices.byte() % 120 - 1, index = chooseNumber (choices);
    t_fstPtrInt value = chooseNumber (choices);
    const auto real = chooseReal (choices);
    const auto given = choices.text();
    const auto isNull = choices.byte() % 8 == 7;
    const auto call = [&] (void* pointer)
    { return effect.dispatcher (&effect, opcode, index, value, isNull ? nullptr : pointer, real); };

    std::vector<char> room (std::max (getRoom (opcode), given.size() + 1));
    std::copy (given.begin(), given.end(), room.begin());

    switch (opcode)
    {
        case effEditOpen:   // there is no window
            effect.dispatcher (&effect, opcode, index, value, nullptr, real);
            return;
        case effSetChunk:
            value = static_cast<t_fstPtrInt> (given.size());
            call (room.data());
            return;
        case effSetSpeakerArrangement:
        {
            vst2::SpeakerArrangement in { index, choices.byte(), {} }, out { index, choices.byte(), {} };
            value = choices.byte() % 2 == 0 ? reinterpret_cast<t_fstPtrInt> (&in) : 0;
            call (&out);
            return;
        }
        case effGetSpeakerArrangement:
        {
            void* in = nullptr;
            value = choices.byte() % 2 == 0 ? reinterpret_cast<t_fstPtrInt> (&in) : 0;
            call (room.data());
            return;
        }
        case effVendorSpecific:
        {
            juce::String text (given);
            juce::XmlElement details ("FILEDETAILS");
            details.setAttribute ("FULLPATHNAME", text);
            void* const special = value == kAnswerFalse ? static_cast<void*> (&text) : &details;
            call (value == kAnswerFalse || value == kFileDetails ? special : room.data());
            return;
        }
        default:
            call (room.data());
    }
}

void process (t_fstEffect& effect, Choices& choices)
{
    timeline.samplePos = static_cast<double> (chooseReal (choices));
    timeline.sampleRate = static_cast<double> (chooseReal (choices));
    timeline.flags = choices.byte() << 8 | choices.byte();
    timeline.smpteFrameRate = choices.byte();
    std::vector<float> memory (2 * kMostSamples, chooseReal (choices));
    auto* const first = memory.data();
    auto* const second = first + kMostSamples;
    float* inputs[] { first, choices.among ({ second, first, static_cast<float*> (nullptr) }) };
    float* outputs[] { first, choices.among ({ second, first, static_cast<float*> (nullptr) }) };
    effect.processReplacing (&effect, inputs, outputs, choices.among ({ 64, 0, -1, 1, 1024, kMostSamples }));
}

/** An effect from its making to its closing, and calls after that. */
void run (const std::uint8_t* data, std::size_t size)
{
    auto& effect = *VSTPluginMain (answer);

    for (Choices choices (data, size); choices.areLeft();)
    {
        const auto kind = choices.byte() % 8;

        if (kind == 0)
            process (effect, choices);
        else if (kind == 1)
            effect.setParameter (&effect, chooseNumber (choices), chooseReal (choices));
        else if (kind == 2)
            effect.getParameter (&effect, chooseNumber (choices));
        else
            dispatch (effect, choices);
    }

    effect.dispatcher (&effect, effClose, 0, 0, nullptr, 0.0f);
}

const FuzzTarget target { "Vst2", run };

}   // namespace
