#include "runs/worker_files.h"

#include "names/file_name.h"
#include "platform/current_directory.h"
#include "platform/file_writer.h"
#include "platform/host_names.h"
#include "platform/shell_text.h"
#include "runs/printed_text.h"
#include "runs/run_journal.h"
#include "trees/scenario_directory.h"

namespace {

// What it begins with is set by script_text().
constexpr const char* script = R"sh(
# Has runs of a run set done, one after the other, and notes them in the set's journal:
#   worker.sh FOLDER run RUN...                  the runs of these numbers
#   worker.sh FOLDER task LIST PER_TASK          as a task of a job array: its share of the runs in the file LIST
# FOLDER is the set's. Line n + 1 of commands.txt there is the command of run n, of records.txt the scenario's
# record, of outputs.txt the folder of its output.

folder=$1
mode=$2
shift 2

# Adds a line to the journal in one write, again and again while the disk is full. What was cut then stays a
# line of its own, which every reader passes over.
note() {
    tries=0
    printf '%s .\n' "$1" >>"$folder/journal.txt" && return
    while [ $tries -lt 60 ]; do
        sleep 5
        printf '\n%s .\n' "$1" >>"$folder/journal.txt" && return
        tries=$((tries + 1))
    done
} 2>/dev/null
# Who has the runs done, for whoever asks whether it is still there.
worker="$(uname -n) $(cat /proc/sys/kernel/random/boot_id) $$ $(sed 's/.*) //' /proc/$$/stat | cut -d ' ' -f 20)"
time_now() {
    date -u +%Y-%m-%dT%H:%M:%S.%3NZ
}
# What is in an output folder, as a text that is another one after every change.
files_of() {
    find "$1" -type f -printf '%T@ %p\n' 2>/dev/null | sort
}
# The line of a file in the set's folder that is a run's.
line_of() {
    sed -n "$(($2 + 1)){p;q;}" "$folder/$1"
}
command_of() {
    if [ $longest_seconds -gt 0 ]; then
        exec timeout -k 5 $longest_seconds sh -c "$1"
    fi
    exec sh -c "$1"
}

do_run() {
    line=$(line_of commands.txt "$1")
    record=$(line_of records.txt "$1")
    output=$(line_of outputs.txt "$1")
    printed=$folder/printed/$1.txt
    mkdir -p "$folder/printed"
    before=$(files_of "$output")
    began=$(date +%s%3N)
    if [ "$mode" = task ]; then
        note "start $(time_now) $1"
    else
        note "start $(time_now) $1 $worker"
    fi
    if [ -n "$record" ] && ! [ -e "$record" ]; then
        note "end $(time_now) $1 unstarted $no_record 0.000 nothing"
        echo "Not started: $record is not there." >&2
        code=1
        return
    fi
    # The exit code comes by descriptor 3 around what takes the text.
    code=$( {
        { (command_of "$line") </dev/null 2>&1 3>&-; echo $? >&3; } |
            { head -c $longest_print >>"$printed"; cat >/dev/null; }
    } 3>&1)
    lasted=$(($(date +%s%3N) - began))
    [ -s "$printed" ] || rm -f "$printed"
    after=$(files_of "$output")
    left=nothing
    [ -z "$after" ] || [ "$after" = "$before" ] || left=output
    how="exit $code"
    if [ $longest_seconds -gt 0 ] && [ $lasted -ge $((longest_seconds * 1000)) ]; then
        how="slow 0"
    elif [ "$code" -gt 128 ] && [ "$code" -le 192 ]; then
        how="signal $((code - 128))"
    fi
    note "end $(time_now) $1 $how $((lasted / 1000)).$(printf '%03d' $((lasted % 1000))) $left"
}

if [ "$mode" = task ]; then
    first=$((SLURM_ARRAY_TASK_ID * $2 + 1))
    set -- $(sed -n "$first,$((first + $2 - 1))p" "$folder/$1")
fi
for run; do
    # A task that the scheduler begins anew does not repeat what it has done, nor a list what has gone well.
    if [ "$mode" = task ]; then
        ended="(exit|signal|slow) "
    else
        ended="exit 0 [^ ]* output"
    fi
    grep -qE "^end [^ ]* $run $ended" "$folder/journal.txt" || do_run "$run"
done
# Whoever runs a list sees what the run came to.
[ "$mode" = task ] || exit "${code:-0}"
)sh";

std::string script_text(const Run_set& set) {
    return "#!/bin/sh\nlongest_print=" + std::to_string(Printed_text::longest_beginning) +
           "\nlongest_seconds=" + std::to_string(set.longest.count()) +
           "\nno_record=" + std::to_string(Run_record::no_record) + script;
}

std::string write(const std::string& file, const std::string& text) {
    return platform::write_file(file, text, platform::Durability::durable).reason;
}

} // namespace

std::string worker_script(const std::string& folder) {
    return folder + "\\worker.sh";
}

std::string commands_file(const std::string& folder) {
    return folder + "\\commands.txt";
}

std::string run_list_file(const std::string& folder) {
    return folder + "\\list.txt";
}

std::string why_not_listed(const Run_set& set) {
    const bool can_be_started =
        set.scenarios.empty() || !platform::shell_command(set.command_line(0), set.folder).empty();
    return can_be_started ? "" : "The model cannot be started: " + set.model;
}

std::string write_worker_files(const std::string& folder, const Run_set& set) {
    if (std::string reason = why_not_listed(set); !reason.empty())
        return reason;
    // Relative names count from the project's folder.
    const platform::Directory_guard current;
    platform::change_directory(set.folder);
    std::string commands;
    std::string records;
    std::string outputs;
    for (std::size_t run = 0; run < set.scenarios.size(); ++run) {
        commands += platform::shell_command(set.command_line(run), set.folder) + '\n';
        records += platform::host_path(set.scenarios[run]) + '\n';
        outputs += platform::host_path(output_folder_of(TESK::File_name(set.scenarios[run].c_str()))) + '\n';
    }
    std::string reason = write(commands_file(folder), commands);
    if (reason.empty())
        reason = write(folder + "\\records.txt", records);
    if (reason.empty())
        reason = write(folder + "\\outputs.txt", outputs);
    if (reason.empty())
        reason = write(worker_script(folder), script_text(set));
    return reason;
}

std::string run_list_text(const std::string& folder, const std::vector<std::size_t>& runs) {
    const std::string command = "sh " + platform::shell_word(platform::host_path(worker_script(folder))) +
                                ' ' + platform::shell_word(platform::host_path(folder)) + " run ";
    std::string text;
    for (const std::size_t run : runs)
        text += command + std::to_string(run) + '\n';
    return text;
}

std::string write_run_list(const std::string& folder, const std::vector<std::size_t>& runs) {
    return write(run_list_file(folder), run_list_text(folder, runs));
}
