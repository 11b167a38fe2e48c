// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/Rig.h"
#include "platform/Process.h"

#include <functional>
#include <map>

using namespace duoJudge;
using namespace baylink;

namespace
{

std::string calls;   // of the program to its manager, but for questions and reads
std::string lastRead;
std::map<PodId, PodInfo> pods;   // all that the manager knows; the first is always linked
bool linksWork = true;
std::function<void()> whileLinking;   // done once, when a link is made and nobody knows of it yet

template <typename... Numbers>
bool note (const char* call, Numbers... numbers)
{
    calls += call;
    ((calls += " " + std::to_string (numbers)), ...);
    calls += ";";
    return linksWork;
}

struct Manager final : IPodManager
{
    void disconnect (PodId id) override { note ("disconnect", id); }
    int getPodIds (PodId* ids) override
    {
        for (const auto& pod : pods)
            *ids++ = pod.first;

        return int (pods.size());
    }
    PodInfo getPodInfo (PodId id) override { return pods[id]; }
    void restorePod (IPod*, PodId unique, const char* name, int count, int linked, const PodId* ids) override
    {
        note (name, unique, count, linked, linked > 0 ? ids[linked - 1] : kNoPod);
    }
    bool link (PodId ownId, PodId podId) override
    {
        if (const auto meanwhile = std::exchange (whileLinking, nullptr))
            meanwhile();

        return note ("link", ownId, podId);
    }
    void unlink (PodId ownId, PodId podId) override { note ("unlink", ownId, podId); }
    int getLinkedPods (PodId* ids, PodId) override { return *ids = pods.begin()->first, 1; }
    void setChannels (PodId id, int numChannels) override { note ("channels", id, numChannels); }
    void setBlockSize (PodId id, int blockSize) override { note ("block", id, blockSize); }
    bool openStream (PodId, int) override { return false; }
    void writeAudio (PodId, const float* const*, int) override {}
    void writeAudioAt (PodId, const float* const*, int, std::int64_t) override {}
    void setPodName (PodId, const char*) override {}
    void readAudio (PodId, float* const* out, int count, PodId) override
    {
        lastRead = "plain";
        std::fill_n (*out, count, 0.25f);
    }
    void readAudioAt (PodId, float* const* out, int count, PodId, std::int64_t start) override
    {
        readAudio (0, out, count, 0);
        lastRead = "at " + std::to_string (start);
    }
    void setPlaying (PodId id, bool isPlaying) override { note ("playing", id, isPlaying); }
    void setPodGain (PodId podId, float gain) override { note ("gain", podId, pods[podId].gain = gain); }
} manager;

void answer (IPod* pod, int numChannels)
{
    note ("connect", numChannels);
    pod->manager = numChannels > 0 ? &manager : nullptr;
    pod->id = numChannels > 0 ? 7 : kNoPod;
}

struct BarePod : IPod, juce::Logger
{
    explicit BarePod (const juce::String& folder) : redirect (juce::File (folder))
    {
        const auto library = platform::loadLibrary (folder + "/ORVEX Audio/ORVEX BayLinkLib 64bit.dll");

        if (auto* const hook = platform::findExport (library, "answer"))
            *static_cast<void (**) (IPod*, int)> (hook) = answer;

        setCurrentLogger (this);
        calls.clear(), pods.clear();
    }
    ~BarePod() override { setCurrentLogger (nullptr); }
    void logMessage (const juce::String& line) override { outputDebugString ("log " + line); }
    std::int32_t getTypeKey() override { return 1; }
    int getPodKind() override { return 1; }
    void onPodLinked (PodId, PodId) override {}

    platform::ScopedCommonProgramFilesFolder redirect;
};

TEST (PodClientTest, SaysWhyItIsNotConnected)
{
    const auto* const unloadable = "log ERROR: failed to verify library load\nlog ERROR: failed to load library\n";
    const std::tuple<const char*, int, const char*, const char*> rows[] {
        { "missing", 2, unloadable, "" },
        { "broken", 2, unloadable, "" },
        { "whole", 10, "", "connect 0;connect 10;" },
        { "whole", 11, "log ERROR: invalid number of channels\nlog ERROR: failed to connect to library\n",
          "connect 0;" },
        { "closed", 2, "log ERROR: invalid connect call\nlog ERROR: failed to connect to library\n", "connect 0;" },
        { "old", 11,
          "WARNING: invalid version check call\nWARNING: New pod interface with old pod manager, or no pod manager "
          "available\nUPDATE: Attempting to connect with 8 channels\n",
          "connect 8;" }
    };

    for (const auto& [folder, numChannels, said, called] : rows)
    {
        BarePod pod (DUO_FAKE_MANAGERS + juce::String (folder));
        testing::internal::CaptureStderr();
        pod.connect (numChannels);
        EXPECT_EQ (testing::internal::GetCapturedStderr() + calls, std::string (said) + called) << folder;
    }
}

/** The product beside a manager that holds pods 1 and 2 and the product's own; nothing is linked before the first tick. */
struct PodClient : testing::Test
{
    PodClient()
    {
        EXPECT_EQ (take(), "connect 0;connect 2;channels 7 2;block 7 512;");
        addPod (1, "Mix").gain = 0.75f;
        addPod (2, "Reference");
        addPod (7, "DuoJudge").typeKey = kDuoJudgeTypeKey;
    }
    static PodInfo& addPod (int podId, const std::string& name)
    {
        auto& info = pods[podId] = { 1, 0, kSenderTypeKey, 2 };
        name.copy (info.name, sizeof (info.name));
        return info;
    }
    static std::string take() { return std::exchange (calls, ""); }

