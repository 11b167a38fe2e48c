// SPDX-License-Identifier: GPL-3.0-or-later
#include "pod/OxJucePodUser.h"

#include <array>

namespace
{

using PodIdList = std::array<baylink::PodId, baylink::kMaxPods>;

juce::String linkedIdAttribute (int index)
{
    return "LINKEDID" + juce::String (index);
}

}   // namespace

void OxJucePodUser::refreshPodList (std::int32_t typeKey)
{
    if (manager == nullptr)
        return;

    // The audio thread may wait for the lock: only the finished list is put in place under it.
    juce::StringArray names { "Not Connected" };
    juce::Array<int> listedIds { baylink::kNoPod };
    PodIdList ids;
    const auto count = std::min (manager->getPodIds (ids.data()), baylink::kMaxPods);

    for (int i = 0; i < count; ++i)
    {
        const auto podId = ids[static_cast<std::size_t> (i)];
        const auto info = manager->getPodInfo (podId);

        if (info.valid == 0 || info.typeKey != typeKey)
            continue;

        names.add (juce::String::fromUTF8 (info.name, static_cast<int> (strnlen (info.name, sizeof (info.name)))));
        listedIds.add (podId);
    }

    const juce::ScopedLock lock (podLock);
    podNames.swapWith (names);
    podIds.swapWith (listedIds);
}

void OxJucePodUser::writePodState (juce::XmlElement& xml)
{
    if (manager == nullptr || id == baylink::kNoPod)
        return;

    const auto info = manager->getPodInfo (id);
    PodIdList ids;
    const auto numConnections = manager->getPodIds (ids.data());
    auto numLinked = std::min (manager->getLinkedPods (ids.data(), id), baylink::kMaxPods);

    if (const juce::ScopedLock lock (awaitedLock); ! awaitedLinks.isEmpty())
    {
        numLinked = awaitedLinks.size();
        std::copy (awaitedLinks.begin(), awaitedLinks.end(), ids.begin());
    }

    xml.setAttribute ("PODNAME",
                      juce::String::fromUTF8 (info.name, static_cast<int> (strnlen (info.name, sizeof (info.name)))));
    xml.setAttribute ("UNIQUEID", id);
    xml.setAttribute ("NUMOFCONNECTIONS", numConnections);
    xml.setAttribute ("NUMOFLINKEDCONNECTIONS", numLinked);

    for (int i = 0; i < numLinked; ++i)
        xml.setAttribute (linkedIdAttribute (i), ids[static_cast<std::size_t> (i)]);
}

void OxJucePodUser::readPodState (const juce::XmlElement& xml)
{
    const auto uniqueId = xml.getIntAttribute ("UNIQUEID", baylink::kNoPod);

    if (manager == nullptr || uniqueId == baylink::kNoPod)
        return;

    const auto numConnections = xml.getIntAttribute ("NUMOFCONNECTIONS", 0);
    const auto& name = xml.getStringAttribute ("PODNAME");
    const auto numLinked = juce::jlimit (0, baylink::kMaxPods, xml.getIntAttribute ("NUMOFLINKEDCONNECTIONS", 0));
    PodIdList ids;

    for (int i = 0; i < numLinked; ++i)
        ids[static_cast<std::size_t> (i)] = xml.getIntAttribute (linkedIdAttribute (i), 0);

    {
        const juce::ScopedLock lock (awaitedLock);
        awaitedLinks = juce::Array<baylink::PodId> (ids.data(), numLinked);
    }

    manager->restorePod (this, uniqueId, name.toRawUTF8(), numConnections, numLinked, ids.data());
}

void OxJucePodUser::forgetAwaitedLinks()
{
    const juce::ScopedLock lock (awaitedLock);
    awaitedLinks.clear();
}
