#include "desktop_qt/views_support.h"
#include "support/temporary_folder.h"
#include "toolkit/month_grid.h"
#include "toolkit/ruler.h"
#include "toolkit/web_view.h"

TEST_F(Views, what_all_controls_have_is_shown) {
    auto& label = form_.add<TLabel>("label", "Ready");
    show(form_);
    EXPECT_EQ(widget(form_).windowTitle(), "A form");
    QLabel& shown = widget<QLabel>(label);
    label.set_hint("a < b");
    label.set_colour(0x00ff00);
    label.set_mark(Mark::tick);
    EXPECT_TRUE(shown.toolTip().contains("a &lt; b"));
    EXPECT_EQ(shown.palette().color(QPalette::Window), QColor(0, 255, 0));
    EXPECT_EQ(shown.palette().color(QPalette::WindowText), QColor(Qt::black));
    EXPECT_EQ(shown.text().toStdString(), "\xE2\x9C\x93 Ready");
    label.set_colour(desktop_colour);
    EXPECT_EQ(shown.palette().color(QPalette::Window), QApplication::palette().color(QPalette::Window));
    label.set_visible(false);
    EXPECT_FALSE(shown.isVisible());
    label.set_visible(true);
    label.set_enabled(false);
    EXPECT_TRUE(shown.isVisible() && !shown.isEnabled());
    auto& bar = form_.add<TProgressBar>("bar");
    bar.set_maximum(4);
    for (int step = 1; step <= 5; ++step)
        bar.step();
    EXPECT_EQ(widget<QProgressBar>(bar).value(), 4);
    EXPECT_EQ(widget<QProgressBar>(bar).maximum(), 4);
    EXPECT_TRUE(widget(form_.add<TLabel>("late", "added to a window that is shown")).isVisible());
}

TEST_F(Views, what_is_typed_reaches_the_control_through_its_filter) {
    auto& edit = form_.add<TEdit>("edit");
    edit.input_filter = [](std::string text) {
        std::erase(text, 'x');
        return text;
    };
    edit.on_change = count_;
    show(form_);
    QLineEdit& line = widget<QLineEdit>(edit);
    QTest::keyClicks(&line, "1x2");
    EXPECT_EQ(edit.text(), "12");
    EXPECT_EQ(line.text(), "12");
    EXPECT_EQ(edit.caret(), 2);
    EXPECT_EQ(fired_, 2);
    QTest::keyClick(&line, Qt::Key_Home, Qt::ShiftModifier);
    EXPECT_EQ(edit.selected_text(), "12");
    EXPECT_EQ(edit.caret(), 0);
    QApplication::clipboard()->setText("3x4");
    line.paste();
    QCoreApplication::processEvents();
    EXPECT_EQ(edit.text(), "34") << "of what is pasted the rest is taken";
    line.undo();
    EXPECT_EQ(line.text(), "12") << "what was refused is not among what is undone";
    line.undo();
    EXPECT_EQ(edit.text(), "");
    line.redo();
    EXPECT_EQ(edit.text(), "12");

    edit.set_text("345");
    line.undo();
    EXPECT_EQ(edit.text(), "345") << "undoing does not bring back what another record held";
    edit.set_selection(3, 1);
    EXPECT_EQ(line.selectedText(), "45");
    EXPECT_EQ(line.cursorPosition(), 1);
    edit.set_read_only(true);
    QTest::keyClicks(&line, "9");
    EXPECT_EQ(edit.text(), "345");
}

TEST_F(Views, what_entering_selects_stays_selected_when_the_mouse_brought_the_focus) {
    auto& first = form_.add<TEdit>("first");
    auto& edit = form_.add<TEdit>("edit");
    edit.set_text("12345");
    edit.on_enter = [&] { edit.select_all(); };
    show(form_);
    EXPECT_TRUE(first.focused());
    click(widget(edit));
    EXPECT_TRUE(edit.focused());
    EXPECT_EQ(edit.selected_text(), "12345");
    EXPECT_EQ(widget<QLineEdit>(edit).selectedText(), "12345");
    click(widget(edit));
    EXPECT_EQ(edit.selection_length(), 0) << "the next click sets the caret";
}

