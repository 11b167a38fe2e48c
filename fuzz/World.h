// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "../tests/support/ScratchFolders.h"
#include "platform/KnownFolders.h"

/** What surrounds the targets: folders of their own, and no manager. */
struct World : ScratchFolders
{
    platform::ScopedCommonProgramFilesFolder noManager { root };
};
