// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeskOptions.h"
#include "DeskWindow.h"
#include "OfflineRender.h"

#include "platform/Console.h"
#include "platform/KnownFolders.h"

#include <filesystem>
#include <iostream>
#include <new>

namespace
{

using namespace desk;

constexpr int kExitError = 2;
constexpr int kMaxScriptSize = 1 << 24;   // bytes

void warn (const juce::String& what)
{
    std::cerr << "duojudge-desk: " << what << std::endl;
}

int refuse (const juce::String& why)
{
    warn (why);
    return kExitError;
}

juce::Result loadScript (const juce::File& file, Script& script)
{
    const auto text = file.existsAsFile() && file.hasReadAccess() ? file.createInputStream() : nullptr;

    if (text == nullptr)
        return juce::Result::fail (file.getFullPathName() + " cannot be read");

    juce::MemoryBlock bytes;

    if (text->readIntoMemoryBlock (bytes, kMaxScriptSize) == kMaxScriptSize)
        return juce::Result::fail (file.getFullPathName() + " is too long for a script");

    const auto parsed = Script::parse (bytes.toString(), script);
    return parsed.wasOk() ? parsed : juce::Result::fail (file.getFileName() + ", " + parsed.getErrorMessage());
}

/** The plug-ins load the manager, and say less of it. */
juce::Result findManager()
{
    const juce::String file ("ORVEX Audio/ORVEX BayLinkLib 64bit.dll");

    if (juce::File (platform::findCommonProgramFilesFolder (file)).getChildFile (file).existsAsFile())
        return juce::Result::ok();

    return juce::Result::fail ("no pod manager: there is no \"" + file + "\" in ~/.local/lib or /usr/local/lib");
}

juce::File getPluginFolder (const DeskOptions& options)
{
    return options.plugins != juce::File() ? options.plugins : ComparisonGraph::getUserPluginFolder();
}

void describeMaterial (const Material& material)
{
    std::cout << "A: " << material.a.describe() << "\nB: " << material.b.describe() << '\n';

    for (const auto& remark : material.getRemarks())
        std::cout << remark << '\n';

    std::cout.flush();

    for (const auto& loss : material.getLosses())
        warn (loss);
}

bool areSame (const juce::File& first, const juce::File& second)
{
    std::error_code error;
    return std::filesystem::equivalent (first.getFullPathName().toStdString(), second.getFullPathName().toStdString(),
                                        error);
}

int renderToFile (const DeskOptions& options)
{
    Script script;
    const auto scripted = options.script != juce::File();

    if (scripted)
        if (const auto loaded = loadScript (options.script, script); loaded.failed())
            return refuse (loaded.getErrorMessage());

    juce::File target;

    if (const auto found = OfflineRender::findTarget (options.output, target); found.failed())
        return refuse (found.getErrorMessage());

    for (const auto& read : { options.fileA, options.fileB, options.script })
        if (areSame (target, read))
            return refuse ("the output would replace " + read.getFullPathName() + ", which is read");

    Material material;

    if (const auto loaded = Material::load (options.fileA, options.fileB, {}, material); loaded.failed())
        return refuse (loaded.getErrorMessage());

    const auto seconds = material.a.getLengthInSeconds();

    if (! scripted)
        script = Script::makeDefault (seconds);
    else if (const auto fits = script.checkLength (seconds); fits.failed())
        return refuse (options.script.getFileName() + ", " + fits.getErrorMessage());

    std::unique_ptr<ComparisonGraph> graph;

    if (const auto made = ComparisonGraph::create (material, getPluginFolder (options), graph); made.failed())
        return refuse (made.getErrorMessage());

    describeMaterial (material);

    if (! scripted)
        std::cout << "No script is given; this one is followed:\n" << script.toString();

    ProgressLine progress (std::cout, platform::isStandardOutputATerminal());
    const auto written = OfflineRender (*graph, script, progress).writeTo (options.output);
    return written.wasOk() ? 0 : refuse (written.getErrorMessage());
}

int openWindow (const DeskOptions& options)
{
    if (juce::Desktop::getInstance().isHeadless())
        return refuse ("there is no display; --render OUT.wav needs none");

    LiveDevice device;
    Material material;

    if (const auto loaded = Recording::load (options.fileA, material.a); loaded.failed())
        return refuse (loaded.getErrorMessage());

    const auto rate = device.open (material.a.sampleRate);

    if (const auto loaded = Material::load (options.fileA, options.fileB, rate, material); loaded.failed())
        return refuse (loaded.getErrorMessage());

    std::unique_ptr<ComparisonGraph> graph;

    if (const auto made = ComparisonGraph::create (material, getPluginFolder (options), graph); made.failed())
        return refuse (made.getErrorMessage());

    describeMaterial (material);
    DeskWindow window (*graph, device);
    juce::MessageManager::getInstance()->runDispatchLoop();
    return 0;
}

}   // namespace

int main (int argc, char* argv[])
{
    juce::StringArray arguments;

    for (int i = 1; i < argc; ++i)
        arguments.add (juce::String::fromUTF8 (argv[i]));

    DeskOptions options;

    if (const auto parsed = DeskOptions::parse (arguments, options); parsed.failed())
        return refuse (parsed.getErrorMessage());

    if (options.showsHelp)
    {
        std::cout << DeskOptions::getUsage();
        return 0;
    }

    if (options.showsVersion)
    {
        std::cout << DeskOptions::getVersion() << '\n';
        return 0;
    }

    const juce::ScopedJuceInitialiser_GUI toolkit;

    if (const auto found = findManager(); found.failed())
        return refuse (found.getErrorMessage());

    try
    {
        return options.renders ? renderToFile (options) : openWindow (options);
    }
    catch (const std::bad_alloc&)
    {
        return refuse ("the recordings do not fit into memory");
    }
}
