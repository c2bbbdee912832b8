// What tests of files and folders start from: the system's own, in a temporary folder.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fakes/temp_folder.h"
#include "platform/files.h"

using Names = std::vector<std::string>;

class FilesTest : public testing::Test {
  protected:
    std::unique_ptr<platform::Folder> Open(const std::string& name = {}) {
        return files_.OpenFolder(temp_.Path(name), outcome_);
    }
    platform::Outcome Copy(const std::string& from, const std::string& to,
                           const std::function<void()>& whileCopying = {}) {
        return files_.CopyOver(temp_.Path(from), temp_.Path(to), whileCopying);
    }

    fakes::TempFolder temp_;
    platform::FileSystem& files_ = platform::SystemFiles();
    platform::Outcome outcome_;
};
