// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace platform
{

/** The window type that hosts of this system embed an editor into, by its name in the plug-in interface. */
constexpr const char* kEmbeddedWindowType = "X11EmbedWindowID";

/** While one lives, an error that the window system reports for a window of ours does not end the process.

    The answer to such errors belongs to the whole process, and by default it ends it: a host that destroys an editor's
    parent first would fall. Errors of other connections go where they went before. The first takes the answer over and
    the last gives it back [message thread]. */
class ScopedWindowErrorGuard
{
public:
    ScopedWindowErrorGuard();
    ~ScopedWindowErrorGuard();

    ScopedWindowErrorGuard (const ScopedWindowErrorGuard&) = delete;
    ScopedWindowErrorGuard& operator= (const ScopedWindowErrorGuard&) = delete;

    /** @returns whether there is a window system at all. */
    bool isConnected() const noexcept;
};

}   // namespace platform
