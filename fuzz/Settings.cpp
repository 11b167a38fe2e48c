// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/Settings.h"
#include "Choices.h"
#include "Product.h"
#include "platform/KnownFolders.h"

#include <juce_events/juce_events.h>

namespace
{

/** The files of a few values hold anything when the product comes up. */
void run (const std::uint8_t* data, std::size_t size)
{
    const juce::ScopedJuceInitialiser_GUI toolkit;
    const auto registry = platform::getUserConfigurationFolder().getChildFile ("ORVEX Audio/Registry/software");
    const auto maker = registry.getChildFile ("orvex audio");

    for (Choices choices (data, size); choices.areLeft();)
    {
        const auto* const name = choices.among (
            { "duojudge_1/persistentparammapversion", "duojudge_1/exportsupport", "duojudge_1/routingdefault",
              "duojudge_1/ojdefault toggle a and b", "duojudge_1/ojdefault_preset_file",
              "duojudge_1/ojdefault_preset_folder", "duojudge_1/install folder", "isvenueversion" });
        const auto content = choices.text();
        const auto file = maker.getChildFile (name + juce::String (".value"));
        file.create();
        file.replaceWithData (content.data(), content.size());
    }

    Product product;
    product.loadDefault();
    product.use();
    getManualPath();
    promise (registry.deleteRecursively());
}

const FuzzTarget target { "Settings", run };

}   // namespace
