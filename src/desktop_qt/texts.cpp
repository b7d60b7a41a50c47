// The views of what text is typed into. The widget does the editing; the control says what it comes to.
#include "desktop_qt/views.h"
#include "toolkit/combo_box.h"

#include <QtCore/QMimeData>
#include <QtGui/QFocusEvent>
#include <QtGui/QFontDatabase>
#include <QtGui/QPainter>
#include <QtGui/QValidator>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QStyleOptionFrame>

#include <optional>

namespace {

// Positions of a control count characters, those of Qt count UTF-16 units.
int to_characters(const QString& text, qsizetype units) {
    int characters = 0;
    for (qsizetype i = 0; i < units && i < text.size(); ++i)
        characters += text[i].isLowSurrogate() ? 0 : 1;
    return characters;
}

int to_units(const QString& text, int characters) {
    int units = 0;
    for (; units < text.size() && (characters > 0 || text[units].isLowSurrogate()); ++units)
        characters -= text[units].isLowSurrogate() ? 0 : 1;
    return units;
}

// Where the selection of an edit begins, in characters; its caret is at the other end.
int anchor_of(const TCustomEdit& edit) {
    const int start = edit.selection_start();
    return edit.caret() == start ? start + edit.selection_length() : start;
}

// The part in which two texts differ: what of the first is replaced by what.
struct Difference {
    Difference(const QString& shown, const QString& wanted) {
        const qsizetype shorter = std::min(shown.size(), wanted.size());
        qsizetype head = 0;
        while (head < shorter && shown[head] == wanted[head]) {
            ++head;
        }
        qsizetype tail = 0;
        while (tail < shorter - head && shown[shown.size() - 1 - tail] == wanted[wanted.size() - 1 - tail]) {
            ++tail;
        }
        start = static_cast<int>(head);
        end = static_cast<int>(shown.size() - tail);
        text = wanted.mid(head, wanted.size() - tail - head);
    }

    int start;
    int end;
    QString text;
};

// Refuses what the control would not take, before it is on view and among what can be undone: an undo would
// bring it back, and be refused in its turn.
class Admission : public QValidator {
public:
    Admission(QObject* parent, std::function<bool(const QString&, int)> admits)
        : QValidator(parent), admits_(std::move(admits)) {}

    State validate(QString& text, int& caret) const override {
        return admits_(text, caret) ? Acceptable : Invalid;
    }

private:
    std::function<bool(const QString&, int)> admits_;
};

// A letter with Alt is meant for the window, and nobody types it.
bool is_for_window(const QKeyEvent& event) {
    return event.modifiers() == Qt::AltModifier && !event.text().isEmpty() && event.text()[0].isPrint();
}

// A line that leaves out the middle of a text that is wider than it, while nobody types there.
class Text_line : public QLineEdit {
public:
    explicit Text_line(QWidget* parent) : QLineEdit(parent) {}

    std::function<void()> on_key_done;

    void set_cuts_middle(bool cuts) {
        cuts_ = cuts;
        update();
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (is_for_window(*event))
            return event->ignore();
        QLineEdit::keyPressEvent(event);
        on_key_done();
    }

    void paintEvent(QPaintEvent* event) override {
        QStyleOptionFrame option;
        initStyleOption(&option);
        constexpr int margin = 2;
        const QRect room = style()
                               ->subElementRect(QStyle::SE_LineEditContents, &option, this)
                               .adjusted(margin, 0, -margin, 0);
        if (!cuts_ || hasFocus() || fontMetrics().horizontalAdvance(text()) <= room.width()) {
            QLineEdit::paintEvent(event);
            return;
        }
        QPainter painter(this);
        style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, this);
        style()->drawItemText(&painter, room, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                              fontMetrics().elidedText(text(), Qt::ElideMiddle, room.width()),
                              QPalette::Text);
    }

private:
    bool cuts_ = false;
};

// What an edit and the text of a combo box have in common.
class Line_view : public View_of<TCustomEdit, QWidget> {
protected:
    // Without a line there is no text to type.
    Line_view(View_context& context, TControl& control, QWidget& widget, Text_line* line)
        : View_of(context, control, widget), line_(line) {
        if (!line)
            return;
        connect(line, &QLineEdit::textEdited, this, [this](const QString& text) {
            act([&] {
                this->control().edit_text(from_qt(text), to_characters(text, line_->cursorPosition()));
            });
        });
        connect(line, &QLineEdit::cursorPositionChanged, this, [this] { report_selection(); });
        connect(line, &QLineEdit::selectionChanged, this, [this] { report_selection(); });
        line->on_key_done = [this] { report_refused(); };
        line->setValidator(
            new Admission(line, [this](const QString& text, int caret) { return admits(text, caret); }));
    }

    void show_state() override {
        if (line_) {
            line_->setReadOnly(control().read_only());
            line_->setAlignment((control().right_aligned() ? Qt::AlignRight : Qt::AlignLeft) |
                                Qt::AlignVCenter);
            show_text();
            show_caret();
        }
    }

