#include "app/scenario_lists.h"

#include "app/tilverra_project_form.h"
#include "foundation/code_page_1252.h"
#include "platform/host_names.h"
#include "toolkit/screen_language.h"

#include <utility>

namespace {

// The line of a file's name, whose case does not count; -1 for none.
int line_of(const TListBox& list, const std::string& file_name) {
    for (int i = 0; i < list.count(); ++i)
        if (TESK::compare_ignoring_case(record_text(list.line(i).text), file_name) == 0)
            return i;
    return -1;
}

} // namespace

Scenario_lists::Scenario_lists(TTilverra_project_form& project_form, TPanel& panel)
    : Project_page(project_form), menu(project_form),
      pagecontrol_scenarios(fill(panel.add<TPageControl>("pagecontrol_scenarios"))),
      tabsheet_created_scenarios(pagecontrol_scenarios.add<TTabSheet>("tabsheet_created_scenarios",
                                                                      "Scenarios created for this project")),
      tabsheet_generated_scenarios(
          pagecontrol_scenarios.add<TTabSheet>("tabsheet_generated_scenarios", "Generated scenarios")),
      no_scenarios_note(add_note(
          tabsheet_created_scenarios, "no_scenarios_note",
          "This project has no scenarios yet. To make one, enter its name beside [<- New] and press that.")),
      created(tabsheet_created_scenarios, "created_scenarios_filelistbox"),
      generated(tabsheet_generated_scenarios, "generated_scenarios_filelistbox"),
      created_scenarios_filelistbox(created.list), generated_scenarios_filelistbox(generated.list),
      current_scenarios_listbox(&created_scenarios_filelistbox),
      scenerios_select_all_button(add_button(panel.add<TPanel>("panel_select", Layout::grid, 2),
                                             "scenerios_select_all_button", "Select all scenarios")),
      scenerios_select_none_button(
          add_button(*scenerios_select_all_button.parent(), "scenerios_select_none_button", "Deselect all")),
      relist_scenarios_button(add_button(*scenerios_select_all_button.parent(), "relist_scenarios_button",
                                         "Relist any added scenarios",
                                         "Read the folders of scenarios again.")),
      explore_scenarios_button(add_button(*scenerios_select_all_button.parent(), "explore_scenarios_button",
                                          "Explore scenarios",
                                          "Show the folder of the page in front in the suite's explorer.")) {
    created_scenarios_filelistbox.set_mask("*.tvn");
    generated_scenarios_filelistbox.set_mask("*.tvn");
    tabsheet_generated_scenarios.set_visible(false);
    wire();
}

// Both lists have the one handler for a change of line. A line of the generated list therefore makes the
// scenario of that name in the folder of created ones the active scenario, whether there is one or not: what
// acts on the active scenario does not reach a generated one. What acts on the checked lines does.
void Scenario_lists::wire() {
    for (TFileCheckListBox* list : {&created_scenarios_filelistbox, &generated_scenarios_filelistbox}) {
        list->on_change = [this] { created_scenarios_listbox_onchange(); };
        list->on_check = [this](int) { form.scenarios.run.show_hide_run_button(); };
        list->on_double_click = [this] { form.scenarios.edit.scenario_open_active_button_onclick(); };
        list->on_key = [this](const Key& key) {
            if (menu.press(key))
                return true;
            if (key.code != Key_code::del)
                return false;
            delete_by_key();
            return true;
        };
    }
    pagecontrol_scenarios.on_change = [this] {
        set_current_list();
        form.scenarios.list_changed();
    };
    scenerios_select_all_button.on_click = [this] { senerios_select_all_button_onclick(); };
    scenerios_select_none_button.on_click = [this] { scenerios_select_none_button_onclick(); };
    relist_scenarios_button.on_click = [this] { relist_scenarios_button_onclick(); };
    explore_scenarios_button.on_click = [this] { explore_scenarios_buttonClick(); };
    states_timer_.on_timer = [this] { refresh_states(); };
    for (Scenario_list_table* table : {&created, &generated})
        table->on_menu = [this] { menu.popup(); };
}

// As the button does; but of generated scenarios without a tick the one under the cursor goes, and not the
// active scenario, which is never one of them.
void Scenario_lists::delete_by_key() {
    if (&current() != &generated_scenarios_filelistbox || current().checked_count() > 0)
        form.scenarios.edit.scenario_delete_button_onclick();
    else if (has_project() && current().item_index() >= 0)
        form.scenarios.edit.ask_and_delete({record_text(current().item_text())});
}

Scenario_list_table& Scenario_lists::current_table() {
    return &current() == &generated_scenarios_filelistbox ? generated : created;
}

void Scenario_lists::refresh_states() {
    states_timer_.set_enabled(false);
    if (Scenario_states* const states = form.runs.states())
        states->refresh();
    created.facts_changed();
    generated.facts_changed();
}

void Scenario_lists::bind() {
    current_scenarios_listbox = &created_scenarios_filelistbox;
}

void Scenario_lists::Update() {
    const std::string folder =
        workspace().project_directory
            ? screen_text(workspace().project_directory->get_scenarios_directory(false))
            : std::string();
    created_scenarios_filelistbox.set_folder(folder);
    form.TVN_filedialog.initial_folder = folder;
    if (Scenario_states* const states = form.runs.states())
        states->refresh();
    created.set_states(form.runs.states());
    generated.set_states(form.runs.states());
}

