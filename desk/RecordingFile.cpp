// SPDX-License-Identifier: GPL-3.0-or-later
// How a recording comes from its file, which may be broken in any way.
#include "FileEnd.h"
#include "Recording.h"

#include <limits>

namespace desk
{
namespace
{

constexpr int kMaxRate = 1536000;       // hertz
constexpr int kMaxFileChannels = 256;   // the toolkit's readers stand still at a thousand

/** Counts the bytes that a reader wants from behind the end, where the toolkit's readers go on with silence. */
struct CountingStream : juce::FileInputStream
{
    using FileInputStream::FileInputStream;

    int read (void* target, int numBytes) override
    {
        const auto numRead = FileInputStream::read (target, numBytes);
        numMissing += numBytes - numRead;
        return numRead;
    }

    juce::int64 numMissing = 0;
};

std::unique_ptr<juce::AudioFormatReader> openReader (const juce::File& file)
{
    juce::AudioFormatManager formats;
    formats.registerBasicFormats();

    for (auto* const format : formats)
        if (format->canHandleFile (file))
            if (auto* const reader = format->createReaderFor (new CountingStream (file), true))
                return std::unique_ptr<juce::AudioFormatReader> (reader);

    return {};
}

/** A file that is open, in the terms of its format. */
struct Source
{
    explicit Source (const juce::File& soundFile) : file (soundFile), reader (openReader (file)) {}

    template <typename Format>
    bool is() const
    {
        return reader->getFormatName() == Format().getFormatName();
    }

    bool isUncompressed() const { return is<juce::WavAudioFormat>() || is<juce::AiffAudioFormat>(); }
    int getFrameSize() const { return static_cast<int> (reader->numChannels * reader->bitsPerSample / 8); }   // bytes

    /** Whether the toolkit can read all of it. */
    bool isReadable() const
    {
        if (reader == nullptr || reader->numChannels < 1 || reader->numChannels > kMaxFileChannels)
            return false;

        if (isUncompressed())
            return reader->bitsPerSample % 8 == 0 && reader->bitsPerSample >= 8 && reader->bitsPerSample <= 32;

        return ! is<juce::OggVorbisAudioFormat>() || fileEnd::OggPages (file).haveOneFormat;
    }

    /** A program that writes into a pipe does not know the length, and promises all that the format can tell of. */
    bool promisesAnything() const
    {
        constexpr juce::int64 slack = 4096;   // bytes, for the head and whole samples
        const auto promised = reader->lengthInSamples * getFrameSize();

        return is<juce::WavAudioFormat>() && ((promised > 0xffffffff - slack && promised <= 0xffffffff) ||
                                              (promised > 0x7fffffff - slack && promised <= 0x7fffffff));
    }

    /** @returns how many samples of those that are promised the file can hold, before memory is taken for them. */
    juce::int64 countHeld() const
    {
        if (isUncompressed())
            return std::min (reader->lengthInSamples, file.getSize() / getFrameSize());

        if (is<juce::FlacAudioFormat>())
            return fileEnd::countFlacSamples (file, reader->lengthInSamples);

        return reader->lengthInSamples;
    }

    /** Fills the buffer. @returns how many of its samples the file does hold */
    int read (juce::AudioSampleBuffer& audio) const
    {
        auto& missing = static_cast<CountingStream*> (reader->input)->numMissing;
        const auto numSamples = audio.getNumSamples();
        missing = 0;

        if (! reader->read (audio.getArrayOfWritePointers(), audio.getNumChannels(), 0, numSamples))
            return 0;

        return isUncompressed() ? numSamples - static_cast<int> ((missing + getFrameSize() - 1) / getFrameSize())
                                : numSamples;
    }

    bool hasEnd() const { return ! is<juce::OggVorbisAudioFormat>() || fileEnd::OggPages (file).areComplete; }

    const juce::File& file;
    const std::unique_ptr<juce::AudioFormatReader> reader;
};

}   // namespace

juce::Result Recording::load (const juce::File& file, Recording& result)
{
    const auto& path = file.getFullPathName();

    if (! file.exists())
        return juce::Result::fail ("there is no file " + path);

    if (! file.existsAsFile() || ! file.hasReadAccess())
        return juce::Result::fail (path + " cannot be read");

    if (file.getSize() == 0)
        return juce::Result::fail (path + " is empty");

    const Source source (file);

    if (! source.isReadable())
        return juce::Result::fail (path + " is no sound file that can be read: WAV, AIFF, FLAC and Ogg Vorbis can");

    const auto& reader = *source.reader;

    // Negated, so that a rate that is no number is refused too.
    if (! (reader.sampleRate >= 1.0 && reader.sampleRate <= kMaxRate))
        return juce::Result::fail (path + " names a sample rate outside 1 to " + juce::String (kMaxRate) + " Hz");

    const auto numHeld = reader.lengthInSamples > 0 ? source.countHeld() : 0;

    // Room for the latency and for the sums of the resampler stays within an int.
    if (numHeld > std::numeric_limits<int>::max() / 2)
        return juce::Result::fail (path + " is too long");

    Recording recording;
    recording.name = file.getFileName();
    recording.fileChannels = static_cast<int> (reader.numChannels);
    recording.sampleRate = recording.fileSampleRate = juce::roundToInt (reader.sampleRate);
    auto& audio = recording.audio;
    audio.setSize (std::min (recording.fileChannels, kMaxChannels), static_cast<int> (numHeld));
    audio.setSize (audio.getNumChannels(), numHeld > 0 ? source.read (audio) : 0, true, false, true);

    if (audio.getNumSamples() < 1)
        return juce::Result::fail (path + " holds no audio");

    recording.numMissing = source.promisesAnything() ? 0 : reader.lengthInSamples - audio.getNumSamples();
    recording.breaksOff = ! source.hasEnd();
    result = std::move (recording);
    return juce::Result::ok();
}

}   // namespace desk
