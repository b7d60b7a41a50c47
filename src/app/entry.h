// The entry of the program: what it makes, in which order, which project it edits, and what it does at the
// end.
#pragma once

#include "operations/file_transfer_client.h"
#include "operations/polygon_reader.h"
#include "operations/table_reader.h"
#include "toolkit/desktop.h"

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

// What the program is handed of the libraries that only its outermost layer knows.
struct Program_services {
    // Makes the desktop that the screens appear on; without it they appear on the one in use.
    std::function<std::unique_ptr<Desktop>()> make_desktop;
    // Null for none; then nothing is downloaded.
    File_transfer_client* file_transfer = nullptr;
    // Null for none; then no map is shown.
    Polygon_reader* polygons = nullptr;
    // Null for none; then no scenarios are made from tables.
    Table_reader* tables = nullptr;
    // What all this is made of, with its versions, for who reports a fault: "Qt 6.4.2".
    std::vector<std::string> libraries{};
};

// Runs the program from its start to its end. The arguments are as the host gives them: the program's own
// path, then at most a project file and the label of a project type. A file is a path of the host or a name
// of the suite. Gives the exit code: 0, also after an exception, which is shown, on `err` while there is no
// desktop; 1 when no project file was chosen.
int run_program(const std::vector<std::string>& arguments, const Program_services& services,
                std::ostream& err);
