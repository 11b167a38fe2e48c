// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/vst3/Stream.h"

namespace Steinberg
{
namespace Vst
{

bool readAll (IBStream* stream, juce::MemoryBlock& block)
{
    constexpr std::size_t mostBytes = 1 << 28;
    char chunk[16384];

    if (stream == nullptr)
        return false;

    for (int32 numRead = 0; block.getSize() < mostBytes; numRead = 0)
    {
        if (stream->read (chunk, sizeof (chunk), &numRead) != kResultOk || numRead <= 0)
            return true;

        block.append (chunk, static_cast<std::size_t> (std::min<int32> (numRead, sizeof (chunk))));
    }

    return false;
}

bool writeAll (IBStream* stream, const juce::MemoryBlock& block)
{
    if (stream == nullptr)
        return false;

    for (std::size_t done = 0; done < block.getSize();)
    {
        int32 numWritten = 0;
        const auto left = static_cast<int32> (block.getSize() - done);

        if (stream->write (const_cast<char*> (block.begin()) + done, left, &numWritten) != kResultOk || numWritten <= 0)
            return false;

        done += static_cast<std::size_t> (numWritten);
    }

    return true;
}

}   // namespace Vst
}   // namespace Steinberg
