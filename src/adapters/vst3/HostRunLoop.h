// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <pluginterfaces/gui/iplugview.h>

#include <vector>

#include <juce_events/juce_events.h>
#include <juce_events/native/juce_linux_EventLoopInternal.h>

namespace Steinberg
{
namespace Vst
{

/** The event loops that hosts lend to open windows [the host's main thread].

    One handler serves all instances: hosts need not take a descriptor twice. It is registered with the first loop on
    the list that takes it, and the message thread is the host's as long as that holds. */
class HostRunLoop : public Linux::IEventHandler, private juce::LinuxEventLoopInternal::Listener
{
public:
    /** Borrows the loop for a window that opens.
        @returns false without a loop, or when it does not take the handler: our own thread goes on then */
    static bool borrow (Linux::IRunLoop* loop);

    /** Gives back what was borrowed, once for each time. */
    static void giveBack (Linux::IRunLoop* loop);

    // Linux::IEventHandler
    void PLUGIN_API onFDIsSet (Linux::FileDescriptor descriptor) override;

    // FUnknown: it lives as long as a loop is borrowed, whoever holds it.
    tresult PLUGIN_API queryInterface (const TUID wanted, void** object) override;
    uint32 PLUGIN_API addRef() override { return 1; }
    uint32 PLUGIN_API release() override { return 1; }

private:
    HostRunLoop();
    ~HostRunLoop();

    bool registerWithFirst();
    void unregister();
    bool takesAllDescriptors (Linux::IRunLoop& loop);
    void fdCallbacksChanged() override;

    static HostRunLoop* instance;

    std::vector<IPtr<Linux::IRunLoop>> loops;   // one entry a window
    Linux::IRunLoop* registered = nullptr;      // the one that runs our events
};

}   // namespace Vst
}   // namespace Steinberg
