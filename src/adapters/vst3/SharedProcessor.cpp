// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/vst3/SharedProcessor.h"

#include <mutex>

namespace Steinberg
{
namespace Vst
{
namespace
{

std::mutex mutex;                                            // of the list
std::vector<std::weak_ptr<SharedProcessor>> lastInstances;   // those that live, and the one made last at the end

}   // namespace

SharedProcessor::SharedProcessor (juce::int64 ownNumber) :
    AdaptedProcessor (OxJuceProcessorBase::typeVst3), number (ownNumber)
{
}

SharedProcessor::Ptr SharedProcessor::create()
{
    // Another process counts from elsewhere.
    static std::atomic<juce::int64> lastNumber { juce::Random::getSystemRandom().nextInt64() };

    Ptr shared (new SharedProcessor (++lastNumber), MessageThread::destroy<SharedProcessor>);
    const std::lock_guard<std::mutex> lock (mutex);
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
