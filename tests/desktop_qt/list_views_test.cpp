#include "desktop_qt/views_support.h"
#include "toolkit/file_list_box.h"

namespace {

void click_line(QListView& view, int row, int x) {
    const QRect line = view.visualRect(view.model()->index(row, 0));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, {x, line.center().y()});
}

TEST_F(Views, a_mark_clicked_in_a_list_is_set_and_the_cursor_stays) {
    auto& list = form_.add<TCheckListBox>("list");
    list.set_lines({"first", "second", "third"});
    list.on_double_click = count_;
    show(form_);
    QListView& view = widget<QListView>(list);
    click_line(view, 1, 60);
    EXPECT_EQ(list.item_index(), 1);
    EXPECT_FALSE(list.checked(1));
    click_line(view, 2, 8);
    EXPECT_TRUE(list.checked(2));
    EXPECT_EQ(list.item_index(), 1);
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_TRUE(list.checked(1));
    QTest::keyClick(&view, Qt::Key_Up);
    EXPECT_EQ(list.item_index(), 0);
    click_line(view, 0, 60);
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {},
                       {60, view.visualRect(view.currentIndex()).center().y()});
    EXPECT_EQ(fired_, 1);

    list.set_checked(0, true);
    list.set_line_text(0, "changed");
    list.set_item_index(2);
    const QModelIndex first = view.model()->index(0, 0);
    EXPECT_EQ(first.data().toString(), "changed");
    EXPECT_EQ(first.data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(view.currentIndex().row(), 2);
    list.insert_line(0, "new");
    EXPECT_EQ(view.currentIndex().row(), 3);
    list.remove_line(3);
    EXPECT_FALSE(view.currentIndex().isValid());
    EXPECT_EQ(view.model()->rowCount(), 3);
}

TEST_F(Views, a_list_may_be_refilled_by_its_own_handler) {
    auto& list = form_.add<TListBox>("list");
    list.set_lines({"first", "second", "third"});
    list.on_change = [&] { list.set_lines({"only"}); };
    show(form_);
    click_line(widget<QListView>(list), 2, 20);
    EXPECT_EQ(list.count(), 1);
    EXPECT_EQ(widget<QListView>(list).model()->rowCount(), 1);
    EXPECT_FALSE(widget<QListView>(list).currentIndex().isValid());
}

TEST_F(Views, several_lines_are_selected) {
    auto& list = form_.add<TShellListView>("list");
    list.set_lines({"a", "b", "c", "d"});
    list.set_selected(3, true);
    show(form_);
    QListView& view = widget<QListView>(list);
    EXPECT_TRUE(view.selectionModel()->isRowSelected(3));
    click_line(view, 0, 60);
    QTest::keyClick(&view, Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_TRUE(list.selected(0) && list.selected(1) && !list.selected(3));
    list.set_selected(0, false);
    EXPECT_FALSE(view.selectionModel()->isRowSelected(0));
}

// Adds up what of a widget is painted.
class Paint_watch : public QObject {
public:
    QRegion painted;

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint)
            painted += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
};

TEST_F(Views, a_change_of_one_line_paints_that_line_alone) {
    auto& list = form_.add<TCheckListBox>("list");
    list.set_lines(std::vector<std::string>(5000, "line"));
    show(form_);
    QListView& view = widget<QListView>(list);
    QTest::qWait(20);
    Paint_watch watch;
    view.viewport()->installEventFilter(&watch);
    list.set_checked(1, true);
    list.set_checked(4000, true);
    QTest::qWait(20);
    EXPECT_EQ(watch.painted.boundingRect(), view.visualRect(view.model()->index(1, 0)));
    for (int row = 0; row < list.count(); ++row)
        list.set_checked(row, row != 2);
    QTest::qWait(20);
    watch.painted = {};
    list.set_all_checked(true);
    QTest::qWait(20);
    EXPECT_EQ(watch.painted.boundingRect(), view.visualRect(view.model()->index(2, 0)));
}

class Two_folders : public Folder_source {
public:
    std::vector<Folder_entry> files(const std::string&, const std::string&) override { return {}; }
    std::vector<Folder_entry> folders(const std::string& folder) override {
        ++reads;
        return {{"Crop", folder + "\\Crop"}, {"Soil", folder + "\\Soil"}};
    }
    int reads = 0;
};

TEST_F(Views, a_tree_reads_the_folders_that_are_opened) {
    Two_folders folders;
    auto& tree = form_.add<TShellTreeView>("tree");
    tree.set_source(&folders);
    tree.set_folder("C:\\P");
    tree.on_change = count_;
    show(form_);
    QTreeWidget& view = widget<QTreeWidget>(tree);
    ASSERT_EQ(view.topLevelItemCount(), 2);
    const int reads = folders.reads;
    view.topLevelItem(1)->setExpanded(true);
    EXPECT_EQ(folders.reads, reads + 1);
    view.setCurrentItem(view.topLevelItem(1)->child(0));
    EXPECT_EQ(tree.selected_folder(), "C:\\P\\Soil\\Crop");
    EXPECT_EQ(fired_, 1);
    tree.Update();
    EXPECT_EQ(view.topLevelItemCount(), 2);
}

} // namespace
