// SPDX-License-Identifier: GPL-3.0-or-later
#include "adapters/HostTools.h"
#include "framework/Rig.h"

using namespace duoJudge;

TEST (LifecycleTest, AChangeWhileAnUpdateWaitsCausesOneMore)
{
    auto rig = std::make_unique<Rig>();
    rig->deferredUpdateState = 0;

    const std::array<int, 3> steps[] {
        { 1, 1, 1 }, { 0, 1, 2 }, { -1, 0, 2 }, { -1, 1, 1 }, { -1, 1, 0 }, { -1, 1, 0 }
    };

    for (const auto& [value, succeeds, state] : steps)
    {
        rig->updateSucceeds = succeeds != 0;
        value < 0 ? rig->timerCallback() : rig->setParameter (Resume, static_cast<float> (value));
        EXPECT_EQ (rig->deferredUpdateState, state);
    }
}

TEST (LifecycleTest, BypassKeepsTheLatencyAndDoesNotClick)
{
    constexpr int bypassedFrom = 20000, length = 40000;

    for (const auto& [numChannels, latency, delay, from] :
         { std::tuple (2, 4096, 4096, 4096), { 3, 20000, 16383, 21000 } })
    {
        auto rig = std::make_unique<Rig> (numChannels);
        rig->setLatencySamples (latency);
        const auto source = noise (numChannels, length);
        auto heard = source;
        juce::Random random (1);

        for (int start = 0, size; start < length; start += size)
        {
            size = std::min (1 + random.nextInt (700), length - start);
            juce::AudioSampleBuffer block (heard.getArrayOfWritePointers(), numChannels, start, size);
            start < bypassedFrom ? rig->processBlock (block, rig->midi) : rig->processBlockBypassed (block, rig->midi);
        }
        for (int i = from; i < length; ++i)
            for (int channel = 0; channel < numChannels; ++channel)
                ASSERT_EQ (heard.getSample (channel, i), source.getSample (channel, i - delay)) << i;
    }
}

TEST (VendorCommandTest, AnswersItsTableAndNoStranger)
{
    auto rig = std::make_unique<Rig>();
    juce::String answer, results;
    juce::XmlElement file ("FileDetails"), other ("OTHER");
    file.setAttribute ("FULLPATHNAME", "/1.wav");
    const auto command = [&] (int opcode, void* data = nullptr)
    {
        results << " " << static_cast<int> (rig->handleVendorCommand (0x5a3c17e6, opcode, data, 0.5f))
                << (rig->pluginDisabled ? "!" : "");
    };

    for (int opcode = 95; opcode < 225; ++opcode)
        command (opcode);

    results.clear();

    const std::pair<int, void*> rows[] { { 105, &answer }, { 202, nullptr }, { 204, &file },   { 204, &other },
                                         { 205, &answer }, { 206, nullptr }, { 214, nullptr }, { 215, nullptr },
                                         { 217, nullptr }, { 218, nullptr } };

    for (const auto& [opcode, data] : rows)
        command (opcode, data);

    rig->handleVendorCommand (1, 217, nullptr, 0.0f);
    EXPECT_EQ (answer + rig->getFileDetailsPath() + results, "False/1.wav 0 1 0 0 0 1 1 1 0! 0");
    EXPECT_FALSE (rig->pluginDisabled);
    juce::AudioSampleBuffer block (2, 2500);
    command (102);
    rig->renderOfflineInChunks (block, rig->midi);
    command (104);
    rig->processBlock (block, rig->midi);
    EXPECT_EQ (rig->heard, "0+1024 1024+1024 2048+452 ");
}
