// SPDX-License-Identifier: GPL-3.0-or-later
#include "framework/Rig.h"

using namespace duoJudge;

TEST (RoutingTest, KeepsTheCodesOfEachBusAndReplacesTheOthersByTheFormatsOwn)
{
    // By families of buses, up to 2, 6, 8, 10, 12 and more channels; a '#' for each code from 0 that stands.
    const std::array<std::string_view, 5> standing { "", "###..............##", "...#######...##.........##",
                                                     "...............#####", "........................##" };
    const std::array<int, 6> avid { 0, 0, 3, 15, 24, 100 }, vst { 1, 1, 9, 16, 25, 100 }, au { 2, 2, 3, 16, 25, 100 },
        other { 1, 1, 3, 16, 25, 100 };
    int type = 0;

    for (const auto& own : { other, vst, au, avid, avid, other, other, vst })
    {
        const auto processor = std::make_unique<DuoJudgeProcessor> (type++);

        for (std::size_t i = 0; i < 16 * 101; ++i)
        {
            const auto channels = static_cast<int> (i / 101 + 1), code = static_cast<int> (i % 101);
            const auto family = static_cast<std::size_t> ("0011112233445555"[i / 101] - '0');
            const auto stands = family == 5 || standing[family].find ('#', i % 101) == i % 101;
            const auto inForce = family == 0 ? 1 : stands && code != 99 ? code : own[family];
            processor->setPlayConfigDetails (channels, channels, 44100.0, 64);
            processor->parameter (Routing).value = thousandths::fromCode (code);
            ASSERT_EQ (processor->getRoutingForChannels (-1), inForce) << type << " " << channels << " " << code;
            ASSERT_EQ (processor->getParamCode (Routing), family == 0 || code == 99 ? code : inForce);
            ASSERT_EQ (processor->getDefaultRouting (-1), own[family]);
        }
    }
}

TEST (RoutingTest, KeepsTheUsersChoiceAloneForTheNextInstancesOnSuchABus)
{
    auto rig = std::make_unique<Rig>();
    juce::String stored[2];   // by the host and by the user: the number of the default that took it, for each bus

    for (int channels = 1; channels <= 12; ++channels)
        for (const auto byUser : { false, true })
        {
            rig->setPlayConfigDetails (channels, channels, 44100.0, 64);
            rig->parameter (Routing).editedByGui = byUser;
            rig->setParamDirect (Routing, thousandths::fromCode (20 + 2 * channels + byUser), false);

            for (const int id : { RoutingDefault, RoutingDefault_7_1, RoutingDefault_7_1_2 })
                if (rig->getParamCode (id) == rig->getParamCode (Routing))
                    stored[byUser] << channels << ":" << id << " ";
        }
    EXPECT_EQ (stored[0] + "| " + stored[1], "| 1:9000 2:9000 3:9000 4:9000 5:9000 6:9000 8:9001 10:9002 ");
}
