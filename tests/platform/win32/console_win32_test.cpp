#include <optional>
#include <thread>

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/console.h"
#include "platform/win32/handle.h"

namespace {

using platform::Stream;
using platform::win32::Handle;

// A pipe, one end of which stands in a standard stream's place.
class RedirectedPipe {
  public:
    explicit RedirectedPipe(DWORD stream) : stream_(stream), kept_(::GetStdHandle(stream)) {
        HANDLE reader = nullptr, writer = nullptr;
        EXPECT_TRUE(::CreatePipe(&reader, &writer, nullptr, 0));
        Reader.emplace(reader);
        Writer.emplace(writer);
        ::SetStdHandle(stream, stream == STD_INPUT_HANDLE ? reader : writer);
    }
    ~RedirectedPipe() { ::SetStdHandle(stream_, kept_); }

    std::optional<Handle> Reader, Writer;

  private:
    DWORD stream_;
    HANDLE kept_;
};

TEST(ConsoleTest, BytesGoThroughAPipeAsTheyAre) {
    RedirectedPipe pipe(STD_ERROR_HANDLE);
    std::string expected(300'000, 'x');
    for (std::size_t i = 0; i < expected.size(); i += 77) expected[i] = static_cast<char>(i);
    expected += "\n\r\n\x1A end";
    std::string read;
    std::thread reader([&] {
        char buffer[5000];
        DWORD got = 0;
        while (read.size() < expected.size() &&
               ::ReadFile(pipe.Reader->Get(), buffer, sizeof buffer, &got, nullptr))
            read.append(buffer, got);
    });
    EXPECT_TRUE(platform::WriteAll(Stream::Error, expected));
    reader.join();
    EXPECT_TRUE(read == expected);
    pipe.Reader.reset();
    EXPECT_FALSE(platform::WriteAll(Stream::Error, "text")) << "nobody reads it";
    ::SetStdHandle(STD_ERROR_HANDLE, nullptr);
    EXPECT_FALSE(platform::WriteAll(Stream::Error, "text")) << "a program of windows";
    EXPECT_FALSE(platform::IsTerminal(Stream::Error));
}

TEST(ConsoleTest, LinesAreReadOneByOne) {
    RedirectedPipe pipe(STD_INPUT_HANDLE);
    const std::string typed = "first\r\n\nthird \xFF\nlast";
    DWORD written = 0;
    ::WriteFile(pipe.Writer->Get(), typed.data(), static_cast<DWORD>(typed.size()), &written,
                nullptr);
    pipe.Writer.reset();
    for (const char* line : {"first", "", "third \xFF", "last", "", ""})
        EXPECT_EQ(platform::ReadLine(), line);
}

}  // namespace
