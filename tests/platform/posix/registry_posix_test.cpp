#include <cstdlib>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "fakes/own_registry.h"
#include "fakes/posix/ordinary_user.h"
#include "fakes/temp_folder.h"

namespace {

class PosixRegistryTest : public testing::Test {
  protected:
    PosixRegistryTest() {
        for (const char* key : {"P0", "P1"}) {
            own_.Store().CreateKey(own_.Key(key));
            own_.Store().WriteDefault(own_.Key(key), key);
        }
    }
    std::string Read(const std::string& key) { return own_.Store().ReadDefault(own_.Key(key)); }

    fakes::OwnRegistry own_;
    const std::string folder_ =
        std::getenv("XDG_CONFIG_HOME") + std::string("/varnel/SOFTWARE/Test");
    const std::string file_ = folder_ + "/P0/default";
};

TEST_F(PosixRegistryTest, WhatIsNoValueReadsAsEmpty) {
    ASSERT_EQ(::truncate(file_.c_str(), 1LL << 40), 0);
    EXPECT_LE(Read("P0").size(), 1u << 20) << "a value too large";
    const std::function<void(const char*)> makes[] = {
        [](const char*) {},
        [](const char* path) { ::mkdir(path, 0700); },
        [](const char* path) { ::mkfifo(path, 0600); },
        [](const char* path) { EXPECT_EQ(::symlink("default", path), 0); },
    };
    for (const auto& make : makes) {
        std::remove(file_.c_str());
        make(file_.c_str());
        EXPECT_EQ(Read("P0"), "");
        EXPECT_EQ(Read("P1"), "P1");
    }
}

TEST_F(PosixRegistryTest, AStoreThatMayNotBeWrittenKeepsItsValues) {
    ::chmod(std::getenv("XDG_CONFIG_HOME"), 0555);
    for (const char* folder : {"", "/..", "/../..", "/P0"})
        ::chmod((folder_ + folder).c_str(), 0555);
    ::chmod(file_.c_str(), 0444);
    const bool holds = fakes::HoldsForOrdinaryUser([this] {
        own_.Store().WriteDefault(own_.Key("P0"), "lost");
        own_.Store().DeleteKey(own_.Key("P0"));
        own_.Store().CreateKey(own_.Key("P2"));
        EXPECT_EQ(Read("P0"), "P0");
        EXPECT_EQ(Read("P2"), "");
    });
    EXPECT_TRUE(holds);
}

}  // namespace
