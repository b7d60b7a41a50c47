#include "editing/documentation_page.h"

#include "editing/bound_control.h"
#include "editing/page_parts.h"
#include "platform/files.h"
#include "platform/shell.h"
#include "toolkit/screen_language.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr const char* not_connected = "No Internet connection";
constexpr const char* installed = "Documentation installed on this computer";
constexpr const char* none_found = "No documentation found";

struct Topic {
    TESK::Documentation_topic topic;
    const char* name; // of the buttons
    const char* caption;
};
constexpr Topic topics[] = {
    {TESK::Documentation_topic::help, "help", "Help"},
    {TESK::Documentation_topic::faq, "FAQ", "FAQ"},
    {TESK::Documentation_topic::manual, "manual", "Manual"},
    {TESK::Documentation_topic::tutorial, "tutorial", "Tutorial"},
};

// The text of the guide in a folder "docs" of one of those that the program lies in; "" where there is none.
// A program that a suite links to lies where the link leads.
std::string guide_of_sources(const std::string& program) {
    std::string place = platform::shell().resolve_shortcut(program).value_or(program);
    for (std::size_t end = place.rfind('\\'); end != std::string::npos; end = place.rfind('\\')) {
        place.erase(end);
        const std::string guide = place + "\\docs\\user-guide.md";
        if (platform::is_file(guide))
            return guide;
    }
    return {};
}

} // namespace

Documentation_page::Documentation_page(const TESK::File_name& program_file, TTabSheet& sheet)
    : documentation_label_installed(
          add_note(sheet.add<TGroupBox>("documentation_group_installed", "On this computer"),
                   "documentation_label_installed", installed)),
      label_where_documentation_lies(
          add_note(*documentation_label_installed.parent(), "label_where_documentation_lies", "")),
      documentation_web_label(add_note(sheet.add<TGroupBox>("documentation_group_web", "On the web"),
                                       "documentation_web_label", "Documentation on the web")),
      program_directory_(program_file) {
    label_where_documentation_lies.set_text_is_data(true);
    TPanel& on_disk = add_row(*documentation_label_installed.parent(), "panel_documentation_installed");
    TPanel& on_web = add_row(*documentation_web_label.parent(), "panel_documentation_web");
    for (std::size_t i = 0; i < std::size(topics); ++i) {
        const Topic& page = topics[i];
        documentation_buttons[i] =
            &on_disk.add<TButton>(std::string("documentation_button_") + page.name, page.caption);
        documentation_buttons[i]->on_click = [this, topic = page.topic] {
            program_directory_.documentation.get_page(topic).open();
        };
        documentation_web_buttons[i] =
            &on_web.add<TButton>(std::string("documentation_web_button_") + page.name, page.caption);
        documentation_web_buttons[i]->on_click = [this, topic = page.topic] {
            if (web_)
                web_->get_page(topic).open();
        };
    }
    sheet.on_show = [this] { update_documentation_buttons(); };
}

bool Documentation_page::open_guide() {
    constexpr int highest_start_error = 32;
    std::string guide = program_directory_.documentation.get_page(TESK::Documentation_topic::help);
    if (!platform::is_file(guide))
        guide = guide_of_sources(program_directory_.program_file);
    return !guide.empty() && platform::shell().shell_execute("open", guide, 1) > highest_start_error;
}

void Documentation_page::set_web(const char* url_root, const char* local_root) {
    web_.reset();
    if (url_root != nullptr) {
        web_ = std::make_unique<TESK::Documentation_directory>(program_directory_.program_file);
        web_->rebase_to_URL(url_root, local_root);
    }
    update_documentation_buttons();
}

void Documentation_page::update_documentation_buttons() {
    const bool is_available = program_directory_.exists();
    bool any_installed = false;
    const bool is_connected = platform::shell().is_network_connected();
    for (std::size_t i = 0; i < std::size(topics); ++i) {
        const TESK::Documentation_topic topic = topics[i].topic;
        const TESK::Smart_file_name& page = program_directory_.documentation.get_page(topic);
        const bool is_installed = is_available && page.exists();
        any_installed = any_installed || is_installed;
        documentation_buttons[i]->set_visible(is_installed);
        documentation_buttons[i]->set_hint(screen_text(page));
        documentation_web_buttons[i]->set_visible(web_ != nullptr);
        if (web_)
            documentation_web_buttons[i]->set_hint(is_connected ? screen_text(web_->get_page(topic))
                                                                : not_connected);
    }
    documentation_label_installed.set_text(any_installed ? installed : none_found);
    label_where_documentation_lies.set_text(
        worded("Documentation is looked for in %1, where the installation of the suite puts it.",
               screen_text(program_directory_)));
    label_where_documentation_lies.set_visible(!any_installed);
    documentation_web_label.parent()->set_visible(web_ != nullptr);
    if (on_new_texts)
        on_new_texts();
}

std::string Documentation_page::help_lookup(const std::string& page) const {
    const TESK::Documentation_directory& local = program_directory_.documentation;
    const std::string separator = local.ends_with('\\') ? "" : "\\";
    const TESK::Smart_file_name file((local + separator + page).c_str());
    if (file.exists())
        return file;
    if (!web_)
        return {};
    std::string address = *web_ + '/' + page;
    std::replace(address.begin(), address.end(), '\\', '/');
    return address;
}

void Documentation_page::view_document(const std::string& page) const {
    const std::string found = help_lookup(page);
    if (!found.empty())
        TESK::Smart_file_name(found.c_str()).open();
}
