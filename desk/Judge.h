// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "Action.h"
#include "ComparisonGraph.h"

namespace desk
{

/** The listener's side of a comparison: turns actions into what the comparator's buttons write, and keeps the view.
    All on the message thread. */
class Judge
{
public:
    explicit Judge (ComparisonGraph& comparison) : graph (comparison) {}

    /** @returns false where the view does not offer the action, or the comparator is not ready for it: without a pod
        there is nothing to compare, and while a vote fades no other can be cast. */
    bool canPerform (Action::Kind kind) const;

    /** Does what can be performed. @returns whether it was */
    bool perform (const Action& action);

    View getView() const noexcept { return view; }

    /** Which source or label is lit: that of A and X, or that of B and Y. */
    bool isFirstLit() const;

    float getGain() const;   // decibels
    VoteStatistics getVotes() const { return graph.getVotes(); }

    /** "4 votes: A 3 (75 %), B 1 (25 %)" */
    juce::String describeVotes() const;

private:
    void press (duoJudge::ParamId button);
    void selectWinner();

    ComparisonGraph& graph;
    View view = View::normal;
};

}   // namespace desk
