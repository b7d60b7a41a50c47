// Draws a gallery of all controls in their states into a folder, one picture a window: gallery FOLDER
#include "desktop_qt/dark_style.h"
#include "desktop_qt/qt_desktop.h"
#include "editing/auto_calendar.h"
#include "editing/auto_month_label.h"
#include "toolkit/button.h"
#include "toolkit/check_box.h"
#include "toolkit/combo_box.h"
#include "toolkit/file_list_box.h"
#include "toolkit/label.h"
#include "toolkit/month_grid.h"
#include "toolkit/page_control.h"
#include "toolkit/splitter.h"
#include "toolkit/table.h"
#include "toolkit/web_view.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QWidget>

#include <iostream>

namespace {

// Folders with something in them, so that the pictures are the same everywhere.
class Sample_folders : public Folder_source {
public:
    std::vector<Folder_entry> files(const std::string& folder, const std::string&) override {
        std::vector<Folder_entry> found;
        for (const char* name : {"barley_1999.tvn", "irrigated maize.tvn", "no-till wheat after fallow.tvn",
                                 "rotation (long name that does not fit into a narrow list box).tvn"})
            found.push_back({name, folder + "\\" + name});
        return found;
    }
    std::vector<Folder_entry> folders(const std::string& folder) override {
        if (folder.size() > 30)
            return {};
        return {{"Crop", folder + "\\Crop"}, {"Soil", folder + "\\Soil"}, {"Weather", folder + "\\Weather"}};
    }
};

class Gallery {
public:
    explicit Gallery(QString folder) : folder_(std::move(folder)) {}

    void picture(QWidget& window, const QString& name) {
        QApplication::processEvents();
        const QString file = folder_ + "/" + name + suffix + ".png";
        if (!window.grab().save(file)) {
            std::cerr << "cannot write " << file.toStdString() << "\n";
            failed = true;
        }
    }

    void picture(TForm& form, int width, int height, const QString& name) {
        if (width > 0)
            form.set_bounds({0, 0, width, height});
        form.show();
        picture(static_cast<View*>(form.view())->widget(), name);
        form.close();
    }

    // Takes the picture of what a dialog shows, and dismisses it.
    void picture_of_dialog(const std::function<void()>& ask, const QString& name) {
        QTimer::singleShot(50, [&] {
            QWidget* const shown = QApplication::activePopupWidget() ? QApplication::activePopupWidget()
                                                                     : QApplication::activeModalWidget();
            if (shown) {
                picture(*shown, name);
                shown->close();
            }
        });
        ask();
    }

