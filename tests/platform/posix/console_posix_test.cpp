#include <csignal>
#include <thread>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/console.h"

namespace {

using platform::Stream;

struct Pipe {
    Pipe() { EXPECT_EQ(::pipe2(Ends, O_CLOEXEC), 0); }
    ~Pipe() {
        for (const int end : Ends) ::close(end);
    }
    int Ends[2] = {-1, -1};
};

// Puts a descriptor in a standard stream's place for a while.
class Redirected {
  public:
    Redirected(int stream, int descriptor) : stream_(stream), kept_(::dup(stream)) {
        std::fflush(nullptr);
        ::dup2(descriptor, stream);
    }
    ~Redirected() {
        std::fflush(nullptr);
        ::dup2(kept_, stream_);
        ::close(kept_);
    }

  private:
    int stream_;
    int kept_;
};

TEST(ConsoleTest, EveryByteGetsThroughAPipeThatIsOftenFull) {
    Pipe pipe;
    ::fcntl(pipe.Ends[1], F_SETFL, O_NONBLOCK);
    std::string expected(3'000'000, 'x');
    for (std::size_t i = 0; i < expected.size(); i += 77) expected[i] = static_cast<char>(i);
    std::string read;
    std::thread reader([&] {
        char buffer[5000];
        while (read.size() < expected.size()) {
            const ssize_t got = ::read(pipe.Ends[0], buffer, sizeof buffer);
            if (got <= 0) return;
            read.append(buffer, static_cast<std::size_t>(got));
        }
    });
    bool written = false;
    {
        const Redirected output(STDOUT_FILENO, pipe.Ends[1]);
        EXPECT_FALSE(platform::IsTerminal(Stream::Output));
        written = platform::WriteAll(Stream::Output, expected);
    }
    reader.join();
    EXPECT_TRUE(written);
    EXPECT_TRUE(read == expected);
}

TEST(ConsoleTest, WhatCannotBeWrittenIsAFailure) {
    bool noReader = true;
    bool full = true;
    {
        int ends[2];
        ASSERT_EQ(::pipe(ends), 0);
        ::close(ends[0]);
        const Redirected output(STDOUT_FILENO, ends[1]);
        ::close(ends[1]);
        noReader = platform::WriteAll(Stream::Output, "text");
    }
    {
        const int device = ::open("/dev/full", O_WRONLY);
        const Redirected output(STDERR_FILENO, device);
        ::close(device);
        full = platform::WriteAll(Stream::Error, "text");
    }
    EXPECT_FALSE(noReader);
    EXPECT_FALSE(full);
    EXPECT_TRUE(platform::WriteAll(Stream::Output, ""));
}

TEST(ConsoleTest, LinesAreReadOneByOne) {
    Pipe pipe;
    const std::string typed = "first\r\n\nthird \xFF\nlast";
    ASSERT_EQ(::write(pipe.Ends[1], typed.data(), typed.size()),
              static_cast<ssize_t>(typed.size()));
    ::close(std::exchange(pipe.Ends[1], -1));
    const Redirected input(STDIN_FILENO, pipe.Ends[0]);
    for (const char* line : {"first", "", "third \xFF", "last", "", ""})
        EXPECT_EQ(platform::ReadLine(), line);
}

TEST(ConsoleTest, TheFirstInterruptIsRememberedAndTheSecondEndsTheProgram) {
    const auto interrupted = [](int first, int second) {
        platform::CatchInterrupts();
        if (platform::InterruptRequested()) ::_exit(1);
        ::raise(first);
        if (!platform::InterruptRequested()) ::_exit(2);
        ::raise(second);
        ::_exit(3);
    };
    EXPECT_EXIT(interrupted(SIGINT, SIGINT), testing::KilledBySignal(SIGINT), "");
    EXPECT_EXIT(interrupted(SIGTERM, SIGTERM), testing::KilledBySignal(SIGTERM), "");
    EXPECT_EXIT(interrupted(SIGINT, SIGTERM), testing::KilledBySignal(SIGTERM), "");
}

}  // namespace
