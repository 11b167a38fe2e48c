// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ViewWatch.h"

ViewWatch::ViewWatch (juce::Component& watched, std::function<void()> whenGone) : tell (std::move (whenGone))
{
    if (! watched.isShowing())
        return;

    for (auto* link = &watched; link != nullptr; link = link->getParentComponent())
    {
        link->addComponentListener (this);
        chain.emplace_back (link);
    }
}

ViewWatch::~ViewWatch()
{
    for (const auto& link : chain)
        if (link != nullptr)
            link->removeComponentListener (this);
}

void ViewWatch::check()
{
    if (const auto& watched = chain.front(); watched != nullptr && watched->isShowing())
        return;

    if (const auto once = std::exchange (tell, nullptr))
        once();
}
