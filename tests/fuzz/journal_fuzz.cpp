// Any bytes are a journal of a run set, and what was asked of one: reading them must do no harm.
#include "require.h"
#include "runs/run_progress.h"
#include "runs/run_set.h"
#include "runs/scenario_states.h"

void try_input(const std::string& text) {
    constexpr std::size_t runs = 10;
    // In pieces it is the same journal as in one.
    Run_journal journal("C:\\none", runs);
    Run_journal in_pieces("C:\\none", runs);
    journal.take(text);
    in_pieces.take(text.substr(0, text.size() / 2));
    in_pieces.take(text.substr(text.size() / 2));
    for (std::size_t run = 0; run < runs; ++run)
        require(describe_end(journal.runs()[run], journal.reason(run)) ==
                describe_end(in_pieces.runs()[run], in_pieces.reason(run)));
    describe(progress_of(journal, true, moment_now()));

    // A set that can be read is written as it was read.
    if (const auto set = run_set_from_text(text); set && unusable_name(*set).empty())
        require(text_of(*run_set_from_text(text_of(*set))) == text_of(*set));
    parameter_files_in(text);
}
