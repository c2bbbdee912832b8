#include <cstdlib>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "fakes/own_registry.h"
#include "fakes/posix/ordinary_user.h"

namespace {

class PosixRegistryTest : public testing::Test {
  protected:
    PosixRegistryTest() {
        store_.CreateKey("P0");
        store_.WriteDefault("P0", "kept");
    }

    fakes::OwnRegistry own_;
    platform::Registry& store_ = own_.Store();
    const std::string configuration_ = std::getenv("XDG_CONFIG_HOME");
    const std::string file_ = configuration_ + "/varnel/P0/default";
};

TEST_F(PosixRegistryTest, WhatIsNoValueReadsAsEmpty) {
    ASSERT_EQ(::truncate(file_.c_str(), 1LL << 40), 0);
    EXPECT_LE(store_.ReadDefault("P0").size(), 1u << 20) << "a value too large";
    int (*const makes[])(const char*) = {
        [](const char* path) { return ::mkdir(path, 0700); },
        [](const char* path) { return ::mkfifo(path, 0600); },
        [](const char* path) { return ::symlink("default", path); },
    };
    for (const auto& make : makes) {
        std::remove(file_.c_str());
        EXPECT_EQ(make(file_.c_str()), 0);
        EXPECT_EQ(store_.ReadDefault("P0"), "");
    }
}

TEST_F(PosixRegistryTest, AStoreThatMayNotBeWrittenKeepsItsValues) {
    ::chmod(file_.c_str(), 0444);
    for (const char* folder : {"", "/varnel", "/varnel/P0"})
        ::chmod((configuration_ + folder).c_str(), 0555);
    const bool holds = fakes::HoldsForOrdinaryUser([this] {
        store_.WriteDefault("P0", "lost");
        store_.DeleteKey("P0");
        store_.CreateKey("P1");
        EXPECT_EQ(store_.ReadDefault("P0"), "kept");
        EXPECT_EQ(store_.ReadDefault("P1"), "");
    });
    EXPECT_TRUE(holds);
}

}  // namespace
