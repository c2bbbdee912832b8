#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "fakes/own_registry.h"
#include "platform/registry.h"

namespace fs = std::filesystem;

TEST(PosixRegistryTest, WhatIsNoValueNeitherBlocksNorFillsTheMemory) {
    const fakes::OwnRegistry own;
    const auto store = platform::OpenSystemRegistry();
    store->CreateKey("P0");
    const fs::path file = std::string(std::getenv("XDG_CONFIG_HOME")) + "/varnel/P0/default";
    std::ofstream(file).close();
    fs::resize_file(file, 1LL << 40);
    EXPECT_LE(store->ReadDefault("P0").size(), 1u << 20);
    fs::remove(file);
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    EXPECT_EQ(store->ReadDefault("P0"), "");
}
