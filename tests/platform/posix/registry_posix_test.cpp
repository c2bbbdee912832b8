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
    std::string FileOf(const std::string& key) {
        return std::string(std::getenv("XDG_CONFIG_HOME")) + "/varnel/SOFTWARE/Test/" + key +
               "/default";
    }
    std::string Read(const std::string& key) { return own_.Store().ReadDefault(own_.Key(key)); }

    fakes::OwnRegistry own_;
};

TEST_F(PosixRegistryTest, WhatIsNoValueReadsAsEmpty) {
    const std::pair<const char*, std::function<void(const char*)>> cases[] = {
        {"a folder", [](const char* path) { ::mkdir(path, 0700); }},
        {"a pipe", [](const char* path) { ::mkfifo(path, 0600); }},
        {"a link to itself", [](const char* path) { EXPECT_EQ(::symlink("default", path), 0); }},
        {"nothing", [](const char*) {}},
    };
    for (const auto& [name, make] : cases) {
        const std::string path = FileOf("P0");
        std::remove(path.c_str());
        make(path.c_str());
        EXPECT_EQ(Read("P0"), "") << name;
        EXPECT_EQ(Read("P1"), "P1") << name;
    }
}

TEST_F(PosixRegistryTest, AHugeValueIsSurvived) {
    ASSERT_EQ(::truncate(FileOf("P0").c_str(), 1LL << 40), 0);
    EXPECT_LE(Read("P0").size(), 1u << 20);
}

TEST_F(PosixRegistryTest, AStoreThatMayNotBeWrittenKeepsItsValues) {
    const std::string root = std::getenv("XDG_CONFIG_HOME");
    for (const std::string folder :
         {"", "/varnel", "/varnel/SOFTWARE", "/varnel/SOFTWARE/Test", "/varnel/SOFTWARE/Test/P0"})
        ::chmod((root + folder).c_str(), 0555);
    ::chmod(FileOf("P0").c_str(), 0444);
    const bool holds = fakes::HoldsForOrdinaryUser([this] {
        platform::Registry& store = own_.Store();
        store.WriteDefault(own_.Key("P0"), "lost");
        store.DeleteKey(own_.Key("P0"));
        store.CreateKey(own_.Key("P2"));
        EXPECT_EQ(Read("P0"), "P0");
        EXPECT_EQ(Read("P2"), "");
    });
    EXPECT_TRUE(holds);
}

}  // namespace
