// SPDX-License-Identifier: GPL-3.0-or-later
#include "OfflineRender.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <limits>
#include <tuple>

namespace desk
{

OfflineRender::OfflineRender (ComparisonGraph& comparison, const Script& script, ProgressLine& progressLine) :
    graph (comparison), judge (comparison), progress (progressLine)
{
    // What is fed now comes out a latency later, and the gain belongs to what is fed.
    for (const auto& line : script.lines)
    {
        const auto heard = std::llround (line.seconds * graph.getMaterial().getSampleRate());
        schedule.push_back ({ line.action.kind == Action::Kind::gain ? heard - graph.getLatency() : heard, &line });
    }

    std::stable_sort (schedule.begin(), schedule.end(),
                      [] (const Due& first, const Due& second) { return first.position < second.position; });
}

juce::Result OfflineRender::findTarget (const juce::File& output, juce::File& target)
{
    namespace fs = std::filesystem;
    const auto refused = juce::Result::fail (output.getFullPathName() + " cannot be written");
    fs::path path (output.getFullPathName().toStdString());
    std::error_code error;
    const auto type = fs::status (path, error).type();

    if (type == fs::file_type::none)
        return refused;   // a ring of links, for one

    if (type != fs::file_type::regular && type != fs::file_type::not_found)
        return juce::Result::fail (refused.getErrorMessage() + ": it is no plain file");

    while (fs::is_symlink (path, error))
        path = path.parent_path() / fs::read_symlink (path, error);

    const auto folder = fs::canonical (path.parent_path(), error);

    if (error)
        return refused;

    target = juce::File ((folder / path.filename()).string());
    return target.getParentDirectory().hasWriteAccess() && target.hasWriteAccess() ? juce::Result::ok() : refused;
}

juce::Result OfflineRender::writeTo (const juce::File& output)
{
    const auto& material = graph.getMaterial();
    const auto refused = juce::Result::fail (output.getFullPathName() + " cannot be written");
    juce::File target;

    if (const auto found = findTarget (output, target); found.failed())
        return found;

    const juce::TemporaryFile unfinished (target);
    auto stream = std::make_unique<juce::FileOutputStream> (unfinished.getFile());

    if (stream->failedToOpen())
        return refused;

    constexpr int bits = 32;
    std::unique_ptr<juce::AudioFormatWriter> writer (juce::WavAudioFormat().createWriterFor (
        stream.get(), material.getSampleRate(), static_cast<unsigned> (graph.getNumChannels()), bits, {}, 0));

    if (writer == nullptr)
        return refused;

    std::ignore = stream.release();   // the writer owns it
    const auto begin = juce::Time::getMillisecondCounterHiRes();
    const auto rendered = render (*writer);
    writer.reset();

    const auto audioBytes = static_cast<juce::int64> (material.getNumSamples()) * graph.getNumChannels() * (bits / 8);

    if (! rendered || unfinished.getFile().getSize() < audioBytes)
        return refused;

    // Meanwhile something else may have come to stand there.
    juce::File targetNow;

    if (findTarget (output, targetNow).failed() || targetNow != target ||
        ! unfinished.overwriteTargetFileWithTemporary())
        return refused;

    const auto took = std::max (1e-6, (juce::Time::getMillisecondCounterHiRes() - begin) / 1000.0);
    const auto length = material.a.getLengthInSeconds();
    progress.say ("written: " + output.getFullPathName());
    progress.say (describeTime (length) + " rendered in " + describeTime (took) + ", " +
                  juce::String (length / took, 1) + " times faster than real time");
    return juce::Result::ok();
}

bool OfflineRender::render (juce::AudioFormatWriter& writer)
{
    const auto latency = static_cast<juce::int64> (graph.getLatency());
    const auto length = static_cast<juce::int64> (graph.getMaterial().getNumSamples());
    juce::AudioSampleBuffer store (graph.getNumChannels(), ComparisonGraph::kBlockSize);

    for (auto position = -latency; position < length;)   // of the output
    {
        const auto end = std::min (position < 0 ? 0 : length, performActionsDue (position));
        const auto numSamples = static_cast<int> (std::min<juce::int64> (ComparisonGraph::kBlockSize, end - position));

        juce::AudioSampleBuffer block (store.getArrayOfWritePointers(), store.getNumChannels(), numSamples);
        graph.process (block, position + latency);

        if (position >= 0 && ! writer.writeFromAudioSampleBuffer (block, 0, numSamples))
            return false;

        position += numSamples;
        progress.update (static_cast<double> (std::max<juce::int64> (0, position)) / static_cast<double> (length));
    }

    return true;
}

/** @returns the position of the next action to come. */
juce::int64 OfflineRender::performActionsDue (juce::int64 outputPosition)
{
    for (; numDone < schedule.size(); ++numDone)
    {
        const auto& [due, line] = schedule[numDone];

        if (due > outputPosition)
            return due;

        graph.takeInChanges();
        perform (*line);
    }

    return std::numeric_limits<juce::int64>::max();
}

void OfflineRender::perform (const Script::Line& line)
{
    auto text = describeTime (line.seconds).paddedLeft (' ', 11) + "  " + line.action.toString();

    if (line.action.kind == Action::Kind::gain)
        graph.setGain (line.action.decibels);
    else if (! judge.perform (line.action))
        text << ": passed over, the last vote is still fading";
    else if (line.action.kind == Action::Kind::reveal)
        text << ": " << judge.describeVotes();

    progress.say (text);
}

}   // namespace desk
