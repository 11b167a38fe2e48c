// SPDX-License-Identifier: GPL-3.0-or-later
#include <juce_events/juce_events.h>

#include <gtest/gtest.h>

/** Runs the tests on the toolkit's message thread. */
int main (int argc, char** argv)
{
    juce::ScopedJuceInitialiser_GUI toolkit;
    testing::InitGoogleTest (&argc, argv);
    return RUN_ALL_TESTS();
}
