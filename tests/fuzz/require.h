// What the fuzz targets share.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>

// What a target does with an input.
void try_input(const std::string& input);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try_input(std::string(reinterpret_cast<const char*>(data), size));
    return 0;
}

// What a target finds wrong ends it.
inline void require(bool holds) {
    if (!holds)
        std::abort();
}
