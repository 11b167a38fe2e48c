// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/vst3/HostRunLoop.h"

#include "adapters/MessageThread.h"

#include <algorithm>

namespace Steinberg
{
namespace Vst
{

HostRunLoop* HostRunLoop::instance = nullptr;

bool HostRunLoop::borrow (Linux::IRunLoop* loop)
{
    if (loop == nullptr)
        return false;

    if (instance == nullptr)
        instance = new HostRunLoop();

    instance->loops.push_back (loop);

    if (instance->registered != nullptr || instance->registerWithFirst())
        return true;

    giveBack (loop);
    return false;
}

void HostRunLoop::giveBack (Linux::IRunLoop* loop)
{
    if (instance == nullptr)
        return;

    auto& loops = instance->loops;
    const auto isLoop = [loop] (const auto& one) { return one.get() == loop; };
    const auto found = std::find_if (loops.begin(), loops.end(), isLoop);

    if (found == loops.end())
        return;

    const IPtr<Linux::IRunLoop> kept = *found;
    loops.erase (found);

    if (instance->registered == loop && std::none_of (loops.begin(), loops.end(), isLoop))
    {
        instance->unregister();
        instance->registerWithFirst();
    }

    if (loops.empty())
        delete std::exchange (instance, nullptr);
}

HostRunLoop::HostRunLoop()
{
    juce::LinuxEventLoopInternal::registerLinuxEventLoopListener (*this);
}

HostRunLoop::~HostRunLoop()
{
    juce::LinuxEventLoopInternal::deregisterLinuxEventLoopListener (*this);
}

bool HostRunLoop::registerWithFirst()
{
    // The host's thread takes over before the first event can come, and gives back only where no loop takes us.
    if (! loops.empty())
        MessageThread::lendHostThread();

    for (const auto& loop : loops)
        if (takesAllDescriptors (*loop))
        {
            registered = loop;
            return true;
        }

    MessageThread::returnHostThread();
    return false;
}

bool HostRunLoop::takesAllDescriptors (Linux::IRunLoop& loop)
{
    const auto descriptors = juce::LinuxEventLoopInternal::getRegisteredFds();
    const auto takesAll =
        std::all_of (descriptors.begin(), descriptors.end(),
                     [&] (int descriptor) { return loop.registerEventHandler (this, descriptor) == kResultOk; });

    if (! takesAll)
        loop.unregisterEventHandler (this);

    return takesAll;
}

void HostRunLoop::unregister()
{
    if (auto* const loop = std::exchange (registered, nullptr))
        loop->unregisterEventHandler (this);
}

void HostRunLoop::fdCallbacksChanged()
{
    // A loop lets go of a handler only with all its descriptors.
    if (registered == nullptr)
        return;

    unregister();
    registerWithFirst();
}

void PLUGIN_API HostRunLoop::onFDIsSet (Linux::FileDescriptor descriptor)
{
    auto* const messages = juce::MessageManager::getInstance();

    if (! messages->isThisTheMessageThread())
        messages->setCurrentThreadAsMessageThread();

    juce::LinuxEventLoopInternal::invokeEventLoopCallbackForFd (descriptor);
}

tresult PLUGIN_API HostRunLoop::queryInterface (const TUID wanted, void** object)
{
    QUERY_INTERFACE (wanted, object, FUnknown::iid, Linux::IEventHandler)
    QUERY_INTERFACE (wanted, object, Linux::IEventHandler::iid, Linux::IEventHandler)
    *object = nullptr;
    return kNoInterface;
}

}   // namespace Vst
}   // namespace Steinberg
