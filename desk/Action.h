// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include <juce_core/juce_core.h>

namespace desk
{

/** The three faces of a comparison: open listening, a blind test, and its result. */
enum class View
{
    normal,
    test,
    results
};

/** One thing that a listener does, by a button, a key or a line of a script. */
struct Action
{
    enum class Kind
    {
        selectA,
        selectB,
        startTest,
        flipX,
        flipY,
        choose,
        reveal,
        resume,
        end,
        gain
    };

    Kind kind;
    float decibels = 0.0f;   // of `gain`

    /** Reads an action as a script writes it, "flip Y" for one. @returns why the text is none, or success */
    static juce::Result parse (const juce::StringArray& words, Action& result);

    /** The words that `parse` reads. */
    juce::String toString() const;

    /** @returns the view after an action of this kind, or nothing where `view` does not offer it. */
    static std::optional<View> getViewAfter (View view, Kind kind);
};

constexpr float kMaxGain = 10.0f;   // decibels of send gain, up and down

/** Reads a plain decimal number, the whole text or nothing. */
std::optional<double> readNumber (const juce::String& text);

}   // namespace desk
