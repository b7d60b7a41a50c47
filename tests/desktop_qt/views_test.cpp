#include "desktop_qt/qt_desktop.h"
#include "toolkit/edit.h"
#include "toolkit/list_box.h"

#include <gtest/gtest.h>

#include <QtTest/QTest>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>

namespace {

class Views : public testing::Test {
protected:
    template <class Widget>
    Widget& widget_of(TControl& control) {
        return static_cast<Widget&>(static_cast<View*>(control.view())->widget());
    }

    void show(TForm& form) {
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&widget_of<QWidget>(form)));
    }

    Qt_desktop desktop_;
    Desktop_scope scope_{desktop_};
};

std::string only_digits(const std::string& text) {
    std::string digits;
    std::copy_if(text.begin(), text.end(), std::back_inserter(digits),
                 [](char c) { return c >= '0' && c <= '9'; });
    return digits;
}

TEST_F(Views, keys_typed_into_an_edit_reach_the_control_through_its_filter) {
    TForm form("form", "A number");
    auto& edit = form.add<TEdit>("edit");
    edit.input_filter = only_digits;
    show(form);
    QLineEdit& line = widget_of<QLineEdit>(edit);

    QTest::keyClicks(&line, "1x2");
    EXPECT_EQ(edit.text(), "12");
    EXPECT_EQ(line.text(), "12");
    EXPECT_EQ(edit.caret(), 2);
    QTest::keyClick(&line, Qt::Key_Home);
    EXPECT_EQ(edit.caret(), 0);
    QTest::keyClick(&line, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(edit.text(), line.text().toStdString());

    edit.set_text("345");
    EXPECT_EQ(line.text(), "345");
    edit.set_selection(3, 1);
    EXPECT_EQ(line.selectedText(), "45");
    EXPECT_EQ(line.cursorPosition(), 1);
}

TEST_F(Views, a_mark_clicked_in_a_list_is_set_and_the_cursor_stays) {
    TForm form("form", "Lines");
    auto& list = form.add<TCheckListBox>("list");
    list.set_lines({"first", "second", "third"});
    show(form);
    QListView& view = widget_of<QListView>(list);
    const auto row = [&](int index) { return view.visualRect(view.model()->index(index, 0)); };

    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, row(1).center());
    EXPECT_EQ(list.item_index(), 1);
    EXPECT_FALSE(list.checked(1));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, row(2).topLeft() + QPoint(8, row(2).height() / 2));
    EXPECT_TRUE(list.checked(2));
    EXPECT_EQ(list.item_index(), 1);
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_TRUE(list.checked(1));

    list.set_checked(0, true);
    list.set_line_text(0, "changed");
    list.set_item_index(2);
    const QModelIndex first = view.model()->index(0, 0);
    EXPECT_EQ(first.data().toString(), "changed");
    EXPECT_EQ(first.data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(view.currentIndex().row(), 2);
}

TEST_F(Views, none_outlives_its_form) {
    {
        TForm form("form");
        form.add<TEdit>("edit");
        form.add<TCheckListBox>("list").set_lines({"line"});
        show(form);
        EXPECT_EQ(View::alive(), 3);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(View::alive(), 0);
}

} // namespace
