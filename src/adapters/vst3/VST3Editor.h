// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "adapters/vst3/VST3ContentWrapper.h"
#include "adapters/vst3/VST3Controller.h"
#include "platform/EmbeddedWindow.h"

#include <public.sdk/source/common/pluginview.h>

namespace Steinberg
{
namespace Vst
{

/** The host's view of the editor [the host's main thread]. Before `attached` it has a size but no window. */
class VST3Editor : public CPluginView
{
public:
    /** @returns a view with a reference that the caller owns, or null while another one has the editor. */
    static IPlugView* create (VST3Controller& controller, const SharedProcessor::Ptr& shared);

    ~VST3Editor() override;

    /** Asks the host for room for a content of this size. */
    void requestSize (int width, int height);

    // IPlugView
    tresult PLUGIN_API isPlatformTypeSupported (FIDString type) override;
    tresult PLUGIN_API attached (void* parent, FIDString type) override;
    tresult PLUGIN_API removed() override;
    tresult PLUGIN_API onSize (ViewRect* newSize) override;
    tresult PLUGIN_API getSize (ViewRect* size) override;
    tresult PLUGIN_API setFrame (IPlugFrame* frame) override;
    tresult PLUGIN_API canResize() override;

private:
    VST3Editor (VST3Controller& ownController, SharedProcessor::Ptr sharedProcessor);

    bool makeWrapper();
    void close();

    MessageThread::User toolkit;   // goes last
    const IPtr<VST3Controller> controller;
    const SharedProcessor::Ptr shared;
    IPtr<Linux::IRunLoop> offeredLoop;             // by the latest frame, which may go before the window does
    IPtr<Linux::IRunLoop> borrowedLoop;            // while the window stands
    std::unique_ptr<VST3ContentWrapper> wrapper;   // with the editor
};

}   // namespace Vst
}   // namespace Steinberg
