// What a user waits for when a project is opened, without a display: both forms are made and bound, the file
// is loaded and backed up, and all pages are brought up to date.
#include "app/tilverra_project_form.h"
#include "editing/record_folders.h"
#include "platform/current_directory.h"
#include "platform/file_writer.h"
#include "platform/files.h"
#include "records/vv_file.h"
#include "support/inputs.h"
#include "toolkit/headless_desktop.h"
#include "trees/suite_directory.h"

#include <benchmark/benchmark.h>

namespace {

constexpr const char* model_exe = "C:\\Suite\\Tilverra\\tilverra_5.exe";

// Writes a project with every declared key and as many scenarios, in a folder of its own.
bool make_project(const std::string& file, long scenarios) {
    const std::string folder = file.substr(0, file.size() - std::string(".tvp").size());
    platform::remove_tree(folder);
    if (!platform::make_folders(folder + "\\Scenarios"))
        return false;
    for (long i = 0; i < scenarios; ++i)
        platform::write_file(folder + "\\Scenarios\\s" + std::to_string(i) + ".tvn", "[scenario]\r\n",
                             platform::Durability::quick);
    Tilverra_project_editor_parameters project(model_exe);
    project.description = "Winter wheat, deficit irrigation";
    TESK::VV_file writer(file.c_str());
    writer.set_durability(platform::Durability::quick);
    return writer.set(project) && writer.get_last_write().ok();
}

void open_project(benchmark::State& state) {
    Headless_desktop desktop([](const std::string&) {});
    Record_folders folders;
    current_folder_source = &folders;
    const TESK::File_name program(input_name("Suite\\Tilverra\\project_editor.exe").c_str());
    suite_directory = new TVS::Suite_Directory(program);
    const TESK::Application_data_directory settings(program);
    TVP_filename name(input_name("opened_project.tvp").c_str());
    if (!make_project(name, state.range(0)))
        state.SkipWithError("cannot write");
    for (auto _ : state) {
        Tilverra_project_editor_parameters record(model_exe);
        Tparameter_file_form host(program);
        TTilverra_project_form form;
        form.bind(record, Tilverra_project_type::tilverra, host);
        Tparameter_file_form::Editor editor;
        editor.form = &form;
        editor.parameters = &record;
        editor.panel = &form.top_page_control();
        editor.file_name = &name;
        editor.file_given = true;
        editor.user_settings_file = &settings;
        benchmark::DoNotOptimize(host.bind_to(editor));
        host.arrange_controls();
        if (record.description.empty())
            state.SkipWithError("not loaded");
    }
    delete suite_directory;
    suite_directory = nullptr;
    current_folder_source = nullptr;
}
BENCHMARK(open_project)->Arg(5)->Arg(500)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    // Nothing of the user's own is read or written.
    setenv("XDG_DATA_HOME", (input_path("data")).c_str(), 1);
    setenv("XDG_CONFIG_HOME", (input_path("config")).c_str(), 1);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
