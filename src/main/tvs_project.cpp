// The command line of the suite's projects.
#include "command_line/application.h"
#include "runs/run_supervisor.h"
#include "table_csv/csv_table_reader.h"

int main(int argc, char** argv) {
    if (const std::optional<int> code = supervise_if_asked(argc, argv))
        return *code;
    Csv_table_reader table_reader;
    return run_command_line({argv, argv + argc}, table_reader);
}
