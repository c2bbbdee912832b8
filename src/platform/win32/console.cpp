#include "platform/console.h"

#include <algorithm>
#include <atomic>

#include <windows.h>

#include "platform/win32/text_conversion.h"

namespace platform {

namespace {

std::atomic<bool> interruptRequested = false;

HANDLE HandleOf(Stream stream) {
    constexpr DWORD kHandles[] = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};
    return ::GetStdHandle(kHandles[static_cast<int>(stream)]);
}

// Runs in a thread of its own. Declining a request ends the program.
BOOL WINAPI OnInterrupt(DWORD request) {
    const bool repeated = interruptRequested.exchange(true);
    if (request == CTRL_C_EVENT || request == CTRL_BREAK_EVENT) return !repeated;
    // The window is closed or the session ends: the program is ended when this returns, or after
    // some seconds. They are left to the file in hand.
    ::Sleep(INFINITE);
    return TRUE;
}

// The console shows UTF-8 whatever its code page when it is given UTF-16.
bool WriteToConsole(HANDLE console, std::string_view text) {
    constexpr std::size_t kMost = 8192;  // older systems refuse much more at once
    const std::wstring wide = win32::Wide(text);
    for (std::size_t done = 0; done < wide.size();) {
        DWORD written = 0;
        const auto count = static_cast<DWORD>(std::min(kMost, wide.size() - done));
        if (!::WriteConsoleW(console, wide.data() + done, count, &written, nullptr) || written == 0)
            return false;
        done += written;
    }
    return true;
}

bool WriteToFile(HANDLE file, std::string_view bytes) {
    constexpr std::size_t kMost = 1 << 20;
    while (!bytes.empty()) {
        DWORD written = 0;
        const auto count = static_cast<DWORD>(std::min(kMost, bytes.size()));
        if (!::WriteFile(file, bytes.data(), count, &written, nullptr) || written == 0)
            return false;
        bytes.remove_prefix(written);
    }
    return true;
}

// A character at a time: what follows the line stays for the next reader.
template <typename Character, typename Read>
std::basic_string<Character> LineFrom(Read read) {
    std::basic_string<Character> line;
    for (Character next = 0; read(next) && next != '\n';) line += next;
    if (line.ends_with('\r')) line.pop_back();
    return line;
}

}  // namespace

bool IsTerminal(Stream stream) {
    DWORD mode = 0;
    return ::GetConsoleMode(HandleOf(stream), &mode) != 0;
}

bool WriteAll(Stream stream, std::string_view bytes) {
    const HANDLE handle = HandleOf(stream);
    return IsTerminal(stream) ? WriteToConsole(handle, bytes) : WriteToFile(handle, bytes);
}

void CatchInterrupts() {
    ::SetConsoleCtrlHandler(OnInterrupt, TRUE);
}

bool InterruptRequested() {
    return interruptRequested;
}

std::string ReadLine() {
    const HANDLE input = HandleOf(Stream::Input);
    DWORD got = 0;
    if (IsTerminal(Stream::Input)) {
        return win32::Narrow(LineFrom<wchar_t>([&](wchar_t& next) {
            return ::ReadConsoleW(input, &next, 1, &got, nullptr) && got == 1;
        }));
    }
    return LineFrom<char>(
        [&](char& next) { return ::ReadFile(input, &next, 1, &got, nullptr) && got == 1; });
}

long long CoarseMilliseconds() {
    return static_cast<long long>(::GetTickCount64());
}

}  // namespace platform
