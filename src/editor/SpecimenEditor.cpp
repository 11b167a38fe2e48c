// SPDX-License-Identifier: GPL-3.0-or-later
#include "editor/SpecimenEditor.h"

namespace
{

constexpr int kWidth = 535, kHeight = 267;
constexpr int kFill = 10, kCentre = 5;   // alignment codes of grids
const juce::Colour kInk { 170, 170, 170 };

struct Specimen
{
    int size, row;
};

constexpr Specimen kSmall[] { { 10, 1 }, { 11, 2 }, { 12, 3 }, { 14, 4 }, { 18, 5 } };
constexpr Specimen kLarge[] { { 20, 1 }, { 22, 2 }, { 24, 3 }, { 28, 4 } };

}   // namespace

SpecimenEditor::SpecimenEditor (OxJuceProcessorBase& owner) : OxJuceEditorBase (owner)
{
    const OxScopedReadWriteLock lock (editorLock, OxScopedReadWriteLock::Mode::write, true, __func__);
    bigLettersFont.load ("FONT_DuoJudgeBigLetters_png", this);
    font44.load ("FONT_FontText44_png", this);
    setSize (kWidth, kHeight);

    background.addStop (0.0f, juce::Colour (64, 64, 64));
    background.addStop (1.0f, juce::Colour (21, 21, 21));
    mainGrid.setNumRows (7);
    mainGrid.setNumColumns (4);

    for (const auto& [row, height] : { std::pair (0, 64), { 1, 28 }, { 2, 30 }, { 3, 32 }, { 4, 38 }, { 5, 26 } })
        mainGrid.setRowSize (row, height, true);

    mainGrid.setColumnSize (0, 20, true);
    mainGrid.setColumnSize (3, 130, true);
    addControl (mainGrid);
    mainGrid.setBackgroundComponent (&background, false, true);

    const auto add = [this] (OxJuceOglFont* font, const juce::String& text, int column, int row, int alignment)
    {
        lines.push_back (std::make_unique<Line> (font, text));
        mainGrid.setCellComponent (column, row, lines.back().get());
        mainGrid.setCellAlignment (column, row, alignment);
    };

    for (const auto& [size, row] : kSmall)
        add (surface.getFont (size), juce::String (size) + " Two sources, one ear", 1, row, kFill);

    for (const auto& [size, row] : kLarge)
        add (surface.getFont (size), juce::String (size) + " A or B", 2, row, kFill);

    add (&font44, "44", 3, 1, kFill);
    add (&bigLettersFont, "AB", 3, 3, kFill);
    mainGrid.setCellSpan (3, 1, 1, 2);
    mainGrid.setCellSpan (3, 3, 1, 2);
    mainGrid.setCellComponent (1, 0, &title);
    mainGrid.setCellAlignment (1, 0, kCentre);
    mainGrid.setAutoLayout (true);
    surface.enableRendering();
    updateGui();
}

SpecimenEditor::~SpecimenEditor()
{
    stopRendering();
}

void SpecimenEditor::resized()
{
    mainGrid.setBounds (getBounds());
    OxJuceEditorBase::resized();
}

SpecimenEditor::Line::Line (OxJuceOglFont* fontOfLine, const juce::String& textOfLine) : text (textOfLine)
{
    setFont (fontOfLine);
    setTextColour (kInk);
    setJustification (TextJustification::left);
}

void SpecimenEditor::Line::draw (int)
{
    drawText (getDrawnLocalBounds(), text);
}

SpecimenEditor::Picture::Picture (const juce::String& resourceName)
{
    texture.loadFromResource (resourceName);
    setSize (texture.getImage().getWidth(), texture.getImage().getHeight());
}

void SpecimenEditor::Picture::draw (int)
{
    texture.bind (getSurface());

    if (texture.hasTexture())
        texture.drawQuad (getDrawnLocalBounds().toFloat());
}
