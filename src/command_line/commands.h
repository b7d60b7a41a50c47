// The commands of the program, a file each: every one of these adds its command.
#pragma once

#include "command_line/session.h"

void add_info_command(CLI::App& app, Session& session);
void add_list_command(CLI::App& app, Session& session);
void add_check_command(CLI::App& app, Session& session);
void add_run_command(CLI::App& app, Session& session);
void add_status_command(CLI::App& app, Session& session);
void add_log_command(CLI::App& app, Session& session);
void add_delete_runs_command(CLI::App& app, Session& session);
void add_stop_command(CLI::App& app, Session& session);
void add_continue_command(CLI::App& app, Session& session);
void add_generate_command(CLI::App& app, Session& session);
void add_reset_command(CLI::App& app, Session& session);
void add_compare_command(CLI::App& app, Session& session);
void add_new_command(CLI::App& app, Session& session);
void add_copy_command(CLI::App& app, Session& session);
void add_rename_command(CLI::App& app, Session& session);
void add_delete_command(CLI::App& app, Session& session);
void add_import_command(CLI::App& app, Session& session);
void add_undo_command(CLI::App& app, Session& session);
void add_get_command(CLI::App& app, Session& session);
void add_set_command(CLI::App& app, Session& session);
void add_diff_command(CLI::App& app, Session& session);
void add_convert_command(CLI::App& app, Session& session);

// These are for shells and packages; the help does not show them.
void add_completion_command(CLI::App& app, Session& session);
void add_manual_command(CLI::App& app, Session& session);
