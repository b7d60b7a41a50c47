#include "desktop_qt/views_support.h"
#include "support/sample_rows.h"
#include "support/worded.h"
#include "toolkit/descriptor_watch.h"
#include "toolkit/splitter.h"

#include <unistd.h>

namespace {

class Table_views : public Views {
protected:
    void fill(TTable& table) {
        table.set_columns(Sample_rows::columns());
        table.set_rows(&rows_);
        form_.set_bounds({0, 0, 700, 400});
        show(form_);
    }

    static QPoint middle(QTableView& view, int row, int column) {
        return view.visualRect(view.model()->index(row, column)).center();
    }
    static void click(QTableView& view, int row, int column, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(view.viewport(), Qt::LeftButton, keys, middle(view, row, column));
    }

    Sample_rows rows_{10000};
    std::string log_;
};

using Ranges = std::vector<Row_range>;

TEST_F(Table_views, a_table_asks_for_the_rows_on_view_and_no_others) {
    auto& table = form_.add<TTable>("table", TTable::Selects::rows, true);
    fill(table);
    QTest::qWait(20);
    EXPECT_LT(rows_.asked, 2000);
    rows_.asked = 0;
    QTableView& view = widget<QTableView>(table);
    table.row_changed(3);
    table.row_changed(9000);
    QTest::qWait(20);
    EXPECT_GT(rows_.asked, 0);
    EXPECT_LT(rows_.asked, 100) << "of a change one row is drawn";
    table.show_row(9999);
    EXPECT_TRUE(view.visualRect(view.model()->index(9999, 0)).intersects(view.viewport()->rect()));
    QTest::keyClick(&view, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(table.selected_count(), 10000);
    rows_ = Sample_rows(0);
    table.set_text("There are no scenarios yet.");
    table.rows_changed();
    EXPECT_EQ(view.model()->rowCount(), 0);
    EXPECT_FALSE(view.currentIndex().isValid());
}

TEST_F(Table_views, rows_are_selected_and_ticked_by_mouse_and_keyboard) {
    auto& table = form_.add<TTable>("table", TTable::Selects::rows, true);
    table.on_double_click = [&](int row, int) { log_ += "open " + std::to_string(row) + " "; };
    table.on_menu = [&] { log_ += "menu " + std::to_string(table.cursor_row()) + " "; };
    fill(table);
    QTableView& view = widget<QTableView>(table);
    click(view, 1, 1);
    click(view, 3, 1, Qt::ShiftModifier);
    click(view, 6, 1, Qt::ControlModifier);
    EXPECT_EQ(table.selected_rows(), (Ranges{{1, 3}, {6, 6}}));
    EXPECT_EQ(table.cursor_row(), 6);
    const QPoint box(view.visualRect(view.model()->index(5, 0)).left() + 8, middle(view, 5, 0).y());
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, box);
    EXPECT_TRUE(rows_.ticked(5));
    EXPECT_EQ(table.selected_count(), 4) << "a tick leaves the selection";
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_TRUE(rows_.ticked(1) && rows_.ticked(6) && !rows_.ticked(Sample_rows::without_tick));
    QTest::keyClick(&view, Qt::Key_Down);
    EXPECT_EQ(table.selected_rows(), (Ranges{{7, 7}}));
    QTest::keyClick(&view, Qt::Key_Return);
    click(view, 7, 0);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, middle(view, 7, 0));
    QContextMenuEvent menu(QContextMenuEvent::Mouse, middle(view, 2, 1), QPoint());
    QCoreApplication::sendEvent(view.viewport(), &menu);
    EXPECT_EQ(log_, "open 7 open 7 menu 2 ");
    table.set_selected_rows({{0, 1}, {4, 4}});
    EXPECT_TRUE(view.selectionModel()->isRowSelected(4) && !view.selectionModel()->isRowSelected(2));
    table.rows_inserted(0, 0);
    rows_ = Sample_rows(10001);
    table.rows_inserted(1, 1);
    EXPECT_TRUE(view.selectionModel()->isRowSelected(5));
}

