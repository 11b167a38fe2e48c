// SPDX-License-Identifier: GPL-3.0-or-later
#include "ControlRig.h"
#include "controls/OxJuceTextEdit.h"
#include "gui/Pictures.h"

namespace
{

using Format = OxJuceTextEdit::Format;

struct Typed
{
    Format format;
    int maxLength;
    const char *text, *expected;
};

TEST (TextEditTest, KeepsOfATextWhatItsFormatAndLengthAllow)
{
    for (const auto& [format, maxLength, text, expected] : { Typed { Format::anyText, 0, "12a3 -é", "12a3 -é" },
                                                             { Format::anyText, 3, "éèàù", "éèà" },
                                                             { Format::wholeNumber, 0, "12a3", "123" },
                                                             { Format::wholeNumber, 0, "-12-3.5", "-1235" },
                                                             { Format::wholeNumber, 0, "--5", "-5" },
                                                             { Format::wholeNumber, 0, " -5", "5" },
                                                             { Format::wholeNumber, 4, "123456", "1234" },
                                                             { Format::wholeNumber, 3, "-a1b2c3", "-12" },
                                                             { Format::number, 0, "1.2.3", "1.2.3" },
                                                             { Format::number, 0, "-1e9 dB", "-19" },
                                                             { Format::number, 0, "nan", "" } })
    {
        OxJuceTextEdit field ("field");
        field.format = format;
        field.maxLength = maxLength;
        field.setText (juce::CharPointer_UTF8 (text));
        EXPECT_STREQ (field.getText().toRawUTF8(), expected) << text;
    }
}

constexpr int kSendGain = duoJudge::SendGain;

TEST (TextEditTest, KeepsTextAndParameterTheSame)
{
    SurfaceRig rig;
    const auto nines = juce::String::repeatedString ("9", 400);

    for (const auto& [format, text, shown, value] :
         { std::tuple (Format::wholeNumber, juce::String ("1500"), juce::String ("1000"), 1.0f),
           { Format::wholeNumber, nines, "1000", 1.0f },
           { Format::wholeNumber, "250", "250", 0.25f },
           { Format::wholeNumber, "no number", "0", 0.0f },
           { Format::number, "0.25", "0.25", 0.25f },
           { Format::number, nines, "1", 1.0f },
           { Format::number, "...", "0", 0.0f },
           { Format::anyText, "0.25", "0.25", 0.5f } })
    {
        OxJuceTextEdit field ("field");
        rig.setParamDirect (kSendGain, 0.5f, false);
        field.format = format;
        field.attach (kSendGain, rig.editor.get());
        field.textEditFinished (text);
        EXPECT_EQ (field.getText(), shown);
        EXPECT_EQ (rig.parameter (kSendGain).value, value) << text;
    }

    ControlEars ears;
    OxJuceTextEdit field ("field");
    field.attach (kSendGain, rig.editor.get());
    field.addListener (&ears);
    field.format = Format::number;
    field.maxLength = 4;
    field.setValue (0.123456789f, false);
    EXPECT_EQ (field.getText(), "0.12");
    EXPECT_EQ (field.getValue(), 0.123456789f) << "a value that comes silently is not rounded to what can be shown";
    EXPECT_EQ (ears.heard, "");
}

/** A field in an editor on the screen, a user's hands, and another window of the same program. */
struct TypingRig : ControlRig
{
    TypingRig()
    {
        window.setName ("window");
        editor->addControl (*field);
        field->setBounds (10, 10, 60, 16);
        field->addListener (&ears);
        field->setText ("old");
        EXPECT_TRUE (frames (2));
        EXPECT_TRUE (pumpUntil ([this] { return window.getPeer()->grabFocus(), window.getPeer()->isFocused(); }));
    }

    ~TypingRig() override { editor.reset(); }

    ModalTextEditor& typing() { return field->getTextEditor(); }
    bool isUp() { return field != nullptr && typing().isOnDesktop(); }

    void open()
    {
        click (window, { 15, 15 });
        EXPECT_TRUE (typing().isOpen());
        EXPECT_FALSE (isUp()) << "the mouse event is over first";
        EXPECT_TRUE (pumpUntil ([this] { return isUp() && typing().hasKeyboardFocus (false); }));
    }

    void press (int keyCode, juce::juce_wchar character = 0)
    {
        if (auto* const peer = typing().getPeer())
            peer->handleKeyPress (keyCode, character);
        else
            ADD_FAILURE() << "no window";
    }

    void type (const juce::String& keys)
    {
        for (auto key = keys.getCharPointer(); ! key.isEmpty();)
            press (0, key.getAndAdvance());
    }

    /** Lets the window settle, in which time nothing ends the edit. */
    void settle()
    {
        const auto start = juce::Time::getMillisecondCounter();
        EXPECT_TRUE (pumpUntil ([start] { return juce::Time::getMillisecondCounter() - start > 510; }));
        EXPECT_TRUE (isUp());
    }

