#include <cstdlib>
#include <filesystem>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "fakes/temp_folder.h"
#include "platform/registry.h"

TEST(PosixRegistryTest, WhatIsNoValueNeitherBlocksNorFillsTheMemory) {
    const fakes::TempFolder home;
    const std::string file = home.Path("varnel/P0/default");
    const auto check = [&] {  // in a process of its own, which has another store
        ::setenv("XDG_CONFIG_HOME", home.Path().c_str(), 1);
        home.WriteFile("varnel/P0/default", "");
        std::filesystem::resize_file(file, 1LL << 40);
        EXPECT_LE(platform::OpenSystemRegistry()->ReadDefault("P0").size(), 1u << 20);
        std::filesystem::remove(file);
        EXPECT_EQ(::mkfifo(file.c_str(), 0600), 0);
        EXPECT_EQ(platform::OpenSystemRegistry()->ReadDefault("P0"), "");
        std::exit(testing::Test::HasFailure());
    };
    EXPECT_EXIT(check(), testing::ExitedWithCode(0), "");
}
