// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <string>

/** Takes an input for a row of choices. When it has come to its end, every choice is the first. */
class Choices
{
public:
    Choices (const std::uint8_t* data, std::size_t size) : next (data), end (data + size) {}

    bool areLeft() const { return next != end; }

    /** From 0 to 255. */
    int byte() { return next != end ? *next++ : 0; }

    template <typename Value>
    Value among (std::initializer_list<Value> values)
    {
        return values.begin()[static_cast<std::size_t> (byte()) % values.size()];
    }

    /** As many of the next bytes as the first of them says. */
    std::string text()
    {
        const auto length = std::min<std::ptrdiff_t> (byte(), end - next);
        const std::string bytes (next, next + length);
        next += length;
        return bytes;
    }

private:
    const std::uint8_t* next;
    const std::uint8_t* const end;
};
