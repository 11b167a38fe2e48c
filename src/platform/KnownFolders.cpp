// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/KnownFolders.h"

namespace platform
{
namespace
{

juce::String& redirectedFolder()
{
    static juce::String folder;
    return folder;
}

/** A path that does not start at the root counts as none. */
juce::File getFolderOrElse (const juce::String& path, const juce::File& otherwise)
{
    return path.startsWithChar ('/') ? juce::File (path) : otherwise;
}

}   // namespace

juce::String findCommonProgramFilesFolder (const juce::String& fileBelow)
{
    if (redirectedFolder().isNotEmpty())
        return redirectedFolder();

    const auto home = juce::File::getSpecialLocation (juce::File::userHomeDirectory);
    const auto nativeFile = fileBelow.replaceCharacter ('\\', '/');
    const juce::File candidates[] { home.getChildFile (".local/lib"), juce::File ("/usr/local/lib") };

    for (const auto& folder : candidates)
        if (folder.getChildFile (nativeFile).existsAsFile())
            return folder.getFullPathName();

    return candidates[0].getFullPathName();
}

juce::File getUserConfigurationFolder()
{
    const auto home = juce::File::getSpecialLocation (juce::File::userHomeDirectory);
    return getFolderOrElse (juce::SystemStats::getEnvironmentVariable ("XDG_CONFIG_HOME", {}),
                            home.getChildFile (".config"));
}

juce::File getMachineConfigurationFolder()
{
    const juce::File usual ("/etc/xdg");
    const auto folders =
        juce::StringArray::fromTokens (juce::SystemStats::getEnvironmentVariable ("XDG_CONFIG_DIRS", {}), ":", {});
    return folders.contains (usual.getFullPathName()) ? usual : getFolderOrElse (folders[folders.size() - 1], usual);
}

juce::File getUserApplicationDataFolder()
{
    const auto home = juce::File::getSpecialLocation (juce::File::userHomeDirectory);
    return getFolderOrElse (juce::SystemStats::getEnvironmentVariable ("XDG_DATA_HOME", {}),
                            home.getChildFile (".local/share"));
}

juce::File getUserDocumentsFolder()
{
    const auto home = juce::File::getSpecialLocation (juce::File::userHomeDirectory);
    auto folder = home.getChildFile ("Documents");

    // The desktop's own record of the folder, as a line of a shell script: XDG_DOCUMENTS_DIR="$HOME/Papers"
    juce::StringArray lines;
    getUserConfigurationFolder().getChildFile ("user-dirs.dirs").readLines (lines);

    for (const auto& line : lines)
        if (line.trimStart().startsWith ("XDG_DOCUMENTS_DIR="))
            folder = getFolderOrElse (line.fromFirstOccurrenceOf ("=", false, false)
                                          .trim()
                                          .unquoted()
                                          .replace ("$HOME", home.getFullPathName()),
                                      folder);

    return getFolderOrElse (juce::SystemStats::getEnvironmentVariable ("XDG_DOCUMENTS_DIR", {}), folder);
}

ScopedCommonProgramFilesFolder::ScopedCommonProgramFilesFolder (const juce::File& folder) :
    previous (redirectedFolder())
{
    redirectedFolder() = folder.getFullPathName();
}

ScopedCommonProgramFilesFolder::~ScopedCommonProgramFilesFolder()
{
    redirectedFolder() = previous;
}

}   // namespace platform
