// The command line of the suite's projects: every operation on a project and its scenarios without a window.
#pragma once

#include <string>
#include <vector>

class Table_reader;

// Runs the command that the arguments ask for (the program's own path first, as the host gives them) on the
// process's standard streams, and gives the exit code. The reader of tables is one of the outermost layer's.
int run_command_line(const std::vector<std::string>& arguments, Table_reader& table_reader);
