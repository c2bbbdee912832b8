#include "fakes/posix/ordinary_user.h"

#include <cstdio>

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fakes {

namespace {

constexpr uid_t kNobody = 65534;

bool BecomeOrdinary() {
    if (::geteuid() != 0) return true;
    return ::setgroups(0, nullptr) == 0 && ::setgid(kNobody) == 0 && ::setuid(kNobody) == 0;
}

}  // namespace

bool HoldsForOrdinaryUser(const std::function<void()>& check) {
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        EXPECT_TRUE(BecomeOrdinary());
        check();
        std::fflush(nullptr);
        ::_exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    return child > 0 && ::waitpid(child, &status, 0) == child && status == 0;
}

}  // namespace fakes
