// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "gui/OxJuceEditorBase.h"
#include "gui/OxJuceOglFontUser.h"
#include "gui/OxJuceOglGridComponent.h"
#include "metering/OxJuceMultiGradient.h"

/** Shows what the window is made of in the window's size: a shaded grid with the title's image and a line of each font. */
class SpecimenEditor : public OxJuceEditorBase
{
public:
    explicit SpecimenEditor (OxJuceProcessorBase& owner);
    ~SpecimenEditor() override;

    void resized() override;

private:
    /** One line of text. */
    class Line : public OxOglChildComponent, public OxJuceOglFontUser
    {
    public:
        Line (OxJuceOglFont* fontOfLine, const juce::String& textOfLine);

        void draw (int elapsedMs) override;
        const char* getTypeName() const override { return "Line"; }

    private:
        const juce::String text;
    };

    /** One image, in its own size. */
    class Picture : public OxOglChildComponent
    {
    public:
        explicit Picture (const juce::String& resourceName);

        void draw (int elapsedMs) override;
        const char* getTypeName() const override { return "Picture"; }

    private:
        OxOglComponentTexture texture;
    };

    OxJuceMultiGradient background { "Shaded Background" };
    OxJuceOglGridComponent mainGrid { "Main Grid" };
    OxJuceOglFont bigLettersFont, font44;
    Picture title { "Title_png" };
    std::vector<std::unique_ptr<Line>> lines;
};
