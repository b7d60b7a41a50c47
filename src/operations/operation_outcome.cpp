#include "operations/operation_outcome.h"

#include <algorithm>

std::string first_failures(const Operation_outcome& outcome,
                           const std::function<std::string(const std::string&)>& told) {
    constexpr std::size_t most_named = 10;
    std::string text;
    for (std::size_t i = 0; i < std::min(outcome.not_done.size(), most_named); ++i) {
        for (const std::string& part : {outcome.not_done[i].file + ": ", outcome.not_done[i].reason})
            text += told ? told(part) : part;
        text += '\n';
    }
    return text;
}

std::string describe_failures(const Operation_outcome& outcome) {
    if (!outcome.refused.empty() || outcome.not_done.empty())
        return outcome.refused;
    return "Files that could not be dealt with: " + std::to_string(outcome.not_done.size()) + '\n' +
           first_failures(outcome);
}
