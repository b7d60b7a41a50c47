#include "app/entry.h"

#include "app/database_editor_form.h"
#include "app/new_name_form.h"
#include "app/tilverra_project_form.h"
#include "editing/record_folders.h"
#include "editing/remembered_screens.h"
#include "editing/window_translator.h"
#include "model/labels.h"
#include "model/project_editor_parameters.h"
#include "model/simulation_paths.h"
#include "operations/example_project.h"
#include "operations/project_workspace.h"
#include "platform/host_names.h"
#include "platform/process.h"
#include "trees/program_directory.h"
#include "trees/suite_directory.h"
#include "trees/user_settings.h"

#include <exception>
#include <memory>

namespace {

constexpr int exit_done = 0;
constexpr int exit_no_file = 1;
constexpr const char* suite_name = "TVS_suite";
constexpr const char* example_folder = "\\example";

// The version of the master simulation record.
constexpr std::uint8_t master_major = 4;
constexpr std::uint8_t master_release = 14;
constexpr std::uint8_t master_minor = 4;

// The folder of the master record: the suite's or, for a program that belongs to no installed suite, the
// user's.
TESK::Directory_name master_folder(const TESK::Directory_name& user_folder) {
    return suite_directory->is_suite_root() ? TESK::Directory_name(*suite_directory) : user_folder;
}

// Makes the one object that knows the simulation folders, as long as the scope lives.
class Simulation_paths_scope {
public:
    explicit Simulation_paths_scope(std::unique_ptr<Simulation_paths> paths) : paths_(std::move(paths)) {
        simulation_paths = paths_.get();
    }
    Simulation_paths_scope(const Simulation_paths_scope&) = delete;
    Simulation_paths_scope& operator=(const Simulation_paths_scope&) = delete;
    ~Simulation_paths_scope() { simulation_paths = nullptr; }

private:
    std::unique_ptr<Simulation_paths> paths_;
};

// The forms, in the order in which they are made.
struct Forms {
    Forms(const TESK::File_name& program, File_transfer_client* file_transfer)
        : parameter_file_form(program), database_editor_form(file_transfer) {}

    Tparameter_file_form parameter_file_form;
    TTilverra_project_form project_form;
    Tnew_name_form_check_used new_name_form;
    Tdatabase_editor_form database_editor_form;
    Trecent_file_selector_form recent_file_selector_form;
};

// The file of the example, once it lies where a user can work in it; "" when that could not be.
std::string put_in_place(const Example_project& example) {
    const platform::Write_result result = example.put_in_place();
    if (!result.ok())
        show_message("The example could not be put in place:\n" + result.reason);
    return result.ok() ? example.file() : "";
}

// The lists of all forms read folders through the one source, as long as the scope lives.
class Folder_source_scope {
public:
    Folder_source_scope() { current_folder_source = &folders_; }
    Folder_source_scope(const Folder_source_scope&) = delete;
    Folder_source_scope& operator=(const Folder_source_scope&) = delete;
    ~Folder_source_scope() { current_folder_source = nullptr; }

private:
    Record_folders folders_;
};

int run(const std::vector<std::string>& arguments, const Program_services& services,
        std::unique_ptr<Desktop>& desktop) {
    const std::size_t count = arguments.size() - 1;
    const TESK::Smart_file_name program_file_name(
        TESK::File_name(platform::set_program_file(arguments.front()).c_str()));
    const TESK::Program_directory local_program_directory(program_file_name);

    // These two live as long as the process.
    suite_directory = new TVS::Suite_Directory(program_file_name);
    program_directory = new TESK::Program_directory(program_file_name, false);
    const TESK::Application_data_directory application_data_directory(program_file_name);
    const Simulation_paths_scope paths_scope(
        Simulation_paths::setup(master_major, master_release, master_minor, suite_name,
                                master_folder(application_data_directory), application_data_directory));

    if (services.make_desktop)
        desktop = services.make_desktop();
    const Desktop_scope desktop_scope(desktop ? *desktop : *current_desktop);
    const Folder_source_scope folder_source_scope;
    const Remembered_screens remembered_screens(application_data_directory);
    TESK::Translations_phrases phrases;
    load_program_translations(phrases, *program_directory, *suite_directory);
    Forms forms(program_file_name, services.file_transfer);

    Tilverra_project_type_labeled project_type;
    TVP_filename project_file_name =
        project_file_of(count >= 1 ? platform::name_of_argument(arguments[1]) : "noname");
    Tilverra_project_editor_parameters project_parameters(
        suite_directory->get_tilverra_directory().get_model_exe().c_str());
    if (count == 2)
        project_type.set_label(arguments[2].c_str());
    forms.project_form.menu.set_program(program_file_name);
    forms.project_form.menu.help.set_libraries(services.libraries);
    forms.project_form.map.set_reader(services.polygons);
    forms.project_form.options.set_table_reader(services.tables);
    forms.project_form.bind(project_parameters, project_type.get(), forms.parameter_file_form);
    project_file_name.qualify_in_root();
    forms.parameter_file_form.set_web_documentation(suite_web_address().c_str(), suite_directory->c_str());

    Tparameter_file_form::Editor editor;
    editor.form = &forms.project_form;
    editor.parameters = &project_parameters;
    editor.panel = &forms.project_form.top_page_control();
    editor.file_name = &project_file_name;
    editor.file_given = count >= 1;
    editor.other_masks = "*.TVS_project";
    editor.file_selector = &forms.recent_file_selector_form;
    const TESK::Smart_directory_name& help =
        program_directory->documentation.get_directory(TESK::Documentation_topic::help);
    if (help.exists())
        editor.help_folder = help;
    editor.user_settings_file = &application_data_directory;
    if (phrases.head() != nullptr)
        editor.phrases = &phrases;
    const Example_project example(TESK::Directory_name((*program_directory + example_folder).c_str()),
                                  *simulation_paths);
    if (example.is_available())
        forms.recent_file_selector_form.make_example = [&example] { return put_in_place(example); };
    if (!forms.parameter_file_form.bind_to(editor))
        return exit_no_file;
    forms.parameter_file_form.set_explorer_program(suite_directory->get_explorer_exe());
    forms.parameter_file_form.arrange_controls();
    current_desktop->run(forms.parameter_file_form);

    if (project_type == Tilverra_project_type::tilverra)
        platform::launcher().execute(suite_directory->get_suite_exe(), platform::normal_window);
    // The master record is written at every normal end.
    simulation_paths->save();
    return exit_done;
}

} // namespace

int run_program(const std::vector<std::string>& arguments, const Program_services& services,
                std::ostream& err) {
    std::unique_ptr<Desktop> desktop;
    try {
        return run(arguments, services, desktop);
    } catch (const std::exception& exception) {
        Desktop* const shown_on = desktop ? desktop.get() : current_desktop;
        if (shown_on == nullptr)
            err << exception.what() << '\n';
        else
            shown_on->message_box({"Project editor", exception.what(), Button_set::ok});
        return exit_done;
    }
}
