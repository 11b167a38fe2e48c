// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <juce_graphics/juce_graphics.h>

/** Places a component in a cell of a grid by an alignment code.

    1 to 9 leave the component its own size and place it, like the keys of a telephone, three in a row. 10 fills the cell.
    11 to 13 fill its width, at the top, in the middle and at the bottom; 14 to 16 fill its height, at the left, in the
    centre and at the right.
    @param own  the component's present width and height
    @returns its bounds, in the cell's coordinates; all 0 for any other code */
juce::Rectangle<int> alignInCell (int alignment, juce::Rectangle<int> cell, juce::Point<int> own);
