// The view of a form: its window.
#include "desktop_qt/containers.h"
#include "desktop_qt/views.h"
#include "toolkit/form.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLayout>

namespace {

// A dialog that leaves keys and closing to the form.
class Window : public QDialog {
public:
    explicit Window(QWidget* parent) : QDialog(parent) {}

    std::function<void()> on_close;
    std::function<void()> on_moved;

    void reject() override { on_close(); }

protected:
    void keyPressEvent(QKeyEvent* event) override { event->ignore(); }
    void closeEvent(QCloseEvent* event) override {
        on_close();
        event->setAccepted(!isVisible());
    }
    void moveEvent(QMoveEvent*) override { on_moved(); }
    void resizeEvent(QResizeEvent*) override { on_moved(); }
};

class Form_view : public View_of<TForm, Window> {
public:
    Form_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new Window(parent)) {
        if (!this->control().modal())
            widget().setWindowFlags(Qt::Window);
        widget().on_close = [this] {
            if (observed())
                this->context().close(this->control());
        };
        widget().on_moved = [this] { report_bounds(); };
    }

protected:
    void show_state() override {
        widget().setWindowTitle(to_qt(control().text()));
        lay_out(context(), control(), widget());
        show_bounds();
    }
    void settle() override {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &widget() && event->type() == QEvent::WindowActivate)
            act([this] { control().activate(); });
        return View::eventFilter(watched, event);
    }

    void show_change(const Change& change) override {
        switch (change.aspect) {
        case Aspect::text: widget().setWindowTitle(to_qt(control().text())); break;
        case Aspect::children: lay_out(context(), control(), widget()); break;
        case Aspect::place: show_bounds(); break;
        // The desktop shows a window; the form hides it.
        case Aspect::visible:
            if (!control().visible()) {
                widget().hide();
                context().hidden(control());
            }
            break;
        default: View::show_change(change); break;
        }
    }

private:
    // A place on a screen that is no longer there is moved to one that is. Without a place of its own the
    // window gets its size alone.
    void show_bounds() {
        const Bounds& bounds = control().bounds();
        if (bounds.width <= 0 || bounds.height <= 0)
            return;
        if (bounds.left == 0 && bounds.top == 0) {
            const QSize room = QGuiApplication::primaryScreen()->availableGeometry().size();
            widget().resize(QSize(bounds.width, bounds.height).boundedTo(room));
            return;
        }
        const QRect wanted(bounds.left, bounds.top, bounds.width, bounds.height);
        const QScreen* const there = QGuiApplication::screenAt(wanted.center());
        const QRect room = (there ? there : QGuiApplication::primaryScreen())->availableGeometry();
        QRect place = wanted.intersected(QRect(wanted.topLeft(), room.size()));
        place.moveLeft(std::clamp(place.left(), room.left(), room.right() - place.width() + 1));
        place.moveTop(std::clamp(place.top(), room.top(), room.bottom() - place.height() + 1));
        widget().setGeometry(place);
    }

    void report_bounds() {
        if (widget().isVisible() && !widget().isMinimized() && !widget().isMaximized()) {
            const QRect place = widget().geometry();
            act([&] { control().set_bounds({place.x(), place.y(), place.width(), place.height()}); });
        }
    }
};

} // namespace

View& make_form_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Form_view(context, control, parent);
}
