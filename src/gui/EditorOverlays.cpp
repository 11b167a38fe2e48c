// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/EditorOverlays.h"

#include "gui/OxJuceEditorBase.h"
#include "gui/OxJuceGridComponent.h"

Relaxed<bool> EditorOverlays::showsUnderMouse = false;
Relaxed<bool> EditorOverlays::showsTree = false;
Relaxed<bool> EditorOverlays::showsHostFigures = false;

namespace
{

constexpr int kFontSize = 10, kLineStep = 12, kLineWidth = 300;   // pixels
constexpr int kMargin = 10;
constexpr int kProfilerWidth = 320, kPanelWidth = 220, kFiguresHeight = 92;
constexpr juce::uint8 kPanelAlpha = 150;

juce::Colour panelColour()
{
    return juce::Colours::black.withAlpha (kPanelAlpha);
}

juce::String describe (const juce::Component& component, juce::Point<int> mouse)
{
    juce::String line ("  ");

    if (! component.isVisible())
        line << "[hidden]";

    if (! component.isEnabled())
        line << "[disabled]";

    line << component.getName() << " (0x"
         << juce::String::toHexString (reinterpret_cast<juce::pointer_sized_int> (&component)) << ")";

    if (const auto* const grid = dynamic_cast<const OxJuceGridComponent*> (&component))
        for (int row = 0; row < grid->getNumRows(); ++row)
            for (int column = 0; column < grid->getNumColumns(); ++column)
                if (grid->getCellRect (column, row).contains (mouse))
                    line << " [" << column << "," << row << "]";

    return line << "Position: " << component.getX() << ", " << component.getY() << " Size: " << component.getWidth()
                << ", " << component.getHeight();
}

/** A grid in the tree of an editor's components. */
struct Branch
{
    const OxJuceGridComponent* grid;
    juce::String lead;   // the lines that lead to it
};

void findGrids (const juce::Component& parent, const juce::String& lead, std::vector<Branch>& found)
{
    juce::Array<const OxJuceGridComponent*> grids;

    for (const auto* const child : parent.getChildren())
    {
        if (const auto* const grid = dynamic_cast<const OxJuceGridComponent*> (child))
            grids.add (grid);
        else
            findGrids (*child, lead, found);
    }

    for (const auto* const grid : grids)
    {
        const auto isLast = grid == grids.getLast();
        found.push_back ({ grid, lead + (isLast ? "+- " : "|- ") });
        findGrids (*grid, lead + (isLast ? "    " : "|   "), found);
    }
}

}   // namespace

void EditorOverlays::collect (OxJuceEditorBase& owner)
{
    std::vector<Item> fresh;

    if (showsUnderMouse)
        addUnderMouse (fresh, owner);

    if (showsTree)
        addTree (fresh, owner);

    if (showsHostFigures)
        addHostFigures (fresh, owner);

    if (owner.getOwner().profilerEnabled)
        addProfiler (fresh, owner);

    if (fresh.empty() && items.empty())
        return;

    const ScopedChange change (*this);
    items.swap (fresh);
}

void EditorOverlays::draw()
{
    auto* const target = surface.get();

    if (target == nullptr)
        return;

    for (const auto& [kind, area, colour, text] : items)
    {
        target->glState.pending.colour = colour;

        if (kind == Kind::fill)
            drawFilledRect (area);
        else if (kind == Kind::outline)
            drawRectOutline (area);
        else
            target->getFont (kFontSize)->draw (area, text, TextJustification::left);
    }
}

void EditorOverlays::addText (std::vector<Item>& list, const juce::String& text, juce::Point<int> at,
                              juce::Colour colour) const
{
    list.push_back ({ Kind::text, { at.x, at.y, kLineWidth, kLineStep }, colour, text });
}

