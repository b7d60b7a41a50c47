// Listing a folder of 10,000 files beside the standard library's directory iterator with the same
// information, looking up names that are not there, and filling the folder.
#include "platform/current_directory.h"
#include "platform/file_writer.h"
#include "platform/files.h"
#include "platform/host_names.h"
#include "platform/listing.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

namespace fs = std::filesystem;

// c: in a temporary folder, with 10,000 files in "files".
class Large_folder {
public:
    Large_folder() {
        std::string pattern = fs::temp_directory_path() / "listing-XXXXXX";
        root_ = mkdtemp(pattern.data());
        fs::create_directories(root_ + "/drives");
        fs::create_directories(path());
        fs::create_directory_symlink("../c", root_ + "/drives/c:");
        for (int i = 0; i < 10'000; ++i)
            std::ofstream(path() + "/Scenario " + std::to_string(i) + ".tvn");
    }
    ~Large_folder() { fs::remove_all(root_); }
    std::string drives() const { return root_ + "/drives"; }
    std::string path() const { return root_ + "/c/files"; }

private:
    std::string root_;
};

const Large_folder& large_folder() {
    static const Large_folder folder;
    return folder;
}

void list_names_and_kinds(benchmark::State& state) {
    const platform::Drives_guard drives(large_folder().drives());
    for (auto _ : state)
        benchmark::DoNotOptimize(platform::list_folder("C:\\files"));
}

void iterate_names_and_kinds(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<std::pair<std::string, bool>> entries;
        for (const auto& entry : fs::directory_iterator(large_folder().path()))
            entries.emplace_back(entry.path().filename().string(), entry.is_directory());
        benchmark::DoNotOptimize(entries);
    }
}

void list_with_permissions(benchmark::State& state) {
    const platform::Drives_guard drives(large_folder().drives());
    for (auto _ : state)
        benchmark::DoNotOptimize(platform::list_folder("C:\\files", "*.*", platform::Listed_attributes::all));
}

void iterate_with_permissions(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<std::pair<std::string, fs::perms>> entries;
        for (const auto& entry : fs::directory_iterator(large_folder().path()))
            entries.emplace_back(entry.path().filename().string(), entry.status().permissions());
        benchmark::DoNotOptimize(entries);
    }
}

void look_up_1000_absent_names(benchmark::State& state) {
    const platform::Drives_guard drives(large_folder().drives());
    for (auto _ : state)
        for (int i = 0; i < 1'000; ++i)
            benchmark::DoNotOptimize(platform::exists("C:\\files\\absent " + std::to_string(i)));
}

// What a generator does: for each new file a look whether it is there, then the file.
void add_1000_new_files(benchmark::State& state) {
    const platform::Drives_guard drives(large_folder().drives());
    for (auto _ : state) {
        for (int i = 0; i < 1'000; ++i) {
            const std::string name = "C:\\files\\new " + std::to_string(i);
            if (!platform::exists(name))
                platform::write_file(name, "text", platform::Durability::quick);
        }
        state.PauseTiming();
        for (int i = 0; i < 1'000; ++i)
            platform::delete_file("C:\\files\\new " + std::to_string(i));
        state.ResumeTiming();
    }
}

void add_1000_new_files_by_streams(benchmark::State& state) {
    for (auto _ : state) {
        for (int i = 0; i < 1'000; ++i)
            std::ofstream(large_folder().path() + "/new " + std::to_string(i)) << "text";
        state.PauseTiming();
        for (int i = 0; i < 1'000; ++i)
            fs::remove(large_folder().path() + "/new " + std::to_string(i));
        state.ResumeTiming();
    }
}

BENCHMARK(list_names_and_kinds)->Unit(benchmark::kMillisecond);
BENCHMARK(iterate_names_and_kinds)->Unit(benchmark::kMillisecond);
BENCHMARK(list_with_permissions)->Unit(benchmark::kMillisecond);
BENCHMARK(iterate_with_permissions)->Unit(benchmark::kMillisecond);
BENCHMARK(look_up_1000_absent_names)->Unit(benchmark::kMillisecond);
BENCHMARK(add_1000_new_files)->Unit(benchmark::kMillisecond);
BENCHMARK(add_1000_new_files_by_streams)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