    QString suffix;
    bool failed = false;

private:
    QString folder_;
};

template <class Control, class... Arguments>
Control& add_row(TContainer& grid, const std::string& caption, Arguments&&... arguments) {
    grid.add<TLabel>("label", caption).set_names_next(true);
    return grid.add<Control>(std::forward<Arguments>(arguments)...);
}

void add_texts(TContainer& page) {
    auto& texts = page.add<TGroupBox>("texts", "Texts", Layout::grid, 2);
    auto& name = add_row<TEdit>(texts, "&Name", "name");
    name.set_text("Caf\xC3\xA9 au lait, \xE2\x89\xA5 20 \xC2\xB0"
                  "C");
    name.set_hint("The name of the scenario, as it stands in lists and in reports, however long it may be.");
    auto& number = add_row<TEdit>(texts, "N&umber", "number");
    number.set_text("1234.50");
    number.set_right_aligned(true);
    number.set_place({.align = Align::start, .width = 12});
    auto& focused = add_row<TEdit>(texts, "With the &focus", "focused");
    focused.set_text("selected text");
    focused.set_colour(focus_colour);
    focused.select_all();
    focused.focus();
    add_row<TEdit>(texts, "Disabled", "disabled").set_text("cannot be typed into");
    texts.find("disabled")->set_enabled(false);
    auto& read_only = add_row<TEdit>(texts, "Read only", "read_only");
    read_only.set_text("can be copied");
    read_only.set_read_only(true);
    auto& units = add_row<TComboBox>(texts, "Uni&ts", "units");
    units.set_items({"kg/ha", "t/ha", "lb/acre"});
    units.set_item_index(1);
    auto& attribute = add_row<TComboBox>(texts, "&Attribute", "attribute", true);
    attribute.set_items({"MUID", "SLOPE"});
    attribute.set_text("not among the items");
    auto& memo = add_row<TMemo>(texts, "N&otes", "notes");
    memo.set_text("First line of the notes\nSecond line\n");
    memo.set_place({.height = 3});
    auto& source = add_row<TMemo>(texts, "&Commands", "source");
    source.set_fixed_pitch(true);
    source.set_text("\"C:\\Simulation\\tilverra_5.exe\"  \"C:\\Projects\\a.tvp\" \"b.tvn\" \n");
    source.set_place({.height = 2});
}

void add_choices(TContainer& page) {
    auto& choices = page.add<TGroupBox>("choices", "Choices", Layout::column);
    choices.add<TCheckBox>("on", "Checked").set_checked(true);
    choices.add<TCheckBox>("off", "&Not checked");
    auto& disabled = choices.add<TCheckBox>("disabled_check", "Checked and disabled");
    disabled.set_checked(true);
    disabled.set_enabled(false);
    choices
        .add<TRadioGroup>(
            "format", "Report format",
            std::vector<std::string>{"specified in each scenario", "specified below for all runs"})
        .set_item_index(1);
    choices.add<TRadioGroup>("level", "Database",
                             std::vector<std::string>{"Arbitrary", "Master", "Project", "Scenario"}, 4);
    auto& off =
        choices.add<TRadioGroup>("off_group", "Disabled", std::vector<std::string>{"One", "Other"}, 2);
    off.set_item_index(0);
    off.set_enabled(false);
}

void add_buttons(TContainer& page) {
    auto& buttons = page.add<TGroupBox>("buttons", "Buttons", Layout::row);
    buttons.add<TButton>("ok", "&OK").set_default(true);
    buttons.add<TButton>("cancel", "Cancel");
    buttons.add<TButton>("off", "Disabled").set_enabled(false);
    buttons.add<TButton>("clear", "X").set_place({.width = 3});
    buttons.add<TSpeedButton>("up", "GIS");
    buttons.add<TSpeedButton>("down", "Optimization").set_down(true);
    auto& year = buttons.add<TEdit>("year");
    year.set_text("2026");
    year.set_right_aligned(true);
    year.set_place({.width = 6});
    buttons.add<TSpinArrows>("year_updown");
    auto& off = buttons.add<TSpinArrows>("off_arrows");
    off.set_enabled(false);
}

void draw_controls(Gallery& gallery) {
    TForm form("controls", "Controls", Layout::column);
    auto& both = form.add<TPanel>("both", Layout::row);
    both.set_place({.stretch = 1});
    add_texts(both);
    add_choices(both);
    add_buttons(form);
    auto& run = form.add<TProgressBar>("run");
    run.set_maximum(8);
    run.set_position(3);
    gallery.picture(form, 0, 0, "controls");
}

void draw_lights(Gallery& gallery) {
    TForm form("lights", "Status", Layout::row);
    auto& lights = form.add<TGroupBox>("lights", "Lights", Layout::grid, 2);
    for (int status = 0; status <= 13; ++status) {
        lights.add<TImage>("light", status_light(status));
        lights.add<TLabel>("meaning", std::to_string(status) + " " + status_light(status).meaning);
    }
    auto& other = form.add<TPanel>("other");
    auto& gems = other.add<TGroupBox>("gems", "Gems", Layout::grid, 2);
    for (int type = 0; type <= 5; ++type) {
        gems.add<TImage>("gem", gem_picture(type));
        gems.add<TLabel>("type", gem_picture(type).meaning);
    }
    gems.add<TImage>("disabled", gem_picture(2)).set_enabled(false);
    gems.add<TLabel>("type", "Disabled");
    auto& panels = other.add<TGroupBox>("panels", "Panels");
    for (int status = 0; status <= 13; ++status) {
        const Picture light = status_light(status);
        auto& panel = panels.add<TLabel>("panel", light.meaning);
        panel.set_colour(light.colour);
        panel.set_mark(light.mark);
    }
    auto& notes = form.add<TGroupBox>("notes", "Notes");
    auto& good = notes.add<TLabel>(
        "good", "To use optimization models, you must select an Active simulation scenario", true);
    good.set_colour(0x00ff00);
    good.set_mark(Mark::tick);
    good.set_place({.width = 30});
    auto& bad = notes.add<TLabel>(
        "bad", "To use optimization models, you must select an Active simulation scenario", true);
    bad.set_colour(0x0000ff);
    bad.set_mark(Mark::cross);
    gallery.picture(form, 0, 0, "lights");
}

void draw_lists(Gallery& gallery) {
    TForm form("lists", "Lists", Layout::grid, 3);
    std::vector<std::string> lines;
    for (int i = 1; i <= 5000; ++i)
        lines.push_back("scenario " + std::to_string(i));
    const auto column = [&](const char* caption) -> TGroupBox& {
        auto& group = form.add<TGroupBox>("group", caption);
        group.set_place({.stretch = 1});
        return group;
    };
    auto& list = column("List").add<TListBox>("list");
    list.set_lines({"Planting date", "Biomass consumed_by animals", "<This variable is not talliable>"});
    list.set_line_enabled(2, false);
    list.set_item_index(1);
    auto& several = column("Several selected").add<TListBox>("several", true);
    several.set_lines({"AL Alabama", "AK Alaska", "AZ Arizona"});
    several.set_selected(0, true);
    several.set_selected(2, true);
    auto& checked = column("Checked, 5,000 lines").add<TCheckListBox>("checked");
    checked.set_lines(lines);
    checked.set_checked(1, true);
    checked.set_checked(4, true);
    checked.set_line_enabled(2, false);
    checked.set_item_index(3);
    auto& files = column("Files, checked").add<TFileCheckListBox>("files");
    files.set_folder("C:\\Project\\Scenarios");
    files.set_checked(1, true);
    files.set_item_index(2);
    auto& shell = column("Shell list").add<TShellListView>("shell");
    shell.set_folder("C:\\Project\\GIS");
    shell.set_selected(1, true);
    auto& tree = column("Shell tree").add<TShellTreeView>("tree");
    tree.set_folder("C:\\Project\\Database");
    auto& off = column("Disabled").add<TCheckListBox>("off");
    off.set_lines({"first", "second"});
    off.set_checked(0, true);
    off.set_enabled(false);
    column("Empty").add<TListBox>("empty");
    gallery.picture(form, 900, 620, "lists");
}

// Scenarios as a table shows them.
class Sample_scenarios : public Table_rows {
public:
    int count() const override { return 10000; }
    Table_cell cell(int row, int column) const override {
        constexpr const char* crops[] = {"maize", "winter wheat", "barley, undersown"};
        const int status = row % 14;
        switch (column) {
        case 0:
            return {crops[row % 3] + std::string(" ") + std::to_string(1990 + row) + ".tvn",
                    status_light(status)};
        case 1: return {status_light(status).meaning};
        case 2: return {std::to_string(row * 7 % 100) + ".5"};
        case 3: return {"low", {}, row == 3 ? Colour{0x6677ff} : desktop_colour};
        default: return {"Rotation of four years with irrigation after the second"};
        }
    }
    bool ticked(int row) const override { return row % 4 == 1; }
    std::optional<Cell_editor> editor(int, int column) const override {
        return column == 3 ? std::optional(Cell_editor{Cell_editor::Kind::choice, {"low", "high"}})
                           : std::nullopt;
    }
};

std::vector<Menu_item> sample_menus() {
    const auto plain = [](const char* text) { return Menu_item{.text = text, .on_click = [] {}}; };
    return {
        {.text = "&File",
         .items = {{.text = "&Open", .on_click = [] {}, .shortcut = "Ctrl+O"},
                   {.text = "&Save", .enabled = false, .shortcut = "Ctrl+S", .hint = "Nothing was changed"},
                   {.text = "-"},
                   {.text = "Open &recent", .items = {plain("irrigation.tvp")}},
                   {.text = "&Light", .on_click = [] {}, .checkable = true, .checked = true}}},
        {.text = "&Edit", .items = {plain("&Undo")}},
        {.text = "&Help", .items = {plain("&Guide")}}};
}

void draw_tables(Gallery& gallery) {
    Sample_scenarios scenarios;
    const std::vector<Table_column> columns = {{"name", "Scenario", 24},
                                               {"state", "State", 24},
                                               {"depth", "Depth (cm)", 12, Align::end},
                                               {"level", "Level", 10},
                                               {"notes", "Description", 30, Align::start, true, false}};
    TForm form("tables", "Tables, menu bar, splitter, status line");
    form.add<TMainMenu>("menu").set_items(sample_menus());
    auto& path = form.add<TPanel>("path", Layout::row);
    auto& cut =
        path.add<TLabel>("cut", "C:\\Projects\\A folder with a long name\\and one below it\\irrigation.tvp");
    cut.set_cut(Cut::middle);
    auto& name = path.add<TEdit>("name");
    name.set_text(
        "C:\\Projects\\A folder with a long name\\and one below it with another\\irrigation_of_maize.tvn");
    name.set_cuts_middle(true);
    auto& splitter = form.add<TSplitter>("splitter");
    splitter.set_place({.stretch = 1});
    splitter.set_position(650);
    auto& table = splitter.add<TTable>("table", TTable::Selects::rows, true);
    table.set_columns(columns);
    table.set_rows(&scenarios);
    table.set_sort(0, false);
    table.set_cursor(2, 0);
    table.set_selected_rows({{2, 2}, {5, 6}});
    auto& right = splitter.add<TSplitter>("right", Layout::column);
    auto& block = right.add<TTable>("block", TTable::Selects::cells);
    block.set_columns(columns);
    block.set_rows(&scenarios);
    block.set_column_visible(1, false);
    auto& empty = right.add<TTable>("empty");
    empty.set_columns(columns);
    empty.set_text("There are no scenarios yet. Press \"<- New\" to make one.");
    form.add<TStatusLine>("status").show("Model not found: C:\\Tilverra\\tilverra_5.exe; see Commands",
                                         Mark::cross);
    table.focus();
    gallery.picture(form, 1100, 560, "tables");
}

void draw_calendar(Gallery& gallery) {
    struct Sample {
        std::int32_t date_num;
        bool relative;
        const char* picture;
    };
    for (const Sample& sample : {Sample{2024060, false, "calendar"},
                                 {1, true, "calendar_relative"},
                                 {0, false, "calendar_no_date"}}) {
        TESK::Date date(sample.date_num);
        TAutoCalendar_form form;
        form.bind_to(&date, "YYYY/Mmm/DD", sample.relative, nullptr);
        gallery.picture(form, 0, 0, sample.picture);
    }
}

void draw_year(Gallery& gallery) {
    TForm form("year", "Dates and the year");
    TESK::Date date(2024060);
    form.add<TAutoDateButton>("date").bind_to(&date, "Mmm-DD", false, nullptr);
    form.add<TAutoMonthLabel>("leap");
    form.add<TAutoMonthLabel>("non_leap").set_non_leap(true);
    gallery.picture(form, 0, 0, "year");
}

void draw_pages(Gallery& gallery, const std::string& page) {
    TForm form("pages", "Month and page", Layout::row);
    auto& month = form.add<TGroupBox>("month", "Month");
    month.add<TMonthGrid>("days").set_month(30, 2, 17);
    auto& web = form.add<TGroupBox>("web", "Details");
    web.add<TWebView>("viewer").navigate(page);
    web.set_place({.stretch = 1});
    auto& outside = form.add<TGroupBox>("outside", "On the web");
    outside.add<TWebView>("link").navigate("https://example.org/manual.htm");
    outside.set_place({.stretch = 1});
    gallery.picture(form, 1000, 320, "month_and_page");
}

void fill_scenarios(TTabSheet& sheet) {
    auto& left = sheet.add<TPageControl>("pagecontrol_scenarios");
    left.set_place({.stretch = 2});
    auto& list =
        left.add<TTabSheet>("created", "Scenarios created for this project").add<TFileCheckListBox>("files");
    list.set_folder("C:\\Project\\Scenarios");
    list.set_checked(0, true);
    list.set_item_index(1);
    left.add<TTabSheet>("generated", "Generated scenarios");
    auto& right = sheet.add<TPageControl>("edit_run_pagecontrol");
    right.set_place({.stretch = 1});
    auto& edit = right.add<TTabSheet>("edit", "Edit");
    auto& fresh = edit.add<TPanel>("new", Layout::row);
    fresh.add<TButton>("create", "<- New");
    fresh.add<TEdit>("new_name").set_place({.stretch = 1});
    edit.add<TCheckBox>("copy", "Copy active scenario").set_checked(true);
    for (const char* caption : {"Open active scenario", "Open another project scenario",
                                "Import version 3 (.SIM) file", "Delete scenario(s)", "Explore scenarios",
                                "Relist any added scenarios", "Select all scenarios", "Deselect all"})
        edit.add<TButton>("button", caption);
    for (const char* caption : {"Run", "Reset", "Analysis"})
        right.add<TTabSheet>("page", caption);
}

void draw_workspace(Gallery& gallery, int width, int height, const QString& name) {
    TForm form("workspace", "Tilverra project: irrigation_study.tvp");
    auto& top = form.add<TPanel>("top", Layout::row);
    top.add<TLabel>("label", "Description").set_names_next(true);
    top.add<TEdit>("description").set_text("Irrigation of maize on three soils");
    top.find("description")->set_place({.stretch = 1});
    auto& pages = form.add<TPageControl>("page_control_parameters_etc", Tabs::below);
    pages.set_place({.stretch = 1});
    auto& parameters = pages.add<TTabSheet>("parameters", "Parameters");
    for (const char* caption : {"Details", "Notes", "Help", "Commands", "Status", "Translation"})
        pages.add<TTabSheet>("page", caption);
    auto& project = parameters.add<TPageControl>("project_pagecontrol");
    fill_scenarios(project.add<TTabSheet>("scenarios_tabsheet", "Simulation scenarios", Layout::row));
    project.add<TTabSheet>("options", "Options");
    project.add<TTabSheet>("hidden", "GIS").set_visible(false);
    project.add<TTabSheet>("comparison", "Scenario comparisons");
    auto& bottom = form.add<TPanel>("panel_buttons", Layout::row);
    bottom.add<TButton>("ok", "Save/Close");
    bottom.add<TButton>("cancel", "Cancel");
    bottom.add<TButton>("save_as", "Save as");
    bottom.add<TCheckBox>("advanced", "Advanced");
    bottom.add<TPanel>("room").set_place({.stretch = 1});
    bottom.add<TButton>("explore", "Explore");
    gallery.picture(form, width, height, name);
}

void draw_dialogs(Gallery& gallery) {
    const auto ask = [](const char* text, const char* title, Button_set buttons) {
        return [=] { message_box(text, title, buttons); };
    };
    gallery.picture_of_dialog(
        ask("This scenario does not have any output.  First run the simulation", "", Button_set::ok),
        "message_ok");
    gallery.picture_of_dialog(ask("Delete the selected files completely ([No] will move file to recycle bin)",
                                  "Delete files", Button_set::yes_no_cancel),
                              "message_yes_no_cancel");
    gallery.picture_of_dialog(
        ask("Unable to save to parameter file (check that the file is not marked as read only)",
            "Unable to save", Button_set::abort_retry_ignore),
        "message_abort_retry_ignore");
    TPopupMenu menu;
    menu.items = sample_menus()[0].items;
    gallery.picture_of_dialog([&] { menu.popup(); }, "menu");
}

void draw_all(Gallery& gallery, const std::string& page) {
    Qt_desktop desktop;
    const Desktop_scope scope(desktop);
    draw_controls(gallery);
    draw_lights(gallery);
    draw_lists(gallery);
    draw_tables(gallery);
    draw_calendar(gallery);
    draw_year(gallery);
    draw_pages(gallery, page);
    draw_workspace(gallery, 1024, 700, "workspace_1024");
    draw_workspace(gallery, 1600, 900, "workspace_1600");
    draw_dialogs(gallery);
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    if (argc != 2 || !QDir().mkpath(argv[1])) {
        std::cerr << "gallery FOLDER\n";
        return 1;
    }
    Sample_folders folders;
    current_folder_source = &folders;
    Gallery gallery(argv[1]);
    const std::string page = std::string(argv[1]) + "/details.htm";
    QFile file(QString::fromStdString(page));
    if (file.open(QFile::WriteOnly)) {
        file.write("<html><h2>Details</h2><p>See <a href=\"other.htm\">the other page</a>, soils at 20 \xB0"
                   "C.</p></html>");
        file.close();
    }
    draw_all(gallery, page);
    application.setStyle(QStyleFactory::create("Fusion"));
    application.setPalette(dark_palette());
    gallery.suffix = "_dark";
    draw_all(gallery, page);
    file.remove();
    return gallery.failed ? 1 : 0;
}
