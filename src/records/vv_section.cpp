#include "records/vv_section.h"

#include "records/line_text.h"

namespace TESK {

std::string& VV_section::label_cstr(std::string& buffer) const {
    buffer = "[" + label + "]";
    blank_line_breaks(buffer, 0);
    return buffer;
}

void VV_section::append_text(std::string& text) const {
    if (entries.is_empty())
        return;
    std::string header;
    text += label_cstr(header);
    text += line_end;
    for (const VV_base_entry& entry : all_entries())
        entry.append_line(text);
}

std::ostream& VV_section::write(std::ostream& out) const {
    std::string text;
    append_text(text);
    return out << text;
}

void VV_section::store(std::string_view key, const Ustring& value) {
    VV_base_entry* entry = find_entry(key);
    if (entry == nullptr) {
        entry = new VV_unexpected_entry(key, value);
        entries.append(entry);
    } else {
        entry->set_value(value);
    }
    entry->encountered = true;
}

void VV_section::begin_declaring_anew() {
    is_declared_anew_ = true;
    declared_ = nullptr;
    encountered = false;
    entries.delete_aliases();
}

VV_base_entry* VV_section::declare_anew(std::string_view key, const std::type_info& type) {
    const auto* found = first_undeclared();
    while (found != nullptr && found->item->get_key_view() != key)
        found = found->next;
    Item* const entry = found == nullptr ? nullptr : found->item.get();
    if (entry == nullptr || typeid(*entry) != type) {
        while (first_undeclared() != nullptr)
            pass_over();
        is_declared_anew_ = false;
        return nullptr;
    }
    while (first_undeclared() != found)
        pass_over();
    declared_ = declared_ == nullptr ? entries.head() : declared_->next;
    return static_cast<VV_base_entry*>(entry);
}

void VV_section::pass_over() {
    std::unique_ptr<VV_base_entry> entry(static_cast<VV_base_entry*>(entries.pop_behind(declared_)));
    if (!entry->encountered)
        return;
    if (passed_over_ == nullptr)
        passed_over_ = std::make_unique<VV_section>(label);
    passed_over_->entries.append(entry.release());
}

std::unique_ptr<VV_section> VV_section::end_declaring_anew() {
    const auto is_to_stay = [](const VV_base_entry& entry) {
        return entry.type_code() == Entry_type::unexpected && entry.encountered;
    };
    if (is_declared_anew_) {
        bool stay = passed_over_ == nullptr;
        for (const auto* node = first_undeclared(); stay && node != nullptr; node = node->next)
            stay = is_to_stay(static_cast<const VV_base_entry&>(*node->item));
        while (!stay && first_undeclared() != nullptr)
            pass_over();
        for (const auto* node = first_undeclared(); node != nullptr; node = node->next)
            static_cast<VV_base_entry&>(*node->item).encountered = false;
    }
    is_declared_anew_ = false;
    declared_ = nullptr;
    return std::move(passed_over_);
}

VV_base_entry* VV_section::find_entry(std::string_view key) const {
    return static_cast<VV_base_entry*>(entries.find_exact(key));
}

} // namespace TESK
