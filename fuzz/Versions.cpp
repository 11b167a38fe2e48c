// SPDX-License-Identifier: GPL-3.0-or-later
#include "FuzzTarget.h"

#include "menu/VersionList.h"

namespace
{

/** Whatever the server answers, a list that names nothing but itself orders by its own number. */
void run (const std::uint8_t* data, std::size_t size)
{
    const auto reply = juce::String::createStringFromData (data, static_cast<int> (size));
    versionList::judge (reply, "DuoJudge", "1.1.2.0");
    const auto one = versionList::toComparable (reply), other = versionList::toComparable ("1.1.2.0");
    const auto verdict = versionList::judge ("VERSION_X,1.1.2.0", "X", reply);
    promise ((verdict == versionList::Verdict::newer) == (other > one));
}

const FuzzTarget target { "Versions", run };

}   // namespace
