// Has the runs of a set done on this machine, so many at a time.
#pragma once

#include "platform/change_times.h"
#include "platform/watched_programs.h"
#include "runs/printed_text.h"

#include "runs/run_engine.h"
#include "runs/run_journal.h"

#include <chrono>
#include <map>
#include <memory>
#include <string>
#include <vector>

class Local_engine : public Run_engine, private platform::Watched_programs::Listener {
public:
    static constexpr std::chrono::milliseconds usual_grace{5000};

    // The set in the folder. `grace`: how long a run has to end after the polite signal.
    Local_engine(const std::string& folder, Run_set set, std::chrono::milliseconds grace = usual_grace);
    ~Local_engine() override;

    std::string start() override;
    bool poll() override;
    void stop() override;
    int descriptor() const override { return programs_.descriptor(); }
    std::string trouble() const override { return journal_.state().reason; }

    // Waits until there is something to poll, not longer than the time.
    void wait(std::chrono::milliseconds longest) const { programs_.wait(longest); }

private:
    // What is known of a run while it runs.
    struct Running {
        platform::Watched_programs::Clock::time_point began;
        std::string output_folder;
        platform::Folder_mark output_before;
        std::unique_ptr<Printed_text> printed;
    };

    void printed(std::size_t run, std::string_view bytes) override;
    void ended(std::size_t run, const platform::Program_end& end) override;
    void start_next();
    bool start_run(std::size_t run);
    void note_not_started(std::size_t run, int result);
    bool may_start() const;
    void finish();

    std::string folder_;
    Run_set set_;
    Journal_writer journal_;
    std::vector<std::size_t> left_; // runs to be done, in order
    std::size_t next_ = 0;          // place in left_
    std::map<std::size_t, Running> running_;
    bool is_owner_ = false;
    bool is_stopping_ = false;
    bool has_failure_ = false;
    platform::Watched_programs programs_;
};
