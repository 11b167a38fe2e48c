// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Viewer.h"

namespace platform
{
namespace
{

ScopedViewer::Viewer& redirectedViewer()
{
    static ScopedViewer::Viewer viewer;
    return viewer;
}

}   // namespace

bool openForUser (const juce::URL& url)
{
    if (url.isEmpty() || (url.isLocalFile() && ! url.getLocalFile().existsAsFile()))
        return false;

    // By its address a file is never taken for a program to run, whatever its permissions say; and where a shell starts
    // the viewer, it is to find nothing in the address to expand.
    const auto address = url.toString (true).replace ("$", "%24");
    return redirectedViewer() ? redirectedViewer() (address) : juce::Process::openDocument (address, {});
}

ScopedViewer::ScopedViewer (Viewer viewer) : previous (std::exchange (redirectedViewer(), std::move (viewer)))
{
}

ScopedViewer::~ScopedViewer()
{
    redirectedViewer() = previous;
}

}   // namespace platform
