// The list of a project's 10,000 scenarios, drawn: what a keystroke in its filter costs, and one state that
// changes, which must cost one line. Run with QT_QPA_PLATFORM=offscreen where there is no display.
#include "app/scenario_list_table.h"
#include "desktop_qt/qt_desktop.h"
#include "editing/record_folders.h"
#include "platform/file_writer.h"
#include "platform/files.h"
#include "support/inputs.h"

#include <benchmark/benchmark.h>

#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

constexpr int scenarios = 10'000;
constexpr int width = 900;
constexpr int height = 700;

std::string make_folder() {
    const std::string folder = input_name("scenario_list");
    platform::remove_tree(folder);
    platform::make_folders(folder);
    constexpr const char* crops[] = {"barley", "maize", "peas", "rye", "wheat"};
    for (int i = 1; i <= scenarios; ++i) {
        char name[16];
        std::snprintf(name, sizeof name, "%05d.tvn", i);
        const std::string text = std::string("[scenario]\r\ndescription=") + crops[i % 5] + " on plot " +
                                 std::to_string(i) + "\r\n";
        platform::write_file(folder + '\\' + name, text, platform::Durability::quick);
    }
    return folder;
}

class Scenario_list : public benchmark::Fixture {
public:
    void SetUp(const benchmark::State&) override {
        desktop_ = std::make_unique<Qt_desktop>();
        scope_ = std::make_unique<Desktop_scope>(*desktop_);
        current_folder_source = &folders_;
        form_ = std::make_unique<TForm>("form");
        table_ = std::make_unique<Scenario_list_table>(*form_, "list");
        table_->list.set_mask("*.tvn");
        form_->set_bounds({0, 0, width, height});
        form_->show();
        static const std::string folder = make_folder();
        table_->list.set_folder(folder);
        for (int line = 0; line < scenarios; line += 3)
            table_->list.set_checked(line, true);
        // Until the descriptions are known.
        table_->filter_edit.set_text("plot");
        table_->filter_edit.on_change();
        while (table_->table.count() < scenarios)
            paint();
    }
    void TearDown(const benchmark::State&) override {
        table_.reset();
        form_.reset();
        current_folder_source = nullptr;
        scope_.reset();
        desktop_.reset();
    }

protected:
    static void paint() { QCoreApplication::processEvents(); }

    Record_folders folders_;
    std::unique_ptr<Qt_desktop> desktop_;
    std::unique_ptr<Desktop_scope> scope_;
    std::unique_ptr<TForm> form_;
    std::unique_ptr<Scenario_list_table> table_;
};

BENCHMARK_F(Scenario_list, filtered_by_a_keystroke)(benchmark::State& state) {
    const std::string typed = "wheat 12";
    std::size_t length = 0;
    for (auto _ : state) {
        length = length % typed.size() + 1;
        table_->filter_edit.set_text(typed.substr(0, length));
        table_->filter_edit.on_change();
        paint();
    }
}

BENCHMARK_F(Scenario_list, one_state_changed)(benchmark::State& state) {
    int row = 0;
    for (auto _ : state) {
        table_->table.row_changed(row = (row + 1) % 10);
        paint();
    }
}

BENCHMARK_F(Scenario_list, all_of_them_changed)(benchmark::State& state) {
    for (auto _ : state) {
        table_->table.rows_changed();
        paint();
    }
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
