#include "app/run_engine_choice.h"

#include "runs/slurm.h"
#include "toolkit/screen_memory.h"

namespace {

TEdit& add_edit(TControl& row, const char* name, const char* caption, const char* hint) {
    row.add<TLabel>(std::string(name) + "_label", caption).set_names_next(true);
    TEdit& edit = row.add<TEdit>(name);
    edit.set_hint(hint);
    if (current_screen_memory != nullptr)
        edit.set_text(current_screen_memory->recall(name));
    return edit;
}

} // namespace

Run_engine_choice::Run_engine_choice(TControl& parent)
    : slurm_checkbox(parent.add<TCheckBox>("slurm_checkbox", "Run on the cluster, by Slurm")),
      slurm_panel(parent.add<TPanel>("slurm_panel")),
      slurm_partition_edit(add_edit(add_row(slurm_panel, "slurm_place_panel"), "slurm_partition_edit",
                                    "Partition", "Empty for the one that the cluster gives by itself.")),
      slurm_time_edit(add_edit(*slurm_partition_edit.parent(), "slurm_time_edit", "Time",
                               "How long a task may take: \"30\" minutes, or \"2:00:00\".")),
      slurm_memory_edit(add_edit(add_row(slurm_panel, "slurm_resources_panel"), "slurm_memory_edit", "Memory",
                                 "How much memory a task may use: \"2G\".")),
      slurm_options_edit(add_edit(*slurm_memory_edit.parent(), "slurm_options_edit", "Further options",
                                  "As they are given to sbatch, with blanks between them.")) {
    const bool is_there = slurm::is_there();
    slurm_checkbox.set_enabled(is_there);
    slurm_checkbox.set_hint(is_there ? "Submit the runs as one job, which goes on when the editor is closed."
                                     : "Slurm is not on this machine: there is no program sbatch.");
    slurm_panel.set_visible(false);
    slurm_checkbox.on_click = [this] {
        slurm_panel.set_visible(slurm_checkbox.checked());
        if (on_change)
            on_change();
    };
}

void Run_engine_choice::give_to(Run_set& set) const {
    if (!slurm_checkbox.checked())
        return;
    set.engine = Engine_kind::slurm;
    set.slurm = {slurm_partition_edit.text(), slurm_time_edit.text(), slurm_memory_edit.text(),
                 slurm_options_edit.text()};
    if (current_screen_memory != nullptr)
        for (const TEdit* edit :
             {&slurm_partition_edit, &slurm_time_edit, &slurm_memory_edit, &slurm_options_edit})
            current_screen_memory->remember(edit->name(), edit->text());
}
