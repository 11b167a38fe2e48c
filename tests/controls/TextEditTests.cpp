// SPDX-License-Identifier: GPL-3.0-or-later
#include "ControlRig.h"
#include "controls/OxJuceTextEdit.h"

namespace
{

using Format = OxJuceTextEdit::Format;

TEST (TextEditTest, KeepsOfATextWhatItsFormatAndLengthAllow)
{
    for (const auto& [format, maxLength, text, expected] : { std::tuple (Format::anyText, 3, "é -àù", "é -"),
                                                             { Format::wholeNumber, 0, "12a3", "123" },
                                                             { Format::wholeNumber, 0, "-12-3.5", "-1235" },
                                                             { Format::wholeNumber, 0, "--5", "-5" },
                                                             { Format::wholeNumber, 4, "123456", "1234" },
                                                             { Format::wholeNumber, 3, "-a1b2c3", "-12" },
                                                             { Format::number, 0, "1.2.3", "1.2.3" },
                                                             { Format::number, 0, " -1e9 dB", "19" } })
    {
        OxJuceTextEdit field ("field");
        field.format = format;
        field.maxLength = maxLength;
        field.setText (juce::CharPointer_UTF8 (text));
        EXPECT_STREQ (field.getText().toRawUTF8(), expected) << text;
    }
}

TEST (TextEditTest, KeepsTextAndParameterTheSame)
{
    constexpr int id = duoJudge::SendGain;
    const auto nines = juce::String::repeatedString ("9", 400);
    ControlRig rig;

    for (const auto& [format, start, text, shown, value] :
         { std::tuple (Format::wholeNumber, 0.5f, juce::String ("1500"), juce::String ("1000"), 1.0f),
           { Format::wholeNumber, 1.0f, "1500", "1000", 1.0f },
           { Format::wholeNumber, 0.5f, nines, "1000", 1.0f },
           { Format::wholeNumber, 0.0f, "no number", "0", 0.0f },
           { Format::number, 0.5f, "0.25", "0.25", 0.25f },
           { Format::number, 0.0f, nines, "1", 1.0f },
           { Format::anyText, 0.5f, "0.25", "0.25", 0.5f } })
    {
        OxJuceTextEdit field ("field");
        rig.setParamDirect (id, start, false);
        field.format = format;
        field.attach (id, rig.editor.get());
        EXPECT_EQ (field.getText().isEmpty(), format == Format::anyText);
        field.textEditFinished (text);
        EXPECT_EQ (field.getText(), shown);
        EXPECT_EQ (rig.parameter (id).value, value) << text;
        field.addListener (&rig.ears);
        field.setValue (0.123456789f, false);
        EXPECT_EQ (rig.ears.take(), "") << "what comes silently stays silent";

        if (format == Format::anyText)
            continue;

        field.textEditFinished (field.getText());
        EXPECT_EQ (rig.ears.take(), "0.12346");
        EXPECT_EQ (field.getValue(), 0.123456789f) << "is not rounded to what can be shown";
    }
}

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
        EXPECT_TRUE (pumpUntil ([end = juce::Time::getMillisecondCounter() + 510]
                                { return juce::Time::getMillisecondCounter() > end; }));
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
    { "no modal states", "new",
      [] (auto&) { juce::ModalComponentManager::getInstance()->cancelAllModalComponents(); } },
    { "a field that hides", "new", [] (auto& r) { r.field->setVisible (false); } },
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
            EXPECT_LT (rig.typing().getFont().getAscent(), rig.typing().getFont().getHeight()) << "has metrics";
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
