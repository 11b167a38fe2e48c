// SPDX-License-Identifier: GPL-3.0-or-later
#include "EditorRig.h"
#include "gui/Pictures.h"
#include "gui/SurfaceRig.h"

#include <cstdlib>

#include "editor/XWindow.h"

namespace
{

/** A picture of the whole window: what is clicked to come there, where A and B stand for a vote. */
struct View
{
    const char *name, *clicks;
};

constexpr View views[] { { "normal", "" },
                         { "pods", "m_selPodList" },
                         { "test", "m_btnTest" },
                         { "results", "m_btnTest A A B m_btnReveal" },
                         { "results100", "m_btnTest B m_btnReveal" },
                         { "manual", "m_btnTitle \"Menu item 4\"" } };

struct PictureTest : testing::TestWithParam<View>
{
};

/** To accept what the window has come to look like: DUO_WRITE_PICTURES=1, run these tests, look at what git shows. */
TEST_P (PictureTest, LooksAsItDid)
{
    EditorRig rig;
    rig.addPod(), rig.tick();

    for (const auto& word : juce::StringArray::fromTokens (GetParam().clicks, true))
        word.length() == 1 ? rig.vote (word == "B") : rig.click (word.unquoted());

    rig.move (std::string (GetParam().name) == "pods" ? rig.placeOfRow (1) : juce::Point (3, 3));
    const XWindow screen (rig.window);
    const auto file = juce::File (DUO_PICTURES).getChildFile (GetParam().name).withFileExtension ("png");

    if (std::getenv ("DUO_WRITE_PICTURES") != nullptr)
    {
        pumpFor (2000);   // all has faded by then
        writePicture (file, screen.picture());
    }

    constexpr int tolerance = 2, maxPixels = 1000;   // what renderers may round otherwise
    const auto golden = juce::ImageFileFormat::loadFrom (file);
    ASSERT_TRUE (golden.isValid()) << file.getFullPathName();
    EXPECT_TRUE (pumpUntil ([&] { return isNear (golden, screen.picture(), tolerance, maxPixels); }) ||
                 looksLike (golden, screen.picture(), tolerance, maxPixels, GetParam().name + juce::String ("-")));
}

INSTANTIATE_TEST_SUITE_P (Views, PictureTest, testing::ValuesIn (views),
                          [] (const auto& row) { return std::string (row.param.name); });

}   // namespace
