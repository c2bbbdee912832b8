#include "platform/console.h"

#include <cerrno>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <time.h>
#include <unistd.h>

namespace platform {

namespace {

volatile sig_atomic_t interruptRequested = 0;

// The first request is remembered; the second one has its usual effect.
void OnInterrupt(int signal) {
    if (interruptRequested) {
        ::signal(signal, SIG_DFL);
        ::raise(signal);  // takes effect when this handler returns
    }
    interruptRequested = 1;
}

int Descriptor(Stream stream) {
    return static_cast<int>(stream);
}

// A program may be started with some of its standard streams closed. The next file to be opened
// would take the stream's number, and our output would end in it: so the numbers are taken here,
// before the program starts, in a way that makes every use fail.
bool OccupyClosedStreams() {
    for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(number, F_GETFD) == -1 && errno == EBADF)
            ::open("/dev/null", number == STDIN_FILENO ? O_WRONLY : O_RDONLY);
    }
    return true;
}

[[maybe_unused]] const bool streamsOccupied = OccupyClosedStreams();

// False when there will be nothing to do, because of an error or an interrupt.
bool WaitFor(int descriptor, short event) {
    pollfd wait{descriptor, event, 0};
    while (::poll(&wait, 1, -1) == -1) {
        if (errno != EINTR || (event == POLLIN && InterruptRequested())) return false;
    }
    return true;
}

}  // namespace

static_assert(static_cast<int>(Stream::Input) == STDIN_FILENO);
static_assert(static_cast<int>(Stream::Output) == STDOUT_FILENO);
static_assert(static_cast<int>(Stream::Error) == STDERR_FILENO);

bool IsTerminal(Stream stream) {
    return ::isatty(Descriptor(stream)) == 1;
}

bool WriteAll(Stream stream, std::string_view bytes) {
    // A reader that has gone is a failure like others, not the end of a sync.
    static const bool pipesFailPlainly = ::signal(SIGPIPE, SIG_IGN) != SIG_ERR;
    static_cast<void>(pipesFailPlainly);
    while (!bytes.empty()) {
        const ssize_t written = ::write(Descriptor(stream), bytes.data(), bytes.size());
        if (written >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno == EAGAIN || errno == EWOULDBLOCK) {
            if (!WaitFor(Descriptor(stream), POLLOUT)) return false;
        } else if (errno != EINTR) {
            return false;
        }
    }
    return true;
}

void CatchInterrupts() {
    struct sigaction action {};
    action.sa_handler = OnInterrupt;
    action.sa_flags = SA_RESTART;  // a copy in hand is finished
    for (const int signal : {SIGINT, SIGTERM}) ::sigaction(signal, &action, nullptr);
    ::signal(SIGXFSZ, SIG_IGN);
}

bool InterruptRequested() {
    return interruptRequested != 0;
}

std::string ReadLine() {
    std::string line;
    for (char next = 0; WaitFor(STDIN_FILENO, POLLIN);) {
        const ssize_t got = ::read(STDIN_FILENO, &next, 1);
        if (got == -1 && (errno == EINTR || errno == EAGAIN)) continue;
        if (got <= 0 || next == '\n') break;
        line += next;
    }
    if (line.ends_with('\r')) line.pop_back();
    return line;
}

long long CoarseMilliseconds() {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return now.tv_sec * 1000LL + now.tv_nsec / 1000000;
}

}  // namespace platform
