// SPDX-License-Identifier: GPL-3.0-or-later
// What a host finds in the shared object: the one call that makes an instance.
#include "adapters/Export.h"
#include "adapters/vst2/JuceVSTWrapper.h"

DUO_EXPORT t_fstEffect* VSTPluginMain (audioMasterCallback host);

t_fstEffect* VSTPluginMain (audioMasterCallback host)
{
    return JuceVSTWrapper::create (host);
}
