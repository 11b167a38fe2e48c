// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/GridAlignment.h"

namespace
{

enum class Hold
{
    start,
    centre,
    end,
    fill
};

struct Alignment
{
    Hold across, down;
};

constexpr Alignment kAlignments[] {
    { Hold::start, Hold::start },  { Hold::centre, Hold::start },  { Hold::end, Hold::start },
    { Hold::start, Hold::centre }, { Hold::centre, Hold::centre }, { Hold::end, Hold::centre },
    { Hold::start, Hold::end },    { Hold::centre, Hold::end },    { Hold::end, Hold::end },
    { Hold::fill, Hold::fill },    { Hold::fill, Hold::start },    { Hold::fill, Hold::centre },
    { Hold::fill, Hold::end },     { Hold::start, Hold::fill },    { Hold::centre, Hold::fill },
    { Hold::end, Hold::fill },
};

struct Stretch
{
    int position, length;
};

Stretch hold (Hold where, Stretch cell, int own)
{
    switch (where)
    {
        case Hold::start:
            return { cell.position, own };
        case Hold::centre:
            return { cell.position + cell.length / 2 - own / 2, own };   // both divisions cut off
        case Hold::end:
            return { cell.position + cell.length - own, own };
        case Hold::fill:
            return cell;
    }

    return {};
}

}   // namespace

juce::Rectangle<int> alignInCell (int alignment, juce::Rectangle<int> cell, juce::Point<int> own)
{
    if (alignment < 1 || alignment > static_cast<int> (std::size (kAlignments)))
        return {};

    const auto [across, down] = kAlignments[alignment - 1];
    const auto x = hold (across, { cell.getX(), cell.getWidth() }, own.x);
    const auto y = hold (down, { cell.getY(), cell.getHeight() }, own.y);
    return { x.position, y.position, x.length, y.length };
}
