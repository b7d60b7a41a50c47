#include "model/model_command.h"

#include "platform/command_line.h"

std::string report_format_option(const std::string& report_format) {
    return ' ' + platform::in_quotes(report_format) + ' ';
}

std::string model_command_line(const std::string& model, const std::optional<std::string>& report_format,
                               const std::string& project_file, const std::string& scenario_file) {
    return platform::program_command(model, report_format ? report_format_option(*report_format) : "",
                                     project_file, scenario_file);
}
