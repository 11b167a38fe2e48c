// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/OxJucePreset.h"

#include "framework/OxJucePresetFolders.h"
#include "framework/OxJuceProcessorBase.h"
#include "framework/PresetNames.h"
#include "framework/ProductNames.h"
#include "framework/StateFrame.h"
#include "platform/Files.h"

namespace
{

constexpr auto* kRootTag = "ORVEXAudioPreset";
constexpr auto* kFileVersion = "FileVersion";
constexpr auto* kParametersTag = "Parameters";
constexpr auto* kSpecificTag = "SpecificData";
constexpr int kNoVersion = -1;
constexpr std::size_t kMaxFileSize = 4 << 20;   // bytes: a preset of 3000 parameters takes a tenth of that
constexpr int kMaxProductAttributes = 8192;     // in the product's block

}   // namespace

OxJucePreset::OxJucePreset (OxJuceProcessorBase* owner, const juce::String& folder, const juce::String& file)
{
    init (owner, folder, file);
}

void OxJucePreset::init (OxJuceProcessorBase* owner, const juce::String& folder, const juce::String& file)
{
    saved = loaded = captured = applied = false;
    setPlace (folder, file);
    processor = owner;
    fileVersion = kNoVersion;
}

void OxJucePreset::setName (const juce::String& file)
{
    encodedName = encodePresetName (file);
    values.name = file;
}

void OxJucePreset::setPlace (const juce::String& folder, const juce::String& file)
{
    encodedFolder = encodePresetName (folder);
    setName (file);
}

juce::String OxJucePreset::getName() const
{
    return decodePresetName (encodedName);
}

juce::File OxJucePreset::getFolderPath() const
{
    return processor != nullptr ? OxJucePresetFolders (*processor).getFolderPath (encodedFolder) : juce::File();
}

juce::File OxJucePreset::getFile() const
{
    // Without a name there would be a hidden file, which no list shows.
    const auto folder = encodedName.isNotEmpty() ? getFolderPath() : juce::File();
    return folder != juce::File() ? folder.getChildFile (encodedName + OxJucePresetFolders::kFileEnding) : folder;
}

bool OxJucePreset::capture()
{
    if (processor == nullptr)
        return false;

    processor->captureParamSet (values);
    specificData.reset();
    processor->getExtraStateBlock (specificData);
    captured = true;
    return true;
}

bool OxJucePreset::save()
{
    if (! captured)
        return saved;

    juce::XmlElement root (kRootTag);
    root.setAttribute ("RegistryPath", getProductNames().settings);
    root.setAttribute ("Version", getProductNames().version);
    root.setAttribute (kFileVersion, processor->getParamMapVersion());
    auto* const parameters = root.createNewChildElement (kParametersTag);

    for (int id = 0; id < processor->getNumParameters(); ++id)
    {
        const auto index = static_cast<std::size_t> (id);
        parameters->setAttribute (processor->getParamKey (id), stateFrame::toText (values.params[index].value));
        savedValues.params[index].value = values.params[index].value;
    }

    auto* const specific = root.createNewChildElement (kSpecificTag);

    // What is no XML at all is left out. XML that a load would refuse, though, must not cost the user the file before.
    if (auto block = juce::parseXML (specificData.toString()))
        specific->addChildElement (block.release());

    const auto text = root.toString();
    const auto size = text.getNumBytesAsUTF8();
    const auto file = getFile();
    saved = file != juce::File() && parse (text.toRawUTF8(), size) != nullptr &&
            platform::replaceFile (file, text.toRawUTF8(), size);
    processor->changeProgramName (processor->getCurrentProgram(), getName());
    processor->tellDisplayChanged();
    return saved;
}

std::unique_ptr<juce::XmlElement> OxJucePreset::parseFile() const
{
    juce::MemoryBlock content;

    if (! platform::readFile (OxJucePresetFolders::findListed (getFile()), content, kMaxFileSize))
        return {};

    return parse (content.getData(), content.getSize());
}

std::unique_ptr<juce::XmlElement> OxJucePreset::parse (const void* text, std::size_t size) const
{
    const auto maxAttributes = processor->getNumParameters() + kMaxProductAttributes;
    return size <= kMaxFileSize ? stateFrame::parse (text, size, maxAttributes) : nullptr;
}

bool OxJucePreset::load()
{
    loaded = false;
    const auto root = parseFile();

    if (root == nullptr || ! root->getTagName().equalsIgnoreCase (kRootTag))
        return false;

    if (const auto* const parameters = root->getChildByName (kParametersTag))
        readParameters (*parameters);

    fileVersion = root->getIntAttribute (kFileVersion, 0);
    const auto* const specific = root->getChildByName (kSpecificTag);

    if (const auto* const block = specific != nullptr ? specific->getFirstChildElement() : nullptr)
    {
        const auto text = block->toString (juce::XmlElement::TextFormat().withoutHeader());
        specificData.replaceAll (text.toRawUTF8(), text.getNumBytesAsUTF8());
    }

    loaded = true;
    return true;
}

void OxJucePreset::readParameters (const juce::XmlElement& xml)
{
    for (int id = 0; id < processor->getNumParameters(); ++id)
    {
        const auto key = processor->getParamKey (id);
        auto& record = values.params[static_cast<std::size_t> (id)];
        record.defaultValue = processor->parameter (id).defaultValue;
        record.value = static_cast<float> (xml.getDoubleAttribute (key, record.defaultValue));
        savedValues.params[static_cast<std::size_t> (id)].value =
            xml.hasAttribute (key) ? record.value.get() : kNotInFile;
    }
}

bool OxJucePreset::apply()
{
    applied = false;

    if (! loaded || processor == nullptr)
        return false;

    // The current program is where the parameters live, so that it holds the preset from here on.
    processor->applyParamSet (values, true, ParamOrigin::preset);
    processor->setExtraStateBlock (specificData.getData(), static_cast<int> (specificData.getSize()));
    processor->sendAutomatableParams();
    processor->changeProgramName (processor->getCurrentProgram(), getName());
    processor->tellDisplayChanged();
    applied = true;
    return true;
}

void OxJucePreset::takeConverted()
{
    fileVersion = kNoVersion;

    if (processor == nullptr)
        return;

    processor->captureParamSet (values);
    fileVersion = processor->getParamMapVersion();
}
