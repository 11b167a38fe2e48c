// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/vst3/VST3Editor.h"

#include "adapters/vst3/HostRunLoop.h"

namespace Steinberg
{
namespace Vst
{

IPlugView* VST3Editor::create (VST3Controller& controller, const SharedProcessor::Ptr& shared)
{
    auto view = owned (new VST3Editor (controller, shared));
    return view->makeWrapper() ? view.take() : nullptr;
}

VST3Editor::VST3Editor (VST3Controller& ownController, SharedProcessor::Ptr sharedProcessor) :
    controller (&ownController), shared (std::move (sharedProcessor))
{
}

VST3Editor::~VST3Editor()
{
    close();
}

bool VST3Editor::makeWrapper()
{
    const MessageThread::Lock lock;

    if (wrapper == nullptr)
        if (auto* const editor = ContentWrapper::makeEditor (shared->get()))
            wrapper = std::make_unique<VST3ContentWrapper> (*this, *editor);

    return wrapper != nullptr;
}

tresult PLUGIN_API VST3Editor::isPlatformTypeSupported (FIDString type)
{
    return FIDStringsEqual (type, platform::kEmbeddedWindowType) ? kResultTrue : kResultFalse;
}

tresult PLUGIN_API VST3Editor::attached (void* parent, FIDString type)
{
    if (parent == nullptr || isPlatformTypeSupported (type) != kResultTrue)
        return kInvalidArgument;

    if (isAttached() || ! makeWrapper())
        return kResultFalse;

    const auto connects = [this]
    {
        const MessageThread::Lock lock;
        return wrapper->connect();   // first, so that a loop is offered every descriptor at once
    };

    if (! connects())
    {
        close();
        return kResultFalse;
    }

    if (HostRunLoop::borrow (offeredLoop))
        borrowedLoop = offeredLoop;

    const MessageThread::Lock lock;
    wrapper->embed (parent);
    return CPluginView::attached (parent, type);
}

tresult PLUGIN_API VST3Editor::removed()
{
    close();
    return CPluginView::removed();
}

void VST3Editor::close()
{
    {
        const MessageThread::Lock lock;
        wrapper.reset();
    }

    if (const auto loop = std::exchange (borrowedLoop, nullptr))
        HostRunLoop::giveBack (loop);
}

void VST3Editor::requestSize (int width, int height)
{
    ViewRect newRect (0, 0, width, height);

    if (plugFrame != nullptr)
        plugFrame->resizeView (this, &newRect);

    setRect (newRect);
}

tresult PLUGIN_API VST3Editor::onSize (ViewRect* newSize)
{
    if (newSize == nullptr)
        return kInvalidArgument;

    const MessageThread::Lock lock;
    setRect (*newSize);

    if (wrapper != nullptr)
        wrapper->setSize (newSize->getWidth(), newSize->getHeight());

    return kResultTrue;
}

tresult PLUGIN_API VST3Editor::getSize (ViewRect* size)
{
    if (size == nullptr)
        return kInvalidArgument;

    if (wrapper == nullptr)
        return kResultFalse;

    *size = ViewRect (0, 0, wrapper->getWidth(), wrapper->getHeight());
    return kResultTrue;
}

tresult PLUGIN_API VST3Editor::setFrame (IPlugFrame* frame)
{
    if (frame != nullptr)
        offeredLoop = FUnknownPtr<Linux::IRunLoop> (frame);

    return CPluginView::setFrame (frame);
}

tresult PLUGIN_API VST3Editor::canResize()
{
    return wrapper != nullptr && wrapper->getEditor().isResizable() ? kResultTrue : kResultFalse;
}

}   // namespace Vst
}   // namespace Steinberg
