#include "reliability/own_mounts.h"

#include <cstdio>
#include <fstream>

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

namespace reliability {

namespace {

constexpr int kNotAllowed = 77;

bool TakeOwnMounts() {
    const uid_t user = ::geteuid();
    const gid_t group = ::getegid();
    if (user == 0) {
        if (::unshare(CLONE_NEWNS) != 0) return false;
    } else {
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
        std::ofstream("/proc/self/setgroups") << "deny";
        std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
        std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
    }
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

}  // namespace

Held HoldsWithOwnMounts(const std::function<void()>& check) {
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        if (!TakeOwnMounts()) ::_exit(kNotAllowed);
        check();
        std::fflush(nullptr);
        ::_exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    if (child < 0 || ::waitpid(child, &status, 0) != child) return Held::No;
    if (WIFEXITED(status) && WEXITSTATUS(status) == kNotAllowed) return Held::NotAllowed;
    return status == 0 ? Held::Yes : Held::No;
}

bool MountMemory(const std::string& folder, long pages, long files) {
    const std::string options =
        "size=" + std::to_string(pages * 4096) + ",nr_inodes=" + std::to_string(files);
    return ::mount("tmpfs", folder.c_str(), "tmpfs", MS_NOSUID | MS_NODEV, options.c_str()) == 0;
}

bool MountAgain(const std::string& folder, const std::string& second) {
    return ::mount(folder.c_str(), second.c_str(), nullptr, MS_BIND, nullptr) == 0;
}

}  // namespace reliability
