// Taking names apart, making them absolute and relative, and listing a folder of 10,000 files as names beside
// the standard library's directory iterator.
#include "foundation/lists.h"
#include "names/file_name.h"
#include "names/smart_directory_name.h"
#include "platform/current_directory.h"
#include "platform/host_names.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace TESK;

constexpr const char* long_name = "C:\\Simulation\\Projects\\Palouse\\Scenarios\\Winter wheat 17.tvn";

// c: in a temporary folder, with 10,000 files in "files" and the current directory two folders deep.
class Drive {
public:
    Drive() {
        std::string pattern = fs::temp_directory_path() / "names-XXXXXX";
        root_ = mkdtemp(pattern.data());
        fs::create_directories(root_ + "/drives");
        fs::create_directories(path());
        fs::create_directories(root_ + "/c/projects/palouse");
        fs::create_directory_symlink("../c", root_ + "/drives/c:");
        for (int i = 0; i < 10'000; ++i)
            std::ofstream(path() + "/Scenario " + std::to_string(i) + ".tvn");
    }
    ~Drive() { fs::remove_all(root_); }
    std::string drives() const { return root_ + "/drives"; }
    std::string path() const { return root_ + "/c/files"; }

private:
    std::string root_;
};

const Drive& drive() {
    static const Drive the_drive;
    return the_drive;
}

void decompose(benchmark::State& state) {
    const File_name name(long_name);
    for (auto _ : state)
        name.decompose();
}

void replace_path_and_extension(benchmark::State& state) {
    const Directory_name folder("D:\\Simulation\\Database\\Crop");
    for (auto _ : state) {
        File_name name(long_name);
        name.set_path(folder);
        name.set_ext("crp");
        benchmark::DoNotOptimize(name);
    }
}

void qualify(benchmark::State& state, const char* text) {
    const platform::Drives_guard drives(drive().drives());
    platform::change_directory("C:\\projects\\palouse");
    for (auto _ : state) {
        File_name name(text);
        benchmark::DoNotOptimize(name.qualify());
    }
}

void make_relative(benchmark::State& state) {
    const Directory_name base("C:\\Simulation\\Projects\\Palouse\\Database");
    for (auto _ : state) {
        File_name name(long_name);
        name.make_relative_to(base);
        benchmark::DoNotOptimize(name);
    }
}

void list_10000_files(benchmark::State& state) {
    const platform::Drives_guard drives(drive().drives());
    const Smart_directory_name folder("C:\\files");
    for (auto _ : state) {
        Bidirectional_list list;
        folder.list_entries(list, false, false, false, false, false, list_files, "tvn", nullptr);
        benchmark::DoNotOptimize(list.is_empty());
    }
}

void iterate_10000_files(benchmark::State& state) {
    for (auto _ : state) {
        std::vector<std::pair<std::string, bool>> entries;
        for (const auto& entry : fs::directory_iterator(drive().path()))
            entries.emplace_back(entry.path().filename().string(), entry.is_directory());
        benchmark::DoNotOptimize(entries);
    }
}

BENCHMARK(decompose);
BENCHMARK(replace_path_and_extension);
BENCHMARK_CAPTURE(qualify, without_steps, "Scenarios\\Winter wheat 17.tvn");
BENCHMARK_CAPTURE(qualify, one_step_up, "..\\Scenarios\\Winter wheat 17.tvn");
BENCHMARK(make_relative);
BENCHMARK(list_10000_files)->Unit(benchmark::kMillisecond);
BENCHMARK(iterate_10000_files)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
