// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/EventWait.h"

#include <poll.h>

namespace platform
{

std::vector<int> waitForInput (const std::vector<int>& descriptors, int timeoutMs)
{
    std::vector<pollfd> entries;
    entries.reserve (descriptors.size());

    for (const auto descriptor : descriptors)
        entries.push_back ({ descriptor, POLLIN, 0 });

    std::vector<int> ready;

    if (::poll (entries.data(), static_cast<nfds_t> (entries.size()), timeoutMs) > 0)
        for (const auto& entry : entries)
            if ((entry.revents & (POLLIN | POLLHUP)) != 0)
                ready.push_back (entry.fd);

    return ready;
}

}   // namespace platform
