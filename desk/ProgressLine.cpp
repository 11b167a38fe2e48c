// SPDX-License-Identifier: GPL-3.0-or-later
#include "ProgressLine.h"

namespace desk
{

void ProgressLine::say (const juce::String& line)
{
    if (rewrites)
        out << "\r\033[K";

    out << line << '\n';

    if (rewrites && percent >= 0 && percent < 100)
        show();

    out.flush();
}

void ProgressLine::update (double fraction)
{
    const auto step = rewrites ? 1 : 25;
    const auto now = static_cast<int> (fraction * 100.0) / step * step;

    if (now <= percent)
        return;

    percent = now;

    if (rewrites)
    {
        out << '\r';
        show();
    }

    if (! rewrites && percent > 0)
        show();

    if (percent == 100 || ! rewrites)
        out << (percent > 0 ? "\n" : "");

    out.flush();
}

void ProgressLine::show()
{
    out << "rendering " << percent << " %";
}

}   // namespace desk