    void show_change(const Change& change) override {
        if (line_ && change.aspect == Aspect::text) {
            show_text();
        } else if (change.aspect == Aspect::caret) {
            show_caret();
        } else {
            View::show_change(change);
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
            if (line_ && (line_->hasSelectedText() || control().selection_length() == 0)) {
                report_selection();
            } else {
                act([] {});
            }
        }
        return View::eventFilter(watched, event);
    }

private:
    void report_selection() {
        const QString text = line_->text();
        // What is not yet told of an edit will tell the caret too; leaving a line deselects it.
        if (!line_->hasFocus() || came_by_mouse_ || text != to_qt(control().text())) {
            return;
        }
        const int caret = line_->cursorPosition();
        const int start = line_->hasSelectedText() ? line_->selectionStart() : caret;
        const int anchor = start == caret ? caret + static_cast<int>(line_->selectedText().size()) : start;
        act([&] { control().select_text(to_characters(text, anchor), to_characters(text, caret)); });
    }

    // What the program sets is admitted as it is.
    bool admits(const QString& text, int caret) {
        if (!observed() || showing() || acting() || !line_->hasFocus())
            return true;
        const std::string edited = from_qt(text);
        if (control().outcome_of(edited, to_characters(text, caret)).text == edited)
            return true;
        refused_ = {edited, to_characters(text, caret)};
        // A key is told when the line is done with it, a paste by the mouse next.
        QMetaObject::invokeMethod(
            this, [this] { report_refused(); }, Qt::QueuedConnection);
        return false;
    }

    // The control takes what it can of the edit, and says why not the rest. Unless another came after it.
    void report_refused() {
        const auto refused = std::exchange(refused_, std::nullopt);
        if (refused && observed() && from_qt(line_->text()) == control().text())
            act([&] { control().edit_text(refused->first, refused->second); });
    }

    void show_text() {
        const QString wanted = to_qt(control().text());
        if (!line_ || line_->text() == wanted) {
            return;
        }
        if (!acting()) {
            line_->setText(wanted);
            return;
        }
        // Only what differs is replaced, so that the user can still undo what they typed.
        const Difference difference(line_->text(), wanted);
        line_->setSelection(difference.start, difference.end - difference.start);
        line_->insert(difference.text);
    }

    void show_caret() {
        if (!line_) {
            return;
        }
        const QString text = line_->text();
        const int caret = to_units(text, control().caret());
        const int anchor = to_units(text, anchor_of(control()));
        if (anchor != caret) {
            line_->setSelection(anchor, caret - anchor);
        } else if (line_->cursorPosition() != caret || line_->hasSelectedText()) {
            line_->deselect();
            line_->setCursorPosition(caret);
        }
    }

    Text_line* line_;
    std::optional<std::pair<std::string, int>> refused_; // an edit, and the caret behind it
    bool came_by_mouse_ = false;
};

class Edit_view : public Line_view {
public:
    Edit_view(View_context& context, TControl& control, Text_line& line)
        : Line_view(context, control, line, &line), line_(line) {}

protected:
    void show_state() override {
        line_.set_cuts_middle(control().cuts_middle());
        if (const QString prompt = to_qt(static_cast<TEdit&>(control()).prompt()); !prompt.isEmpty()) {
            // It names what no label names.
            if (line_.accessibleName() == line_.placeholderText())
                line_.setAccessibleName(prompt);
            line_.setPlaceholderText(prompt);
        }
        Line_view::show_state();
    }

private:
    Text_line& line_;
};

class Combo_view : public Line_view {
public:
    Combo_view(View_context& context, TControl& control, QComboBox& box)
        : Line_view(context, control, box, static_cast<Text_line*>(box.lineEdit())), box_(box) {
        box.setInsertPolicy(QComboBox::NoInsert);
        // A wheel that scrolls the page must not change a value on the way.
        box.setFocusPolicy(Qt::StrongFocus);
        if (!combo().native_words().empty()) // whose width depends on the language
            box.setSizeAdjustPolicy(QComboBox::AdjustToContents);
        if (box.lineEdit()) {
            box.setCompleter(nullptr);
            watch(*box.lineEdit());
        }
        connect(&box, &QComboBox::activated, this,
                [this](int index) { act([&] { combo().select(index); }); });
    }

protected:
    void show_state() override {
        const QStringList items = to_qt(combo().items());
        if (items != shown_) {
            shown_ = items;
            box_.clear();
            box_.addItems(items);
        }
        show_index();
        Line_view::show_state();
    }

    void show_change(const Change& change) override {
        if (change.aspect == Aspect::text)
            show_index();
        Line_view::show_change(change);
    }

    void settle() override {
        show_index();
        Line_view::settle();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Wheel && !box_.hasFocus()) {
            event->ignore();
            return true;
        }
        return Line_view::eventFilter(watched, event);
    }

private:
    TComboBox& combo() const { return static_cast<TComboBox&>(control()); }

    // Qt sets the text of the line with the index, which would undo what is being typed.
    void show_index() {
        const int index = combo().item_index();
        if (index != box_.currentIndex() && !(box_.lineEdit() && acting())) {
            box_.setCurrentIndex(index);
        }
    }

    QComboBox& box_;
    QStringList shown_;
};