    ControlEars ears;
    std::unique_ptr<OxJuceTextEdit> field = std::make_unique<OxJuceTextEdit> ("field");
    juce::Component other;
};

struct End
{
    const char *name, *expected;
    std::function<void (TypingRig&)> act;
};

const std::vector<End>& ends()
{
    static const std::vector<End> all {
        { "Return", "new", [] (TypingRig& r) { r.press (juce::KeyPress::returnKey); } },
        { "Escape", "old", [] (TypingRig& r) { r.press (juce::KeyPress::escapeKey); } },
        { "a click beside", "new",
          [] (TypingRig& r) {
              click (r.window, { 5, 50 });
          } },
        { "another window", "new",
          [] (TypingRig& r)
          {
              r.other.setBounds (300, 300, 50, 50);
              r.other.addToDesktop (juce::ComponentPeer::windowIsTemporary);
              r.other.setVisible (true);
              r.other.getPeer()->grabFocus();
          } },
        { "the end of all modal states", "new",
          [] (TypingRig&) { juce::ModalComponentManager::getInstance()->cancelAllModalComponents(); } },
        { "a control that hides", "new", [] (TypingRig& r) { r.field->setVisible (false); } },
        { "a surface that hides", "new", [] (TypingRig& r) { r.editor->surface.setVisible (false); } },
        { "a view that its host takes away", "new",
          [] (TypingRig& r) { r.window.removeChildComponent (r.editor.get()); } },
    };
    return all;
}

TEST (TextEditTest, EveryEndDeliversOnce)
{
    for (const auto& end : ends())
    {
        SCOPED_TRACE (end.name);
        TypingRig rig;
        rig.open();
        EXPECT_EQ (rig.typing().getScreenBounds(), rig.field->getScreenBounds());
        rig.typing().selectAll();
        rig.type ("new");
        rig.settle();
        EXPECT_EQ (rig.ears.heard, "");
        end.act (rig);
        EXPECT_TRUE (pumpUntil ([&] { return ! rig.isUp(); }));
        EXPECT_EQ (rig.field->getText(), end.expected);
        rig.typing().focusLost (juce::Component::focusChangedDirectly);
        EXPECT_EQ (rig.ears.heard, "=0 ") << "heard once";
        EXPECT_EQ (juce::Component::getCurrentlyModalComponent(), nullptr);
    }
}

TEST (TextEditTest, MayBeDeletedByWhoeverHearsOfTheEnd)
{
    for (const auto& end : ends())
    {
        SCOPED_TRACE (end.name);
        TypingRig rig;
        rig.ears.onValue = [&]
        {
            rig.editor->surface.removeChildComponent (rig.field.get());
            rig.field.reset();
        };
        rig.open();
        rig.settle();
        end.act (rig);
        EXPECT_TRUE (pumpUntil ([&] { return rig.field == nullptr; }));
        EXPECT_EQ (rig.ears.heard, "=0 ");
    }
}

TEST (TextEditTest, AnEarlyReturnWaitsForTheNextAndTheKeyboardGoesBack)
{
    TypingRig rig;
    rig.open();
    rig.press (juce::KeyPress::returnKey);
    rig.settle();
    EXPECT_EQ (rig.ears.heard, "");
    rig.press (juce::KeyPress::returnKey);
    EXPECT_TRUE (pumpUntil ([&] { return ! rig.isUp() && rig.window.getPeer()->isFocused(); }));
    EXPECT_EQ (rig.ears.heard, "=0 ");
}

TEST (TextEditTest, ALockedFieldOpensToBeRead)
{
    for (const auto key : { juce::KeyPress::returnKey, juce::KeyPress::escapeKey })
    {
        TypingRig rig;
        rig.field->setLocked (true);
        rig.open();
        EXPECT_EQ (rig.typing().getHighlightedText(), "old");
        rig.type ("new");
        rig.settle();
        rig.press (key);
        EXPECT_TRUE (pumpUntil ([&] { return ! rig.isUp(); }));
        EXPECT_EQ (rig.field->getText(), "old");
        EXPECT_EQ (rig.ears.heard, "=0 ");
    }
}

TEST (TextEditTest, AFieldThatDiesInAnEditDeliversNothing)
{
    for (const auto isUp : { false, true })
    {
        TypingRig rig;
        isUp ? rig.open() : click (rig.window, { 15, 15 });
        rig.editor->surface.stopRenderThread();
        rig.field.reset();
        EXPECT_TRUE (pumpUntil ([] { return juce::Component::getCurrentlyModalComponent() == nullptr; }));
        EXPECT_EQ (rig.ears.heard, "");
    }
}

TEST (TextEditTest, LooksLikeItsTwin)
{
    ControlRig rig;
    OxJuceTextEdit field ("field");
    rig.add (field);
    field.setBounds (10, 10, 60, 20);
    field.boxColour = juce::Colour (0x80c04020);
    field.showsBackground = true;
    field.backgroundColour = juce::Colours::transparentBlack;
    field.lockedOpacity = 0.25f;
    field.setLocked (true);
    const auto twin = painted (80, 60,
                               [&] (juce::Graphics& g)
                               {
                                   g.setOrigin (10, 10);
                                   field.paint (g);
                               });
    const auto empty = rig.picture();
    EXPECT_TRUE (looksLike (twin, empty, 2));
    field.setText ("MM");
    EXPECT_GT (difference (empty, rig.picture()).numPixels, 20);
    EXPECT_EQ (rig.allocationsOfAFrame(), 0);
    rig.editor.reset();
}

}   // namespace
