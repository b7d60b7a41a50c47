// How sizes and times are shown.
#pragma once

#include "platform/files.h"

#include <cstdint>
#include <string>

// "12 B", "3.2 MB".
std::string size_text(std::uint64_t bytes);

// "2026-11-25 08:30".
std::string time_text(const platform::Packed_time& time);
