// The view of a splitter.
#include "desktop_qt/views.h"
#include "toolkit/form.h"
#include "toolkit/splitter.h"

#include <QtGui/QKeyEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QSplitter>

#include <numeric>

namespace {

constexpr int whole = 1000;
constexpr int key_step = 20;

// Shows that it has the focus, and that it can be taken hold of.
class Bar : public QSplitterHandle {
public:
    Bar(Qt::Orientation orientation, QSplitter* parent) : QSplitterHandle(orientation, parent) {
        setFocusPolicy(Qt::TabFocus);
        setAttribute(Qt::WA_Hover);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const bool is_held = hasFocus() || underMouse();
        if (hasFocus())
            painter.fillRect(rect(), palette().color(QPalette::Highlight));
        const auto role = hasFocus() ? QPalette::HighlightedText : QPalette::WindowText;
        QColor colour = palette().color(role);
        colour.setAlphaF(is_held ? 1 : 0.55F);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colour);
        constexpr int dots = 5;
        constexpr qreal radius = 1.2;
        constexpr qreal distance = 6;
        const QPointF middle = QRectF(rect()).center();
        for (int dot = 0; dot < dots; ++dot) {
            const qreal along = (dot - dots / 2) * distance;
            painter.drawEllipse(orientation() == Qt::Horizontal ? middle + QPointF(0, along)
                                                                : middle + QPointF(along, 0),
                                radius, radius);
        }
    }
};

// Keeps the share of the first part whatever room there is. Qt itself would give what room comes and goes,
// the first of all, to the parts by their own wishes.
class Parts : public QSplitter {
public:
    explicit Parts(QWidget* parent) : QSplitter(parent) {
        setChildrenCollapsible(false);
        setHandleWidth(9);
    }

    void set_share(int share) {
        share_ = share;
        show_share();
    }
    int shown_share() const {
        const int first = sizes().first();
        return room() > 0 ? (first * whole + room() / 2) / room() : 0;
    }
    // What is on view is what is to stay.
    int keep_shown_share() { return share_ = shown_share(); }

protected:
    QSplitterHandle* createHandle() override { return new Bar(orientation(), this); }
    void resizeEvent(QResizeEvent* event) override {
        QSplitter::resizeEvent(event);
        show_share();
    }

private:
    int room() const {
        const QList<int> parts = sizes();
        return std::accumulate(parts.begin(), parts.end(), 0);
    }
    void show_share() {
        if (share_ < 0 || count() != 2 || room() <= 0)
            return;
        const int first = (room() * share_ + whole / 2) / whole;
        setSizes({first, room() - first});
    }

    int share_ = -1;
};

class Splitter_view : public View_of<TSplitter, Parts> {
public:
    Splitter_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new Parts(parent)) {
        connect(&widget(), &QSplitter::splitterMoved, this,
                [this] { act([this] { this->control().move(widget().keep_shown_share()); }); });
    }

protected:
    void show_state() override {
        const bool is_row = control().layout() == Layout::row;
        widget().setOrientation(is_row ? Qt::Horizontal : Qt::Vertical);
        for (TControl* child : control().children()) {
            widget().addWidget(&widget_of(context(), *child, &widget()));
            widget().setStretchFactor(widget().count() - 1, std::max(child->place().stretch, 0));
        }
        for (int index = 1; index < widget().count(); ++index)
            widget().handle(index)->installEventFilter(this);
        show_name();
        widget().set_share(control().position());
    }

    void show_change(const Change& change) override {
        if (change.aspect == Aspect::text)
            show_name();
        else if (change.aspect != Aspect::value)
            View::show_change(change);
        else if (!acting())
            widget().set_share(control().position());
    }
    // Where the bar is, is what the user moved it to; the share in thousandths may be a little off it.
    void settle() override {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (qobject_cast<QSplitterHandle*>(watched) == nullptr)
            return View::eventFilter(watched, event);
        if (event->type() == QEvent::FocusIn)
            leave_controls();
        return event->type() == QEvent::KeyPress && step(static_cast<QKeyEvent*>(event)->key());
    }

private:
    void show_name() {
        const QString name = to_qt(control().text());
        for (int index = 1; index < widget().count(); ++index) {
            widget().handle(index)->setAccessibleName(name);
            widget().handle(index)->setToolTip(name);
        }
    }

    // The bar is no control: none has the focus meanwhile, and what was typed is complete.
    void leave_controls() {
        act([&] {
            if (TForm* const form = control().form())
                form->leave_focus();
        });
    }

    // The arrow keys move the bar, the keys for begin and end as far as it goes. It then stands where it is
    // on view, which may be short of where it was to go.
    bool step(int key) {
        int position = widget().shown_share();
        switch (key) {
        case Qt::Key_Left:
        case Qt::Key_Up: position -= key_step; break;
        case Qt::Key_Right:
        case Qt::Key_Down: position += key_step; break;
        case Qt::Key_Home: position = 0; break;
        case Qt::Key_End: position = whole; break;
        default: return false;
        }
        act([&] {
            widget().set_share(position);
            control().move(widget().keep_shown_share());
        });
        return true;
    }
};

} // namespace

View& make_splitter_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Splitter_view(context, control, parent);
}
