// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_gui_basics/juce_gui_basics.h>

#include <functional>

/** Tells once that a component has gone out of view: hidden or taken from its parent, or any of its parents was
    [message thread]. What is not on screen from the start is never told of. The call may delete the watch and the component. */
class ViewWatch : private juce::ComponentListener
{
public:
    ViewWatch (juce::Component& watched, std::function<void()> whenGone);
    ~ViewWatch() override;

private:
    using Link = juce::Component::SafePointer<juce::Component>;

    // juce::ComponentListener
    void componentVisibilityChanged (juce::Component&) override { check(); }
    void componentParentHierarchyChanged (juce::Component&) override { check(); }

    void check();

    std::vector<Link> chain;   // the component and its parents
    std::function<void()> tell;

    JUCE_DECLARE_NON_COPYABLE (ViewWatch)
};
