// SPDX-License-Identifier: GPL-3.0-or-later
#include "JudgeKeys.h"

namespace desk
{

namespace
{

/** The buttons that lead to another view when they come up. */
constexpr std::pair<Parameter, View> kDoors[] { { Parameter::test, View::test },
                                                { Parameter::resume, View::test },
                                                { Parameter::reveal, View::results },
                                                { Parameter::endTest, View::normal } };

std::optional<Action::Kind> findAction (const juce::KeyPress& key)
{
    using Kind = Action::Kind;
    constexpr std::pair<juce::juce_wchar, Kind> letters[] {
        { 'A', Kind::selectA }, { 'B', Kind::selectB }, { 'X', Kind::flipX }, { 'Y', Kind::flipY }, { 'E', Kind::end }
    };

    for (const auto& [letter, kind] : letters)
        if (juce::CharacterFunctions::toUpperCase (key.getTextCharacter()) == letter)
            return kind;

    return key == juce::KeyPress::returnKey ? std::optional (Kind::choose) : std::nullopt;
}

}   // namespace

JudgeKeys::JudgeKeys (ComparisonGraph& comparison) : graph (comparison), judge (comparison)
{
    for (const auto& door : kDoors)
        graph.getParameter (door.first).addListener (this);
}

JudgeKeys::~JudgeKeys()
{
    for (const auto& door : kDoors)
        graph.getParameter (door.first).removeListener (this);
}

void JudgeKeys::parameterValueChanged (int index, float value)
{
    for (const auto& [button, behind] : kDoors)
        if (value == 0.0f && graph.getParameter (button).getParameterIndex() == index)
            view = behind;
}

bool JudgeKeys::actOnKey (const juce::KeyPress& key)
{
    const auto kind = findAction (key);

    if (kind)
    {
        judge.setView (view);
        judge.perform ({ *kind });
    }

    return kind.has_value();
}

}   // namespace desk
