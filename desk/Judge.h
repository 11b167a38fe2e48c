// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Action.h"
#include "ComparisonGraph.h"

#include "engine/VoteStatistics.h"

namespace desk
{

/** The listener's side of a comparison: turns actions into what the comparator's buttons write, and keeps the view and
    the votes, which the comparator tells no host. All on the message thread. */
class Judge
{
public:
    explicit Judge (ComparisonGraph& comparison) : graph (comparison) {}

    /** @returns false where the view does not offer the action, or a vote still fades: then no other can be cast. */
    bool canPerform (Action::Kind kind) const;

    /** Does what can be performed. @returns whether it was */
    bool perform (const Action& action);

    View getView() const noexcept { return view; }
    void setView (View newView) noexcept { view = newView; }   // where somebody else has led

    VoteStatistics getVotes() const noexcept { return { votesForA + votesForB, votesForA, votesForB }; }

    /** "4 votes: A 3 (75 %), B 1 (25 %)" */
    juce::String describeVotes() const;

private:
    void select (bool isB) { graph.writeParameter (Parameter::toggleAB, isB ? 1.0f : 0.0f); }
    void castVote();
    void selectWinner();

    ComparisonGraph& graph;
    View view = View::normal;
    int votesForA = 0, votesForB = 0;
    juce::int64 fadeEnd = 0;   // of the last vote, in samples processed
};

}   // namespace desk
