#include "toolkit/headless_desktop.h"

#include "toolkit/descriptor_watch.h"
#include "toolkit/timer.h"

#include <algorithm>

namespace {

std::string message_in_words(const std::string& title, const std::string& text) {
    return "message \"" + title + "\": \"" + text + "\"";
}

std::string dialog_in_words(const std::string& title) {
    return "file dialog \"" + title + "\"";
}

std::string form_in_words(const std::string& name) {
    return "dialog form " + name;
}

// What a user answers who only wants to be rid of a message.
Modal_result mildest(Button_set buttons) {
    switch (buttons) {
    case Button_set::ok: return Modal_result::ok;
    case Button_set::yes_no: return Modal_result::no;
    case Button_set::abort_retry_ignore: return Modal_result::abort;
    default: return Modal_result::cancel;
    }
}

} // namespace

Headless_desktop::Headless_desktop(std::function<void(const std::string& fault)> on_fault)
    : on_fault_(std::move(on_fault)), scope_(*this) {}

Headless_desktop::~Headless_desktop() {
    for (const Step& step : script_)
        on_fault_("expected, but never met: " + step.met);
}

void Headless_desktop::expect_message(const std::string& title, const std::string& text,
                                      Modal_result answer) {
    script_.push_back({.met = message_in_words(title, text), .answer = answer});
}

void Headless_desktop::expect_file_dialog(const std::string& title, std::vector<std::string> chosen) {
    script_.push_back({.met = dialog_in_words(title), .files = std::move(chosen)});
}

void Headless_desktop::expect_modal(const std::string& form_name, std::function<void(TForm&)> user) {
    script_.push_back({.met = form_in_words(form_name), .user = std::move(user)});
}

void Headless_desktop::expect_menu(std::string item) {
    script_.push_back({.met = "menu", .item = std::move(item)});
}

// Takes the next step of the script if it is what was met. Otherwise the step stays.
bool Headless_desktop::take_step(const std::string& met, Step& step) {
    if (script_.empty() || script_.front().met != met) {
        on_fault_("unexpected: " + met + (script_.empty() ? "" : "; expected: " + script_.front().met));
        return false;
    }
    step = std::move(script_.front());
    script_.pop_front();
    return true;
}

void Headless_desktop::run_modal(TForm& form) {
    Step step;
    if (take_step(form_in_words(form.name()), step)) {
        form.activate();
        step.user(form);
        if (form.visible())
            on_fault_("still open: " + step.met);
    }
}

void Headless_desktop::run(TForm& main_form) {
    main_form.show();
    if (on_run && main_form.visible())
        on_run(main_form);
    if (!main_form.close())
        on_fault_("does not close: " + main_form.name());
}

Modal_result Headless_desktop::message_box(const Message& message) {
    messages_.push_back(message);
    Step step;
    return take_step(message_in_words(message.title, message.text), step) ? step.answer
                                                                          : mildest(message.buttons);
}

bool Headless_desktop::run_file_dialog(TFileDialog& dialog) {
    dialogs_.push_back(dialog);
    Step step;
    if (!take_step(dialog_in_words(dialog.title), step) || step.files.empty())
        return false;
    dialog.file_name = step.files.front();
    dialog.files = std::move(step.files);
    return true;
}

Item_path Headless_desktop::choose(TPopupMenu& menu, int) {
    Step step;
    if (!take_step("menu", step) || step.item.empty())
        return {};
    Item_path path = find_item(menu.items, step.item);
    if (path.empty())
        on_fault_("the menu offers no " + step.item);
    return path;
}

bool Headless_desktop::paint_pending() {
    ++messages_processed_;
    if (on_process_messages)
        on_process_messages();
    return !closing;
}

void Headless_desktop::minimise() {
    minimised_ = true;
    ++minimised_count_;
}

void Headless_desktop::start_timer(TTimer& timer) {
    timers_.push_back({&timer, now_ + std::max(timer.interval(), 1)});
}

void Headless_desktop::stop_timer(TTimer& timer) {
    std::erase_if(timers_, [&](const Armed_timer& armed) { return armed.timer == &timer; });
}

void Headless_desktop::advance(int milliseconds) {
    const long long end = now_ + milliseconds;
    for (;;) {
        const auto next =
            std::min_element(timers_.begin(), timers_.end(),
                             [](const Armed_timer& a, const Armed_timer& b) { return a.due < b.due; });
        if (next == timers_.end() || next->due > end)
            break;
        now_ = next->due;
        next->due += std::max(next->timer->interval(), 1);
        next->timer->fire();
    }
    now_ = end;
}

// A copy: a watch may end itself, or others, when it is told.
void Headless_desktop::descriptors_ready() {
    std::vector<int> descriptors;
    for (const TDescriptor_watch* watch : watches_)
        descriptors.push_back(watch->descriptor());
    for (const int descriptor : descriptors)
        descriptor_ready(descriptor);
}

void Headless_desktop::descriptor_ready(int descriptor) {
    for (TDescriptor_watch* watch : std::vector(watches_))
        if (std::find(watches_.begin(), watches_.end(), watch) != watches_.end() &&
            watch->descriptor() == descriptor)
            watch->fire();
}
