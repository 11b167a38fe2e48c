// SPDX-License-Identifier: GPL-3.0-or-later
#include "ControlRig.h"
#include "controls/OxJuceTextEdit.h"

namespace
{

/** A field in an editor on the screen, and the hands of a user. */
struct TypingRig : ControlRig
{
    TypingRig()
    {
        editor->addControl (*field);
        field->setBounds (10, 10, 60, 16);
        field->addListener (&ears);
        field->setText ("old");
        window.toFront (false);   // asks the window manager, which then has no more to give it
        EXPECT_TRUE (frames() && pumpUntil ([this] { return window.getPeer()->isFocused(); }));
    }
    ~TypingRig() override { editor.reset(); }

    ModalTextEditor& typing() { return field->getTextEditor(); }
    bool isUp() { return field != nullptr && typing().isOnDesktop(); }

    void open()
    {
        click ({ 15, 15 });
        EXPECT_FALSE (isUp()) << "the mouse event is over first";
        EXPECT_TRUE (pumpUntil ([this] { return isUp() && typing().hasKeyboardFocus (false); }));
    }

    void press (int keyCode, juce::juce_wchar character = 0)
    {
        ASSERT_TRUE (isUp());
        typing().getPeer()->handleKeyPress (keyCode, character);
    }

    /** Lets the time pass in which nothing ends the edit. */
    void settle()
    {
        pumpFor (510);
        EXPECT_TRUE (isUp());
        EXPECT_EQ (ears.take(), "");
    }

    std::unique_ptr<OxJuceTextEdit> field = std::make_unique<OxJuceTextEdit> ("field");
    juce::Component other;
};

const std::tuple<const char*, const char*, void (*) (TypingRig&)> kEnds[] {
    { "Return", "new", [] (auto& r) { r.press (juce::KeyPress::returnKey); } },
    { "Escape", "old", [] (auto& r) { r.press (juce::KeyPress::escapeKey); } },
    { "a click beside", "new",
      [] (auto& r) {
          r.click ({ 5, 50 });
      } },
    { "another window", "new",
      [] (auto& r)
      {
          r.other.setBounds (300, 300, 50, 50);
          r.other.setVisible (true);
          r.other.addToDesktop (juce::ComponentPeer::windowIsTemporary);
          r.other.getPeer()->grabFocus();
      } },
    { "a surface that hides", "new", [] (auto& r) { r.editor->surface.setVisible (false); } },
    { "a view that is taken away", "new", [] (auto& r) { r.window.removeChildComponent (r.editor.get()); } },
};

TEST (TextEditTest, EveryEndDeliversOnceEvenIfTheFieldIsDeletedByIt)
{
    for (const auto& [name, expected, act] : kEnds)
        for (const auto deletes : { false, true })
        {
            SCOPED_TRACE (name);
            TypingRig rig;
            rig.open();
            EXPECT_EQ (rig.typing().getScreenBounds(), rig.field->getScreenBounds());
            rig.typing().selectAll();

            for (const auto key : { 'n', 'e', 'w' })
                rig.press (0, static_cast<juce::juce_wchar> (key));

            rig.settle();
            rig.ears.react = [&] (const auto&)
            {
                EXPECT_EQ (rig.field->getText(), expected);
                rig.editor->surface.removeChildComponent (deletes ? rig.field.get() : nullptr);
                auto deleted = deletes ? std::move (rig.field) : nullptr;
            };
            act (rig);
            EXPECT_TRUE (pumpUntil ([&] { return ! rig.isUp(); }));

            if (rig.field != nullptr)
                rig.typing().focusLost (juce::Component::focusChangedDirectly);

            EXPECT_EQ (rig.ears.take(), "0");
            EXPECT_EQ (juce::Component::getCurrentlyModalComponent(), nullptr);
        }
}

TEST (TextEditTest, ALockedFieldOpensToBeReadAndAnEarlyReturnWaitsForTheNext)
{
    TypingRig rig;
    rig.field->setLocked (true);
    const auto shown = rig.picture();
    rig.field->setText ("");
    EXPECT_GT (difference (shown, rig.picture()).numPixels, 20);
    rig.field->setText ("old");
    rig.open();
    EXPECT_EQ (rig.typing().getHighlightedText(), "old");
    rig.press (0, 'x');
    rig.press (juce::KeyPress::returnKey);
    rig.settle();
    rig.press (juce::KeyPress::returnKey);
    EXPECT_TRUE (pumpUntil ([&] { return ! rig.isUp() && rig.window.getPeer()->isFocused(); }))
        << "the keyboard goes back to the window that had it";
    EXPECT_EQ (rig.field->getText(), "old");
    EXPECT_EQ (rig.ears.take(), "0");
}

TEST (TextEditTest, AFieldThatDiesInAnEditDeliversNothing)
{
    for (const auto isUp : { false, true })
    {
        TypingRig rig;
        isUp ? rig.open() : rig.click ({ 15, 15 });
        rig.editor->surface.stopRenderThread();
        rig.field.reset();
        EXPECT_TRUE (pumpUntil ([] { return juce::Component::getCurrentlyModalComponent() == nullptr; }));
        EXPECT_EQ (rig.ears.take(), "");
    }
}

}   // namespace
