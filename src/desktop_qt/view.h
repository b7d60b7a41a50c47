// What draws one control with a Qt widget: the base of the view classes, one for each kind of control. A view
// shows what its control tells it, hands what the user does back to the control, and decides nothing.
#pragma once

#include "toolkit/control.h"

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <string>
#include <utility>

class QAbstractScrollArea;
class QColor;
class QKeyEvent;
class QWidget;

// What all views of a desktop share.
class View_context {
public:
    virtual ~View_context() = default;
    // The host's path of a file that the program names so, and the program's name of a host path. Both UTF-8.
    virtual std::string host_path(const std::string& name) const = 0;
    virtual std::string program_name(const std::string& path) const = 0;
    // Runs what the user did, and keeps any exception of a handler: none may cross Qt's event loop.
    virtual void run_action(const std::function<void()>& action) = 0;
    // The user closes the form's window by its frame.
    virtual void close(TForm& form) = 0;
    virtual void hidden(TForm& form) = 0;
};

QColor to_qt(Colour colour);
// Black or white, whichever is easier to read on the background, in a light and in a dark theme.
QColor readable_on(const QColor& background);
Key to_key(const QKeyEvent& event);
QString to_qt(const std::string& text);
QStringList to_qt(const std::vector<std::string>& texts);
std::string from_qt(const QString& text);

// Shows that the widget has the focus, if it has: for one without a cursor, as an empty list.
void paint_focus(QAbstractScrollArea& widget);

class View : public QObject, public Control_view {
public:
    ~View() override;
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    QWidget& widget() const { return widget_; }
    // Shows the whole state of the control. To be called once, when the view is made.
    void show_all();
    void changed(const Change& change) final;

    // The view that a widget belongs to, null for none.
    static View* of(const QWidget& widget);
    // The user put the focus into the widget.
    void enter() {
        name_after_page();
        name_line_of_choice();
        act([this] { observed()->focus(); });
    }

    // What no label names is called, for who cannot see it, after the page that it stands on, in the language
    // of the moment.
    void name_after_page();

    // How many views there are.
    static int alive();

protected:
    // The widget owns the view.
    View(View_context& context, TControl& control, QWidget& widget);

    // Shows what the kind of control adds to a control's common state.
    virtual void show_state() = 0;
    virtual void show_change(const Change& change);
    // Brings the widget back in line after a user's action that the control may have taken differently.
    virtual void settle() { show_state(); }
    // The control is gone: what still refers to it must not.
    virtual void let_go() {}
    void control_gone(bool with_holder) final;

    View_context& context() const { return context_; }
    // Whether the control is at this moment taking what the user did here.
    bool acting() const { return acting_; }
    // Whether the widget is at this moment shown what the control has.
    bool showing() const { return showing_; }

    // Runs what the user does to the control. Nothing comes of what the widget reports while it is shown
    // something.
    template <class Action>
    void act(Action action) {
        if (!observed() || showing_)
            return;
        const bool outer = std::exchange(acting_, true);
        context_.run_action(action);
        while_showing([this] { settle(); });
        acting_ = outer;
    }
    // Has an inner widget's focus, keys and dropped files treated as the control's own.
    void watch(QWidget& inner);
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    template <class Show>
    void while_showing(Show show) {
        if (observed()) {
            const bool outer = std::exchange(showing_, true);
            show();
            showing_ = outer;
        }
    }
    bool has_seen_key(const QObject* watched) const;
    bool offer(const QKeyEvent& event);
    bool take_files(QEvent& event);
    void name_line_of_choice();
    void show_colour();
    void show_hint();
    void show_place();

    View_context& context_;
    QWidget& widget_;
    QString page_name_; // as the widget was named after the page that it stands on
    QString hint_name_; // or by its hint
    bool showing_ = false;
    bool acting_ = false;
};

// A view that knows the class of its control and of its widget.
template <class Control, class Widget>
class View_of : public View {
protected:
    View_of(View_context& context, TControl& control, Widget& widget)
        : View(context, control, widget), control_(static_cast<Control&>(control)), widget_(widget) {}

    Control& control() const { return control_; }
    Widget& widget() const { return widget_; }

private:
    Control& control_;
    Widget& widget_;
};

// Enters the control whose widget has the focus, where that is below `holder`: Qt moved it there before the
// control could take it.
void enter_what_has_focus(const QWidget& holder);

// Makes the view of a control, and its widget as a child of `parent`, by the control's kind.
View& make_view(View_context& context, TControl& control, QWidget* parent);
// The widget that draws a control, made now if there is none yet.
QWidget& widget_of(View_context& context, TControl& control, QWidget* parent);
