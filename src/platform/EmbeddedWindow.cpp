// SPDX-License-Identifier: GPL-3.0-or-later
// Has the toolkit's header bring its connection to the window system along, and the system's own headers with it.
#define JUCE_GUI_BASICS_INCLUDE_XHEADERS 1
#include <juce_gui_basics/juce_gui_basics.h>

#include "platform/EmbeddedWindow.h"

namespace platform
{
namespace
{

using ErrorHandler = int (*) (::Display*, XErrorEvent*);

int numGuards = 0;
ErrorHandler formerHandler = nullptr;
std::atomic<::Display*> ownConnection { nullptr };

int handleError (::Display* connection, XErrorEvent* error)
{
    if (connection == ownConnection || formerHandler == nullptr)
        return 0;

    return formerHandler (connection, error);
}

ErrorHandler setHandler (ErrorHandler handler)
{
    return juce::X11Symbols::getInstance()->xSetErrorHandler (handler);
}

}   // namespace

ScopedWindowErrorGuard::ScopedWindowErrorGuard()
{
    ownConnection = juce::XWindowSystem::getInstance()->getDisplay();

    if (numGuards++ == 0 && ownConnection != nullptr)
        formerHandler = setHandler (handleError);
}

ScopedWindowErrorGuard::~ScopedWindowErrorGuard()
{
    if (--numGuards > 0 || ownConnection == nullptr)
        return;

    // Errors come late: those of windows that just went are waited for.
    juce::X11Symbols::getInstance()->xSync (ownConnection, False);

    // Whoever took the answer over meanwhile keeps it.
    if (const auto current = setHandler (formerHandler); current != handleError)
        setHandler (current);
}

bool ScopedWindowErrorGuard::isConnected() const noexcept
{
    return ownConnection != nullptr;
}

}   // namespace platform
