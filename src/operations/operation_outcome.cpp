#include "operations/operation_outcome.h"

#include <algorithm>

std::string describe_failures(const Operation_outcome& outcome) {
    if (!outcome.refused.empty() || outcome.not_done.empty())
        return outcome.refused;
    constexpr std::size_t most_named = 10;
    const std::size_t count = outcome.not_done.size();
    std::string text =
        std::to_string(count) + (count == 1 ? " file" : " files") + " could not be dealt with:";
    for (std::size_t i = 0; i < std::min(count, most_named); ++i)
        text += '\n' + outcome.not_done[i].file + ": " + outcome.not_done[i].reason;
    if (count > most_named)
        text += "\nand " + std::to_string(count - most_named) + " more.";
    return text;
}
