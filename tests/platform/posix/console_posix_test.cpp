#include <cstdio>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "fakes/temp_folder.h"
#include "platform/console.h"

TEST(ConsoleTest, EveryByteGetsThroughAPipeThatIsOftenFullAndNobodyAtItsEndIsAFailure) {
    using platform::Stream;
    const fakes::TempFolder folder;
    const std::string text(3'000'000, 'x');
    const int before = ::dup(STDERR_FILENO);
    std::FILE* reader = ::popen(("head -c 3000000 >" + folder.Path("read")).c_str(), "w");
    ::fcntl(::fileno(reader), F_SETFL, O_NONBLOCK);
    ::dup2(::fileno(reader), STDERR_FILENO);
    ASSERT_TRUE(platform::WriteAll(Stream::Error, text));
    ::pclose(reader);  // waits until it has read all
    EXPECT_FALSE(platform::WriteAll(Stream::Error, "to nobody"));
    ::dup2(before, STDERR_FILENO);
    EXPECT_TRUE(folder.Read("read") == text);
}
