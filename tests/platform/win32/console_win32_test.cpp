#include <gtest/gtest.h>
#include <windows.h>

#include "platform/console.h"

TEST(ConsoleTest, BytesGoThroughAPipeAsTheyAreAndLinesComeOneByOne) {
    const HANDLE input = ::GetStdHandle(STD_INPUT_HANDLE), error = ::GetStdHandle(STD_ERROR_HANDLE);
    HANDLE reader = nullptr, writer = nullptr;
    ASSERT_TRUE(::CreatePipe(&reader, &writer, nullptr, 0));
    ::SetStdHandle(STD_INPUT_HANDLE, reader);
    ::SetStdHandle(STD_ERROR_HANDLE, writer);
    EXPECT_TRUE(platform::WriteAll(platform::Stream::Error, "first\r\n\n\xFF\x1A\nlast"));
    ::CloseHandle(writer);
    for (const char* line : {"first", "", "\xFF\x1A", "last", ""})
        EXPECT_EQ(platform::ReadLine(), line);
    EXPECT_FALSE(platform::WriteAll(platform::Stream::Error, "text")) << "nobody reads it";
    ::CloseHandle(reader);
    ::SetStdHandle(STD_INPUT_HANDLE, input);
    ::SetStdHandle(STD_ERROR_HANDLE, error);
}
