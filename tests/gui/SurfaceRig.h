// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "framework/Rig.h"
#include "gui/OxJuceEditorBase.h"
#include "gui/OxOglChildComponent.h"
#include "support/AudioThreadGuard.h"

namespace juce
{
bool dispatchNextMessageOnSystemQueue (bool returnIfNone);
}

/** Runs the toolkit's events until something holds, or half a minute is over. */
template <typename Condition>
bool pumpUntil (Condition&& holds)
{
    const auto deadline = juce::Time::getMillisecondCounter() + 30000;

    while (! holds())
    {
        if (juce::Time::getMillisecondCounter() > deadline)
            return false;

        if (! juce::dispatchNextMessageOnSystemQueue (true))
            juce::Thread::sleep (1);
    }

    return true;
}

/** Runs the toolkit's events for a while. */
inline void pumpFor (juce::uint32 milliseconds)
{
    pumpUntil ([end = juce::Time::getMillisecondCounter() + milliseconds]
               { return juce::Time::getMillisecondCounter() > end; });
}

/** The mouse over a window on the desktop, as the toolkit hears of it. */
inline void moveMouse (juce::Component& window, juce::Point<int> place, juce::ModifierKeys buttons)
{
    window.getPeer()->handleMouseEvent (juce::MouseInputSource::InputSourceType::mouse, place.toFloat(), buttons,
                                        juce::MouseInputSource::defaultPressure,
                                        juce::MouseInputSource::defaultOrientation, juce::Time::currentTimeMillis());
}

/** An element that draws what a test says. */
struct Sketch : OxOglChildComponent
{
    explicit Sketch (juce::Rectangle<int> bounds, std::function<void (Sketch&)> drawer = {}) :
        sketch (std::move (drawer))
    {
        setBounds (bounds);
    }

    ~Sketch() override
    {
        if (auto* const parent = getParentComponent())
            parent->removeChildComponent (this);
    }

    void draw (int) override
    {
        numDraws += 1;

        if (sketch)
            sketch (*this);
    }

    using OxOglComponentUser::drawFilledRect;
    juce::Colour& colour() { return getSurface()->glState.pending.colour; }

    std::function<void (Sketch&)> sketch;
    Relaxed<int> numDraws = 0;
};

/** An editor on a real screen whose frames a test takes apart. */
struct SurfaceRig : Rig
{
    struct Editor : OxJuceEditorBase
    {
        explicit Editor (SurfaceRig& owner) : OxJuceEditorBase (owner), rig (owner) {}
        ~Editor() override { stopRendering(); }

        void onPreRender() override
        {
            guard.emplace();
            rig.frameBegins();
        }
        void drawOverlays() override
        {
            rig.frameEnds();
            rig.allocations = guard->counts().allocations;
            guard.reset();

            rig.doWork();
            rig.numFrames += 1;
        }
        void onTimerTick() override { rig.numTicks += 1; }

        SurfaceRig& rig;
        std::optional<AudioThreadGuard> guard;   // from the first thing drawn to the last
    };

    explicit SurfaceRig (int width = 80, int height = 60, bool rendersAtOnce = true)
    {
        window.setSize (width, height);
        window.addToDesktop (0);
        window.setVisible (true);
        open (rendersAtOnce);
    }

    ~SurfaceRig() override { editor.reset(); }

    template <typename Kind = Editor>
    void open (bool rendersAtOnce = true)
    {
        editor = std::make_unique<Kind> (*this);
        editor->setSize (window.getWidth(), window.getHeight());
        window.addAndMakeVisible (*editor);

        if (rendersAtOnce)
            editor->surface.enableRendering();
    }

    /** Adds an element on top of the others. */
    void add (OxOglChildComponent& element)
    {
        editor->surface.addAndMakeVisible (element);
        element.setOglComponent (editor.get());
    }

    /** Lets `count` frames begin and end from here on. */
    bool frames (int count = 1)
    {
        return pumpUntil ([this, wanted = numFrames + count + 1] { return numFrames >= wanted; });
    }

    /** Does something on the render thread at the end of a frame. */
    void atFrameEnd (std::function<void()> task)
    {
        EXPECT_TRUE (frames());
        {
            const juce::ScopedLock lock (workLock);
            work = std::move (task);
        }
        EXPECT_TRUE (pumpUntil ([&] { return workDone.wait (0); }));
    }

    /** The pixels of a whole frame, as they leave for the screen. */
    juce::Image picture()
    {
        juce::Image image (juce::Image::ARGB, editor->getWidth(), editor->getHeight(), true);
        atFrameEnd (
            [&]
            {
                const juce::Image::BitmapData pixels (image, juce::Image::BitmapData::readWrite);

                for (int y = 0; y < pixels.height; ++y)
                    juce::gl::glReadPixels (0, pixels.height - 1 - y, pixels.width, 1, juce::gl::GL_BGRA,
                                            juce::gl::GL_UNSIGNED_BYTE, pixels.getLinePointer (y));
            });
        return image.convertedToFormat (juce::Image::RGB);
    }

    virtual void frameBegins() {}
    virtual void frameEnds() {}

    juce::Component window;
    std::unique_ptr<Editor> editor;
    Relaxed<int> numFrames = 0, numTicks = 0, allocations = -1;

private:
    void doWork()
    {
        const juce::ScopedLock lock (workLock);

        if (const auto task = std::exchange (work, nullptr))
        {
            task();
            workDone.signal();
        }
    }

    juce::CriticalSection workLock;
    std::function<void()> work;   // to be done at a frame's end
    juce::WaitableEvent workDone;
};
