// The view of a form: its window.
#include "desktop_qt/containers.h"
#include "desktop_qt/views.h"
#include "toolkit/form.h"

#include <QtGui/QCloseEvent>
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
        event->ignore();
        on_close();
    }
    void moveEvent(QMoveEvent*) override { on_moved(); }
    void resizeEvent(QResizeEvent*) override { on_moved(); }
};

class Form_view : public View_of<TForm, Window> {
public:
    Form_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new Window(parent)) {
        widget().on_close = [this] { act([this] { this->control().close(); }); };
        widget().on_moved = [this] { act([this] { report_bounds(); }); };
    }

protected:
    void show_state() override {
        widget().setWindowTitle(to_qt(control().text()));
        if (!widget().layout()) {
            lay_out(context(), control(), widget());
        }
    }

    void show_change(const Change& change) override {
        switch (change.aspect) {
        case Aspect::text: widget().setWindowTitle(to_qt(control().text())); break;
        case Aspect::children: lay_out(context(), control(), widget()); break;
        case Aspect::place: show_bounds(); break;
        // The desktop shows a window.
        case Aspect::visible:
            if (!control().visible()) {
                widget().hide();
            }
            break;
        default: View::show_change(change); break;
        }
    }

private:
    void show_bounds() {
        const Bounds& bounds = control().bounds();
        if (bounds.width > 0 && bounds.height > 0) {
            widget().setGeometry(bounds.left, bounds.top, bounds.width, bounds.height);
        }
    }

    void report_bounds() {
        if (widget().isVisible() && !widget().isMinimized() && !widget().isMaximized()) {
            const QRect place = widget().geometry();
            control().set_bounds({place.x(), place.y(), place.width(), place.height()});
        }
    }
};

} // namespace

View& make_form_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Form_view(context, control, parent);
}
