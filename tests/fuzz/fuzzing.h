// What the fuzz targets share. A target is one file NAME_fuzz.cpp with its Examine: it hands bytes
// that nobody chose to the program as text from outside, and requires what must hold for any text.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace fuzzing {

// The target; is called once for every input.
void Examine(const std::string& input);

// Ends the run when a property does not hold; the fuzzer keeps the input.
inline void Require(bool holds, const char* property) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
}

}  // namespace fuzzing

// What the fuzzer calls.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    fuzzing::Examine({reinterpret_cast<const char*>(data), size});
    return 0;
}
