#include "runs/run_engine.h"

#include "runs/list_engine.h"
#include "runs/local_engine.h"
#include "runs/run_folders.h"
#include "runs/slurm_engine.h"

std::unique_ptr<Run_engine> make_engine(const std::string& folder) {
    std::optional<Run_set> set = read_run_set(folder);
    if (!set)
        return nullptr;
    switch (set->engine) {
    case Engine_kind::slurm: return std::make_unique<Slurm_engine>(folder, std::move(*set));
    case Engine_kind::list: return std::make_unique<List_engine>(folder, std::move(*set));
    case Engine_kind::local: break;
    }
    return std::make_unique<Local_engine>(folder, std::move(*set));
}
