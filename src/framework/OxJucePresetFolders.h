// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/OxJucePreset.h"

/** The folders on disk in which a product's preset files lie, and the walk through them [message thread, or a host's thread
    that changes the number of channels].

    A preset folder is a subfolder of the user's root, or, for what came with the product, of the install root; a file right
    in a root has an empty folder name. Nothing is remembered: each call looks at the disk again. Folders that are missing
    or unreadable are empty. */
class OxJucePresetFolders
{
public:
    static constexpr auto* kFileEnding = ".oxp";
    static constexpr auto* kDefaultName = "Default";   // the preset that new instances of a product begin with

    /** The folders that lie in the install root, in the order in which they are shown. */
    static juce::StringArray factoryFolders;

    /** @param owner must outlive this object */
    explicit OxJucePresetFolders (OxJuceProcessorBase& owner);

    /** @returns whether a user's folder of this name exists afterwards; a name that leaves nothing or leads elsewhere when it
                 is encoded names none. */
    bool createPresetFolder (const juce::String& name) const;

    /** The names, decoded, the product's own folders first and the user's by the alphabet. A user without one gets a first,
        which a later call lists. */
    juce::StringArray listPresetFolders() const;

    /** The names, decoded, of the presets in a folder, in the file system's order. Hidden files are left out, among them one
        that has nothing but the ending. */
    juce::StringArray listPresetFiles (const juce::String& folder) const;

    /** @param index receives the position of `file`, whether encoded or not, or -1 */
    std::vector<OxJucePreset> buildPresetList (const juce::String& folder, const juce::String& file, int& index) const;

    /** The named preset, or its neighbour, round both ends; the folder's first if there is none of that name, and the first
        of all if the folder is empty. */
    OxJucePreset findCurrentPreset (const juce::String& folder, const juce::String& file) const;
    OxJucePreset findNextPreset (const juce::String& folder, const juce::String& file) const;
    OxJucePreset findPreviousPreset (const juce::String& folder, const juce::String& file) const;

    /** The first preset of the first folder; if there is none, an object for no file. */
    OxJucePreset findFirstPreset() const;

    /** @param index receives the position of the default preset in the root, or -1 if another one is given */
    OxJucePreset findDefaultPreset (int& index) const;

    juce::File presetRootFor (const juce::String& encodedFolder) const;

    /** The place of a preset folder on disk, there or not; none for a name that leads out of the root. */
    juce::File getFolderPath (const juce::String& encodedFolder) const;

    /** A file or folder as it is to be read: where none stands under the encoded name, the one that is shown by the same name,
        as one of an older encoding is. */
    static juce::File findListed (const juce::File& encoded);

private:
    OxJucePreset findPreset (const juce::String& folder, const juce::String& file, int step) const;
    juce::File getUserRoot() const;
    juce::File getInstallRoot() const;

    OxJuceProcessorBase& processor;
};
