// What drawing costs: a form of 200 controls beside a window of as many stock widgets, and a checked list of
// 5,000 lines. Run with QT_QPA_PLATFORM=offscreen where there is no display.
#include "desktop_qt/qt_desktop.h"
#include "toolkit/button.h"
#include "toolkit/check_box.h"
#include "toolkit/edit.h"
#include "toolkit/label.h"
#include "toolkit/list_box.h"

#include <benchmark/benchmark.h>

#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

namespace {

constexpr int rows = 50; // of four controls
constexpr int lines = 5000;

void stock_widgets(benchmark::State& state) {
    for (auto _ : state) {
        QDialog window;
        auto& grid = *new QGridLayout(&window);
        for (int row = 0; row < rows; ++row) {
            grid.addWidget(new QLabel("Label"), row, 0);
            grid.addWidget(new QLineEdit("text"), row, 1);
            grid.addWidget(new QCheckBox("Check"), row, 2);
            grid.addWidget(new QPushButton("Button"), row, 3);
        }
        window.show();
        benchmark::DoNotOptimize(window.grab());
        QCoreApplication::processEvents();
    }
}
BENCHMARK(stock_widgets)->Unit(benchmark::kMillisecond);

void form_of_200_controls(benchmark::State& state) {
    Qt_desktop desktop;
    const Desktop_scope scope(desktop);
    for (auto _ : state) {
        {
            TForm form("form", "Form", Layout::grid, 4);
            for (int row = 0; row < rows; ++row) {
                form.add<TLabel>("label", "Label");
                form.add<TEdit>("edit").set_text("text");
                form.add<TCheckBox>("check", "Check");
                form.add<TButton>("button", "Button");
            }
            form.show();
            benchmark::DoNotOptimize(static_cast<View*>(form.view())->widget().grab());
            QCoreApplication::processEvents();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}
BENCHMARK(form_of_200_controls)->Unit(benchmark::kMillisecond);

class Checked_list : public benchmark::Fixture {
public:
    void SetUp(const benchmark::State&) override {
        desktop_ = std::make_unique<Qt_desktop>();
        scope_ = std::make_unique<Desktop_scope>(*desktop_);
        form_ = std::make_unique<TForm>("form");
        list_ = &form_->add<TCheckListBox>("list");
        for (int i = 0; i < lines; ++i) {
            texts_.push_back("scenario " + std::to_string(i) + ".tvn");
        }
        list_->set_lines(texts_);
        form_->show();
        paint();
    }
    void TearDown(const benchmark::State&) override {
        form_.reset();
        scope_.reset();
        desktop_.reset();
        texts_.clear();
    }

protected:
    void paint() { QCoreApplication::processEvents(); }

    std::unique_ptr<Qt_desktop> desktop_;
    std::unique_ptr<Desktop_scope> scope_;
    std::unique_ptr<TForm> form_;
    TCheckListBox* list_ = nullptr;
    std::vector<std::string> texts_;
};

BENCHMARK_F(Checked_list, filled)(benchmark::State& state) {
    for (auto _ : state) {
        list_->set_lines(texts_);
        paint();
    }
}

BENCHMARK_F(Checked_list, filled_line_by_line)(benchmark::State& state) {
    for (auto _ : state) {
        list_->clear();
        for (const std::string& text : texts_) {
            list_->add_line(text);
        }
        paint();
    }
}

BENCHMARK_F(Checked_list, grown_by_a_line_that_is_scrolled_to_and_painted)(benchmark::State& state) {
    for (auto _ : state) {
        list_->add_line("00001.tvn");
        list_->show_line(list_->count() - 1);
        paint();
    }
}

BENCHMARK_F(Checked_list, one_line_changed)(benchmark::State& state) {
    bool checked = false;
    for (auto _ : state) {
        list_->set_checked(3, checked = !checked);
        paint();
    }
}

BENCHMARK_F(Checked_list, all_checked)(benchmark::State& state) {
    bool checked = false;
    for (auto _ : state) {
        list_->set_all_checked(checked = !checked);
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
