// SPDX-License-Identifier: GPL-3.0-or-later
#include "FuzzTarget.h"

#include "../desk/Script.h"

namespace
{

/** A script that is read can be printed and read again. */
void run (const std::uint8_t* data, std::size_t size)
{
    desk::Script script, again;
    const auto text = juce::String::createStringFromData (data, static_cast<int> (size));

    if (desk::Script::parse (text, script).failed())
        return;

    script.checkLength (1.0);
    promise (desk::Script::parse (script.toString(), again).wasOk() && again.lines.size() == script.lines.size());
}

const FuzzTarget target { "Script", run };

}   // namespace
