// Draws each page of the project form, and the windows beside it, in several languages and sizes:
//
//     pictures light|dark FOLDER PROGRAM PROJECT [TYPE]
//
// A picture is FOLDER/LANGUAGE_SIZE/PAGE.png. What a user would be asked is drawn and given up.
#include "app/entry.h"
#include "desktop_qt/dark_style.h"
#include "desktop_qt/menus.h"
#include "desktop_qt/qt_desktop.h"
#include "editing/auto_calendar.h"
#include "editing/recent_file_selector_form.h"
#include "main/host_functions.h"
#include "maps_shapelib/shapelib_reader.h"
#include "names/typed_filenames.h"
#include "page_walk.h"
#include "table_csv/csv_table_reader.h"
#include "toolkit/button.h"
#include "toolkit/check_box.h"
#include "toolkit/list_box.h"
#include "toolkit/menu.h"
#include "toolkit/page_control.h"
#include "toolkit/table.h"
#include "toolkit/timer.h"

#include <QtCore/QDir>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QStyleFactory>

#include <algorithm>
#include <iostream>

namespace {

struct Size {
    const char* name;
    int width;
    int height;
};
constexpr Size sizes[] = {{"small", 1024, 700}, {"large", 1680, 1050}};
// Chosen as on the page of the languages.
constexpr const char* languages[] = {"English", "Spanish", "Russian", "French"};

// A table of scenarios in which something is found.
constexpr const char* faulty_table = "name\tparameter_filenames.soil\tH2O.1\tsimulation.ending_date\n"
                                     "dry start\tDatabase\\Soil\\silt loam.sil\t0.12\t\n"
                                     "wet start\t\tmuch\t\nstony\t\t0.2\ttomorrow\nwet start\t\t0.3\t\n";

class Pictures_desktop : public Qt_desktop {
public:
    explicit Pictures_desktop(QString folder) : Qt_desktop(host_functions()), folder_(std::move(folder)) {}

    void run(TForm& main_form) override {
        form_ = &main_form;
        main_form.show();
        fill_screens();
        for (const char* language : languages) {
            choose_language(language);
            for (const Size& size : sizes) {
                place_ = folder_ + "/" + QString(language).toLower() + "_" + size.name;
                QDir().mkpath(place_);
                main_form.set_bounds({0, 0, size.width, size.height});
                visit_pages(main_form, [this](const std::string& captions) { take(captions); });
                take_optimization();
                if (&size == &sizes[0])
                    take_windows();
            }
        }
        std::cout << taken_ << " pictures in " << folder_.toStdString() << '\n';
        main_form.close();
    }

    // A dialog that a handler shows and waits for: drawn, then closed as by its frame.
    Modal_result message_box(const Message& message) override {
        dismiss_later("message " + (message.title.empty() ? message.text.substr(0, 40) : message.title));
        return Qt_desktop::message_box(message);
    }
    void run_modal(TForm& form) override {
        if (auto* const paste = static_cast<TButton*>(form.find("paste_table_button"))) {
            set_clipboard_text(faulty_table);
            QTimer::singleShot(0, qApp, [paste] { paste->click(); });
        }
        dismiss_later("dialog " + form.name());
        Qt_desktop::run_modal(form);
    }
    bool run_file_dialog(TFileDialog&) override { return false; }
    Item_path choose(TPopupMenu& menu, int) override {
        update_items(menu.items);
        QMenu shown;
        fill_menu(shown, menu.items);
        shown.popup({0, 0});
        QApplication::processEvents();
        save(shown, "menu at the pointer");
        return {};
    }
    void start_timer(TTimer& timer) override {
        last_timer_ = &timer;
        Qt_desktop::start_timer(timer);
    }

private:
    template <class Control>
    Control* reach(const char* name) {
        TControl* const found = form_->find(name);
        if (found != nullptr)
            found->bring_to_front();
        return found != nullptr && found->usable() ? static_cast<Control*>(found) : nullptr;
    }
    void press(const char* name) {
        if (TControl* const button = reach<TControl>(name))
            button->click();
    }

    // What a user would have chosen before he looks: lines under the cursor, ticks.
    void fill_screens() {
        for (const char* name : {"GIS_GS_variable_listbox", "GIS_annl_variable_listbox"})
            if (auto* const list = reach<TListBox>(name))
                list->select(list->index_of("Yield"));
        if (auto* const table = reach<TTable>("run_sets_table"))
            table->set_cursor(table->count() - 1, 0);
        if (auto* const table = reach<TTable>("created_scenarios_filelistbox_table"))
            for (int row = 1; row < 4; ++row)
                table->toggle_tick(row);
        QApplication::processEvents();
    }

