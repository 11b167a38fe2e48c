// SPDX-License-Identifier: GPL-3.0-or-later
#include "TestPod.h"

#include <array>
#include <cstdio>
#include <dlfcn.h>

using namespace baylink;

TEST (ManagerLibraryTest, ExportsTwoNamesAndNothingElse)
{
    auto* const pipe = popen ("nm -D --defined-only '" BAY_LINK_MANAGER_FILE "' | cut -d' ' -f3 | sort | xargs", "r");
    ASSERT_NE (pipe, nullptr);
    std::array<char, 256> names {};
    EXPECT_NE (std::fgets (names.data(), names.size(), pipe), nullptr);
    ASSERT_EQ (pclose (pipe), 0);
    EXPECT_EQ (names.data(), std::string (kManagerConnectExport) + ' ' + kManagerVersionExport + '\n');
}

TEST (ManagerLibraryTest, ServesPodsThroughItsExports)
{
    auto* const library = dlopen (BAY_LINK_MANAGER_FILE, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE (library, nullptr) << dlerror();
    const auto version = reinterpret_cast<ManagerVersionExport> (dlsym (library, kManagerVersionExport));
    const auto connect = reinterpret_cast<ManagerConnectExport> (dlsym (library, kManagerConnectExport));
    ASSERT_TRUE (version != nullptr && connect != nullptr);

    TestPod sender, listener;
    version (nullptr, nullptr, nullptr);
    connect (&sender, 2);
    connect (&listener, 2);
    ASSERT_TRUE (sender.manager != nullptr && sender.manager == listener.manager);
    EXPECT_STREQ (listener.manager->getPodInfo (sender.id).name, "Track");
    listener.choose (sender.id);
    sender.leave();
    EXPECT_EQ (listener.removals, 1);
}
