// What the fuzz targets share. A target is one file NAME_fuzz.cpp with its Examine: it hands bytes
// that nobody chose to the program as text from outside, and requires what must hold for any text.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace fuzzing {

// The target; is called once for every input.
void Examine(const std::string& input);

// Ends the run when a property does not hold; the fuzzer keeps the input.
inline void Require(bool holds, const char* property) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
}

// The texts of an input, at least so many. Its last byte ends each of them: seeds are files of
// lines, and yet any byte can stand in a text.
inline std::vector<std::string> Texts(const std::string& input, std::size_t least) {
    std::vector<std::string> texts;
    for (std::size_t at = 0; at < input.size(); at += texts.back().size() + 1)
        texts.push_back(input.substr(at, input.find(input.back(), at) - at));
    if (texts.size() < least) texts.resize(least);
    return texts;
}

}  // namespace fuzzing

// What the fuzzer calls.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    fuzzing::Examine({reinterpret_cast<const char*>(data), size});
    return 0;
}