    // The page comes with its button, and goes with the next change of the others.
    void take_optimization() {
        if (TControl* const button = reach<TControl>("show_optimization_model_button")) {
            button->click();
            take("Parameters, Optimization models");
        }
    }

    void choose_language(const std::string& language) {
        auto* const choice = reach<TRadioGroup>("radiogroup_translation_target_language");
        if (choice == nullptr)
            return;
        const auto& items = choice->native_items();
        last_timer_ = nullptr;
        choice->select(static_cast<int>(std::find(items.begin(), items.end(), language) - items.begin()));
        translation_timer_ = last_timer_;
    }
    void translate() const {
        while (translation_timer_ != nullptr && translation_timer_->enabled())
            translation_timer_->fire();
    }

    void take(const std::string& name) {
        translate();
        QApplication::processEvents();
        save(static_cast<View*>(form_->view())->widget(), name);
    }
    void save(QWidget& window, const std::string& name) {
        constexpr int longest_name = 100;
        QString file = QString::fromStdString(name).left(longest_name);
        for (QChar& c : file)
            c = c.isLetterOrNumber() ? c.toLower() : QChar('_');
        if (!window.grab().save(place_ + "/" + file + ".png"))
            std::cerr << "cannot write " << (place_ + "/" + file).toStdString() << '\n';
        ++taken_;
    }
    void dismiss_later(const std::string& name) {
        QTimer::singleShot(30, qApp, [this, name] {
            if (QWidget* const shown = QApplication::activeModalWidget()) {
                save(*shown, name);
                shown->close();
            }
        });
    }

    // What stands beside the window, once for each language: menus, dialogs, messages, other windows.
    void take_windows() {
        QWidget& window = static_cast<View*>(form_->view())->widget();
        if (const auto* const bar = window.findChild<QMenuBar*>())
            for (QAction* action : bar->actions()) {
                QMenu& menu = *action->menu();
                emit menu.aboutToShow();
                menu.popup({0, 0});
                QApplication::processEvents();
                save(menu, "menu " + std::to_string(bar->actions().indexOf(action)));
                menu.close();
            }
        for (const char* button :
             {"scenario_delete_button", "senerios_run_button", "reset_scenario_button", "explore_file_button",
              "GIS_coverage_table_button", "table_scenario_generation_button",
              "combinatorial_scenario_generation_button"})
            press(button);
        static_cast<TMainMenu*>(form_->find("main_menu"))->choose("File|Properties...");
        if (auto* const table = reach<TTable>("created_scenarios_filelistbox_table"))
            table->open_menu(0, 0);
        for (QWidget* other : QApplication::topLevelWidgets())
            if (other != &window && other->isVisible()) {
                QApplication::processEvents();
                save(*other, "window " + other->objectName().toStdString());
                other->close();
            }
        TVP_filename no_file{"noname"};
        Trecent_file_selector_form start_page;
        start_page.make_example = [] { return std::string(); };
        start_page.bind(no_file, false, "");
        start_page.show_modal();
        TESK::Date date(2024060);
        TAutoCalendar_form calendar;
        calendar.bind_to(&date, "YYYY/Mmm/DD", false, nullptr);
        calendar.show_modal();
    }

    QString folder_;
    QString place_;
    TForm* form_ = nullptr;
    int taken_ = 0;
    TTimer* last_timer_ = nullptr;
    TTimer* translation_timer_ = nullptr;
};

} // namespace

int main(int argc, char** argv) {
    if (argc < 5 || (std::string(argv[1]) != "light" && std::string(argv[1]) != "dark")) {
        std::cerr << "pictures light|dark FOLDER PROGRAM PROJECT [TYPE]\n";
        return 2;
    }
    QApplication application(argc, argv);
    if (std::string(argv[1]) == "dark") {
        QApplication::setStyle(QStyleFactory::create("Fusion"));
        QApplication::setPalette(dark_palette());
    }
    Shapelib_reader polygons;
    Csv_table_reader tables;
    Program_services services;
    services.polygons = &polygons;
    services.tables = &tables;
    services.make_desktop = [&] { return std::make_unique<Pictures_desktop>(argv[2]); };
    return run_program({argv + 3, argv + argc}, services, std::cerr);
}