TEST_F(Views, a_memo_and_its_widget_hold_the_same_text) {
    auto& memo = form_.add<TMemo>("memo");
    memo.set_text("one\n\xF0\x9F\x8C\xBE");
    show(form_);
    QPlainTextEdit& text = widget<QPlainTextEdit>(memo);
    EXPECT_EQ(text.toPlainText().toStdString(), memo.text());
    QTest::keyClick(&text, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(memo.caret(), 5) << "a character beyond the first 65,536 is one";
    QTest::keyClick(&text, Qt::Key_Enter);
    QTest::keyClicks(&text, "x");
    EXPECT_EQ(memo.text(), "one\n\xF0\x9F\x8C\xBE\nx");
    EXPECT_TRUE(memo.modified());
    memo.set_selection(0, 3);
    EXPECT_EQ(text.textCursor().selectedText(), "one");
    memo.input_filter = [](const std::string& came) { return came == "!" ? std::string() : came; };
    QTest::keyClicks(&text, "a!\302\240b");
    EXPECT_EQ(memo.text(), "a\302\240b\n\xF0\x9F\x8C\xBE\nx") << "blanks that do not break stay";
    text.undo();
    EXPECT_EQ(memo.text(), "one\n\xF0\x9F\x8C\xBE\nx");
    memo.on_change = [&] { memo.set_text("set by a handler"); };
    QTest::keyClicks(&text, "y");
    EXPECT_EQ(text.toPlainText(), "set by a handler");
    memo.on_change = {};
    QTest::keyClicks(&text, "z");
    delete &text;
    EXPECT_EQ(memo.text(), "zset by a handler") << "what was typed last outlives the window";
}

TEST_F(Views, a_combo_box_is_chosen_from_and_typed_into) {
    auto& units = form_.add<TComboBox>("units");
    units.set_items({"kg/ha", "t/ha"});
    units.on_change = count_;
    auto& free = form_.add<TComboBox>("free", true);
    free.set_items({"MUID", "SLOPE"});
    free.set_text("other");
    show(form_);
    QComboBox& box = widget<QComboBox>(units);
    EXPECT_EQ(box.currentIndex(), -1);
    QTest::keyClick(&box, Qt::Key_Down);
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(fired_, 2);
    units.set_items({"t/ha", "lb"});
    EXPECT_EQ(box.currentText(), "t/ha");

    QComboBox& line = widget<QComboBox>(free);
    free.focus();
    QTest::keyClick(line.lineEdit(), Qt::Key_End);
    QTest::keyClicks(line.lineEdit(), "s");
    EXPECT_EQ(free.text(), "others");
    free.set_item_index(1);
    EXPECT_EQ(line.currentText(), "SLOPE");
}

TEST_F(Views, buttons_and_boxes_are_clicked) {
    auto& button = form_.add<TButton>("button", "&Go");
    auto& check = form_.add<TCheckBox>("check", "Check");
    auto& speed = form_.add<TSpeedButton>("speed", "GIS");
    auto& arrows = form_.add<TSpinArrows>("arrows");
    button.on_click = count_;
    speed.on_click = [&] { speed.set_down(true); };
    int year = 0;
    arrows.on_spin = [&](bool upward) { year += upward ? 1 : -10; };
    show(form_);
    click(widget(button));
    QTest::keyClick(&widget(button), Qt::Key_Enter);
    QTest::keyClick(&widget(button), Qt::Key_Space);
    EXPECT_EQ(fired_, 3);

    click(widget(check));
    EXPECT_TRUE(check.checked());
    check.on_click = [&] { check.set_checked(true); };
    click(widget(check));
    EXPECT_TRUE(widget<QAbstractButton>(check).isChecked()) << "what the handler says is shown";

    EXPECT_FALSE(widget<QToolButton>(speed).isChecked());
    click(widget(speed));
    click(widget(speed));
    EXPECT_TRUE(speed.down());
    EXPECT_TRUE(widget<QToolButton>(speed).isChecked());

    const auto arrow = widget(arrows).findChildren<QToolButton*>();
    click(*arrow[0]);
    click(*arrow[1]);
    EXPECT_EQ(year, -9);
}

TEST_F(Views, a_radio_group_shows_one_choice_or_none) {
    auto& group = form_.add<TRadioGroup>("group", "Level", std::vector<std::string>{"Master", "Project"});
    show(form_);
    const auto buttons = [&] { return widget(group).findChildren<QRadioButton*>(); };
    buttons()[1]->click();
    EXPECT_EQ(group.item_index(), 1);
    group.set_item_index(-1);
    EXPECT_FALSE(buttons()[0]->isChecked() || buttons()[1]->isChecked());
    group.set_items({"Arbitrary", "Master", "Project"});
    group.set_item_index(2);
    ASSERT_EQ(buttons().size(), 3);
    EXPECT_TRUE(buttons()[2]->isChecked());
    QCoreApplication::processEvents();
    group.on_key = [&](const Key&) { return ++fired_ == 0; };
    buttons()[2]->setFocus();
    QTest::keyClick(buttons()[2], Qt::Key_A);
    EXPECT_EQ(fired_, 1) << "a key is offered once";
}

TEST_F(Views, pages_get_the_width_that_longer_texts_need) {
    auto& row = form_.add<TPanel>("row", Layout::row);
    row.set_place({.stretch = 1});
    row.add<TListBox>("list").set_place({.stretch = 1});
    auto& button = row.add<TPageControl>("pages").add<TTabSheet>("page", "Page").add<TButton>("go", "Go");
    form_.set_bounds({0, 0, 700, 300});
    show(form_);
    button.translate_text("A translation that is longer than the text of the program");
    QApplication::processEvents();
    const QWidget& page = *widget(button).parentWidget()->parentWidget();
    EXPECT_LE(widget(button).width(), page.width());
    EXPECT_GE(widget(button).width(), widget(button).sizeHint().width());
}

TEST_F(Views, pages_are_chosen_and_hidden_by_their_tabs) {
    auto& pages = form_.add<TPageControl>("pages");
    auto& edit = pages.add<TTabSheet>("first", "First").add<TEdit>("edit");
    auto& second = pages.add<TTabSheet>("second", "Second");
    auto& inside = second.add<TButton>("inside", "Inside");
    auto& third = pages.add<TTabSheet>("third", "Third");
    third.set_visible(false);
    pages.on_change = count_;
    edit.on_exit = count_;
    int strangers = 0;
    form_.add<TEdit>("stranger").on_enter = [&] { ++strangers; };
    show(form_);
    edit.focus();
    QTabWidget& tabs = widget<QTabWidget>(pages);
    EXPECT_FALSE(tabs.isTabVisible(2));
    EXPECT_TRUE(widget(edit).isVisible());

    QTest::mouseClick(tabs.tabBar(), Qt::LeftButton, {}, tabs.tabBar()->tabRect(1).center());
    EXPECT_EQ(pages.active_page(), &second);
    EXPECT_EQ(fired_, 2);
    EXPECT_TRUE(inside.focused()) << "where Qt put the focus on the new page";
    EXPECT_EQ(strangers, 0) << "what lies beside the pages was not entered on the way";
    EXPECT_TRUE(widget(inside).isVisible());
    third.set_visible(true);
    third.set_text("Last");
    pages.set_active_page(third);
    EXPECT_EQ(tabs.tabText(tabs.currentIndex()), "Last");
    EXPECT_EQ(fired_, 2);
    pages.remove(second);
    EXPECT_EQ(tabs.count(), 2);
    EXPECT_EQ(tabs.currentIndex(), 1);
}

TEST_F(Views, a_day_clicked_is_marked_and_may_lay_its_month_out_anew) {
    auto& month = form_.add<TMonthGrid>("month");
    month.set_month(30, 2, 17);
    show(form_);
    QTableWidget& table = widget<QTableWidget>(month);
    EXPECT_EQ(table.currentItem()->text(), "17");
    EXPECT_EQ(table.item(4, 4)->text(), "");
    EXPECT_TRUE(table.horizontalHeader()->isVisible());
    month.on_click = [&] {
        ++fired_;
        month.set_shows_weekdays(false);
        month.set_month(28, 3, month.day());
    };
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualItemRect(table.item(1, 1)).center());
    EXPECT_EQ(fired_, 1);
    EXPECT_EQ(month.day(), 7);
    EXPECT_EQ(table.currentItem()->text(), "7");
    EXPECT_EQ(table.item(0, 3)->text(), "1");
    EXPECT_FALSE(table.horizontalHeader()->isVisible());
    month.set_month(31, 0, 0);
    EXPECT_EQ(table.currentItem(), nullptr);
}

