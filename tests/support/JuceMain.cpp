// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdlib>

#include <juce_events/juce_events.h>

#include <gtest/gtest.h>

/** A folder of this process's own for what lasts on the machine, gone at the start of each test; loaded plug-ins and child
    processes find it as well. */
struct ScratchConfiguration : testing::EmptyTestEventListener
{
    ScratchConfiguration()
    {
        for (const auto* const name : { "XDG_CONFIG_HOME", "XDG_CONFIG_DIRS" })
            ::setenv (name, (root.getFullPathName() + "/" + name).toRawUTF8(), 1);   // NOLINT: no other thread runs yet
    }
    ~ScratchConfiguration() override { root.deleteRecursively(); }
    void OnTestStart (const testing::TestInfo&) override { root.deleteRecursively(); }

    const juce::File root = juce::File::createTempFile ("configuration");
};

/** Runs the tests on the toolkit's message thread. */
int main (int argc, char** argv)
{
    ScratchConfiguration scratch;
    juce::ScopedJuceInitialiser_GUI toolkit;
    testing::InitGoogleTest (&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append (&scratch);
    const auto result = RUN_ALL_TESTS();
    testing::UnitTest::GetInstance()->listeners().Release (&scratch);
    return result;
}