void Scenario_lists::show_hide_generated() {
    const bool exists = workspace().project_directory &&
                        workspace().project_directory->get_generated_scenarios_directory(false).exists();
    if (exists)
        show_folder(generated_scenarios_filelistbox,
                    workspace().project_directory->get_generated_scenarios_directory(false));
    tabsheet_generated_scenarios.set_visible(exists);
    set_current_list();
}

void Scenario_lists::set_current_list() {
    current_scenarios_listbox = current_folder() == Scenario_folder::generated
                                    ? &generated_scenarios_filelistbox
                                    : &created_scenarios_filelistbox;
}

Scenario_folder Scenario_lists::current_folder() const {
    return pagecontrol_scenarios.active_page() == &tabsheet_generated_scenarios ? Scenario_folder::generated
                                                                                : Scenario_folder::created;
}

std::vector<std::string> Scenario_lists::checked_files() {
    std::vector<std::string> files;
    for (int i = 0; i < current().count(); ++i)
        if (current().checked(i))
            files.push_back(record_text(current().line(i).text));
    return files;
}

bool Scenario_lists::has_chosen() const {
    return current_scenarios_listbox->checked_count() > 0 || workspace().active_scenario_exists();
}

std::vector<std::string> Scenario_lists::chosen() {
    std::vector<std::string> files;
    for (int i = 0; i < current().count(); ++i)
        if (current().checked(i))
            files.push_back(scenario_of_line(i));
    if (files.empty() && has_chosen())
        files.push_back(platform::full_name(record().active_scenario));
    return files;
}

std::string Scenario_lists::scenario_of_line(int index) {
    TESK::File_name file;
    workspace()
        .scenarios_directory(current_folder(), true)
        .append_to(record_text(current().line(index).text).c_str(), file);
    return file;
}

void Scenario_lists::created_scenarios_listbox_onchange() {
    const int index = current().item_index();
    if (!has_project() || !workspace().need_project_directory())
        return;
    if (index >= 0) {
        TVN_filename& active = record().active_scenario;
        active = record_text(current().line(index).text);
        active.set_ext("tvn");
        active.set_path(workspace().project_directory->get_scenarios_directory(true));
        active_by_generated_ = &current() == &generated_scenarios_filelistbox ? std::string(active) : "";
        if (!active_by_generated_.empty())
            form.parameter_file_form().notice(
                worded("A generated scenario cannot be the active one: tick it, or use its menu."));
    }
    form.scenarios.update_active_scenario();
    point_at_active();
}

void Scenario_lists::point_at_active() {
    point_at_active(created_scenarios_filelistbox);
    point_at_active(generated_scenarios_filelistbox);
}

// The line of the generated list that was chosen keeps the cursor as long as the active scenario is the one
// that this made.
int Scenario_lists::line_of_active(const TFileCheckListBox& list) const {
    TVN_filename active = record().active_scenario;
    if (active.empty() || active.starts_with('<'))
        return -1;
    if (&list == &generated_scenarios_filelistbox && active == active_by_generated_)
        return line_of(list, active.get_name(true));
    workspace().enter_project_folder();
    active.qualify();
    TESK::Directory_name folder("");
    active.get_path(folder, true);
    const bool is_listed = TESK::compare_ignoring_case(folder, record_text(list.folder())) == 0;
    return is_listed ? line_of(list, active.get_name(true)) : -1;
}

void Scenario_lists::point_at_active(TFileCheckListBox& list) {
    const int index = line_of_active(list);
    list.set_item_index(index);
    list.show_line(index);
}

// In the order in which a folder is listed. A name that is there already is listed once more, until the
// folder is read again.
void Scenario_lists::add_created_line(const std::string& file_name) {
    TFileCheckListBox& list = created_scenarios_filelistbox;
    int index = 0;
    while (index < list.count() &&
           TESK::compare_ignoring_case(record_text(list.line(index).text), file_name) <= 0)
        ++index;
    list.insert_line(index, screen_text(file_name));
}

void Scenario_lists::senerios_select_all_button_onclick() {
    current().set_all_checked(true);
    form.scenarios.run.show_hide_run_button();
}

void Scenario_lists::scenerios_select_none_button_onclick() {
    current().set_all_checked(false);
    form.scenarios.run.show_hide_run_button();
}

void Scenario_lists::relist_scenarios_button_onclick() {
    if (!has_project() || !workspace().need_project_directory())
        return;
    const auto relist = [](TFileCheckListBox& list, const std::string& folder) {
        const std::string name = screen_text(folder);
        if (list.folder() == name)
            list.Update();
        else
            list.set_folder(name);
    };
    relist(created_scenarios_filelistbox, workspace().project_directory->get_scenarios_directory(true));
    relist(generated_scenarios_filelistbox,
           workspace().project_directory->get_generated_scenarios_directory(true));
    states_changed();
    form.scenarios.list_changed();
}

void Scenario_lists::explore_scenarios_buttonClick() {
    if (!has_project() || !workspace().need_project_directory())
        return;
    Tilverra_project_directory& project = *workspace().project_directory;
    TESK::Directory_name target = project;
    const TTabSheet* const page = form.project_pagecontrol.active_page();
    if (page == &form.scenarios.scenarios_tabsheet)
        target = workspace().scenarios_directory(current_folder(), true);
    else if (page == &form.optimization.tabsheet_optimization &&
             form.optimization.optimization_pagecontrol.active_page() ==
                 &form.optimization.opt_C_seq_tabsheet)
        target = project.get_carbon_sequestration_optimization_directory(true);
    else if (page == &form.GIS.GIS_tabsheet)
        target = project.get_GIS_directory(true);
    form.explore(target);
}
