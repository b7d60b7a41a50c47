#include "app/facts_form.h"

#include "editing/page_parts.h"
#include "toolkit/desktop.h"

namespace {

constexpr int lines_on_view = 8;
constexpr int form_width = 760;

} // namespace

Tfacts_form::Tfacts_form(const char* title)
    : TForm("facts_form", title), rows_(add<TPanel>("panel_facts", Layout::grid, 2)),
      facts_memo(fill(add<TMemo>("facts_memo"))),
      copy_button(add_button(add_row(*this, "panel_buttons"), "copy_button", "&Copy",
                             "Copy all that is told here, as text.")),
      action_button(copy_button.parent()->add<TButton>("action_button", "")),
      close_button(copy_button.parent()->add<TButton>("close_button", "C&lose")) {
    facts_memo.set_read_only(true);
    facts_memo.set_visible(false);
    action_button.set_visible(false);
    copy_button.on_click = [this] {
        if (current_desktop != nullptr)
            current_desktop->set_clipboard_text(told());
    };
    close_button.set_default(true);
    close_button.set_cancel(true);
    close_button.set_modal_result(Modal_result::ok);
    set_bounds({0, 0, form_width, 1}); // as high as what it tells
}

void Tfacts_form::add_fact(const char* caption, const std::string& fact, Mark mark) {
    const std::string number = std::to_string(facts_.size());
    TLabel& name = rows_.add<TLabel>("caption_" + number, caption);
    TLabel& told = fill(rows_.add<TLabel>("fact_" + number, fact));
    told.set_text_is_data(true);
    told.set_cut(Cut::middle);
    told.set_mark(mark);
    facts_.emplace_back(&name, &told);
}

void Tfacts_form::set_lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += (text.empty() ? "" : "\n") + line;
    facts_memo.set_text(text);
    facts_memo.set_visible(!lines.empty());
    Place place = facts_memo.place();
    place.height = lines_on_view;
    facts_memo.set_place(place);
}

void Tfacts_form::set_action(const char* caption, const char* hint, std::function<void()> action) {
    action_button.set_text(caption);
    action_button.set_hint(hint);
    action_button.set_visible(true);
    action_button.on_click = std::move(action);
}

std::string Tfacts_form::told() const {
    std::string text;
    for (const auto& [caption, fact] : facts_)
        text += caption->text() + ": " + fact->text() + '\n';
    return text + facts_memo.text() + '\n';
}