TEST_F(Table_views, the_owner_sees_keys_on_a_line_before_the_table_uses_them_itself) {
    auto& table = form_.add<TTable>("table", TTable::Selects::rows, true);
    table.on_key = [&](const Key& key) {
        const std::string name = key_name(key);
        log_ += name.ends_with('+') ? "" : name + ' '; // not of Ctrl and its like alone
        return true;
    };
    fill(table);
    QTableView& view = widget<QTableView>(table);
    click(view, 3, 1);
    for (const auto& [key, modifiers] : std::initializer_list<std::pair<Qt::Key, Qt::KeyboardModifiers>>{
             {Qt::Key_Return, Qt::NoModifier},
             {Qt::Key_Return, Qt::ControlModifier},
             {Qt::Key_Return, Qt::AltModifier},
             {Qt::Key_F2, Qt::NoModifier},
             {Qt::Key_F3, Qt::NoModifier},
             {Qt::Key_D, Qt::ControlModifier},
             {Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier},
             {Qt::Key_Delete, Qt::ControlModifier},
             {Qt::Key_Delete, Qt::NoModifier}})
        QTest::keyClick(&view, key, modifiers);
    EXPECT_EQ(log_, "Enter Ctrl+Enter Alt+Enter F2 F3 Ctrl+D Ctrl+Shift+C Ctrl+Del Del ");
}

TEST_F(Table_views, cells_are_edited_in_place_and_a_refusal_is_told) {
    auto& table = form_.add<TTable>("table", TTable::Selects::cells);
    auto& status = form_.add<TStatusLine>("status");
    fill(table);
    QTableView& view = widget<QTableView>(table);
    click(view, 2, Sample_rows::value_column);
    QTest::keyClick(&view, Qt::Key_F2);
    auto* const line = view.findChild<QLineEdit*>();
    ASSERT_NE(line, nullptr);
    line->setText("12");
    QTest::keyClick(line, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(rows_.cell(2, Sample_rows::value_column).text, "12");
    QTest::keyClick(&view, Qt::Key_X);
    ASSERT_NE(QApplication::focusWidget(), nullptr);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(rows_.cell(2, Sample_rows::value_column).text, "12");
    EXPECT_EQ(widget<QLabel>(status).text().toStdString(), "! A value is a number.");
    EXPECT_TRUE(table.begin_edit(2, Sample_rows::choice_column));
    auto* const box = view.findChild<QComboBox*>();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->currentText(), "low");
    box->setCurrentIndex(1);
    QTest::keyClick(box, Qt::Key_Return);
    QCoreApplication::processEvents();
    EXPECT_EQ(rows_.cell(2, Sample_rows::choice_column).text, "high");
    click(view, 0, 1);
    click(view, 3, 2, Qt::ShiftModifier);
    EXPECT_EQ(table.selected_block(), (Cell_block{0, 1, 3, 2}));
    QTest::keyClick(&view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(desktop_.clipboard_text(), "0\tlow\n1\tlow\n12\thigh\n3\tlow\n");
}

TEST_F(Table_views, columns_are_sorted_resized_and_hidden_by_the_header) {
    auto& table = form_.add<TTable>("table");
    table.on_sort = [&](int column, bool down) { log_ += std::to_string(column) + (down ? "v " : "^ "); };
    fill(table);
    QHeaderView& header = *widget<QTableView>(table).horizontalHeader();
    for (const int column : {1, 1, Sample_rows::notes_column})
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {},
                          {header.sectionViewportPosition(column) + 20, header.height() / 2});
    EXPECT_EQ(log_, "1^ 1v ");
    EXPECT_EQ(header.sortIndicatorSection(), 1);
    EXPECT_EQ(header.sortIndicatorOrder(), Qt::DescendingOrder);
    const int before = header.sectionSize(1);
    table.set_column_width(1, 16);
    EXPECT_GT(header.sectionSize(1), before);
    header.resizeSection(1, before);
    EXPECT_EQ(table.columns()[1].width, 8);
    table.set_column_visible(1, false);
    table.translate_captions({"Nom", "Valeur", "Choix", "Notes"});
    EXPECT_TRUE(header.isSectionHidden(1));
    EXPECT_EQ(header.model()->headerData(2, Qt::Horizontal).toString(), "Choix");
    header.moveSection(3, 0); // as by dragging
    EXPECT_EQ(table.column_order(), (std::vector<int>{3, 0, 1, 2}));
    table.set_column_order({2, 3, 0, 1});
    EXPECT_EQ(header.logicalIndex(0), 2);
    table.set_cursor(20);
    table.show_row(20);
    widget(form_).resize(700, 200);
    QCoreApplication::processEvents();
    const QTableView& view = widget<QTableView>(table);
    EXPECT_LT(view.visualRect(view.currentIndex()).bottom(), view.viewport()->height())
        << "the cursor stays on view";
}

