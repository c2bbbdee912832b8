#include "fakes/posix/ordinary_user.h"

#include <cstdio>

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace fakes {

bool HoldsForOrdinaryUser(const std::function<void()>& check) {
    constexpr uid_t kNobody = 65534;
    std::fflush(nullptr);
    const pid_t child = ::fork();
    if (child == 0) {
        EXPECT_TRUE(::geteuid() != 0 || (::setgroups(0, nullptr) == 0 && ::setgid(kNobody) == 0 &&
                                         ::setuid(kNobody) == 0));
        check();
        std::fflush(nullptr);
        ::_exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    ::waitpid(child, &status, 0);
    return status == 0;
}

}  // namespace fakes
