// SPDX-License-Identifier: GPL-3.0-or-later
#include "Product.h"

#include <juce_events/juce_events.h>

namespace
{

/** What a state leaves in a product is saved, and comes back as it was. */
void run (const std::uint8_t* data, std::size_t size)
{
    const juce::ScopedJuceInitialiser_GUI toolkit;
    Product product, streamed, restored;
    product.setStateInformation (data, static_cast<int> (size));
    streamed.loadStream (data, size);

    for (auto* const loaded : { &product, &streamed })
    {
        const auto saved = loaded->save();
        restored.setStateInformation (saved.getData(), static_cast<int> (saved.getSize()));
        promise (restored.save() == saved);
        loaded->use();
    }
}

const FuzzTarget target { "State", run };

}   // namespace
