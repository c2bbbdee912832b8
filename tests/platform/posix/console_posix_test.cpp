#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/console.h"

namespace {

TEST(ConsoleTest, EveryByteGetsThroughAPipeThatIsOftenFullAndNobodyAtItsEndIsAFailure) {
    const std::string text(3'000'000, 'x');
    int ends[2], status = -1;
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t writer = ::fork();
    if (writer == 0) {
        ::dup2(ends[1], STDOUT_FILENO);
        ::close(ends[0]);
        ::fcntl(STDOUT_FILENO, F_SETFL, O_NONBLOCK);
        const bool written = platform::WriteAll(platform::Stream::Output, text);
        while (platform::WriteAll(platform::Stream::Output, "to nobody, soon")) continue;
        ::_exit(written ? 0 : 1);
    }
    ::close(ends[1]);
    std::string read;
    char buffer[5000];
    for (ssize_t got; read.size() < text.size() && (got = ::read(ends[0], buffer, 5000)) > 0;)
        read.append(buffer, static_cast<std::size_t>(got));
    ::close(ends[0]);
    ::waitpid(writer, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_TRUE(read.starts_with(text));
}

}  // namespace