void EditorOverlays::addProfiler (std::vector<Item>& list, OxJuceEditorBase& owner) const
{
    const auto& profiled = owner.getOwner().profilerItems;

    if (profiled.empty())
        return;

    const auto height = static_cast<int> (profiled.size()) * kLineStep + 2 * kMargin;
    list.push_back ({ Kind::fill, { 0, 0, kProfilerWidth, height }, panelColour(), {} });
    auto y = kMargin;

    for (const auto& item : profiled)
    {
        addText (list, item.getReport(), { kMargin, y });
        y += kLineStep;
    }
}

void EditorOverlays::addUnderMouse (std::vector<Item>& list, OxJuceEditorBase& owner) const
{
    constexpr int alphaStep = 16;
    const auto mouse = owner.getMouseXYRelative();
    auto y = kMargin;
    auto alpha = 255;
    addText (list, "Mouse Over:", { kMargin, y });

    for (auto* component = owner.getComponentAt (mouse); component != nullptr;
         component = component->getParentComponent())
    {
        addText (list, describe (*component, component->getLocalPoint (&owner, mouse)), { kMargin, y += kLineStep });
        list.push_back ({ Kind::outline,
                          owner.getLocalArea (component, component->getLocalBounds()),
                          juce::Colours::yellow.withAlpha (static_cast<juce::uint8> (std::max (0, alpha))),
                          {} });
        alpha -= alphaStep;

        if (component == &owner)
            return;
    }
}

void EditorOverlays::addTree (std::vector<Item>& list, OxJuceEditorBase& owner) const
{
    constexpr juce::uint32 blink = 500;   // milliseconds
    std::vector<Branch> branches;
    findGrids (owner, {}, branches);
    const auto left = owner.getWidth() - kPanelWidth;
    const auto mouse = owner.getMouseXYRelative();
    const auto colour =
        (juce::Time::getMillisecondCounter() / blink) % 2 == 0 ? juce::Colours::red : juce::Colours::lime;
    list.push_back ({ Kind::fill, { left, 0, kPanelWidth, owner.getHeight() }, panelColour(), {} });
    auto y = kMargin;

    for (const auto& [grid, lead] : branches)
    {
        const auto name = grid->getName().isEmpty() ? juce::String ("[no name]") : grid->getName();
        addText (list, lead + name, { left + kMargin, y },
                 grid->isVisible() ? juce::Colours::white : juce::Colours::grey);
        y += kLineStep;

        if (! grid->isVisible() || ! grid->getLocalBounds().contains (grid->getLocalPoint (&owner, mouse)))
            continue;

        list.push_back ({ Kind::outline, owner.getLocalArea (grid, grid->getLocalBounds()), colour, {} });

        for (int row = 0; row < grid->getNumRows(); ++row)
            for (int column = 0; column < grid->getNumColumns(); ++column)
                list.push_back ({ Kind::outline,
                                  owner.getLocalArea (grid, grid->getCellRect (column, row)),
                                  colour.withAlpha (0.5f),
                                  {} });
    }
}

void EditorOverlays::addHostFigures (std::vector<Item>& list, OxJuceEditorBase& owner) const
{
    auto& processor = owner.getOwner();
    const std::pair<const char*, juce::String> lines[] {
        { "Sample Rate           : ", juce::String (processor.getSampleRate()) },
        { "Input Channels        : ", juce::String (processor.getTotalNumInputChannels()) },
        { "Output Channels       : ", juce::String (processor.getTotalNumOutputChannels()) },
        { "Block Size            : ", juce::String (processor.getBlockSize()) },
        { "Latency               : ", juce::String (processor.getLatencySamples()) },
        { "Transport Pos (smpls) : ", juce::String (processor.blockStartSample.get()) },
    };
    list.push_back ({ Kind::fill, { 0, 0, kPanelWidth, kFiguresHeight }, panelColour(), {} });
    auto y = kMargin;

    for (const auto& [label, figure] : lines)
    {
        addText (list, label + figure, { kMargin, y });
        y += kLineStep;
    }
}
