// A process beside the editor or a command that has a run set done: the set's owner. It is a second process
// of the same program, so that nothing else has to be installed. When its starter ends, by whatever signal,
// the set is stopped, unless the starter has said before that it is to go on; then anybody finds it by the
// journal, and stops it by its process.
#pragma once

#include "platform/companion_process.h"
#include "runs/run_engine.h"
#include "runs/run_journal.h"

#include <optional>
#include <string>

// To be called first in main(): where the arguments ask for a supervisor this process is one, and the result
// is its exit code. Otherwise nothing.
std::optional<int> supervise_if_asked(int argc, char** argv);

// Has the set in the folder run by a supervisor. As an engine: poll() is true as long as that is at work.
// What the runs come to stands in the journal.
class Supervised_engine : public Run_engine {
public:
    explicit Supervised_engine(std::string folder) : folder_(std::move(folder)) {}

    // Waits until the supervisor has taken the set on, or says why not.
    std::string start() override;
    bool poll() override;
    void stop() override { supervisor_.ask_to_end(); }
    int descriptor() const override { return supervisor_.descriptor(); }
    std::string trouble() const override { return trouble_; }

    // The set goes on when this process ends.
    void go_on_alone() { supervisor_.set_free(); }

private:
    void take_words(const std::string& words);

    std::string folder_;
    platform::Companion_process supervisor_;
    std::string trouble_;
};

// Asks the process that has the set run to stop it, wherever on this machine it was started, or the
// scheduler.
// "" when that was done, else why not, in a sentence: there is none, it is another user's or on another
// machine, or what the scheduler says.
std::string stop_run_set(const Run_journal& journal);
