// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/aax/Description.h"

#include "adapters/aax/AAX_AudiosuiteProcessor.h"
#include "adapters/aax/JuceAAX_GUI.h"

namespace AAXClasses
{
namespace
{

constexpr const char* kName = "ORVEX DuoJudge";
constexpr std::int32_t kManufacturerId = 0x54524b50, kProductId = 0x51585730;   // 'TRKP', 'QXW0'
constexpr std::array<AAX_EStemFormat, 2> kStems { AAX_eStemFormat_Mono, AAX_eStemFormat_Stereo };

/** Numbers the types by the last character of the product's id.
    @returns nothing if the number leaves the characters that an id may have */
std::optional<std::int32_t> makeTypeId (int index)
{
    static const juce::String reached ("-0123456789:ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmn;,=<>?@[\\]^`"),
        allowed ("-0123456789:ABCDEFGHIJKLMNOPQRSTUVWXYZ_abcdefghijklmnopqrstuvwxyz");
    const auto sum = kProductId + index;
    const auto last = static_cast<juce::juce_wchar> (sum & 0xff);

    if (const auto place = reached.indexOfChar (last); place >= 0)
        return (sum & ~0xff) | static_cast<std::int32_t> (allowed[place]);

    if (allowed.containsChar (last))
        return sum;

    juce::Logger::writeToLog (
        " creating a plugin with more channel configs than is supported by the current system. This will cause an invalid "
        "plugID. Please implement a system that allows for more plugIDs, such as incrementing the second to last charcter.");
    return {};
}

}   // namespace

AAX_Result describeType (AAX_IEffectDescriptor& effect, int index)
{
    if (! juce::isPositiveAndBelow (index, kStems.size()))
        return AAX_ERROR_NULL_OBJECT;

    const auto typeId = makeTypeId (index);

    if (! typeId.has_value())
        return AAX_ERROR_INVALID_ID;

    const auto stem = kStems[static_cast<std::size_t> (index)];
    const AAX_SProperty properties[] { { AAX_eProperty_ManufacturerID, kManufacturerId },
                                       { AAX_eProperty_ProductID, kProductId },
                                       { AAX_eProperty_CanBypass, 1 },
                                       { AAX_eProperty_InputStemFormat, stem },
                                       { AAX_eProperty_OutputStemFormat, stem },
                                       { AAX_eProperty_MultiMonoSupport, 0 },
                                       { AAX_eProperty_PlugInID_Native, *typeId } };
    return effect.AddType (JuceAAX_Processor::processContexts, properties, static_cast<int> (std::size (properties)));
}

AAX_Result describe (AAX_ICollection& collection)
{
    auto* const effect = collection.NewDescriptor();

    if (effect == nullptr)
        return AAX_ERROR_NULL_OBJECT;

    for (int lengths = 0; lengths < 2; ++lengths)
        effect->AddName (kName);   // the full and the short one

    effect->AddCategory (0);
    effect->AddCreator (JuceAAX_Processor::create);
    effect->AddCreator (JuceAAX_GUI::create);
    effect->AddCreator (AAX_AudiosuiteProcessor::create);

    for (int index = 0; index < static_cast<int> (kStems.size()); ++index)
        if (const auto result = describeType (*effect, index); result != AAX_SUCCESS)
            return result;

    return collection.AddEffect (kName, effect);
}

}   // namespace AAXClasses
