// Who does the runs beside the editor: this machine, or the scheduler Slurm, with what is asked of it. The
// latter can be chosen where the machine has Slurm's commands; elsewhere the box says why not.
#pragma once

#include "editing/page_parts.h"
#include "runs/run_set.h"
#include "toolkit/edit.h"

#include <functional>

class Run_engine_choice {
public:
    explicit Run_engine_choice(TControl& parent);

    // Has the set run by what is chosen. What is asked of Slurm is remembered for the next time.
    void give_to(Run_set& set) const;

    std::function<void()> on_change; // null for nobody

    TCheckBox& slurm_checkbox;
    TPanel& slurm_panel; // on view while the box is checked
    TEdit& slurm_partition_edit;
    TEdit& slurm_time_edit;
    TEdit& slurm_memory_edit;
    TEdit& slurm_options_edit;
};
