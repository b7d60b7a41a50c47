// The files by which other runners have the runs of a set done, in the set's folder: a shell script that does
// runs and notes them in the journal, the commands, and a list for whoever runs lists of command lines.
#pragma once

#include "runs/run_set.h"

#include <cstddef>
#include <string>
#include <vector>

// Makes the script and its lists of commands and output folders. "" when that went well, else why not: the
// disk does not take them, or the model cannot be started here.
std::string write_worker_files(const std::string& folder, const Run_set& set);

// Why that cannot be: the model cannot be started here. "" when it can.
std::string why_not_listed(const Run_set& set);

// The lines of the list in the folder of a set, which may not be there yet.
std::string run_list_text(const std::string& folder, const std::vector<std::size_t>& runs);

// Writes the list, a command line for each of the runs: started by whatever runner, on whatever machine that
// has the disk, each does its run and notes it. "" or why not. The commands of the model alone are in
// commands.txt.
std::string write_run_list(const std::string& folder, const std::vector<std::size_t>& runs);

// The names of these files.
std::string worker_script(const std::string& folder);
std::string commands_file(const std::string& folder);
std::string run_list_file(const std::string& folder);
