#include "toolkit/edit.h"

#include "toolkit/utf8.h"

#include <algorithm>
#include <tuple>

TCustomEdit::TCustomEdit(Control_kind kind, std::string name, bool multi_line)
    : TControl(kind, std::move(name)), multi_line_(multi_line) {
    set_takes_focus(true);
}

// Gives one "\n" for each kind of line break, or a blank where the control has one line.
std::string TCustomEdit::without_line_breaks(const std::string& text) const {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
            continue;
        const bool is_break = text[i] == '\r' || text[i] == '\n';
        result += !is_break ? text[i] : multi_line_ ? '\n' : ' ';
    }
    return result;
}

// The characters that are missing in what stays.
std::string TCustomEdit::refused_of(const std::string& came, const std::string& stays) const {
    const std::string plain = without_line_breaks(came);
    std::string refused;
    std::size_t kept = 0;
    for (std::size_t start = 0; start < plain.size();) {
        const std::size_t size = utf8::offset(std::string_view(plain).substr(start), 1);
        const bool stayed = stays.compare(kept, size, plain, start, size) == 0;
        kept += stayed ? size : 0;
        refused += stayed ? std::string() : plain.substr(start, size);
        start += size;
    }
    return refused;
}

std::string TCustomEdit::admitted(const std::string& text) const {
    const std::string plain = without_line_breaks(text);
    return input_filter ? input_filter(plain) : plain;
}

void TCustomEdit::set_text(const std::string& text) {
    const std::string plain = without_line_breaks(text);
    modified_ = false;
    if (plain != this->text()) {
        TControl::set_text(plain);
        set_caret(0);
    }
}

int TCustomEdit::selection_start() const {
    catch_up();
    return std::min(anchor_, caret_);
}

int TCustomEdit::selection_length() const {
    return std::max(anchor_, caret_) - selection_start();
}

std::string TCustomEdit::selected_text() const {
    const std::size_t start = utf8::offset(text(), selection_start());
    return text().substr(start, utf8::offset(text(), selection_start() + selection_length()) - start);
}

void TCustomEdit::set_selection(int anchor, int caret) {
    const int length = utf8::length(text());
    anchor = std::clamp(anchor, 0, length);
    caret = std::clamp(caret, 0, length);
    if (anchor != anchor_ || caret != caret_) {
        anchor_ = anchor;
        caret_ = caret;
        notify(Aspect::caret);
    }
}

void TCustomEdit::select_all() {
    set_selection(0, utf8::length(text()));
}

bool TCustomEdit::begin_edit() {
    return begin_action() && !read_only_;
}

bool TCustomEdit::type_text(const std::string& text) {
    if (!begin_edit())
        return false;
    replace(selection_start(), selection_length(), text);
    return true;
}

void TCustomEdit::replace(int start, int removed, const std::string& inserted) {
    const std::string stays = admitted(inserted);
    const std::size_t from = utf8::offset(text(), start);
    const std::size_t to = utf8::offset(text(), start + removed);
    finish_edit(cleaned({text().substr(0, from) + stays + text().substr(to), start + utf8::length(stays),
                         refused_of(inserted, stays)}));
}

Edit_outcome TCustomEdit::outcome_of(const std::string& edited, int caret) const {
    const std::string& old = text();
    const std::size_t shorter = std::min(old.size(), edited.size());
    std::size_t head = 0;
    while (head < shorter && old[head] == edited[head])
        ++head;
    while (head > 0 && head < edited.size() && utf8::is_continuation(edited[head]))
        --head;
    std::size_t tail = 0;
    while (tail < shorter - head && old[old.size() - 1 - tail] == edited[edited.size() - 1 - tail])
        ++tail;
    while (tail > 0 && utf8::is_continuation(edited[edited.size() - tail]))
        --tail;
    const std::string before = edited.substr(0, head);
    const std::string came = edited.substr(head, edited.size() - head - tail);
    const std::string stays = admitted(came);
    const int refused = utf8::length(came) - utf8::length(stays);
    const int behind_head = std::max(caret - utf8::length(before), 0);
    return cleaned({before + stays + edited.substr(edited.size() - tail),
                    caret - std::min(refused, behind_head), refused_of(came, stays)});
}

