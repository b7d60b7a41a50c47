// Where the benchmarks find what make_inputs.py made for them.
#pragma once

#include "platform/host_names.h"

#include <cstdlib>
#include <string>

// The host path of an input.
inline std::string input_path(const std::string& file) {
    const char* folder = std::getenv("BENCHMARK_INPUTS");
    return std::string(folder == nullptr ? "build/benchmark_inputs" : folder) + "/" + file;
}

// The same as a name of the suite.
inline std::string input_name(const std::string& file) {
    return platform::name_from_host_path(input_path(file));
}
