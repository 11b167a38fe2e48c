// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace platform
{

/** Lets frames of the current OpenGL context reach the screen without waiting for it, where the driver can do that [the
    context's thread]. */
void ignoreVerticalSync();

}   // namespace platform
