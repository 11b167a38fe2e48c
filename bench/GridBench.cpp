// SPDX-License-Identifier: GPL-3.0-or-later
// What a layout costs on top of setting the bounds that it finds.
#include "gui/OxJuceGridComponent.h"

#include <benchmark/benchmark.h>

#include <deque>

namespace
{

constexpr int kTracks = 20;

/** Each resize lays out 20 by 20 cells: fixed and relative tracks, bounds, a hidden row, gaps, some spans and alignments. */
void layOutGrid (benchmark::State& state)
{
    const juce::ScopedJuceInitialiser_GUI toolkit;
    std::deque<juce::Component> components (kTracks * kTracks);
    OxJuceGridComponent grid;
    grid.setNumColumns (kTracks), grid.setNumRows (kTracks);
    grid.setGaps (2, 3);

    for (int i = 0; i < kTracks; ++i)
    {
        grid.setColumnSize (i, 20 + i, i % 3 == 0), grid.setRowSize (i, 20 + i, i % 4 == 0);
        grid.setColumnLimits (i, i % 5 == 1 ? 60 : -1, i % 5 == 2 ? 25 : -1);
        grid.setCellSpan (i / 2, i, 1 + i % 3, 1), grid.setCellAlignment (i, i / 2, 1 + i % 16);

        for (int column = 0; column < kTracks; ++column)
            grid.setCellComponent (column, i, &components[static_cast<std::size_t> (i * kTracks + column)]);
    }

    grid.setRowHidden (7, true);
    grid.setAutoLayout (true);

    // The same bounds by a plain loop, in a parent that is no grid.
    std::deque<juce::Component> others (components.size());
    juce::Component parent;
    std::vector<juce::Rectangle<int>> bounds[2];

    for (auto& other : others)
        parent.addAndMakeVisible (other);

    for (const int size : { 0, 1 })
    {
        grid.setSize (900 + size, 800 + size);

        for (const auto& component : components)
            bounds[size].push_back (component.getBounds());
    }

    double laidOut = 0.0, set = 0.0;
    const auto seconds = [] { return juce::Time::getMillisecondCounterHiRes() / 1000.0; };

    int size = 0;

    for (auto _ : state)
    {
        size ^= 1;
        const auto start = seconds();
        grid.setSize (900 + size, 800 + size);
        const auto between = seconds();
        parent.setSize (900 + size, 800 + size);

        for (std::size_t i = 0; i < others.size(); ++i)
            others[i].setBounds (bounds[size][i]);

        laidOut += between - start;
        set += seconds() - between;
    }

    state.counters["xLoop"] = laidOut / set;
}

}   // namespace

BENCHMARK (layOutGrid)->Unit (benchmark::kMicrosecond);

BENCHMARK_MAIN();
