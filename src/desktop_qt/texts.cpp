// The views of what text is typed into. The widget does the editing; the control says what it comes to.
#include "desktop_qt/views.h"
#include "toolkit/edit.h"

#include <QtGui/QFocusEvent>
#include <QtWidgets/QLineEdit>

namespace {

// Positions of a control count characters, those of Qt count UTF-16 units.
int to_characters(const QString& text, qsizetype units) {
    int characters = 0;
    for (qsizetype i = 0; i < units && i < text.size(); ++i) {
        characters += text[i].isLowSurrogate() ? 0 : 1;
    }
    return characters;
}

qsizetype to_units(const QString& text, int characters) {
    qsizetype units = 0;
    for (; units < text.size() && (characters > 0 || text[units].isLowSurrogate()); ++units) {
        characters -= text[units].isLowSurrogate() ? 0 : 1;
    }
    return units;
}

class Edit_view : public View_of<TCustomEdit, QLineEdit> {
public:
    Edit_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new QLineEdit(parent)) {
        connect(&widget(), &QLineEdit::textEdited, this, [this](const QString& text) {
            act([&] {
                this->control().edit_text(from_qt(text), to_characters(text, widget().cursorPosition()));
            });
        });
        connect(&widget(), &QLineEdit::cursorPositionChanged, this, [this] { report_selection(); });
        connect(&widget(), &QLineEdit::selectionChanged, this, [this] { report_selection(); });
    }

protected:
    void show_state() override {
        widget().setReadOnly(control().read_only());
        widget().setAlignment(control().right_aligned() ? Qt::AlignRight : Qt::AlignLeft);
        show_text();
        show_caret();
    }

    void show_change(const Change& change) override {
        switch (change.aspect) {
        case Aspect::text: show_text(); break;
        case Aspect::caret: show_caret(); break;
        default: View::show_change(change); break;
        }
    }

    void settle() override {
        show_text();
        show_caret();
    }

    // A click that brings the focus would set the caret at once and so undo what entering selected.
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusIn) {
            came_by_mouse_ = static_cast<QFocusEvent*>(event)->reason() == Qt::MouseFocusReason;
        } else if (event->type() == QEvent::MouseButtonRelease && std::exchange(came_by_mouse_, false)) {
            if (widget().hasSelectedText() || control().selection_length() == 0) {
                report_selection();
            } else {
                act([] {});
            }
        }
        return View::eventFilter(watched, event);
    }

private:
    void report_selection() {
        if (!widget().hasFocus() || came_by_mouse_ || widget().text() != to_qt(control().text())) {
            return;
        }
        const QString text = widget().text();
        const qsizetype caret = widget().cursorPosition();
        const qsizetype start = widget().hasSelectedText() ? widget().selectionStart() : caret;
        const qsizetype anchor = start == caret ? caret + widget().selectedText().size() : start;
        act([&] { control().select_text(to_characters(text, anchor), to_characters(text, caret)); });
    }

    void show_text() {
        const QString wanted = to_qt(control().text());
        const QString shown = widget().text();
        if (wanted == shown) {
            return;
        }
        if (!acting()) {
            widget().setText(wanted);
            return;
        }
        // Only what differs is replaced, so that the user can still undo what they typed.
        qsizetype head = 0;
        while (head < wanted.size() && head < shown.size() && wanted[head] == shown[head]) {
            ++head;
        }
        qsizetype tail = 0;
        while (tail < wanted.size() - head && tail < shown.size() - head &&
               wanted[wanted.size() - 1 - tail] == shown[shown.size() - 1 - tail]) {
            ++tail;
        }
        widget().setSelection(static_cast<int>(head), static_cast<int>(shown.size() - tail - head));
        widget().insert(wanted.mid(head, wanted.size() - tail - head));
    }

    void show_caret() {
        const QString text = widget().text();
        const qsizetype caret = to_units(text, control().caret());
        const int anchor_character = control().caret() == control().selection_start()
                                         ? control().selection_start() + control().selection_length()
                                         : control().selection_start();
        const qsizetype anchor = to_units(text, anchor_character);
        if (anchor != caret) {
            widget().setSelection(static_cast<int>(anchor), static_cast<int>(caret - anchor));
        } else if (widget().cursorPosition() != caret || widget().hasSelectedText()) {
            widget().deselect();
            widget().setCursorPosition(static_cast<int>(caret));
        }
    }

    bool came_by_mouse_ = false;
};

} // namespace

View& make_edit_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Edit_view(context, control, parent);
}
