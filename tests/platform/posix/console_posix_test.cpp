#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/console.h"

namespace {

using platform::Stream;

TEST(ConsoleTest, EveryByteGetsThroughAPipeThatIsOftenFullAndNobodyAtItsEndIsAFailure) {
    const std::string text(3'000'000, 'x');
    const int before = ::dup(STDERR_FILENO);
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    ::fcntl(ends[1], F_SETFL, O_NONBLOCK);
    ::dup2(ends[1], STDERR_FILENO);
    std::string read(text.size(), ' ');
    std::thread reader([&] {
        for (std::size_t at = 0; at < read.size();)
            at += static_cast<std::size_t>(::read(ends[0], &read[at], read.size() - at));
        ::close(ends[0]);
    });
    EXPECT_TRUE(platform::WriteAll(Stream::Error, text));
    reader.join();
    EXPECT_FALSE(platform::WriteAll(Stream::Error, "to nobody"));
    ::dup2(before, STDERR_FILENO);
    EXPECT_TRUE(read == text);
}

}  // namespace
