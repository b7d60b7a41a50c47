#include "runs/run_engine.h"

#include "runs/local_engine.h"
#include "runs/run_folders.h"

std::unique_ptr<Run_engine> make_engine(const std::string& folder) {
    std::optional<Run_set> set = read_run_set(folder);
    if (!set)
        return nullptr;
    return std::make_unique<Local_engine>(folder, std::move(*set));
}
