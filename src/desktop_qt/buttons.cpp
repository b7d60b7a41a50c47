// The views of what is clicked.
#include "desktop_qt/views.h"
#include "toolkit/button.h"
#include "toolkit/check_box.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QButtonGroup>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QRadioButton>
#include <QtWidgets/QToolButton>

namespace {

// Enter clicks a button that has the focus, as the space bar does.
template <class Control, class Widget>
class Clicked_view : public View_of<Control, Widget> {
protected:
    Clicked_view(View_context& context, TControl& control, Widget& widget)
        : View_of<Control, Widget>(context, control, widget) {
        QObject::connect(&widget, &QAbstractButton::clicked, this,
                         [this] { this->act([this] { this->control().click(); }); });
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (View::eventFilter(watched, event))
            return true;
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                this->widget().click();
                return true;
            }
        }
        return false;
    }
};

class Button_view : public Clicked_view<TButton, QPushButton> {
public:
    Button_view(View_context& context, TControl& control, QWidget* parent)
        : Clicked_view(context, control, *new QPushButton(parent)) {
        // Which button enter clicks is the form's affair.
        widget().setAutoDefault(false);
    }

protected:
    void show_state() override {
        widget().setText(to_qt(control().text()));
        widget().setDefault(control().is_default());
    }
};

class Speed_button_view : public Clicked_view<TSpeedButton, QToolButton> {
public:
    Speed_button_view(View_context& context, TControl& control, QWidget* parent)
        : Clicked_view(context, control, *new QToolButton(parent)) {
        widget().setCheckable(true);
        widget().setToolButtonStyle(Qt::ToolButtonTextOnly);
        widget().setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    }

protected:
    void show_state() override {
        widget().setText(to_qt(control().text()));
        widget().setChecked(control().down());
        // In a dark theme being down alone is hard to see.
        QFont font = widget().font();
        font.setBold(control().down());
        widget().setFont(font);
    }
};

class Spin_view : public View_of<TSpinArrows, QWidget> {
public:
    Spin_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new QWidget(parent)) {
        auto& row = *new QHBoxLayout(&widget());
        row.setContentsMargins(0, 0, 0, 0);
        label_ = new QLabel;
        row.addWidget(label_);
        auto& column = *new QVBoxLayout;
        column.setSpacing(0);
        row.addLayout(&column);
        up_ = &add_arrow(column, true);
        down_ = &add_arrow(column, false);
        widget().setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

protected:
    void show_state() override {
        label_->setText(to_qt(control().text()));
        label_->setHidden(control().text().empty());
        const QString step = label_->text().remove(QChar(0xB1)).trimmed();
        for (QToolButton* arrow : {up_, down_})
            arrow->setAccessibleName((arrow == up_ ? "+" : "-") + (step.isEmpty() ? QString("1") : step));
    }

private:
    QToolButton& add_arrow(QVBoxLayout& column, bool upward) {
        auto& arrow = *new QToolButton;
        const int height = widget().fontMetrics().height();
        arrow.setArrowType(upward ? Qt::UpArrow : Qt::DownArrow);
        arrow.setAutoRepeat(true);
        arrow.setFocusPolicy(Qt::NoFocus);
        arrow.setFixedSize(height * 3 / 2, height * 3 / 4);
        connect(&arrow, &QToolButton::clicked, this,
                [this, upward] { act([&] { control().spin(upward); }); });
        column.addWidget(&arrow);
        return arrow;
    }

    QLabel* label_;
    QToolButton* up_;
    QToolButton* down_;
};

class Check_box_view : public View_of<TCheckBox, QCheckBox> {
public:
    Check_box_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new QCheckBox(parent)) {
        connect(&widget(), &QCheckBox::clicked, this, [this] { act([this] { this->control().click(); }); });
    }

protected:
    void show_state() override {
        widget().setText(to_qt(control().text()));
        widget().setChecked(control().checked());
    }
};

class Radio_view : public View_of<TRadioGroup, QGroupBox> {
public:
    Radio_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new QGroupBox(parent)) {
        buttons_ = new QButtonGroup(&widget());
        connect(buttons_, &QButtonGroup::idClicked, this,
                [this](int index) { act([&] { this->control().select(index); }); });
    }

protected:
    void show_state() override {
        widget().setTitle(to_qt(control().text()));
        show_items();
        show_index();
    }
    void settle() override { show_index(); }

private:
    void show_items() {
        const QStringList items = to_qt(control().items());
        if (items == shown_)
            return;
        const bool same_buttons = items.size() == shown_.size();
        shown_ = items;
        // Buttons that only change their words keep the keyboard's focus.
        for (int index = 0; same_buttons && index < items.size(); ++index)
            buttons_->button(index)->setText(items[index]);
        if (same_buttons)
            return;
        qDeleteAll(buttons_->buttons());
        delete widget().layout();
        auto& grid = *new QGridLayout(&widget());
        for (int index = 0; index < items.size(); ++index) {
            auto& button = *new QRadioButton(items[index]);
            buttons_->addButton(&button, index);
            watch(button);
            grid.addWidget(&button, index / control().columns(), index % control().columns());
        }
    }

    void show_index() {
        QAbstractButton* const chosen = buttons_->button(control().item_index());
        if (chosen) {
            chosen->setChecked(true);
        } else if (QAbstractButton* const shown = buttons_->checkedButton()) {
            buttons_->setExclusive(false);
            shown->setChecked(false);
            buttons_->setExclusive(true);
        }
    }

    QButtonGroup* buttons_;
    QStringList shown_;
};

} // namespace

View& make_button_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Button_view(context, control, parent);
}

View& make_speed_button_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Speed_button_view(context, control, parent);
}

View& make_spin_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Spin_view(context, control, parent);
}

View& make_check_box_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Check_box_view(context, control, parent);
}

View& make_radio_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Radio_view(context, control, parent);
}
