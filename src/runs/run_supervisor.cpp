#include "runs/run_supervisor.h"

#include "platform/current_directory.h"
#include "runs/run_folders.h"
#include "runs/slurm_engine.h"

#include <chrono>
#include <string_view>

namespace {

constexpr std::string_view argument = "--have-run-set-done";
constexpr std::chrono::milliseconds start_limit(30000);
constexpr std::chrono::milliseconds pulse(1000);

// What a supervisor says, a line each: a letter, and why.
constexpr char started = 's';
constexpr char refused = 'r';
constexpr char at_work = 'w'; // with the trouble that it has at present

void say(const platform::Companion_life& life, char what, const std::string& why) {
    life.say(what + why + '\n');
}

int supervise(const std::string& folder) {
    platform::Companion_life life;
    // Relative names count from the project's folder.
    if (const auto set = read_run_set(folder))
        platform::change_directory(set->folder);
    const std::unique_ptr<Run_engine> engine = make_engine(folder);
    const std::string reason = engine ? engine->start() : "There is no run set in " + folder;
    if (!reason.empty()) {
        say(life, refused, reason);
        return 1;
    }
    say(life, started, "");
    bool is_stopping = false;
    while (engine->poll()) {
        say(life, at_work, engine->trouble());
        life.wait(engine->descriptor(), pulse);
        if (life.is_to_end() && !is_stopping)
            engine->stop();
        is_stopping = life.is_to_end();
    }
    return 0;
}

} // namespace

std::optional<int> supervise_if_asked(int argc, char** argv) {
    if (argc != 3 || argv[1] != argument)
        return std::nullopt;
    return supervise(argv[2]);
}

std::string Supervised_engine::start() {
    if (!supervisor_.start({std::string(argument), folder_}))
        return "A process for the runs could not be started.";
    const std::string words = supervisor_.heard(start_limit);
    if (words.starts_with(started)) {
        take_words(words);
        return "";
    }
    if (words.starts_with(refused))
        return words.substr(1, words.find('\n') - 1);
    supervisor_.ask_to_end();
    return "The process for the runs does not answer.";
}

bool Supervised_engine::poll() {
    take_words(supervisor_.heard());
    return !supervisor_.has_ended();
}

// Only what the last line says still holds.
void Supervised_engine::take_words(const std::string& words) {
    const std::size_t end = words.rfind('\n');
    if (end == std::string::npos || end == 0)
        return;
    const std::size_t before = words.rfind('\n', end - 1);
    const std::size_t begin = before == std::string::npos ? 0 : before + 1;
    if (words[begin] == at_work)
        trouble_ = words.substr(begin + 1, end - begin - 1);
}

std::string stop_run_set(const Run_journal& journal) {
    const platform::End_request request =
        journal.owner() ? platform::ask_to_end(*journal.owner()) : platform::End_request::not_here;
    if (request == platform::End_request::made)
        return "";
    if (journal.job())
        return cancel_job_of(journal);
    if (request == platform::End_request::refused)
        return "These runs belong to another user, who alone can stop them.";
    return is_owned(journal) ? "These runs were started on another machine, and can only be stopped there."
                             : "No process has these runs done any more.";
}