    BarePod folder { DUO_FAKE_MANAGERS "whole" };
    std::unique_ptr<Rig> rig = std::make_unique<Rig> (2, DUO_FAKE_MANAGERS "whole");
};

TEST_F (PodClient, ListsTheValidPodsOfItsTypeKeyOnly)
{
    addPod (3, "Gone").valid = 0;
    addPod (4, std::string (131, 'x'));
    addPod (5, "");
    rig->timerTick();
    EXPECT_EQ (rig->podNames.joinIntoString ("|"),
               "Not Connected|Mix|Reference|" + juce::String (std::string (131, 'x')) + "|");
    EXPECT_EQ (rig->podIds, (juce::Array<int> { -1, 1, 2, 4, 5 }));

    for (int podId = 100; pods.size() < kMaxPods; ++podId)
        addPod (podId, std::string (132, 'y'));

    rig->timerTick();
    EXPECT_TRUE (rig->podNames.size() == kMaxPods - 1 && rig->podNames[5].length() == 132);
}

TEST_F (PodClient, UnlinksBeforeItLinksAndLeavesEachPodItsGain)
{
    rig->timerTick();
    rig->setParamUndoable (SendGain, 0.25f, true);
    rig->connectToPod (1);
    rig->onPodLinked (8, 2);
    EXPECT_EQ (take(), "link 7 1;gain 1 0.750000;gain 1 0.250000;");
    rig->onPodLinked (7, 2);
    rig->connectToPod (-1);
    rig->setParamUndoable (SendGain, 0.1f, true);
    EXPECT_EQ (take(), "unlink 7 1;link 7 2;gain 2 0.500000;unlink 7 2;");
    linksWork = false;
    rig->timerTick();
    linksWork = true;
    rig->timerTick();
    rig.reset();
    EXPECT_EQ (take(), "link 7 1;link 7 1;gain 1 0.250000;disconnect 7;");
}

TEST_F (PodClient, CountsAVoteOnReleaseAndEndsTheTestWhenItsPodLeaves)
{
    rig->timerTick();

    for (const auto& [param, value] : { std::pair (Choose, 1.0f), { ToggleAB, 1.0f }, { Choose, 0.0f } })
        rig->setParamDirect (param, value, false);

    rig->onPodRemoved (2);
    EXPECT_TRUE (rig->getVoteStatistics().votesForB == 1 && rig->told.isEmpty());
    rig->onPodRemoved (1);
    EXPECT_EQ (rig->told, "3=0 7=1 7=0 ");
    EXPECT_TRUE (rig->getVoteStatistics().votes == 0 && rig->getSelectedPodId() == kNoPod);
}

TEST_F (PodClient, NeverKeepsAPodThatLeavesWhileItIsLinked)
{
    const auto leave = [&]
    {
        pods.erase (1);
        rig->onPodRemoved (1);
    };
    whileLinking = leave;
    rig->timerTick();
    EXPECT_EQ (rig->getSelectedPodId(), kNoPod);
    rig->timerTick();
    EXPECT_EQ (rig->getSelectedPodId(), 2) << "the next tick takes what is there";

    addPod (1, "Mix");
    rig->setParamDirect (ToggleAB, 1.0f, false);
    rig->setParamDirect (Choose, 1.0f, false), rig->setParamDirect (Choose, 0.0f, false);
    whileLinking = leave;
    rig->connectToPod (1);
    EXPECT_EQ (rig->getSelectedPodId(), kNoPod);
    EXPECT_EQ (rig->getParameter (ToggleAB), 0.0f) << "as with any pod that is lost";
    EXPECT_EQ (rig->getVoteStatistics().votes, 0);

    addPod (1, "Mix");
    whileLinking = [&] { rig->onPodLinked (7, 1); };
    rig->connectToPod (2);
    EXPECT_EQ (rig->getSelectedPodId(), 1) << "one of two stays";
    EXPECT_NE (take().find ("unlink 7 2;"), std::string::npos);
}

TEST_F (PodClient, TellsTheManagerThatTheHostPlaysIfItWantsToKnow)
{
    struct Transport : juce::AudioPlayHead
    {
        juce::Optional<PositionInfo> getPosition() const override
        {
            PositionInfo info;
            info.setIsPlaying (plays);
            return info;
        }
        bool plays = true;
    } host;
    rig->setPlayHead (&host);
    rig->timerTick(), take();
    juce::AudioSampleBuffer block (2, 64);

    for (const auto& [hears, plays, bypassed, told] : { std::tuple (false, true, false, ""),
                                                        { true, true, false, "playing 7 1;" },
                                                        { true, false, false, "playing 7 0;" },
                                                        { true, true, true, "playing 7 1;" } })
    {
        rig->managerHearsOfPlaying = hears, host.plays = plays;
        bypassed ? rig->processBlockBypassed (block, rig->midi) : rig->processBlock (block, rig->midi);
        EXPECT_EQ (take(), told);
    }

    rig->setPlayHead (nullptr);
}

TEST_F (PodClient, LetsTheOwnSignalOutAtOnceWhenThePodTurnsInvalidAndFadesBackToIt)
{
    pods[1].gain = 0.5f;
    rig->timerCallback();
    rig->setParameter (ToggleAB, 1.0f);

    for (int i = 0; i < 18; ++i)
    {
        juce::AudioSampleBuffer block (2, 512);
        std::fill_n (block.getWritePointer (0), 512, 0.5f);
        pods[1].valid = i != 12;
        rig->processBlock (block, rig->midi);
        const auto level = i == 12 || i == 13 ? 0.5f : 0.25f;   // where it comes back it begins with what is heard
        EXPECT_TRUE (i < 11 || (i > 13 && i < 17) || block.getMagnitude (0, 0, 512) == level) << i;
    }
}

TEST_F (PodClient, ReadsAtTheTimelineUnlessTheHostOrTheUserSaysOtherwise)
{
    for (const auto* const row :
         { "any|0|at 9", "any|0.0004|at 9", "any|0.0006|plain", "any|0.003|at 9", "Wavelab 5|0|plain",
           "Wavelab|0|plain", "Wavelab|0.002|at 9", "Adobe Premiere|0|plain", "Nuendo|0|at 9" })
    {
        const auto cells = juce::StringArray::fromTokens (row, "|", "");
        const platform::ScopedExecutableFileName redirect (cells[0]);
        rig = std::make_unique<Rig> (2, DUO_FAKE_MANAGERS "whole");
        rig->setParamDirect (UseTimestampedPodAudioOverride, cells[1].getFloatValue(), false);
        rig->timerTick();
        rig->blockStartSample = 9;   // where the host stopped
        juce::AudioSampleBuffer block (2, 64);
        rig->processBlock (block, rig->midi);
        EXPECT_EQ (std::exchange (lastRead, ""), cells[2]) << row;
    }
}

TEST_F (PodClient, CarriesItsLinksAndThoseItWaitsForThroughASavedState)
{
    juce::XmlElement saved ("S");
    rig->writeExtraState (saved);
    EXPECT_EQ (
        saved.toString (juce::XmlElement::TextFormat().singleLine().withoutHeader()),
        "<S PODNAME=\"DuoJudge\" UNIQUEID=\"7\" NUMOFCONNECTIONS=\"3\" NUMOFLINKEDCONNECTIONS=\"1\" LINKEDID0=\"1\""
        " A_SELECT_NAME=\"\"/>");

    saved.setAttribute ("LINKEDID0", 77);

    for (const auto& [count, uniqueId] : { std::pair (2000000000, 7), { -5, 7 }, { 1, -1 }, { 1, 7 } })
    {
        saved.setAttribute ("NUMOFLINKEDCONNECTIONS", count);
        saved.setAttribute ("UNIQUEID", uniqueId);
        rig->readExtraState (saved);
    }

    EXPECT_EQ (take(), "DuoJudge 7 3 4096 0;DuoJudge 7 3 0 -1;DuoJudge 7 3 1 77;");
    rig->timerTick();

    // It saves the link that it still waits for until one is made.
    for (const auto expected : { 77, 1 })
    {
        rig->writeExtraState (saved);
        EXPECT_EQ (saved.getIntAttribute ("LINKEDID0"), expected);
        rig->onPodLinked (rig->id, 2);
    }
}

}   // namespace
