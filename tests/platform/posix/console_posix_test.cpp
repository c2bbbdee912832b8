#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/console.h"

namespace {

// A pipe, one end of which stands in a standard stream's place.
class RedirectedPipe {
  public:
    explicit RedirectedPipe(int stream) : stream_(stream), kept_(::dup(stream)) {
        std::fflush(nullptr);
        int ends[2] = {-1, -1};
        EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
        const int inPlace = stream == STDIN_FILENO ? 0 : 1;
        ::dup2(ends[inPlace], stream);
        ::close(ends[inPlace]);
        other_ = ends[1 - inPlace];
    }
    ~RedirectedPipe() {
        std::fflush(nullptr);
        ::dup2(kept_, stream_);
        ::close(kept_);
        CloseOther();
    }
    int Other() const { return other_; }
    void CloseOther() { ::close(std::exchange(other_, -1)); }

  private:
    int stream_, kept_, other_;
};

TEST(ConsoleTest, EveryByteGetsThroughAPipeThatIsOftenFull) {
    std::string expected(3'000'000, 'x');
    for (std::size_t i = 0; i < expected.size(); i += 77) expected[i] = static_cast<char>(i);
    std::string read;
    bool written = false, writtenToNobody = true;
    {
        RedirectedPipe pipe(STDOUT_FILENO);
        ::fcntl(STDOUT_FILENO, F_SETFL, O_NONBLOCK);
        std::thread reader([&] {
            char buffer[5000];
            while (read.size() < expected.size()) {
                const ssize_t got = ::read(pipe.Other(), buffer, sizeof buffer);
                if (got <= 0) return;
                read.append(buffer, static_cast<std::size_t>(got));
            }
        });
        written = platform::WriteAll(platform::Stream::Output, expected);
        reader.join();
        pipe.CloseOther();
        writtenToNobody = platform::WriteAll(platform::Stream::Output, "text");
    }
    EXPECT_TRUE(written);
    EXPECT_TRUE(read == expected);
    EXPECT_FALSE(writtenToNobody);
}

TEST(ConsoleTest, LinesAreReadOneByOne) {
    RedirectedPipe pipe(STDIN_FILENO);
    const std::string typed = "first\r\n\nthird \xFF\nlast";
    ASSERT_EQ(::write(pipe.Other(), typed.data(), typed.size()), 20);
    pipe.CloseOther();
    for (const char* line : {"first", "", "third \xFF", "last", "", ""})
        EXPECT_EQ(platform::ReadLine(), line);
}

}  // namespace
