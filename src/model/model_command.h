// The command line by which the simulation model runs one scenario of a project. Texts are in code page 1252.
#pragma once

#include <optional>
#include <string>

// What stands between the model and the project's file: the report format that is to serve in place of the
// scenario's own.
std::string report_format_option(const std::string& report_format);

// The whole of it: "model" option "project file" "scenario file", with a blank behind each part. Without a
// format each scenario's own serves.
std::string model_command_line(const std::string& model, const std::optional<std::string>& report_format,
                               const std::string& project_file, const std::string& scenario_file);
