// What the fuzz targets share. A target is one file NAME_fuzz.cpp: it takes bytes that nobody
// chose, hands them to the program as text from outside, and requires what must hold for any text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

// Called by the fuzzer, once for every input. Returns 0.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace fuzzing {

// Ends the run when a property does not hold; the fuzzer keeps the input.
inline void Require(bool holds, const char* property) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
}

inline std::string_view Bytes(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// The texts of an input. Its last byte ends each of them: seeds are files of lines, and yet any
// byte can stand in a text.
inline std::vector<std::string> Texts(std::string_view input) {
    std::vector<std::string> texts;
    while (!input.empty()) {
        const std::size_t end = input.find(input.back());
        texts.emplace_back(input.substr(0, end));
        input.remove_prefix(end + 1);
    }
    return texts;
}

// The n-th text, empty behind the last.
inline std::string TextAt(const std::vector<std::string>& texts, std::size_t n) {
    return n < texts.size() ? texts[n] : std::string();
}

inline std::string Trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

}  // namespace fuzzing
