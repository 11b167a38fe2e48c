// SPDX-License-Identifier: GPL-3.0-or-later
#include "Judge.h"

namespace desk
{

using Kind = Action::Kind;

bool Judge::canPerform (Kind kind) const
{
    if (! Action::getViewAfter (view, kind).has_value())
        return false;

    switch (kind)
    {
        case Kind::selectA:
        case Kind::selectB:
        case Kind::startTest:
            return graph.isLinked();
        case Kind::flipX:
        case Kind::flipY:
        case Kind::choose:
            return ! graph.isVoteFading();
        default:
            return true;
    }
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
            graph.writeParameter (duoJudge::ToggleAB, action.kind == Kind::selectB ? 1.0f : 0.0f);
            break;
        case Kind::startTest:
            press (duoJudge::Test);
            break;
        case Kind::flipX:
        case Kind::flipY:
            graph.writeParameter (duoJudge::ToggleXY, action.kind == Kind::flipY ? 1.0f : 0.0f);
            break;
        case Kind::choose:
            press (duoJudge::Choose);
            break;
        case Kind::reveal:
            press (duoJudge::Reveal);
            selectWinner();
            break;
        case Kind::resume:
            press (duoJudge::Resume);
            graph.drawSource();
            break;
        case Kind::end:
            press (duoJudge::EndTest);
            break;
        case Kind::gain:
            graph.writeParameter (duoJudge::SendGain, action.decibels / (2.0f * kMaxGain) + 0.5f);
            graph.runTimers();
            break;
    }

    return true;
}

bool Judge::isFirstLit() const
{
    return graph.readParameter (view == View::test ? duoJudge::ToggleXY : duoJudge::ToggleAB) == 0.0f;
}

float Judge::getGain() const
{
    return (graph.readParameter (duoJudge::SendGain) - 0.5f) * 2.0f * kMaxGain;
}

juce::String Judge::describeVotes() const
{
    const auto votes = getVotes();
    const auto share = [] (const char* source, int count, int percent)
    { return source + (" " + juce::String (count)) + " (" + juce::String (percent) + " %)"; };

    return juce::String (votes.votes) + (votes.votes == 1 ? " vote: " : " votes: ") +
           share ("A", votes.votesForA, votes.percentA) + ", " + share ("B", votes.votesForB, votes.percentB);
}

void Judge::press (duoJudge::ParamId button)
{
    graph.writeParameter (button, 1.0f);
    graph.writeParameter (button, 0.0f);
}

void Judge::selectWinner()
{
    const auto votes = getVotes();

    if (votes.percentA != votes.percentB)
        graph.writeParameter (duoJudge::ToggleAB, votes.percentA > votes.percentB ? 0.0f : 1.0f);
}

}   // namespace desk
