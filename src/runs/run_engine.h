// What has the runs of a set done, and notes them in its journal: on this machine, by a scheduler, or by
// whoever takes a list of command lines. An engine continues a set where it ended; nothing that is done is
// done again.
#pragma once

#include "runs/run_set.h"

#include <memory>
#include <string>

class Run_engine {
public:
    virtual ~Run_engine() = default;

    // Takes the set on. "" when that went well, else why it could not be: another process has it, its folder
    // cannot be written, no scheduler. The project must have been saved before, and its folder be the current
    // one, from which relative names count.
    virtual std::string start() = 0;
    // Does what can be done without waiting: to be called when the descriptor is readable, and once a second.
    // False when there is nothing more to do, because all runs have ended, or the set was stopped.
    virtual bool poll() = 0;
    // Has what runs ended, and nothing else started; poll() tells when that is over.
    virtual void stop() = 0;

    // For an event loop; -1 for none.
    virtual int descriptor() const { return -1; }
    // Why nothing is started at present ("The disk is full."); "" when all is well.
    virtual std::string trouble() const { return ""; }
};

// The engine that the set in the folder asks for; null when there is no such set.
std::unique_ptr<Run_engine> make_engine(const std::string& folder);