TEST_F(Views, no_two_lights_differ_by_colour_alone) {
    auto& light = form_.add<TImage>("light");
    show(form_);
    std::vector<QImage> pictures;
    for (int status = 0; status <= 13; ++status) {
        light.set_picture(status_light(status));
        const QImage picture = widget(light).grab().toImage().convertToFormat(QImage::Format_Mono);
        EXPECT_EQ(std::count(pictures.begin(), pictures.end(), picture), 0) << status;
        pictures.push_back(picture);
    }
}

TEST_F(Views, a_ruler_paints_its_stretches_to_the_pixel) {
    auto& ruler = form_.add<TRuler>("ruler");
    ruler.set_stretches({{31, 0x808080, "Jan"}, {-4, 0xff0000, "none"}, {4, 0x0000ff, "wider than it"}});
    show(form_);
    EXPECT_EQ(widget(ruler).width(), 35);
    const QImage picture = widget(ruler).grab().toImage();
    EXPECT_EQ(picture.pixelColor(30, 0), QColor(0x80, 0x80, 0x80));
    EXPECT_EQ(picture.pixelColor(31, 0), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(34, 0), QColor(Qt::red));
    ruler.set_stretches({{40, 0x808080, "Jan"}});
    EXPECT_EQ(widget(ruler).width(), 40);
    const QImage named = widget(ruler).grab().toImage();
    ruler.set_stretches({{40, 0x808080, ""}});
    EXPECT_NE(widget(ruler).grab().toImage(), named);
}

