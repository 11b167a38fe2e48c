// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/VerticalSync.h"

#include <GL/glx.h>
#include <cstring>

namespace
{

template <typename Function>
Function find (const char* name)
{
    return reinterpret_cast<Function> (glXGetProcAddress (reinterpret_cast<const GLubyte*> (name)));
}

}   // namespace

void platform::ignoreVerticalSync()
{
    auto* const display = glXGetCurrentDisplay();
    const char* const known =
        display != nullptr ? glXQueryExtensionsString (display, DefaultScreen (display)) : nullptr;

    if (known == nullptr)
        return;

    // An older extension than these takes no interval of 0.
    if (std::strstr (known, "GLX_EXT_swap_control") != nullptr)
        find<void (*) (Display*, GLXDrawable, int)> ("glXSwapIntervalEXT") (display, glXGetCurrentDrawable(), 0);
    else if (std::strstr (known, "GLX_MESA_swap_control") != nullptr)
        find<int (*) (unsigned)> ("glXSwapIntervalMESA") (0);
}
