#include <thread>

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/console.h"

namespace {

using platform::Stream;

TEST(ConsoleTest, BytesGoThroughAPipeAsTheyAreAndLinesComeOneByOne) {
    HANDLE reader = nullptr, writer = nullptr;
    ASSERT_TRUE(::CreatePipe(&reader, &writer, nullptr, 0));
    const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE), error = ::GetStdHandle(STD_ERROR_HANDLE);
    ::SetStdHandle(STD_INPUT_HANDLE, reader);
    ::SetStdHandle(STD_ERROR_HANDLE, writer);
    const std::string large(9'000, 'x');  // more than a pipe holds
    std::thread reading([&] {
        for (const std::string& line : {std::string("first"), std::string(), large,
                                        std::string("third \xFF\x1A"), std::string("last")})
            EXPECT_TRUE(platform::ReadLine() == line) << line.substr(0, 10);
    });
    EXPECT_TRUE(
        platform::WriteAll(Stream::Error, "first\r\n\n" + large + "\nthird \xFF\x1A\nlast"));
    ::CloseHandle(writer);
    reading.join();
    EXPECT_EQ(platform::ReadLine(), "");
    ::CloseHandle(reader);
    ::SetStdHandle(STD_INPUT_HANDLE, input);
    ASSERT_TRUE(::CreatePipe(&reader, &writer, nullptr, 0));
    ::CloseHandle(reader);
    ::SetStdHandle(STD_ERROR_HANDLE, writer);
    EXPECT_FALSE(platform::WriteAll(Stream::Error, "text")) << "nobody reads it";
    ::CloseHandle(writer);
    ::SetStdHandle(STD_ERROR_HANDLE, nullptr);
    EXPECT_FALSE(platform::WriteAll(Stream::Error, "text")) << "a program of windows";
    EXPECT_FALSE(platform::IsTerminal(Stream::Error));
    ::SetStdHandle(STD_ERROR_HANDLE, error);
}

}  // namespace
