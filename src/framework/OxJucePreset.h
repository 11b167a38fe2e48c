// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/OxParamRecord.h"

class OxJuceProcessorBase;

/** A preset on disk, and the way between it and the processor [message thread, or the one that loads a state].

    What is written are the normal parameters and the product's own block, as XML; the block is the text of one element, in
    whose tags, not between them, all its data stand. What a file holds is not trusted. Copies are whole, and expensive: two
    sets of `kMaxParams` records each. */
class OxJucePreset
{
public:
    /** Belongs to no processor and names no file. */
    OxJucePreset() = default;
    OxJucePreset (OxJuceProcessorBase* owner, const juce::String& folder, const juce::String& file);

    /** Stands for another file from here on, of which nothing is loaded yet.
        @param owner  not owned
        @param folder encoded or not; empty for the root of all presets
        @param file   the preset's name, which is the file's without its ending */
    void init (OxJuceProcessorBase* owner, const juce::String& folder, const juce::String& file);
    void setName (const juce::String& file);

    /** Names another file and keeps the rest. @param folder encoded or not */
    void setPlace (const juce::String& folder, const juce::String& file);

    /** Takes over the processor's parameters and block. */
    bool capture();

    /** Replaces the file in one step by what was captured, and makes the name the program's.
        @returns whether the file is kept; without a capture, what the last save gave. It is not, and the one before stays,
                 if the product's block is XML that a load would refuse. */
    bool save();

    /** Reads the file. @returns false, with the values as they were, if it is missing or no preset. */
    bool load();

    /** Hands what was loaded to the processor. @returns false, with nothing changed, if nothing was. */
    bool apply();

    /** Takes back the values that the processor has converted from another version, and with them its version. */
    void takeConverted();

    void setFileVersion (int version) noexcept { fileVersion = version; }

    bool isSaved() const noexcept { return saved; }
    bool isLoaded() const noexcept { return loaded; }
    bool isApplied() const noexcept { return applied; }

    /** The name as it is shown. */
    juce::String getName() const;
    const juce::String& getEncodedName() const noexcept { return encodedName; }

    /** The folder, encoded. */
    const juce::String& getFolder() const noexcept { return encodedFolder; }
    juce::File getFolderPath() const;

    /** The file as it is written, there or not; none without a name, or in a folder that leads out of the root. */
    juce::File getFile() const;

    /** @returns the version of the parameters' meaning in the file that was loaded, or -1 */
    int getFileVersion() const noexcept { return fileVersion; }

    static constexpr float kNotInFile = -1.0f;

    /** @returns what the file holds for a normal parameter, or `kNotInFile` */
    float getSavedValue (int id) const noexcept { return savedValues.params[static_cast<std::size_t> (id)].value; }

private:
    std::unique_ptr<juce::XmlElement> parseFile() const;
    std::unique_ptr<juce::XmlElement> parse (const void* text, std::size_t size) const;
    void readParameters (const juce::XmlElement& xml);

    OxJuceProcessorBase* processor = nullptr;   // not owned
    juce::String encodedName, encodedFolder;
    bool saved = false, loaded = false, captured = false, applied = false;   // how the last of each went
    int fileVersion = -1;
    OxParamSet values;                // its name is the preset's
    OxParamSet savedValues;           // what the file holds
    juce::MemoryBlock specificData;   // the product's block
};
