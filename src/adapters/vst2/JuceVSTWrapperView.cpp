// SPDX-License-Identifier: GPL-3.0-or-later
// The editor in the host's window, and the thread that runs its events.
#include "adapters/vst2/JuceVSTWrapper.h"
#include "framework/HostType.h"

namespace
{

std::atomic<bool> messageCameBack { false };   // in the whole process: the message thread is known to be right

}   // namespace

JuceVSTWrapper::Answer JuceVSTWrapper::answerView (const Call& call)
{
    switch (call.opcode)
    {
        case effEditGetRect:
            return giveEditorSize (static_cast<t_fstRectangle**> (call.pointer));
        case effEditOpen:
            return openEditor (call.pointer);
        case effEditClose:
            adoptCallingThread();
            closeEditor();
            return 0;
        case effEditIdle:
        case vst2::effectIdle:
            runHostEvents();
            return 0;
        default:
            return {};
    }
}

bool JuceVSTWrapper::makeEditor()
{
    const auto requestSize = [this] (int width, int height)
    {
        if (callHost (audioMasterCanDo, 0, 0, const_cast<char*> ("sizeWindow")) == 1)
            callHost (audioMasterSizeWindow, width, height);
    };

    if (editor == nullptr)
        if (auto* const made = ContentWrapper::makeEditor (judge()))
            editor = std::make_unique<EditorCompWrapper> (*made, requestSize);

    return editor != nullptr;
}

t_fstPtrInt JuceVSTWrapper::giveEditorSize (t_fstRectangle** place)
{
    if (place == nullptr)
        return 0;

    const MessageThread::Lock lock;

    if (! makeEditor())
        return 0;

    editorSize.right = static_cast<short> (editor->getWidth());
    editorSize.bottom = static_cast<short> (editor->getHeight());
    *place = &editorSize;
    return reinterpret_cast<t_fstPtrInt> (&editorSize);
}

t_fstPtrInt JuceVSTWrapper::openEditor (void* parent)
{
    if (parent == nullptr)
        return 0;

    if (editor != nullptr && editor->isOnDesktop())
        closeEditor();

    adoptCallingThread();
    const auto opens = [&]
    {
        const MessageThread::Lock lock;

        if (! makeEditor() || ! editor->connect())
            return false;

        editor->embed (parent);
        return true;
    };

    if (opens())
        return 1;

    loan.reset();
    return 0;
}

void JuceVSTWrapper::closeEditor()
{
    {
        const MessageThread::Lock lock;
        editor.reset();
    }

    loan.reset();
}

void JuceVSTWrapper::runHostEvents()
{
    if (! loan.has_value() && (editor == nullptr || ! editor->isOnDesktop()))
        return;

    // A host that comes by has a loop of its own, and expects to be called back from there.
    if (! loan.has_value())
        loan.emplace();

    MessageThread::runEvents();
}

void JuceVSTWrapper::adoptCallingThread()
{
    if (messageCameBack || juce::MessageManager::getInstance()->isThisTheMessageThread())
        return;

    if (const auto type = getHostType(); ! hostType::isAnyWavelab (type) && type != hostType::vstBridge)
        return;

    loan.emplace();
    juce::MessageManager::callAsync ([] { messageCameBack = true; });
}
