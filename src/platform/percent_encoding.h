// Paths in addresses and in the records of the trash, for the use of this folder alone.
#pragma once

#include <string>
#include <string_view>

namespace platform {

// The path with every byte but letters, digits, "-", ".", "_", "~" and "/" as "%" and two hexadecimal digits.
inline std::string percent_encoded(std::string_view path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    constexpr std::string_view plain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    std::string result;
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if (plain.find(c) != std::string_view::npos)
            result += c;
        else
            result.append("%").append(1, digits[byte / 16]).append(1, digits[byte % 16]);
    }
    return result;
}

} // namespace platform