// An editor that asks what of a text may come in, before it is on view and among what can be undone.
class Memo_text : public QPlainTextEdit {
public:
    explicit Memo_text(QWidget* parent) : QPlainTextEdit(parent) {}

    std::function<QString(const QString& text)> admitted;

protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (is_for_window(*event))
            return event->ignore();
        const QString text = event->text();
        const bool writes = !text.isEmpty() && text[0].isPrint() && !isReadOnly();
        if (!writes || admitted(text) == text)
            QPlainTextEdit::keyPressEvent(event);
    }

    void paintEvent(QPaintEvent* event) override {
        QPlainTextEdit::paintEvent(event);
        if (isReadOnly())
            paint_focus(*this);
    }

    void inputMethodEvent(QInputMethodEvent* event) override {
        const QString stays = admitted(event->commitString());
        event->setCommitString(stays, event->replacementStart(), event->replacementLength());
        QPlainTextEdit::inputMethodEvent(event);
    }

    void insertFromMimeData(const QMimeData* source) override {
        if (source->hasText() && !isReadOnly())
            insertPlainText(admitted(source->text()));
    }
};

// The text of a memo may be long. What the user does to it stays in the widget's own document until the
// control asks: nothing here goes through the whole text for a key.
class Memo_view : public View_of<TCustomEdit, Memo_text>, private Text_holder {
public:
    Memo_view(View_context& context, TControl& control, QWidget* parent)
        : View_of(context, control, *new Memo_text(parent)) {
        document_.setDocumentLayout(new QPlainTextDocumentLayout(&document_));
        document_.setDefaultFont(widget().font());
        widget().setDocument(&document_);
        widget().setTabChangesFocus(true);
        widget().admitted = [this](const QString& text) {
            QString stays = text;
            act([&] { stays = to_qt(this->control().admit(from_qt(text))); });
            return stays;
        };
        connect(&document_, &QTextDocument::contentsChange, this, [this](int, int removed, int added) {
            if (removed > 0 || added > 0)
                report_text();
        });
        connect(&widget(), &QPlainTextEdit::cursorPositionChanged, this, [this] { report_selection(); });
        connect(&widget(), &QPlainTextEdit::selectionChanged, this, [this] { report_selection(); });
    }

    // The widget is gone already, the document not yet.
    ~Memo_view() override {
        if (observed())
            control().catch_up();
    }

protected:
    void show_state() override {
        widget().setReadOnly(control().read_only());
        if (control().fixed_pitch()) {
            document_.setDefaultFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
            widget().setFont(document_.defaultFont());
            widget().setLineWrapMode(QPlainTextEdit::NoWrap);
        }
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

    // What the control took otherwise, it has told.
    void settle() override {}

private:
    // Blanks that do not break stay what they are.
    std::string held_text() const override {
        QString text = document_.toRawText();
        for (const char16_t line_end : {u'\u2028', u'\u2029', u'\ufdd0', u'\ufdd1'})
            text.replace(QChar(line_end), u'\n');
        return from_qt(text);
    }

    std::pair<int, int> held_selection() const override {
        const QTextCursor cursor = widget().textCursor();
        const QString text = document_.toRawText();
        return {to_characters(text, cursor.anchor()), to_characters(text, cursor.position())};
    }

    void report_text() {
        if (showing())
            return;
        bool taken = false;
        act([&] { taken = control().edit_in_place(*this); });
        if (!taken && observed())
            changed({Aspect::text});
    }

    void report_selection() {
        if (widget().hasFocus())
            act([&] { control().select_in_place(*this); });
    }

    void show_text() {
        const QString shown = to_qt(held_text());
        const QString wanted = to_qt(control().text());
        if (shown == wanted)
            return;
        // A text that only grows is not laid out anew.
        const bool grows = control().read_only() && !shown.isEmpty() && wanted.startsWith(shown);
        if (!acting() && !grows) {
            widget().setPlainText(wanted);
            return;
        }
        const Difference difference(shown, wanted);
        QTextCursor cursor(&document_);
        cursor.setPosition(difference.start);
        cursor.setPosition(difference.end, QTextCursor::KeepAnchor);
        cursor.insertText(difference.text);
    }

    void show_caret() {
        const QString text = document_.toRawText();
        QTextCursor cursor = widget().textCursor();
        const int caret = to_units(text, control().caret());
        const int anchor = to_units(text, anchor_of(control()));
        if (cursor.position() != caret || cursor.anchor() != anchor) {
            cursor.setPosition(anchor);
            cursor.setPosition(caret, QTextCursor::KeepAnchor);
            widget().setTextCursor(cursor);
        }
    }

    QTextDocument document_;
};

} // namespace

View& make_edit_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Edit_view(context, control, *new Text_line(parent));
}

View& make_combo_view(View_context& context, TControl& control, QWidget* parent) {
    auto& box = *new QComboBox(parent);
    if (static_cast<TComboBox&>(control).editable())
        box.setLineEdit(new Text_line(&box));
    return *new Combo_view(context, control, box);
}

View& make_memo_view(View_context& context, TControl& control, QWidget* parent) {
    return *new Memo_view(context, control, parent);
}
