// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include <juce_core/juce_core.h>

/** The bytes of a saved state, and the XML text in them [any thread but the audio thread].

    A frame is the magic "VC2!", the length of the text as a little-endian word, an XML text in UTF-8, and one 0. What is
    read comes from a file that anybody may have written: nothing here trusts a length, and a text that would overflow the
    stack, expand without end or take minutes is no state. */
namespace stateFrame
{

bool hasMagic (const void* data, std::size_t size) noexcept;

/** @returns how many of the bytes the frame claims, at most `size`; 0 without the magic. */
int getFrameSize (const void* data, int size) noexcept;

/** @param maxAttributes how many attributes a text may have in all
    @returns the root, or null if the bytes are no frame or the text is no readable XML. */
std::unique_ptr<juce::XmlElement> read (const void* data, int size, int maxAttributes);

/** Reads a text by itself, up to its first 0, as `read` does that in a frame. */
std::unique_ptr<juce::XmlElement> parse (const void* data, std::size_t size, int maxAttributes);

juce::MemoryBlock write (const juce::XmlElement& root);

/** The text of a float attribute: nine significant digits and a decimal point, whatever the locale. */
juce::String toText (float value);

/** Reads the text form of a block of bytes. @returns false, with `block` as it was, if the text is no such form. */
bool decode (const juce::String& text, juce::MemoryBlock& block);

}   // namespace stateFrame