TEST_F(Table_views, columns_that_share_the_room_leave_it_to_one_another_unless_they_were_dragged) {
    auto& table = form_.add<TTable>("table");
    fill(table);
    std::vector<Table_column> columns = Sample_rows::columns();
    columns[2].shares_room = columns[3].shares_room = true;
    table.set_columns(columns);
    const QHeaderView& header = *widget<QTableView>(table).horizontalHeader();
    const auto widths = [&] { return std::pair(header.sectionSize(2), header.sectionSize(3)); };
    const auto [third, fourth] = widths();
    EXPECT_EQ(header.length(), header.viewport()->width());
    widget(form_).resize(900, 400);
    QCoreApplication::processEvents();
    const int more = header.sectionSize(2) - third;
    EXPECT_TRUE(more > 0 && widths() == std::pair(third + more, fourth + more));
    table.resize_column(3, 5);
    QTest::mouseRelease(header.viewport(), Qt::LeftButton, {}, {1, 1});
    QCoreApplication::processEvents();
    EXPECT_LT(header.sectionSize(3), 100);
    EXPECT_EQ(header.length(), header.viewport()->width());
}

TEST_F(Table_views, what_cannot_be_seen_is_told) {
    auto& label = form_.add<TLabel>("label", "&Scenarios");
    label.set_names_next(true);
    auto& table = form_.add<TTable>("table", TTable::Selects::rows, true);
    fill(table);
    QAccessibleInterface* const shown = QAccessible::queryAccessibleInterface(&widget(table));
    ASSERT_TRUE(shown && shown->tableInterface());
    EXPECT_EQ(shown->text(QAccessible::Name), "Scenarios");
    QAccessibleInterface* const cell = shown->tableInterface()->cellAt(12, 0);
    ASSERT_NE(cell, nullptr);
    EXPECT_EQ(cell->text(QAccessible::Name), "Valid, scenario 12");
    EXPECT_EQ(cell->text(QAccessible::Description), "File of scenario 12");
    table.toggle_tick(12);
    EXPECT_TRUE(shown->tableInterface()->cellAt(12, 0)->state().checkable);
    table.set_cursor(12);
    EXPECT_TRUE(shown->tableInterface()->isRowSelected(12));
}

