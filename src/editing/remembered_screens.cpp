#include "editing/remembered_screens.h"

#include <utility>

namespace {

// No file has such a full name.
constexpr const char* section = "screens";
constexpr std::uint16_t longest = 1000;

// Texts under keys of their own in place of the settings of a window.
class Texts : public TESK::User_settings {
public:
    bool setup_structure(TESK::Data_record& record, bool) override {
        for (auto& [name, text] : texts)
            record.expect_string(name.c_str(), text, longest);
        return true;
    }

    std::map<std::string, TESK::Ustring> texts;
};

} // namespace

Remembered_screens::Remembered_screens(const TESK::Application_data_directory& settings)
    : settings_(settings) {
    current_screen_memory = this;
}

Remembered_screens::~Remembered_screens() {
    current_screen_memory = nullptr;
    save();
}

std::string Remembered_screens::recall(const std::string& name) const {
    if (const auto found = changed_.find(name); found != changed_.end())
        return found->second;
    Texts wanted;
    const TESK::Ustring& text = wanted.texts[name];
    settings_.load(wanted, section);
    return text;
}

void Remembered_screens::remember(const std::string& name, const std::string& arrangement) {
    changed_[name] = arrangement;
}

void Remembered_screens::save() {
    if (changed_.empty())
        return;
    Texts kept;
    for (const auto& [name, text] : std::exchange(changed_, {}))
        kept.texts[name] = text.c_str();
    settings_.save(kept, section);
}
