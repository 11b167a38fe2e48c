// SPDX-License-Identifier: GPL-3.0-or-later
#include "Product.h"
#include "framework/OxJucePreset.h"

#include <juce_events/juce_events.h>

namespace
{

/** What a preset file leaves in a product can be saved as one. */
void run (const std::uint8_t* data, std::size_t size)
{
    const juce::ScopedJuceInitialiser_GUI toolkit;
    Product product;
    const auto preset = std::make_unique<OxJucePreset> (&product, "Fuzz", "Fuzz");
    preset->getFile().create();
    preset->getFile().replaceWithData (data, size);

    if (! preset->load())
        return;

    promise (preset->apply());
    product.use();
    promise (preset->capture() && preset->save() && preset->load());
}

const FuzzTarget target { "Preset", run };

}   // namespace
