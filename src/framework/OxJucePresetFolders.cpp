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
    return presetRootFor (encodedFolder).getChildFile (encodedFolder);
}

bool OxJucePresetFolders::createPresetFolder (const juce::String& name) const
{
    if (factoryFolders.contains (name))
        return false;

    const auto folder = getUserRoot().getChildFile (encodePresetName (name));
    folder.createDirectory();   // fails also where another process was first
    return folder.isDirectory();
}

juce::StringArray OxJucePresetFolders::listPresetFolders() const
{
    juce::StringArray names;

    for (const auto& folder :
         getUserRoot().findChildFiles (juce::File::findDirectories | juce::File::ignoreHiddenFiles, false))
        names.add (decodePresetName (folder.getFileName()));

    if (names.isEmpty())
        createPresetFolder ("User");

    names.sort (false);

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

    for (const auto& file : path.findChildFiles (juce::File::findFiles | juce::File::ignoreHiddenFiles, false,
                                                 juce::String ("*") + kFileEnding))
        names.add (decodePresetName (file.getFileNameWithoutExtension()));

    return names;
}

std::vector<OxJucePreset> OxJucePresetFolders::buildPresetList (const juce::String& folder, const juce::String& file,
                                                                int& index) const
{
    const auto names = listPresetFiles (folder);
    index = -1;
    std::vector<OxJucePreset> list;
    list.reserve (static_cast<std::size_t> (names.size()));

    for (const auto& name : names)
    {
        if (name == decodePresetName (file))
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
