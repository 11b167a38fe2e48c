// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestPod.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <dlfcn.h>
#include <set>
#include <sstream>

using namespace baylink;

TEST (ManagerLibraryTest, ExportsTwoNamesAndNothingElse)
{
    auto* const pipe = popen ("nm -D --defined-only '" BAY_LINK_MANAGER_FILE "'", "r");
    ASSERT_NE (pipe, nullptr);
    std::string listing;
    std::array<char, 256> part;

    while (std::fgets (part.data(), static_cast<int> (part.size()), pipe) != nullptr)
        listing += part.data();

    ASSERT_EQ (pclose (pipe), 0);
    std::set<std::string> names;
    std::istringstream lines (listing);

    for (std::string address, kind, name; lines >> address >> kind >> name;)
        names.insert (name);

    EXPECT_EQ (names, (std::set<std::string> { kManagerVersionExport, kManagerConnectExport }));
}

TEST (ManagerLibraryTest, ServesPodsThroughItsExports)
{
    auto* const library = dlopen (BAY_LINK_MANAGER_FILE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE (library, nullptr) << dlerror();
    const auto version = reinterpret_cast<ManagerVersionExport> (dlsym (library, kManagerVersionExport));
    const auto connect = reinterpret_cast<ManagerConnectExport> (dlsym (library, kManagerConnectExport));
    ASSERT_TRUE (version != nullptr && connect != nullptr);

    {
        TestSender sender;
        TestListener listener;
        int a = 1, b = 1;
        version (&sender, &a, &b);
        version (nullptr, nullptr, nullptr);
        connect (&sender, 2);
        connect (&listener, 2);
        ASSERT_NE (sender.manager, nullptr);
        EXPECT_EQ (sender.manager, listener.manager);
        EXPECT_EQ (listener.manager->getPodInfo (sender.id).numChannels, 2);
        EXPECT_STREQ (listener.manager->getPodInfo (sender.id).name, "Track");
        listener.choose (sender.id);
        sender.leave();
        EXPECT_EQ (listener.removals, 1);
    }

    EXPECT_EQ (dlclose (library), 0);
}
