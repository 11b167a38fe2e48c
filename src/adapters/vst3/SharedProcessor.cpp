// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/vst3/SharedProcessor.h"

#include "adapters/MessageThread.h"
#include "engine/CreatePluginFilter.h"

#include <mutex>

namespace Steinberg
{
namespace Vst
{
namespace
{

std::mutex mutex;                                            // of both below
std::vector<std::weak_ptr<SharedProcessor>> lastInstances;   // those that live, and the one made last at the end
juce::int64 lastNumber = 0;

}   // namespace

SharedProcessor::SharedProcessor (juce::int64 ownNumber, std::unique_ptr<DuoJudgeProcessor> newProcessor) :
    number (ownNumber), processor (std::move (newProcessor))
{
}

SharedProcessor::Ptr SharedProcessor::create()
{
    std::unique_ptr<DuoJudgeProcessor> made;
    {
        const MessageThread::Lock lock;
        made = createPluginFilter (OxJuceProcessorBase::typeVst3);
    }

    const std::lock_guard<std::mutex> lock (mutex);

    if (lastNumber == 0)
        lastNumber = juce::Random::getSystemRandom().nextInt64();   // another process counts from elsewhere

    Ptr shared (new SharedProcessor (++lastNumber, std::move (made)), MessageThread::destroy<SharedProcessor>);
    lastInstances.erase (
        std::remove_if (lastInstances.begin(), lastInstances.end(), [] (const auto& one) { return one.expired(); }),
        lastInstances.end());
    lastInstances.push_back (shared);
    return shared;
}

SharedProcessor::Ptr SharedProcessor::newest()
{
    const std::lock_guard<std::mutex> lock (mutex);
    return lastInstances.empty() ? nullptr : lastInstances.back().lock();
}

SharedProcessor::Ptr SharedProcessor::find (juce::int64 wantedNumber)
{
    const std::lock_guard<std::mutex> lock (mutex);

    for (const auto& one : lastInstances)
        if (auto shared = one.lock(); shared != nullptr && shared->number == wantedNumber)
            return shared;

    return nullptr;
}

}   // namespace Vst
}   // namespace Steinberg
