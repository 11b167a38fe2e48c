// SPDX-License-Identifier: GPL-3.0-or-later
#include "pod/IPod.h"

#include "platform/KnownFolders.h"

namespace baylink
{
namespace
{

void log (const juce::String& line)
{
    juce::Logger::writeToLog (line);
}

void send (const juce::String& line)
{
    juce::Logger::outputDebugString (line);
}

juce::String getManagerPath()
{
    const juce::String file = juce::String ("\\ORVEX Audio\\") + "ORVEX BayLinkLib" + " 64bit" + ".dll";
    const auto folder = platform::findCommonProgramFilesFolder (file.substring (1));
    return (folder.isNotEmpty() ? folder : juce::String ("C:\\Program Files\\Common Files")) + file;
}

}   // namespace

IPod::~IPod()
{
    platform::freeLibrary (module);
}

const char* IPod::getPodName()
{
    return "Pod";
}

void IPod::onPodRemoved (PodId)
{
}

bool IPod::getPodFlag()
{
    return false;
}

void IPod::connect (int numChannels)
{
    if (id != kNoPod)
        return;

    if (! loadManager (this, getManagerPath()))
    {
        log ("ERROR: failed to load library");
        return;
    }

    if (auto* const checkVersion =
            reinterpret_cast<ManagerVersionExport> (platform::findExport (module, kManagerVersionExport)))
    {
        int answer = 0, ignored = 0;
        checkVersion (this, &answer, &ignored);
        managerHearsOfPlaying = answer == kHearsOfPlaying;
    }
    else
    {
        constexpr int channelsOfOldManagers = 8;
        numChannels = channelsOfOldManagers;
        send ("WARNING: invalid version check call");
        send ("WARNING: New pod interface with old pod manager, or no pod manager available");
        send ("UPDATE: Attempting to connect with " + juce::String (numChannels) + " channels");
    }

    if (! connectToManager (numChannels))
        log ("ERROR: failed to connect to library");
}

bool IPod::loadManager (IPod* pod, const juce::String& path)
{
    if (pod == nullptr)
    {
        log ("ERROR: invalid pod");
        return false;
    }

    if (pod->module != platform::kNoLibrary)
    {
        send ("Pod manager already loaded");
        return true;
    }

    if (path.isEmpty())
    {
        log ("ERROR: empty path");
        return false;
    }

    pod->module = platform::loadLibrary (path);

    if (pod->module == platform::kNoLibrary)
    {
        log ("ERROR: failed to verify library load");
        return false;
    }

    return true;
}

bool IPod::connectToManager (int numChannels)
{
    if (numChannels > kMaxPodChannels)
    {
        log ("ERROR: invalid number of channels");
        return false;
    }

    if (module == platform::kNoLibrary)
    {
        log ("ERROR: cannot connect, pod manager not loaded");
        return false;
    }

    if (id != kNoPod)
    {
        send ("Pod manager already connected");
        return true;
    }

    auto* const connectPod =
        reinterpret_cast<ManagerConnectExport> (platform::findExport (module, kManagerConnectExport));

    if (connectPod == nullptr)
    {
        log ("ERROR: invalid connect call");
        return false;
    }

    connectPod (this, numChannels);
    return manager != nullptr;
}

}   // namespace baylink
