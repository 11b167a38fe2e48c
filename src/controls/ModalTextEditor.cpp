// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ModalTextEditor.h"

#include "controls/ModalTextEditorUser.h"

namespace
{

constexpr int kTick = 1;                      // milliseconds
constexpr juce::uint32 kSettlingTime = 500;   // milliseconds from the start in which no loss of focus ends the edit

/** The typeface to type in, or the system's own where it is not installed: the toolkit gives a missing one no metrics. */
const juce::String& getTypefaceName()
{
    static const juce::String wanted = "Arial";
    static const auto found =
        juce::Font::findAllTypefaceNames().contains (wanted) ? wanted : juce::Font::getDefaultSansSerifFontName();
    return found;
}

}   // namespace

ModalTextEditor::ModalTextEditor() : juce::TextEditor ("ModalTextEditor")
{
    setPopupMenuEnabled (false);
    setOpaque (true);
    setBorder ({});
    setAlwaysOnTop (true);
    setColour (backgroundColourId, juce::Colour (0xff505050));
    setColour (highlightColourId, juce::Colours::black);
    setColour (highlightedTextColourId, juce::Colours::white);

    for (const auto frame : { outlineColourId, focusedOutlineColourId, shadowColourId })
        setColour (frame, juce::Colours::transparentBlack);

    addListener (this);
}

ModalTextEditor::~ModalTextEditor()
{
    user = nullptr;
    stopTimer();
    watch (nullptr);
    removeListener (this);
}

void ModalTextEditor::setLook (juce::Rectangle<int> area, juce::Colour text, juce::Colour background, float fontHeight)
{
    setBounds (area);
    setColour (backgroundColourId, background);
    applyColourToAllText (text);
    const auto room = static_cast<float> (area.getHeight() - getTopIndent());
    applyFontToAllText (juce::Font (getTypefaceName(), std::min (fontHeight, room), juce::Font::plain));
}

// The beginning -------------------------------------------------------------------------------------------------------

void ModalTextEditor::open (ModalTextEditorUser& newUser, bool forReading, const juce::String& text)
{
    const SafePointer<ModalTextEditor> self (this);

    if (isOpen())
        finish();

    if (self == nullptr)
        return;

    setCaretVisible (true);
    setText (text.replaceCharacters ("\r\n", "  "), true);
    setReadOnly (forReading);
    setSelectAllWhenFocused (forReading);
    watch (dynamic_cast<juce::Component*> (&newUser));
    const auto* const peer = control != nullptr ? control->getPeer() : nullptr;
    returnsKeyboard = peer != nullptr && peer->isFocused();
    user = &newUser;
    hadKeyboard = false;
    numEdits += 1;
    startText = getText();
    startTime = juce::Time::getMillisecondCounter();
    startTimer (kTick);
    focusGained (focusChangedDirectly);
}

void ModalTextEditor::timerCallback()
{
    if (control != nullptr && ! control->isShowing())
        return finish();

    if (! isOnDesktop())
        showWindow();

    if (const auto lostKeyboard = ! hasKeyboard(); hadKeyboard && lostKeyboard)
        leave();
    else
        hadKeyboard = ! lostKeyboard;
}

void ModalTextEditor::showWindow()
{
    addToDesktop (juce::ComponentPeer::windowIsTemporary);
    setVisible (true);

    // Whoever ends all modal states at once, as an adapter that takes its view away, ends the edit too.
    const auto isOver = [self = SafePointer<ModalTextEditor> (this), edit = numEdits] (int)
    {
        if (self != nullptr && self->numEdits == edit)
            self->finish();
    };
    enterModalState (true, juce::ModalCallbackFunction::create (isOver));

    if (auto* const peer = getPeer())
        peer->toFront (true);

    repaint();
}

// The end -------------------------------------------------------------------------------------------------------------

void ModalTextEditor::leave()
{
    const SafePointer<ModalTextEditor> self (this);
    giveAwayKeyboardFocus();

    if (self != nullptr)
        focusLost (focusChangedDirectly);

    if (self != nullptr)
        repaint();
}

void ModalTextEditor::focusLost (FocusChangeType cause)
{
    const SafePointer<ModalTextEditor> self (this);

    if (juce::Time::getMillisecondCounter() - startTime >= kSettlingTime)
        finish();
    else
        hadKeyboard = false;   // to be lost, it must come back first

    if (self != nullptr)
        juce::TextEditor::focusLost (cause);
}

void ModalTextEditor::finish()
{
    auto* const receiver = std::exchange (user, nullptr);
    const auto text = getText();
    const SafePointer<ModalTextEditor> self (this);
    closeWindow();

    if (receiver != nullptr && self != nullptr)
        receiver->textEditFinished (text);
}

void ModalTextEditor::closeWindow()
{
    stopTimer();
    const SafePointer<juce::Component> owner (control);
    const auto givesBack = returnsKeyboard && hasKeyboard();
    watch (nullptr);
    const SafePointer<ModalTextEditor> self (this);
    exitModalState (0);

    if (owner != nullptr && givesBack)
        if (auto* const peer = owner->getPeer())
            peer->grabFocus();

    if (self != nullptr)
        removeFromDesktop();
}

void ModalTextEditor::inputAttemptWhenModal()
{
    leave();
}

void ModalTextEditor::textEditorReturnKeyPressed (juce::TextEditor&)
{
    leave();
}

void ModalTextEditor::textEditorEscapeKeyPressed (juce::TextEditor&)
{
    setText (startText, true);
    leave();
}

bool ModalTextEditor::keyPressed (const juce::KeyPress& key)
{
    // The toolkit hears neither key in a text that can't be changed.
    if (isReadOnly() && key == juce::KeyPress::returnKey)
        returnPressed();
    else if (isReadOnly() && key == juce::KeyPress::escapeKey)
        escapePressed();
    else
        return juce::TextEditor::keyPressed (key);

    return true;
}

// The control ---------------------------------------------------------------------------------------------------------

void ModalTextEditor::watch (juce::Component* newControl)
{
    control = newControl;
    viewWatch.reset();

    if (control != nullptr)   // at once: a host that takes the view away may delete it next
        viewWatch = std::make_unique<ViewWatch> (*control, [this] { finish(); });
}

bool ModalTextEditor::hasKeyboard() const
{
    const auto* const peer = getPeer();
    return peer != nullptr && peer->isFocused();
}
