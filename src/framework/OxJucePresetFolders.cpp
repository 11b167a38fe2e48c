// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/OxJucePresetFolders.h"

#include "framework/OxJuceProcessorBase.h"
#include "framework/PresetNames.h"
#include "framework/ProductNames.h"
#include "framework/Settings.h"
#include "platform/Files.h"
#include "platform/KnownFolders.h"

juce::StringArray OxJucePresetFolders::factoryFolders;

namespace
{

juce::String getUserPath()
{
    return platform::getUserApplicationDataFolder()
        .getChildFile ("ORVEX Audio/Presets")
        .getChildFile (getProductNames().settings)
        .getFullPathName();
}

/** Whether a folder's name would be a step on the way instead. */
bool isStep (const juce::String& encodedFolder)
{
    return encodedFolder == "." || encodedFolder == "..";
}

/** How this version would write the name of a file or folder that is shown as this one is. */
juce::String getPlainName (const juce::File& file)
{
    const juce::String ending = OxJucePresetFolders::kFileEnding;   // lists take it in capitals too
    const auto name = file.getFileName();
    const auto stem = name.endsWithIgnoreCase (ending) ? name.dropLastCharacters (ending.length()) : name;
    return encodePresetName (decodePresetName (stem)) + (stem != name ? ending : juce::String());
}

}   // namespace

OxJucePresetFolders::OxJucePresetFolders (OxJuceProcessorBase& owner) : processor (owner)
{
}

juce::File OxJucePresetFolders::getUserRoot() const
{
    return platform::getFileAt (processor.adjustPresetFolder (getUserPath()));
}

juce::File OxJucePresetFolders::getInstallRoot() const
{
    const auto path = getInstallPath ("Presets");
    const auto isInstalled = path != "\\Presets" && platform::getFileAt (path) != juce::File();
    return platform::getFileAt (processor.adjustPresetFolder (isInstalled ? path : getUserPath()));
}

juce::File OxJucePresetFolders::presetRootFor (const juce::String& encodedFolder) const
{
    return factoryFolders.contains (encodedFolder) ? getInstallRoot() : getUserRoot();
}

juce::File OxJucePresetFolders::getFolderPath (const juce::String& encodedFolder) const
{
    if (isStep (encodedFolder))
        return {};

    const auto root = presetRootFor (encodedFolder);
    return encodedFolder.isEmpty() ? root : findListed (root.getChildFile (encodedFolder));
}

juce::File OxJucePresetFolders::findListed (const juce::File& encoded)
{
    if (encoded == juce::File() || encoded.exists())
        return encoded;

    for (const auto& other : encoded.getParentDirectory().findChildFiles (
             juce::File::findFilesAndDirectories | juce::File::ignoreHiddenFiles, false))
        if (getPlainName (other) == encoded.getFileName())
            return other;

    return encoded;
}

bool OxJucePresetFolders::createPresetFolder (const juce::String& name) const
{
    const auto encoded = encodePresetName (name);

    if (factoryFolders.contains (name) || encoded.isEmpty() || isStep (encoded))
        return false;

    const auto folder = getUserRoot().getChildFile (encoded);
    folder.createDirectory();   // fails also where another process was first
    return folder.isDirectory();
}

juce::StringArray OxJucePresetFolders::listPresetFolders() const
{
    juce::StringArray names;

    for (const auto& folder :
         getUserRoot().findChildFiles (juce::File::findDirectories | juce::File::ignoreHiddenFiles, false))
        names.addIfNotAlreadyThere (decodePresetName (folder.getFileName()));

    if (names.isEmpty())
        createPresetFolder ("User");

    names.sort (true);

    for (int index = 0; index < factoryFolders.size(); ++index)
    {
        names.removeString (factoryFolders[index]);
        names.insert (index, factoryFolders[index]);
    }

    return names;
}

juce::StringArray OxJucePresetFolders::listPresetFiles (const juce::String& folder) const
{
    juce::StringArray names;
    const auto path = getFolderPath (encodePresetName (folder));

    if (path == juce::File())
        return names;

    for (const auto& file : path.findChildFiles (juce::File::findFiles | juce::File::ignoreHiddenFiles, false,
                                                 juce::String ("*") + kFileEnding))
        names.addIfNotAlreadyThere (decodePresetName (file.getFileNameWithoutExtension()));

    return names;
}

std::vector<OxJucePreset> OxJucePresetFolders::buildPresetList (const juce::String& folder, const juce::String& file,
                                                                int& index) const
{
    const auto names = listPresetFiles (folder);
    const auto shown = decodePresetName (file), encoded = encodePresetName (file);
    index = -1;
    std::vector<OxJucePreset> list;
    list.reserve (static_cast<std::size_t> (names.size()));

    for (const auto& name : names)
    {
        if (name == shown || (index < 0 && encoded.isNotEmpty() && encodePresetName (name) == encoded))
            index = static_cast<int> (list.size());

        list.emplace_back (&processor, folder, name);
    }

    return list;
}

OxJucePreset OxJucePresetFolders::findPreset (const juce::String& folder, const juce::String& file, int step) const
{
    int index = -1;
    const auto list = buildPresetList (folder, file, index);

    if (list.empty())
        return findFirstPreset();

    const auto size = static_cast<int> (list.size());
    return list[static_cast<std::size_t> (index < 0 ? 0 : (index + step + size) % size)];
}

OxJucePreset OxJucePresetFolders::findCurrentPreset (const juce::String& folder, const juce::String& file) const
{
    return findPreset (folder, file, 0);
}

OxJucePreset OxJucePresetFolders::findNextPreset (const juce::String& folder, const juce::String& file) const
{
    return findPreset (folder, file, 1);
}

OxJucePreset OxJucePresetFolders::findPreviousPreset (const juce::String& folder, const juce::String& file) const
{
    return findPreset (folder, file, -1);
}

OxJucePreset OxJucePresetFolders::findFirstPreset() const
{
    const auto folder = listPresetFolders()[0];
    const auto file = folder.isEmpty() ? juce::String() : listPresetFiles (folder)[0];
    return file.isEmpty() ? OxJucePreset (&processor, {}, {}) : OxJucePreset (&processor, folder, file);
}

OxJucePreset OxJucePresetFolders::findDefaultPreset (int& index) const
{
    const auto list = buildPresetList ({}, kDefaultName, index);
    return index < 0 ? findFirstPreset() : list[static_cast<std::size_t> (index)];
}
