#include "operations/operation_outcome.h"

#include "platform/interrupted_save.h"

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

std::string told_listing(const std::string& folder, const platform::Write_result& listed) {
    return listed.ok() || listed.error == platform::Write_error::absent
               ? ""
               : "The folder cannot be read: " + folder + ". " + listed.reason;
}

std::string told_interruption(const std::string& file_name) {
    const auto interrupted = platform::interrupted_save(file_name);
    return !interrupted ? ""
                        : "The last save of this file was interrupted, and it may be damaged. What it held "
                          "before has been kept: " +
                              interrupted->copy + ". Put that back, or delete it.";
}

std::vector<Not_done> take_interrupted(std::vector<std::string>& file_names) {
    const platform::Interruptions_view view;
    std::vector<Not_done> taken;
    std::erase_if(file_names, [&](const std::string& file) {
        std::string reason = told_interruption(file);
        const bool is_interrupted = !reason.empty();
        if (is_interrupted)
            taken.push_back({file, std::move(reason)});
        return is_interrupted;
    });
    return taken;
}
