#include "model/model_command.h"

#include "platform/command_line.h"

namespace {

std::string quoted(const std::string& text) {
    return platform::in_quotes(text) + ' ';
}

} // namespace

std::string report_format_option(const std::string& report_format) {
    return ' ' + quoted(report_format);
}

std::string model_command_line(const std::string& model, const std::optional<std::string>& report_format,
                               const std::string& project_file, const std::string& scenario_file) {
    return quoted(model) + (report_format ? report_format_option(*report_format) : "") + ' ' +
           quoted(project_file) + quoted(scenario_file);
}
