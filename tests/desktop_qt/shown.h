// What the tests of the drawing layer share: a desktop, and ways to the widgets of controls.
#pragma once

#include "desktop_qt/qt_desktop.h"

#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QEvent>
#include <QtTest/QTest>
#include <QtWidgets/QWidget>

class Shown : public testing::Test {
protected:
    template <class Widget = QWidget>
    static Widget& widget(const TControl& control) {
        return static_cast<Widget&>(static_cast<View*>(control.view())->widget());
    }

    static void show(TForm& form) {
        form.show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&widget(form)));
    }

    static void delete_what_is_left() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    void TearDown() override {
        delete_what_is_left();
        EXPECT_EQ(View::alive(), 0) << "a view outlives its form";
    }

    std::unique_ptr<Qt_desktop> owned_desktop_ = std::make_unique<Qt_desktop>();
    Qt_desktop& desktop_ = *owned_desktop_;
    Desktop_scope scope_{desktop_};
};
