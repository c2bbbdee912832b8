#include <thread>

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/console.h"

namespace {

using platform::Stream;

TEST(ConsoleTest, BytesGoThroughAPipeAsTheyAreAndLinesComeOneByOne) {
    const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE), error = ::GetStdHandle(STD_ERROR_HANDLE);
    HANDLE reader = nullptr, writer = nullptr;
    ASSERT_TRUE(::CreatePipe(&reader, &writer, nullptr, 0));
    ::SetStdHandle(STD_INPUT_HANDLE, reader);
    ::SetStdHandle(STD_ERROR_HANDLE, writer);
    const std::string large(9'000, 'x');  // more than a pipe holds
    std::thread writing([&] {
        EXPECT_TRUE(platform::WriteAll(Stream::Error, "first\r\n\n" + large + "\n\xFF\x1A\nlast"));
        ::CloseHandle(writer);
    });
    for (const std::string& line : {std::string("first"), std::string(), large,
                                    std::string("\xFF\x1A"), std::string("last"), std::string()})
        EXPECT_TRUE(platform::ReadLine() == line) << line.substr(0, 10);
    writing.join();
    ::CloseHandle(reader);
    ASSERT_TRUE(::CreatePipe(&reader, &writer, nullptr, 0));
    ::CloseHandle(reader);
    ::SetStdHandle(STD_ERROR_HANDLE, writer);
    EXPECT_FALSE(platform::WriteAll(Stream::Error, "text")) << "nobody reads it";
    ::CloseHandle(writer);
    ::SetStdHandle(STD_INPUT_HANDLE, input);
    ::SetStdHandle(STD_ERROR_HANDLE, error);
}

}  // namespace
