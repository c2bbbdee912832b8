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

inline std::string Text(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// The texts of an input, at least so many. Its last byte ends each of them: seeds are files of
// lines, and yet any byte can stand in a text.
inline std::vector<std::string> Texts(const std::uint8_t* data, std::size_t size,
                                      std::size_t least = 0) {
    const std::string input = Text(data, size);
    std::vector<std::string> texts;
    for (std::size_t at = 0; at < size; at += texts.back().size() + 1)
        texts.push_back(input.substr(at, input.find(input.back(), at) - at));
    if (texts.size() < least) texts.resize(least);
    return texts;
}

}  // namespace fuzzing
