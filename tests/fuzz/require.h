// What a fuzz target finds wrong ends it.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>

inline void require(bool holds) {
    if (!holds)
        std::abort();
}
