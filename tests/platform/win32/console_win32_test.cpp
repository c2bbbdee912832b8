#include <optional>
#include <thread>

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/console.h"
#include "platform/win32/handle.h"

namespace {

using platform::Stream;
using platform::win32::Handle;

struct Pipe {
    Pipe() {
        HANDLE reader = nullptr;
        HANDLE writer = nullptr;
        EXPECT_TRUE(::CreatePipe(&reader, &writer, nullptr, 0));
        Reader.emplace(reader);
        Writer.emplace(writer);
    }
    std::optional<Handle> Reader;
    std::optional<Handle> Writer;
};

// Puts a handle in a standard stream's place for a while.
class Redirected {
  public:
    Redirected(DWORD stream, HANDLE handle) : stream_(stream), kept_(::GetStdHandle(stream)) {
        ::SetStdHandle(stream, handle);
    }
    ~Redirected() { ::SetStdHandle(stream_, kept_); }

  private:
    DWORD stream_;
    HANDLE kept_;
};

TEST(ConsoleTest, BytesGoThroughAPipeAsTheyAre) {
    Pipe pipe;
    std::string expected(300'000, 'x');
    for (std::size_t i = 0; i < expected.size(); i += 77) expected[i] = static_cast<char>(i);
    expected += "\n\r\n\x1A end";
    std::string read;
    std::thread reader([&] {
        char buffer[5000];
        DWORD got = 0;
        while (::ReadFile(pipe.Reader->Get(), buffer, sizeof buffer, &got, nullptr) && got > 0)
            read.append(buffer, got);
    });
    {
        const Redirected output(STD_OUTPUT_HANDLE, pipe.Writer->Get());
        EXPECT_FALSE(platform::IsTerminal(Stream::Output));
        EXPECT_TRUE(platform::WriteAll(Stream::Output, expected));
    }
    pipe.Writer.reset();
    reader.join();
    EXPECT_TRUE(read == expected);
}

TEST(ConsoleTest, WhatCannotBeWrittenIsAFailure) {
    Pipe pipe;
    pipe.Reader.reset();
    for (const HANDLE handle : {pipe.Writer->Get(), HANDLE{nullptr}, INVALID_HANDLE_VALUE}) {
        const Redirected output(STD_ERROR_HANDLE, handle);
        EXPECT_FALSE(platform::WriteAll(Stream::Error, "text"));
        EXPECT_FALSE(platform::IsTerminal(Stream::Error));
    }
}

TEST(ConsoleTest, LinesAreReadOneByOne) {
    Pipe pipe;
    const std::string typed = "first\r\n\nthird \xFF\nlast";
    DWORD written = 0;
    ::WriteFile(pipe.Writer->Get(), typed.data(), static_cast<DWORD>(typed.size()), &written,
                nullptr);
    pipe.Writer.reset();
    const Redirected input(STD_INPUT_HANDLE, pipe.Reader->Get());
    for (const char* line : {"first", "", "third \xFF", "last", "", ""})
        EXPECT_EQ(platform::ReadLine(), line);
}

}  // namespace