TEST_F(Table_views, a_menu_bar_opens_brought_up_to_date_and_its_shortcuts_work) {
    bool can_save = false;
    auto& menu = form_.add<TMainMenu>("menu");
    menu.set_items({{.text = "&File",
                     .items = {{.text = "&Save",
                                .on_click = [&] { log_ += "save "; },
                                .shortcut = "Ctrl+S",
                                .hint = "Saves",
                                .on_update = [&](Menu_item& item) { item.enabled = can_save; }},
                               {.text = "-"},
                               {.text = "&Language",
                                .items = {{.text = "French",
                                           .on_click = [&] { log_ += "French "; },
                                           .checkable = true,
                                           .checked = true}}}}}});
    auto& edit = form_.add<TEdit>("edit");
    show(form_);
    QMenuBar& bar = widget<QMenuBar>(menu);
    QMenu& file = *bar.actions()[0]->menu();
    emit file.aboutToShow();
    EXPECT_FALSE(file.actions()[0]->isEnabled());
    EXPECT_EQ(file.actions()[0]->toolTip(), "Saves");
    QTest::keyClick(&widget(edit), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(log_, "");
    can_save = true;
    QTest::keyClick(&widget(edit), Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(log_, "save ");
    const Worded french([](const std::string& text) {
        return text == "&Save" ? "En&registrer" : text == "&File" ? "&Fichier" : text;
    });
    EXPECT_TRUE(menu.refresh_words());
    EXPECT_EQ(bar.actions()[0]->text(), "&Fichier");
    QMenu& again = *bar.actions()[0]->menu();
    emit again.aboutToShow();
    EXPECT_EQ(again.actions()[0]->text(), "En&registrer\tCtrl+S");
    QMenu& language = *again.actions()[2]->menu();
    EXPECT_TRUE(language.actions()[0]->isChecked());
    language.actions()[0]->trigger();
    EXPECT_EQ(log_, "save French ");
}

TEST_F(Table_views, a_splitter_divides_by_its_share_and_tells_where_it_was_moved) {
    auto& splitter = form_.add<TSplitter>("splitter", Layout::row, "Divides the lists");
    splitter.set_place({.stretch = 1});
    splitter.add<TListBox>("left").set_place({.stretch = 3});
    splitter.add<TListBox>("right");
    splitter.set_position(250);
    form_.set_bounds({0, 0, 800, 300});
    show(form_);
    QSplitter& view = widget<QSplitter>(splitter);
    EXPECT_NEAR(view.sizes()[0] * 3, view.sizes()[1], 10);
    QTest::keyClick(view.handle(1), Qt::Key_Right);
    EXPECT_NEAR(splitter.position(), 270, 1);
    EXPECT_NEAR(view.sizes()[0], 0.27 * (view.sizes()[0] + view.sizes()[1]), 3);
    const int width = view.sizes()[0];
    QTest::mousePress(view.handle(1), Qt::LeftButton, {}, {1, 10});
    QTest::mouseMove(view.handle(1), {101, 10});
    QTest::mouseRelease(view.handle(1), Qt::LeftButton, {}, {1, 10});
    EXPECT_NEAR(view.sizes()[0], width + 100, 5) << "the bar stays where it was let go";
    EXPECT_GT(splitter.position(), 350);
    const double share = splitter.position() / 1000.0;
    for (const int room : {1600, 500}) {
        widget(form_).resize(room, 300);
        EXPECT_NEAR(view.sizes()[0], share * (view.sizes()[0] + view.sizes()[1]), 3)
            << "at first show and at any size of the window";
    }
    QTest::keyClick(view.handle(1), Qt::Key_Home);
    EXPECT_GT(view.sizes()[0], 20) << "nothing is moved out of sight";
    EXPECT_EQ(from_qt(QAccessible::queryAccessibleInterface(view.handle(1))->text(QAccessible::Name)),
              "Divides the lists");
}

TEST_F(Table_views, a_long_path_is_cut_in_its_middle_and_keeps_its_text) {
    auto& label = form_.add<TLabel>("path", "C:\\Projects\\" + std::string(300, 'x') + "\\study.tvp");
    label.set_cut(Cut::middle);
    auto& edit = form_.add<TEdit>("edit");
    edit.set_text(label.text());
    edit.set_cuts_middle(true);
    form_.add<TButton>("other", "Other").focus();
    show(form_);
    EXPECT_LT(widget(label).width(), 700);
    const QImage cut = widget(edit).grab().toImage();
    edit.set_cuts_middle(false);
    EXPECT_NE(widget(edit).grab().toImage(), cut);
    EXPECT_EQ(widget<QLineEdit>(edit).text().toStdString(), edit.text());
}

TEST_F(Table_views, a_pipe_that_has_something_to_read_wakes_its_watch) {
    int pipe_ends[2];
    ASSERT_EQ(pipe(pipe_ends), 0);
    TDescriptor_watch watch(pipe_ends[0]);
    watch.on_ready = [&] {
        char byte = 0;
        EXPECT_EQ(read(pipe_ends[0], &byte, 1), 1);
        log_ += byte;
        watch.set_enabled(byte != 'b');
    };
    watch.set_enabled(true);
    EXPECT_EQ(write(pipe_ends[1], "abc", 3), 3);
    QTest::qWait(30);
    EXPECT_EQ(log_, "ab");
    for (const int end : pipe_ends)
        close(end);
}

TEST_F(Table_views, the_window_that_the_user_turns_to_is_told) {
    TForm other("other");
    form_.on_activate = [&] { log_ += "first "; };
    other.on_activate = [&] { log_ += "second "; };
    show(form_);
    show(other);
    widget(form_).activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&widget(form_)));
    EXPECT_EQ(log_, "first second first ");
}

} // namespace
