// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/ControlRig.h"
#include "platform/Viewer.h"

#include <thread>

/** An editor of the window's size without a window, whose menu a user reads and clicks, and a viewer that shows nothing. */
struct MenuRig : Rig
{
    struct Editor : OxJuceEditorBase
    {
        explicit Editor (MenuRig& owner) : OxJuceEditorBase (owner), rig (owner) {}
        bool hasOptionRows() const override { return rig.hasRow; }
        void addOptionRows (OxJuceMenu& m) override
        {
            m.addOptionSelector ("Row", { "a", "b", "c" }, duoJudge::UseTimestampedPodAudioOverride);
        }
        juce::StringArray getExtraCreditNames() override { return { "Extra One", "Extra Two" }; }
        void addCreditLines (OxJuceMenu& m) override { m.addText ("second", 13); }
        void addCreditLinesFirst (OxJuceMenu& m) override { m.addText ("first", 13); }

        MenuRig& rig;
    };

    explicit MenuRig (int type = typeVst3, int width = 535, int height = 267) : Rig (2, "/nowhere", type)
    {
        editor.setSize (width, height), setMenu (1.0f);
    }

    void setMenu (float value) { setParamDirect (duoJudge::ShowBaseMenu, value, false), editor.updateGui(); }

    template <typename Kind = OxJuceButton>
    std::vector<Kind*> getShown()
    {
        std::vector<Kind*> shown;

        for (auto* const child : editor.surface.getChildren())
            if (auto* const kind = dynamic_cast<Kind*> (child); kind != nullptr && kind->isVisible())
                shown.push_back (kind);

        return shown;
    }

    /** The lines on the panel below the title, or with them their bounds. */
    juce::StringArray read (bool withPlaces = false)
    {
        juce::StringArray lines;

        for (auto* const item : getShown())
            lines.add ((withPlaces ? item->getBounds().toString() + " " : "") + item->getLabel (item->getState()));

        lines.removeRange (0, 3);
        return lines;
    }

    juce::String text() { return read().joinIntoString ("|"); }

    /** Clicks, one after the other, in the middle of what bears each text. */
    void click (const juce::String& texts)
    {
        for (const auto& wanted : juce::StringArray::fromTokens (texts, "|", {}))
        {
            const auto shown = getShown();
            const auto index = read().indexOf (wanted) + 3;
            ASSERT_GE (index, 3) << wanted << " is not in " << text();
            auto& item = *shown[static_cast<std::size_t> (index)];
            EXPECT_EQ (editor.surface.getComponentAt (item.getBounds().getCentre()), &item) << wanted << " is covered";
            Hand (item).play ("press 0 0 | release"), editor.updateGui();
        }
    }

    bool hasRow = true, viewerWorks = true;
    juce::StringArray opened;
    platform::ScopedViewer viewer { [this] (const auto& address) { return opened.add (address), viewerWorks; } };
    Editor editor { *this };
};

/** A web server for one request; without a reply it refuses. */
class Server
{
public:
    explicit Server (const char* reply, bool isSlow = false)
    {
        ::setenv ("no_proxy", "127.0.0.1", 1);   // NOLINT: this thread alone asks
        EXPECT_TRUE (listener.createListener (0, "127.0.0.1"));
        base << listener.getBoundPort() << "/";

        if (reply == nullptr)
            listener.close();
        else
            thread = std::thread ([=] { serve (reply, isSlow); });
    }
    ~Server() { listener.close(), thread.joinable() ? thread.join() : void(); }

    juce::String base { "http://127.0.0.1:" };

private:
    void serve (const juce::String& reply, bool isSlow)
    {
        const std::unique_ptr<juce::StreamingSocket> client (listener.waitForNextConnection());

        if (client == nullptr)
            return;

        const auto send = [&] (const juce::String& text) { client->write (text.toRawUTF8(), text.length()); };
        juce::String request;

        for (char next = 0; ! request.endsWith ("\r\n\r\n") && client->read (&next, 1, true) == 1;)
            request += next;

        send ("HTTP/1.0 200 OK\r\n\r\n" + reply.substring (0, 12));
        juce::Thread::sleep (isSlow ? 200 : 0);
        send (request.startsWith ("GET /hotlink.php?id=Duo%20Judge&version=") ? reply.substring (12) : request);
    }

    juce::StreamingSocket listener;
    std::thread thread;
};
