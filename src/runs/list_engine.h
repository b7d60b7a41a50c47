// Leaves the runs of a set to any other runner of command lines: writes list.txt in the set's folder, with a
// line for each run that is left. Each line does its run and notes it in the journal, on any machine that has
// the disk.
#pragma once

#include "runs/run_engine.h"

#include <string>

class List_engine : public Run_engine {
public:
    List_engine(const std::string& folder, Run_set set) : folder_(folder), set_(std::move(set)) {}

    std::string start() override;
    // There is nothing to look after.
    bool poll() override { return false; }
    void stop() override {}

private:
    std::string folder_;
    Run_set set_;
};