TEST_F(Views, a_page_is_shown_and_its_links_are_followed) {
    const Temporary_folder folder;
    folder.write("a#1.htm", "<html><a href=\"b.htm#end\">b</a> 20 \260C</html>");
    folder.write("b.htm", "<html>second</html>");
    auto& view = form_.add<TWebView>("view");
    view.navigate(folder.path("a#1.htm"));
    show(form_);
    QTextBrowser& browser = widget<QTextBrowser>(view);
    EXPECT_EQ(browser.toPlainText().toStdString(), "b 20 \302\260C");
    emit browser.anchorClicked(QUrl("b.htm#end"));
    EXPECT_EQ(view.address(), folder.path("b.htm") + "#end");
    EXPECT_EQ(browser.toPlainText(), "second");
    view.navigate("https://example.org/<x>");
    EXPECT_EQ(browser.toPlainText(), "https://example.org/<x>");
    for (const char* nothing : {"", "/no/such/page.htm", "/dev/zero"}) {
        view.navigate(nothing);
        EXPECT_EQ(browser.toPlainText(), "") << nothing;
    }
}

TEST_F(Views, files_dropped_on_a_part_of_a_bar_go_to_the_bar) {
    auto& bar = form_.add<TPanel>("bar", Layout::row);
    auto& edit = bar.add<TEdit>("edit");
    std::vector<std::string> dropped;
    show(form_);
    bar.on_drop_files = [&](const std::vector<std::string>& names) { dropped = names; };
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile("/tmp/a b.tvn"), QUrl("https://example.org/x"),
                   QUrl::fromLocalFile("/tmp/c.tvn")});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &files, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&widget(edit), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &files, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&widget(edit), &drop);
    EXPECT_EQ(dropped, (std::vector<std::string>{"/tmp/a b.tvn", "/tmp/c.tvn"}));
    EXPECT_EQ(edit.text(), "");
}

TEST_F(Views, a_label_leads_to_the_control_behind_it) {
    form_.add<TButton>("first", "First");
    form_.add<TLabel>("label", "&Name").set_names_next(true);
    auto& edit = form_.add<TEdit>("edit");
    show(form_);
    QTest::keyClick(&widget(form_), Qt::Key_N, Qt::AltModifier);
    EXPECT_TRUE(edit.focused());
    EXPECT_EQ(widget(edit).accessibleName(), "Name");
}
