// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/vst3/Connection.h"

#include <public.sdk/source/vst/hosting/hostclasses.h>

namespace Steinberg
{
namespace Vst
{
namespace connection
{
namespace
{

constexpr const char* kTell = "DuoJudge processor";
constexpr const char* kAsk = "DuoJudge processor?";
constexpr const char* kNumber = "number";

bool isMessage (IMessage* message, const char* id)
{
    return message != nullptr && FIDStringsEqual (message->getMessageID(), id);
}

/** Hosts that make no messages get one of the SDK's. */
IPtr<IMessage> makeMessage (const ComponentBase& sender, const char* id)
{
    auto message = owned (sender.allocateMessage());

    if (message == nullptr)
        message = owned (static_cast<IMessage*> (new HostMessage()));

    message->setMessageID (id);
    return message;
}

}   // namespace

void tellProcessor (const ComponentBase& component, const SharedProcessor& processor)
{
    const auto message = makeMessage (component, kTell);

    if (auto* const attributes = message->getAttributes())
    {
        attributes->setInt (kNumber, processor.number);
        component.sendMessage (message);
    }
}

void askForProcessor (const ComponentBase& controller)
{
    controller.sendMessage (makeMessage (controller, kAsk));
}

bool asksForProcessor (IMessage* message)
{
    return isMessage (message, kAsk);
}

SharedProcessor::Ptr getToldProcessor (IMessage* message)
{
    auto* const attributes = isMessage (message, kTell) ? message->getAttributes() : nullptr;
    int64 number = 0;

    if (attributes == nullptr || attributes->getInt (kNumber, number) != kResultOk)
        return nullptr;

    return SharedProcessor::find (number);
}

}   // namespace connection
}   // namespace Vst
}   // namespace Steinberg
