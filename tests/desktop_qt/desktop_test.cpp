#include "desktop_qt/shown.h"
#include "support/temporary_folder.h"
#include "support/worded.h"
#include "toolkit/button.h"
#include "toolkit/edit.h"
#include "toolkit/list_box.h"
#include "toolkit/page_control.h"
#include "toolkit/timer.h"

#include <QtCore/QTimer>
#include <QtGui/QScreen>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMessageBox>

namespace {

class Desktop_windows : public Shown {
protected:
    // Works on whatever dialog or menu is up, a moment from now.
    template <class Widget>
    void then_with(std::function<void(Widget&)> work) {
        QTimer::singleShot(20, [this, work] {
            QWidget* const up = QApplication::activePopupWidget() ? QApplication::activePopupWidget()
                                                                  : QApplication::activeModalWidget();
            auto* const dialog = qobject_cast<Widget*>(up);
            worked_ = dialog;
            if (dialog)
                work(*dialog);
            else if (up)
                up->close();
        });
    }

    bool worked_ = false;
};

TEST_F(Desktop_windows, control_and_window_may_go_in_either_order) {
    TForm outlives("outlives");
    auto form = std::make_unique<TForm>("form");
    auto& panel = form->add<TPanel>("panel");
    panel.add<TEdit>("edit");
    show(*form);
    EXPECT_EQ(View::alive(), 3);
    delete &widget(panel);
    EXPECT_EQ(View::alive(), 1);
    EXPECT_EQ(panel.view(), nullptr);
    form.reset();
    delete_what_is_left();
    EXPECT_EQ(View::alive(), 0);

    auto& pages = outlives.add<TPageControl>("pages");
    auto& list = pages.add<TTabSheet>("first", "First").add<TListBox>("list");
    pages.add<TTabSheet>("second", "Second").add<TEdit>("edit");
    list.set_lines({"line"});
    show(outlives);
    owned_desktop_.reset();
    EXPECT_EQ(View::alive(), 0);
    list.clear();
}

TEST_F(Desktop_windows, a_control_shown_elsewhere_is_drawn_there) {
    TForm frame("frame");
    auto& place = frame.add<TPanel>("place");
    TForm project("project");
    auto& pages = project.add<TPanel>("pages");
    auto& edit = pages.add<TEdit>("edit");
    show(project);
    show(frame);
    place.host(pages);
    EXPECT_EQ(widget(edit).window(), &widget(frame));
    QTest::keyClicks(&widget(edit), "x");
    EXPECT_EQ(edit.text(), "x");
}

TEST_F(Desktop_windows, focus_and_keys_follow_the_form) {
    TForm form("form");
    auto& first = form.add<TEdit>("first");
    auto& second = form.add<TEdit>("second");
    auto& ok = form.add<TButton>("ok", "OK");
    ok.set_default(true);
    std::string log;
    first.on_exit = [&] { log += "exit "; };
    second.on_enter = [&] { log += "enter "; };
    ok.on_click = [&] { log += "ok "; };
    show(form);
    QTest::keyClick(&widget(first), Qt::Key_Tab);
    EXPECT_TRUE(second.focused());
    first.focus();
    EXPECT_TRUE(widget(first).hasFocus());
    form.on_key = [&](const Key& key) { return key.code == Key_code::enter && form.focus_next(); };
    QTest::keyClick(&widget(first), Qt::Key_Return);
    EXPECT_TRUE(widget(second).hasFocus());
    second.on_key = [&](const Key& key) { return key.text == "x"; };
    QTest::keyClicks(&widget(second), "axb");
    EXPECT_EQ(second.text(), "ab");
    form.on_key = nullptr;
    QTest::keyClick(&widget(second), Qt::Key_Return);
    EXPECT_EQ(log, "exit enter exit enter ok ");
}

TEST_F(Desktop_windows, a_dialog_runs_until_a_button_or_escape_ends_it) {
    TForm form("dialog", "Dialog");
    auto& ok = form.add<TButton>("ok", "OK");
    ok.set_modal_result(Modal_result::ok);
    then_with<QDialog>([&](QDialog&) { QTest::mouseClick(&widget(ok), Qt::LeftButton); });
    EXPECT_EQ(form.show_modal(), Modal_result::ok);
    then_with<QDialog>([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(form.show_modal(), Modal_result::cancel);
    form.on_close_query = [] { return false; };
    then_with<QDialog>([&](QDialog& dialog) {
        EXPECT_FALSE(dialog.close());
        EXPECT_TRUE(dialog.isVisible());
        form.on_close_query = nullptr;
        dialog.close();
    });
    EXPECT_EQ(form.show_modal(), Modal_result::cancel);
    EXPECT_TRUE(worked_);
}

TEST_F(Desktop_windows, what_a_handler_throws_comes_out_of_the_loop_that_ran_it) {
    TForm form("form");
    auto& button = form.add<TButton>("button", "Throw");
    button.on_click = [] { throw std::runtime_error("as told"); };
    const auto click = [&] { QTest::mouseClick(&widget(button), Qt::LeftButton); };
    QTimer::singleShot(20, click);
    EXPECT_THROW(desktop_.run(form), std::runtime_error);
    form.close();
    QTimer::singleShot(20, click);
    EXPECT_THROW(form.show_modal(), std::runtime_error);
    EXPECT_FALSE(form.visible());
    QTimer::singleShot(20, [&] { widget(form).close(); });
    desktop_.run(form);
}

TEST_F(Desktop_windows, a_long_operation_takes_no_input_but_the_close_of_its_window) {
    TForm form("form");
    auto& button = form.add<TButton>("button", "Run");
    auto& edit = form.add<TEdit>("edit");
    int runs = 0;
    button.on_click = [&] {
        ++runs;
        QTimer::singleShot(0, [&] {
            QTest::mouseClick(&widget(button), Qt::LeftButton);
            QTest::keyClicks(&widget(edit), "x");
        });
        EXPECT_TRUE(desktop_.process_messages());
        QTimer::singleShot(0, [&] { widget(form).close(); });
        EXPECT_FALSE(desktop_.process_messages());
        EXPECT_TRUE(form.visible());
    };
    show(form);
    QTest::mouseClick(&widget(button), Qt::LeftButton);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(edit.text(), "");
    EXPECT_FALSE(form.visible()) << "closed once the operation had ended";
}

TEST_F(Desktop_windows, messages_are_answered_by_button_and_dismissed_mildly) {
    for (const auto& [set, answer] : {std::pair(Button_set::ok, Modal_result::ok),
                                      {Button_set::ok_cancel, Modal_result::cancel},
                                      {Button_set::yes_no, Modal_result::no},
                                      {Button_set::yes_no_cancel, Modal_result::cancel},
                                      {Button_set::abort_retry_ignore, Modal_result::abort}}) {
        then_with<QMessageBox>([&](QMessageBox& box) {
            EXPECT_EQ(box.text(), "<b>&");
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        EXPECT_EQ(message_box("<b>&", "Title", set), answer);
    }
    then_with<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "the user is not told to wait";
        box.button(QMessageBox::Retry)->click();
    });
    const Busy_pointer busy;
    EXPECT_EQ(message_box("again?", "", Button_set::abort_retry_ignore), Modal_result::retry);
    EXPECT_TRUE(worked_);
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
}

TEST_F(Desktop_windows, messages_and_qts_own_menus_speak_the_language_and_the_native_one_again) {
    const auto copies = [] { return QCoreApplication::translate("QWidgetTextControl", "&Copy"); };
    const QString native = copies();
    {
        const Worded words([](const std::string& text) { return text == "&Yes" ? "&Sim" : text; });
        then_with<QMessageBox>([](QMessageBox& box) {
            EXPECT_EQ(box.button(QMessageBox::Yes)->text(), "&Sim");
            box.button(QMessageBox::No)->click();
        });
        EXPECT_EQ(message_box("sure?", "", Button_set::yes_no), Modal_result::no);
    }
    for (const char* language : {"es", "ru", "fr"}) {
        current_desktop->use_language(language);
        EXPECT_NE(copies(), native) << language;
    }
    current_desktop->use_language("");
    EXPECT_EQ(copies(), native);
}

TEST_F(Desktop_windows, a_file_dialog_asks_as_it_is_told) {
    const Temporary_folder folder;
    folder.write("a.tvn", "");
    TFileDialog dialog;
    dialog.title = "Simulation scenario";
    dialog.filter = "Tilverra scenario file (*.tvn)|*.tvn;*.TVN|All files (*.*)|*.*|";
    dialog.initial_folder = folder.path("");
    dialog.file_name = "a.tvn";
    dialog.must_exist = true;
    then_with<QFileDialog>([&](QFileDialog& box) {
        EXPECT_EQ(box.nameFilters(), (QStringList{"Tilverra scenario file (*.tvn *.TVN)", "All files (*)"}));
        EXPECT_EQ(box.windowTitle(), "Simulation scenario");
        EXPECT_EQ(box.selectedFiles(), QStringList{to_qt(folder.path("a.tvn"))});
        static_cast<QDialog&>(box).accept();
    });
    EXPECT_TRUE(dialog.execute());
    EXPECT_EQ(dialog.file_name, folder.path("a.tvn"));

    TFileDialog save(TFileDialog::Purpose::save);
    save.default_extension = "tvp";
    save.initial_folder = dialog.initial_folder;
    then_with<QFileDialog>([&](QFileDialog& box) {
        box.findChild<QLineEdit*>()->setText("new");
        static_cast<QDialog&>(box).accept();
    });
    EXPECT_TRUE(save.execute());
    EXPECT_EQ(save.files, std::vector<std::string>{folder.path("new.tvp")});
    then_with<QFileDialog>([](QFileDialog& box) { box.reject(); });
    EXPECT_FALSE(save.execute());
    EXPECT_TRUE(worked_);
}

TEST_F(Desktop_windows, a_menu_runs_what_is_chosen) {
    TPopupMenu menu;
    int chosen = 0;
    menu.items = {{"Master", [&] { chosen = 1; }}, {"Project", [&] { chosen = 2; }}};
    then_with<QMenu>([](QMenu& shown) {
        QTest::keyClick(&shown, Qt::Key_Down);
        QTest::keyClick(&shown, Qt::Key_Down);
        QTest::keyClick(&shown, Qt::Key_Return);
    });
    menu.popup(50);
    EXPECT_EQ(chosen, 2);
    then_with<QMenu>([](QMenu& shown) { shown.close(); });
    chosen = 0;
    menu.popup();
    EXPECT_EQ(chosen, 0);
}

TEST_F(Desktop_windows, timers_run_and_may_stop_themselves) {
    TTimer timer(5);
    int times = 0;
    timer.on_timer = [&] { timer.set_enabled(++times < 3); };
    timer.set_enabled(true);
    QTest::qWait(100);
    EXPECT_EQ(times, 3);
}

TEST_F(Desktop_windows, a_window_keeps_its_place_and_comes_back_to_a_screen_that_is_there) {
    TForm form("form");
    form.set_bounds({50, 60, 300, 200});
    show(form);
    EXPECT_EQ(widget(form).geometry(), QRect(50, 60, 300, 200));
    widget(form).resize(320, 240);
    QCoreApplication::processEvents();
    EXPECT_EQ(form.bounds(), (Bounds{50, 60, 320, 240}));
    form.set_bounds({9000, -9000, 300, 200});
    EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().contains(widget(form).geometry()));
    desktop_.minimise();
    EXPECT_TRUE(widget(form).isMinimized());
    desktop_.restore();
    EXPECT_FALSE(widget(form).isMinimized());
}

} // namespace
