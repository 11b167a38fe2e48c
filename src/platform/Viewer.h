// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include <juce_core/juce_core.h>

namespace platform
{

/** Opens a file or an address of the web with the program that the user has for it, and returns at once [message thread].
    @returns false if there is no such file or no program could be started; what the program makes of it nobody knows */
bool openForUser (const juce::URL& url);

/** While it lives, `viewer` gets the address of whatever is to be opened, and its answer counts. */
class ScopedViewer
{
public:
    using Viewer = std::function<bool (const juce::String& address)>;

    explicit ScopedViewer (Viewer viewer);
    ~ScopedViewer();

    ScopedViewer (const ScopedViewer&) = delete;
    ScopedViewer& operator= (const ScopedViewer&) = delete;

private:
    const Viewer previous;
};

}   // namespace platform
