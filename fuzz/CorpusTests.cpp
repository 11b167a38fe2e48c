// SPDX-License-Identifier: GPL-3.0-or-later
// The corpora without a fuzzer: each file is a test, by the name of its target and its own.
#include "FuzzTarget.h"
#include "World.h"

#include <gtest/gtest.h>

namespace
{

class CorpusTest : public testing::Test
{
public:
    CorpusTest (FuzzTarget::Run targetRun, const juce::File& inputFile) : run (targetRun), file (inputFile) {}

private:
    void TestBody() override
    {
        juce::MemoryBlock input;
        ASSERT_TRUE (file.loadFileAsData (input));
        run (static_cast<const std::uint8_t*> (input.getData()), input.getSize());
    }

    const FuzzTarget::Run run;
    const juce::File file;
};

void registerTests (const std::string& target, FuzzTarget::Run run)
{
    const auto files = juce::File (DUO_CORPUS).getChildFile (target).findChildFiles (juce::File::findFiles, false);
    promise (! files.isEmpty());

    for (const auto& file : files)
        testing::RegisterTest (target.c_str(), file.getFileName().toRawUTF8(), nullptr, nullptr, __FILE__, __LINE__,
                               [=]() -> testing::Test* { return new CorpusTest (run, file); });
}

}   // namespace

int main (int argc, char** argv)
{
    const World world;
    testing::InitGoogleTest (&argc, argv);

    for (const auto& [target, run] : FuzzTarget::getAll())
        registerTests (target, run);

    return RUN_ALL_TESTS();
}
