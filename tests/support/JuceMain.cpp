// SPDX-License-Identifier: GPL-3.0-or-later
#include "ScratchFolders.h"

#include <juce_events/juce_events.h>

#include <gtest/gtest.h>

/** Each test starts with empty folders. */
struct ScratchOfEachTest : testing::EmptyTestEventListener, ScratchFolders
{
    void OnTestStart (const testing::TestInfo&) override { root.deleteRecursively(); }
};

#ifdef __SANITIZE_ADDRESS__
/** What only the globals of a driver or a plug-in know is no leak while these stay loaded, and has a name in reports. */
extern "C" [[gnu::visibility ("default")]] int dlclose (void*) noexcept
{
    return 0;
}
#endif

/** Runs the tests on the toolkit's message thread. */
int main (int argc, char** argv)
{
    ScratchOfEachTest scratch;
    juce::ScopedJuceInitialiser_GUI toolkit;
    testing::InitGoogleTest (&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append (&scratch);
    const auto result = RUN_ALL_TESTS();
    testing::UnitTest::GetInstance()->listeners().Release (&scratch);
    return result;
}
