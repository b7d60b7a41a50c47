// Shows the program where there is no display. It runs the program itself, on Qt's offscreen platform, acts
// on its controls as a user would, prints what was started and what came of it, and leaves a picture of each
// page.
//
//     journey pages FOLDER PROGRAM PROJECT [TYPE]   opens a project and takes the pictures
//     journey work FOLDER PROGRAM PROJECT           works on the example project, too: on its scenarios
//                                                   first, then over its map, with pictures in FOLDER/GIS
//
// The environment variable TVS_JOURNEY_LANGUAGE may name a language as the Translation page does ("Spanish"):
// it is chosen there first.
#include "app/entry.h"
#include "desktop_qt/qt_desktop.h"
#include "editing/bound_control.h"
#include "main/host_functions.h"
#include "maps_shapelib/shapelib_reader.h"
#include "page_walk.h"
#include "platform/files.h"
#include "platform/host_names.h"
#include "runs/run_supervisor.h"
#include "table_csv/csv_table_reader.h"
#include "toolkit/button.h"
#include "toolkit/check_box.h"
#include "toolkit/edit.h"
#include "toolkit/file_list_box.h"
#include "toolkit/label.h"
#include "toolkit/table.h"
#include "toolkit/timer.h"

#include <QtCore/QDir>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QWidget>

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace {

constexpr const char* family = "name\tdescription\tH2O.1\ndry start\tDry start\t0.12\nwet start\t\t0.31\n";
// The desktop of the journey: the window is drawn, and what a user would be asked is answered and printed.
class Journey_desktop : public Qt_desktop {
public:
    enum class Work { none, scenarios, map };

    // An empty folder takes no pictures.
    Journey_desktop(QString folder, Work work)
        : Qt_desktop(host_functions()), folder_(std::move(folder)), work_(work) {}

    void run(TForm& main_form) override {
        form_ = &main_form;
        main_form.show();
        QApplication::processEvents();
        if (work_ == Work::scenarios)
            work_on_scenarios();
        if (work_ == Work::map)
            work_on_map();
        if (const char* language = std::getenv("TVS_JOURNEY_LANGUAGE"))
            choose_language(language);
        if (!folder_.isEmpty())
            visit_pages(main_form,
                        [this](const std::string& captions) { take(QString::fromStdString(captions)); });
        main_form.close();
    }

    Modal_result message_box(const Message& message) override {
        Modal_result answer = Modal_result::ok;
        if (message.buttons == Button_set::yes_no || message.buttons == Button_set::yes_no_cancel)
            answer = Modal_result::yes;
        if (message.buttons == Button_set::abort_retry_ignore)
            answer = Modal_result::abort;
        std::cout << "  asked: " << (message.title.empty() ? "" : message.title + ": ") << message.text
                  << '\n';
        return answer;
    }
    bool run_file_dialog(TFileDialog& dialog) override {
        std::cout << "  asked for a file: " << dialog.title << '\n';
        return false;
    }
    // The dialog for a table takes the clipboard, and writes what can be written.
    void run_modal(TForm& form) override {
        QTimer::singleShot(0, [&] {
            static_cast<TButton*>(form.find("paste_table_button"))->click();
            if (!static_cast<TButton*>(form.find("write_scenarios_button"))->click())
                form.close();
        });
        Qt_desktop::run_modal(form);
    }
    void minimise() override {}
    void restore() override {}
    void start_timer(TTimer& timer) override {
        last_timer_ = &timer;
        Qt_desktop::start_timer(timer);
    }

private:
    template <class Control>
    Control& control(const char* name) {
        TControl* const found = form_->find(name);
        if (found == nullptr)
            throw std::runtime_error(std::string("there is no control ") + name);
        found->bring_to_front();
        return static_cast<Control&>(*found);
    }
    void step(const char* what) {
        std::cout << "== " << what << '\n'; // so that it stands out from what the stand-ins say
        QApplication::processEvents();
    }
    void press(const char* name) {
        if (!control<TControl>(name).click())
            std::cout << "  " << name << " cannot be pressed now\n";
        QApplication::processEvents();
        print_commands();
    }

    // What the commands page holds that was not printed yet.
    void print_commands() {
        const std::string history = static_cast<TMemo*>(form_->find("command_history_memo"))->text();
        for (std::size_t start = printed_; start < history.size();) {
            const std::size_t end = std::min(history.find('\n', start), history.size());
            std::cout << "  started: " << history.substr(start, end - start) << '\n';
            start = end + 1;
        }
        printed_ = history.size();
    }

    std::string scenarios_folder() {
        return record_text(
            static_cast<TFileListBox*>(form_->find("created_scenarios_filelistbox"))->folder());
    }
    // The project's folder, by the folder that its scenarios are listed from.
    std::string project_folder() {
        const std::string folder = scenarios_folder();
        return folder.substr(0, folder.rfind('\\'));
    }
    // Waits a while for a file, which another program writes.
    void await(const std::string& file) {
        constexpr int longest = 100;
        for (int i = 0; i < longest && !platform::is_file(file); ++i)
            QThread::msleep(100);
        std::cout << "  came of it: " << (platform::is_file(file) ? "" : "no ") << screen_text(file) << '\n';
    }

    // The section of a scenario's file.
    std::string soil_water(const std::string& scenario) {
        constexpr std::size_t largest = std::size_t{1} << 20;
        const std::string file = scenarios_folder() + '\\' + record_text(scenario);
        const std::string text = platform::read_file(file, largest).contents;
        const std::size_t start = text.find("[H2O]");
        return start == std::string::npos ? "" : text.substr(start, text.find("\n[", start) - start);
    }

    void check(const char* list, const std::vector<std::string>& lines) {
        auto& box = control<TListBox>(list);
        for (const std::string& line : lines)
            if (!box.check(box.index_of(line)))
                std::cout << "  there is no line " << line << '\n';
    }
    void select(const std::string& scenario) {
        auto& box = control<TListBox>("created_scenarios_filelistbox");
        box.select(box.index_of(scenario));
    }

    void work_on_scenarios() {
        auto& list = control<TListBox>("created_scenarios_filelistbox");
        if (list.count() < 3)
            throw std::runtime_error("the example project has too few scenarios");
        const std::string first = list.line(0).text;
        const std::string second = list.line(1).text;
        const std::string third = list.line(2).text;

        step("New scenario, as a copy of the first");
        select(first);
        control<TCheckBox>("checkbox_copy_active_scenario").check();
        control<TEdit>("edit_new_scenario_name").select_all();
        control<TEdit>("edit_new_scenario_name").type_text("my own");
        press("scenario_create_button");

        step("Run it, and view its output");
        press("relist_scenarios_button");
        select("my own.tvn");
        press("senerios_run_button");
        await(scenarios_folder() + "\\my own\\Output\\season.xeb");
        press("view_output_button");

        step("A batch of three");
        check("created_scenarios_filelistbox", {first, second, third});
        press("senerios_run_button");
        for (const std::string& name : {first, second, third})
            await(scenarios_folder() + '\\' + record_text(name.substr(0, name.rfind('.'))) +
                  "\\Output\\season.xeb");

        work_on_runs();

        step("Compare my own scenario with another");
        select("my own.tvn");
        check("created_scenarios_filelistbox", {second});
        press("button_compare_project_scenarios");

        step("Give two scenarios the soil water of my own one");
        check("created_scenarios_filelistbox", {second, third});
        control<TCheckBox>("reset_soil_profile_checkbox").check();
        press("reset_scenario_button");
        control<TCheckBox>("reset_soil_profile_checkbox").check(false);
        press("scenerios_select_none_button");
        for (const std::string& name : {second, third})
            std::cout << "  came of it: " << name << " has "
                      << (soil_water(name) == soil_water("my own.tvn") ? "the same" : "another")
                      << " soil water\n";

        step("All combinations of the project's parameter files");
        press("combinatorial_scenario_generation_button");
        auto& generated = control<TListBox>("generated_scenarios_filelistbox");
        std::cout << "  came of it: " << generated.count() << " scenarios\n";
        step("Two scenarios from a table");
        set_clipboard_text(family);
        press("table_scenario_generation_button");
        control<TListBox>("created_scenarios_filelistbox");
        select("my own.tvn");

        step("The means of the yields are to be tallied");
        choose_tallies();

        step("An optimization of grazing");
        press("show_optimization_model_button");
        std::cout << "  to be run: " << control<TEdit>("carbon_seq_scenario_count_output").text()
                  << " scenarios\n";
        press("run_button");
        await(project_folder() + "\\Carbon_sequestration_optimization\\optimization.xeb");
        press("opt_C_seq_view_results");

        step("The settings of four scenarios beside their template, one of them given to all");
        check("created_scenarios_filelistbox", {first, second, third});
        control<TCheckBox>("settings_template_checkbox").check();
        give_to_all_scenarios("size", "21.5");
    }

    // Nothing of it is applied.
    void give_to_all_scenarios(const std::string& key, const std::string& value) {
        auto& table = control<TTable>("settings_table");
        const int last = table.column_count() - 1;
        for (int row = 0; row < table.count(); ++row)
            if (table.rows()->cell(row, 0).text == key && table.edit_cell(row, last, value) &&
                table.click_cell(row, last))
                press("settings_give_to_all_button");
        std::cout << "  " << static_cast<TLabel*>(form_->find("settings_count_label"))->text() << '\n';
    }

    // Copies of a scenario as another program leaves them; their names.
    std::vector<std::string> make_plots(const std::string& scenario) {
        std::vector<std::string> plots;
        for (int plot = 1; plot <= 20; ++plot) {
            plots.push_back((plot < 10 ? "plot 0" : "plot ") + std::to_string(plot));
            platform::copy_file(scenarios_folder() + '\\' + scenario,
                                scenarios_folder() + '\\' + plots.back() + ".tvn");
        }
        return plots;
    }
    // How far the set that the page shows is.
    std::string how_far() { return static_cast<TLabel*>(form_->find("run_set_progress_label"))->text(); }
    bool is_at_work() { return form_->find("runs_stop_button")->enabled(); }
    // Lets the program work until the sign holds, not longer than a minute.
    template <class Sign>
    void work_until(Sign sign) {
        constexpr int longest = 1200;
        for (int i = 0; i < longest && !sign(); ++i) {
            QThread::msleep(50);
            QApplication::processEvents();
        }
        std::cout << "  came of it: " << how_far() << '\n';
    }

    // A set of runs with two failures, on the page Runs: stopped, continued, repaired and repeated. What the
    // stand-in for the model is to do is told by its environment.
    void work_on_runs() {
        step("20 scenarios run beside the program, and are stopped on the way");
        std::vector<std::string> plots = make_plots("my own.tvn");
        qputenv("TVS_STAND_IN_SECONDS", "0.1");
        qputenv("TVS_STAND_IN_FAILURES", (plots.front() + ';' + plots[7]).c_str());
        press("relist_scenarios_button");
        for (std::string& plot : plots)
            plot += ".tvn";
        check("created_scenarios_filelistbox", plots);
        press("run_beside_button");
        const auto is_on_the_way = [this] { return !is_at_work() || !how_far().starts_with("0 "); };
        work_until(is_on_the_way);
        press("runs_stop_button");
        work_until([this] { return !is_at_work(); });

        step("They are continued, to their end");
        press("runs_continue_button");
        work_until([this] { return !is_at_work(); });

        step("The log of one that has failed");
        auto& runs = control<TTable>("runs_table");
        for (int row = 0; row < runs.count(); ++row)
            if (runs.rows()->cell(row, 0).text == "failed") {
                runs.select_row(row);
                std::cout << "  failed: " << runs.rows()->cell(row, 1).text << ", "
                          << runs.rows()->cell(row, 4).text << '\n';
            }
        press("runs_show_log_button");
        std::string log = control<TMemo>("run_log_memo").text();
        log.erase(log.find_last_not_of('\n') + 1);
        std::cout << "  came of it: " << log.substr(log.rfind('\n') + 1) << '\n';
        if (!folder_.isEmpty())
            take("runs that have failed");
        press("runs_show_log_button");

        step("The cause of the two failures is gone: they are run once more");
        qunsetenv("TVS_STAND_IN_FAILURES");
        press("runs_failed_again_button");
        work_until([this] { return !is_at_work(); });
        qunsetenv("TVS_STAND_IN_SECONDS");
        control<TListBox>("created_scenarios_filelistbox");
        press("scenerios_select_none_button");
    }

    void choose_tallies() {
        for (const char* list : {"GIS_GS_variable_listbox", "GIS_annl_variable_listbox"}) {
            auto& variables = control<TListBox>(list);
            variables.select(variables.index_of("Yield"));
        }
        control<TCheckListBox>("GIS_GS_stats_bitcheckbox").check(2);
    }

    void work_on_map() {
        step("The project once more, as one of type GIS: a run over its map");
        press("run_button");
        await(project_folder() + "\\GIS\\GIS_scenarios.dbf");
        await(project_folder() + "\\GIS\\aggregation\\soils.dbf");
    }

    void choose_language(const std::string& language) {
        auto& choice = control<TRadioGroup>("radiogroup_translation_target_language");
        const auto& items = choice.native_items();
        last_timer_ = nullptr;
        choice.select(static_cast<int>(std::find(items.begin(), items.end(), language) - items.begin()));
        translation_timer_ = last_timer_;
        if (translation_timer_ == nullptr)
            std::cout << "  " << language << " cannot be chosen\n";
    }
    // All that the program would translate bit by bit in the next seconds.
    void translate() const {
        while (translation_timer_ != nullptr && translation_timer_->enabled())
            translation_timer_->fire();
    }

    void take(QString name) {
        constexpr int longest_name = 150;
        translate();
        QApplication::processEvents();
        for (QChar& c : name)
            c = c.isLetterOrNumber() ? c.toLower() : QChar('_');
        const QString file = folder_ + "/" + name.left(longest_name) + ".png";
        auto& window = static_cast<View*>(form_->view())->widget();
        std::cout << (window.grab().save(file) ? "picture: " : "cannot write ") << file.toStdString() << '\n';
    }

    QString folder_;
    Work work_;
    TForm* form_ = nullptr;
    std::size_t printed_ = 0;
    TTimer* last_timer_ = nullptr;
    TTimer* translation_timer_ = nullptr;
};

// Opens the project in the program, until its window is closed.
int open(const QString& folder, Journey_desktop::Work work, std::vector<std::string> arguments) {
    if (!folder.isEmpty())
        QDir().mkpath(folder);
    Shapelib_reader polygons;
    Csv_table_reader tables;
    Program_services services;
    services.polygons = &polygons;
    services.tables = &tables;
    services.make_desktop = [&] { return std::make_unique<Journey_desktop>(folder, work); };
    return run_program(arguments, services, std::cerr);
}

} // namespace

int main(int argc, char** argv) {
    if (const auto exit_code = supervise_if_asked(argc, argv))
        return *exit_code;
    if (argc < 5 || (std::string(argv[1]) != "pages" && std::string(argv[1]) != "work")) {
        std::cerr << "journey pages|work FOLDER PROGRAM PROJECT [TYPE]\n";
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    std::cout << std::unitbuf;
    const QApplication application(argc, argv);
    using Work = Journey_desktop::Work;
    const QString folder = argv[2];
    const std::vector<std::string> project{argv[3], argv[4]};
    if (std::string(argv[1]) == "pages")
        return open(folder, Work::none, {argv + 3, argv + argc});
    const std::vector<std::string> map{argv[3], argv[4], "GIS"};
    int failed = open(folder, Work::scenarios, project);
    // What a run over the map left is shown when the project is opened the next time.
    failed |= open("", Work::map, map);
    failed |= open(folder + "/GIS", Work::none, map);
    return failed;
}
