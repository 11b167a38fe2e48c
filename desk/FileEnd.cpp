// SPDX-License-Identifier: GPL-3.0-or-later
#include "FileEnd.h"

#include <array>
#include <memory>
#include <numeric>

#include <FLAC/stream_decoder.h>

namespace desk::fileEnd
{
namespace
{

using Decoder = std::unique_ptr<FLAC__StreamDecoder, decltype (&FLAC__stream_decoder_delete)>;

/** @returns a decoder that adds to `numDecoded` whatever it decodes, or null where it cannot open the file. */
Decoder openFlac (const juce::File& file, juce::int64& numDecoded)
{
    const auto onFrame =
        [] (const FLAC__StreamDecoder*, const FLAC__Frame* frame, const FLAC__int32* const*, void* counter)
    {
        *static_cast<juce::int64*> (counter) += frame->header.blocksize;
        return FLAC__STREAM_DECODER_WRITE_STATUS_CONTINUE;
    };
    const auto onError = [] (const FLAC__StreamDecoder*, FLAC__StreamDecoderErrorStatus, void*) {};

    Decoder decoder (FLAC__stream_decoder_new(), FLAC__stream_decoder_delete);

    if (decoder == nullptr ||
        FLAC__stream_decoder_init_file (decoder.get(), file.getFullPathName().toRawUTF8(), onFrame, nullptr, onError,
                                        &numDecoded) != FLAC__STREAM_DECODER_INIT_STATUS_OK)
        decoder.reset();

    return decoder;
}

}   // namespace

juce::int64 countFlacSamples (const juce::File& file, juce::int64 promised)
{
    juce::int64 numDecoded = 0;

    if (const auto decoder = openFlac (file, numDecoded);
        decoder != nullptr &&
        FLAC__stream_decoder_seek_absolute (decoder.get(), static_cast<FLAC__uint64> (promised - 1)))
        return promised;

    numDecoded = 0;

    if (const auto decoder = openFlac (file, numDecoded); decoder != nullptr)
        FLAC__stream_decoder_process_until_end_of_stream (decoder.get());

    return std::min (promised, numDecoded);
}

OggPages::OggPages (const juce::File& file)
{
    constexpr int headSize = 27, flagsAt = 5, numSegmentsAt = 26;
    constexpr int first = 2, last = 4;   // of its stream, flags of a page
    constexpr int formatAt = 11;         // in the first packet of a stream: a byte for the channels, four for the rate
    using Format = std::array<char, 5>;

    juce::FileInputStream stream (file);
    std::optional<Format> format;
    haveOneFormat = true;

    for (std::array<juce::uint8, headSize + 255> head; stream.read (head.data(), headSize) == headSize;)
    {
        const int numSegments = head[numSegmentsAt];

        if (std::memcmp (head.data(), "OggS", 4) != 0)
            return;   // what follows is none of ours

        auto* const segments = head.data() + headSize;
        const auto hasSegments = stream.read (segments, numSegments) == numSegments;
        const auto begin = stream.getPosition();
        const auto end = begin + std::accumulate (segments, segments + numSegments, 0);
        areComplete = hasSegments && end <= stream.getTotalLength() && (head[flagsAt] & last) != 0;

        if (Format found; (head[flagsAt] & first) != 0 && stream.setPosition (begin + formatAt) &&
                          stream.read (found.data(), sizeof (found)) == sizeof (found))
            haveOneFormat = haveOneFormat && found == std::exchange (format, found).value_or (found);

        if (! hasSegments || ! stream.setPosition (end))
            return;
    }
}

}   // namespace desk::fileEnd
