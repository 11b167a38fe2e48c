// SPDX-License-Identifier: GPL-3.0-or-later
#include "DeskOptions.h"

namespace desk
{
namespace
{

juce::File toFile (const juce::String& path)
{
    return juce::File::getCurrentWorkingDirectory().getChildFile (path);
}

}   // namespace

juce::Result DeskOptions::parse (const juce::StringArray& arguments, DeskOptions& result)
{
    DeskOptions options;
    juce::StringArray paths;
    bool onlyPaths = false;

    const struct
    {
        const char* name;
        juce::File& file;
    } named[] { { "--render", options.output }, { "--script", options.script }, { "--plugins", options.plugins } };

    for (int i = 0; i < arguments.size(); ++i)
    {
        const auto& word = arguments[i];

        if (onlyPaths || ! word.startsWith ("-"))
        {
            paths.add (word);
            continue;
        }

        const auto* const option =
            std::find_if (std::begin (named), std::end (named), [&word] (const auto& o) { return word == o.name; });

        if (word == "--help" || word == "-h")
            options.showsHelp = true;
        else if (word == "--version")
            options.showsVersion = true;
        else if (word == "--")
            onlyPaths = true;
        else if (option == std::end (named))
            return juce::Result::fail ("there is no option " + word + "; --help shows those that are");
        else if (++i >= arguments.size() || arguments[i].isEmpty())
            return juce::Result::fail (word + " needs a path");
        else
            option->file = toFile (arguments[i]);
    }

    options.renders = options.output != juce::File();

    if (! options.showsHelp && ! options.showsVersion)
    {
        if (paths.size() != 2)
            return juce::Result::fail ("a comparison takes two files, not " + juce::String (paths.size()) +
                                       "; --help shows the usage");

        if (options.script != juce::File() && ! options.renders)
            return juce::Result::fail ("--script needs --render: in the window you act yourself");

        options.fileA = toFile (paths[0]);
        options.fileB = toFile (paths[1]);
    }

    result = options;
    return juce::Result::ok();
}

juce::String DeskOptions::getUsage()
{
    return R"(usage: duojudge-desk A B [--render OUT.wav [--script FILE]] [--plugins DIR]

Compares the sound files A and B by ear: WAV, AIFF, FLAC or Ogg Vorbis, mono or stereo.

Opens a window that plays both in step, or with --render, and then without a display,
writes the comparison to a file of A's length, sample-aligned with A.

  --render OUT.wav    write to OUT.wav, 32-bit float, instead of opening a window
  --script FILE       act as FILE says: one "SECONDS ACTION [ARGUMENT]" a line, # begins a comment
                          select A|B    test    flip X|Y    choose
                          reveal        resume  end         gain DB
                      without it a sequence over the length of A is made up and printed
  --plugins DIR       take DuoJudge.vst3 and BayLinkSend.vst3 from DIR instead of ~/.vst3
  --help, --version   show this, or the version

Keys of the window: space plays and stops, A B X Y listen, Enter chooses, E ends.
The exit status is 0, or 2 after an error, which is told in one line.
)";
}

juce::String DeskOptions::getVersion()
{
    return "duojudge-desk " DUO_VERSION;
}

}   // namespace desk
