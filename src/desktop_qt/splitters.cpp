// The view of a splitter.
#include "desktop_qt/views.h"
#include "toolkit/splitter.h"

#include <QtGui/QKeyEvent>
#include <QtWidgets/QSplitter>

#include <numeric>

namespace {

constexpr int whole = 1000;

class Splitter_view : public View_of<TSplitter, QSplitter> {
public:
    Splitter_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new QSplitter(parent)) {
        widget().setChildrenCollapsible(false);
        connect(&widget(), &QSplitter::splitterMoved, this,
                [this] { act([this] { this->control().move(shown_position()); }); });
    }

protected:
    void show_state() override {
        const bool is_row = control().layout() == Layout::row;
        widget().setOrientation(is_row ? Qt::Horizontal : Qt::Vertical);
        for (TControl* child : control().children()) {
            widget().addWidget(&widget_of(context(), *child, &widget()));
            widget().setStretchFactor(widget().count() - 1, std::max(child->place().stretch, 0));
        }
        for (int index = 1; index < widget().count(); ++index) {
            QSplitterHandle& handle = *widget().handle(index);
            handle.setFocusPolicy(Qt::TabFocus);
            handle.setAccessibleName(to_qt(control().hint()));
            handle.installEventFilter(this);
        }
        show_position();
    }

    void show_change(const Change& change) override {
        if (change.aspect == Aspect::value)
            show_position();
        else
            View::show_change(change);
    }
    // Where the handle is, is what the user moved it to; the share in thousandths may be a little off it.
    void settle() override {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* const handle = qobject_cast<QSplitterHandle*>(watched);
        return handle && event->type() == QEvent::KeyPress ? step(static_cast<QKeyEvent*>(event)->key())
                                                           : View::eventFilter(watched, event);
    }

private:
    int shown_position() const {
        const QList<int> sizes = widget().sizes();
        const int room = std::accumulate(sizes.begin(), sizes.end(), 0);
        return room > 0 ? (sizes.first() * whole + room / 2) / room : 0;
    }

    void show_position() {
        if (acting() || control().position() < 0 || widget().count() < 2)
            return;
        widget().setSizes({control().position() * whole, (whole - control().position()) * whole});
    }

    // The arrow keys move the bar.
    bool step(int key) {
        const bool back = key == Qt::Key_Left || key == Qt::Key_Up;
        if (!back && key != Qt::Key_Right && key != Qt::Key_Down)
            return false;
        const int before = control().position() < 0 ? shown_position() : control().position();
        act([&] { control().move(before + (back ? -20 : 20)); });
        const int position = control().position();
        widget().setSizes({position * whole, (whole - position) * whole});
        return true;
    }
};

} // namespace

View& make_splitter_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Splitter_view(context, control, parent);
}
