// SPDX-License-Identifier: GPL-3.0-or-later
#include "Judge.h"

#include <cmath>

namespace desk
{

using Kind = Action::Kind;

bool Judge::canPerform (Kind kind) const
{
    if (! Action::getViewAfter (view, kind).has_value())
        return false;

    const auto meetsFade = kind == Kind::flipX || kind == Kind::flipY || kind == Kind::choose;
    return ! meetsFade || graph.getNumProcessed() >= fadeEnd;
}

bool Judge::perform (const Action& action)
{
    if (! canPerform (action.kind))
        return false;

    view = *Action::getViewAfter (view, action.kind);

    switch (action.kind)
    {
        case Kind::selectA:
        case Kind::selectB:
            select (action.kind == Kind::selectB);
            break;
        case Kind::startTest:
            graph.press (Parameter::test);
            break;
        case Kind::flipX:
        case Kind::flipY:
            graph.writeParameter (Parameter::toggleXY, action.kind == Kind::flipY ? 1.0f : 0.0f);
            break;
        case Kind::choose:
            castVote();
            break;
        case Kind::reveal:
            graph.press (Parameter::reveal);
            selectWinner();
            break;
        case Kind::resume:
            graph.press (Parameter::resume);
            select (juce::Random::getSystemRandom().nextBool());
            break;
        case Kind::end:
            graph.press (Parameter::endTest);
            votesForA = votesForB = 0;
            break;
        case Kind::gain:
            graph.setGain (action.decibels);
            break;
    }

    return true;
}

juce::String Judge::describeVotes() const
{
    const auto votes = getVotes();
    const auto share = [] (const char* source, int count, int percent)
    { return source + (" " + juce::String (count)) + " (" + juce::String (percent) + " %)"; };

    return juce::String (votes.votes) + (votes.votes == 1 ? " vote: " : " votes: ") +
           share ("A", votes.votesForA, votes.percentA) + ", " + share ("B", votes.votesForB, votes.percentB);
}

/** The comparator counts a vote for what it plays when the button comes up. */
void Judge::castVote()
{
    auto& votes = graph.readParameter (Parameter::toggleAB) == 0.0f ? votesForA : votesForB;
    graph.press (Parameter::choose);
    votes += 1;

    // The sound fades out and in, begins each way with a block, and the first of them may be yet to come.
    constexpr auto fadeLength = 0.1;   // seconds
    const auto fadeSamples = std::llround (fadeLength * graph.getMaterial().getSampleRate());
    fadeEnd = graph.getNumProcessed() + fadeSamples + 3 * ComparisonGraph::kBlockSize;
}

void Judge::selectWinner()
{
    const auto votes = getVotes();

    if (votes.percentA != votes.percentB)
        select (votes.percentB > votes.percentA);
}

}   // namespace desk