bool TCustomEdit::edit_text(const std::string& edited, int caret) {
    if (!begin_edit())
        return false;
    finish_edit(outcome_of(edited, caret));
    return true;
}

Edit_outcome TCustomEdit::cleaned(Edit_outcome outcome) const {
    outcome.differs = outcome.text != text();
    clean(outcome);
    return outcome;
}

void TCustomEdit::finish_edit(const Edit_outcome& outcome) {
    if (outcome.text != text())
        TControl::set_text(outcome.text);
    if (outcome.differs)
        modified_ = true;
    set_caret(outcome.caret);
    if (outcome.differs)
        do_change();
    do_edited(outcome.refused);
}

bool TCustomEdit::edit_in_place(const Text_holder& holder) {
    if (!begin_edit())
        return false;
    text_ahead_ = caret_ahead_ = &holder;
    modified_ = true;
    do_change();
    return true;
}

bool TCustomEdit::select_in_place(const Text_holder& holder) {
    if (!begin_action())
        return false;
    caret_ahead_ = &holder;
    return true;
}

std::string TCustomEdit::admit(const std::string& text) {
    const std::string stays = admitted(text);
    if (in_reach())
        do_edited(refused_of(text, stays));
    return stays;
}

void TCustomEdit::catch_up() const {
    const Text_holder* const holds_text = std::exchange(text_ahead_, nullptr);
    const Text_holder* const holds_caret = std::exchange(caret_ahead_, nullptr);
    if (holds_text)
        const_cast<TCustomEdit*>(this)->adopt_text(holds_text->held_text());
    if (holds_caret)
        std::tie(anchor_, caret_) = holds_caret->held_selection();
}

bool TCustomEdit::select_text(int anchor, int caret) {
    if (!begin_action())
        return false;
    set_selection(anchor, caret);
    return true;
}

bool TCustomEdit::press(const Key& key) {
    const int length = utf8::length(text());
    const auto step_to = [&](int position) { return select_text(key.shift ? anchor_ : position, position); };
    switch (key.code) {
    case Key_code::left: return step_to(std::max(caret_ - 1, 0));
    case Key_code::right: return step_to(std::min(caret_ + 1, length));
    case Key_code::home: return step_to(0);
    case Key_code::end: return step_to(length);
    case Key_code::backspace:
    case Key_code::del: return erase(key.code == Key_code::backspace ? -1 : 0);
    case Key_code::enter: return multi_line_ && type_text("\n");
    case Key_code::space: return type_text(" ");
    case Key_code::character: return !key.text.empty() && !key.control && type_text(key.text);
    default: return false;
    }
}

// Erases the selection, or the character `step` away from the caret.
bool TCustomEdit::erase(int step) {
    if (!begin_edit())
        return false;
    if (selection_length() > 0)
        replace(selection_start(), selection_length(), {});
    else if (caret_ + step >= 0)
        replace(caret_ + step, 1, {});
    return true;
}

void TCustomEdit::do_change() {
    if (on_change)
        on_change();
}

void TEdit::set_prompt(const std::string& prompt) {
    if (prompt_.set(prompt))
        notify(Aspect::state);
}

void TEdit::translate_prompt(const std::string& translation) {
    if (prompt_.translate(translation))
        notify(Aspect::state);
}

int TMemo::line_count() const {
    const auto breaks = std::count(text().begin(), text().end(), '\n');
    const bool open_end = !text().empty() && text().back() != '\n';
    return static_cast<int>(breaks) + (open_end ? 1 : 0);
}

void TMemo::append_line(const std::string& line) {
    const bool needs_break = !text().empty() && text().back() != '\n';
    set_modified(false);
    // Only what comes in is looked through: a long text of many lines would otherwise be so for each of them.
    TControl::set_text(text() + (needs_break ? "\n" : "") + without_line_breaks(line) + "\n");
    set_caret(utf8::length(text()));
}
