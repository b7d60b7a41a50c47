#include "names/directory_entry_name.h"

#include "foundation/code_page_1252.h"
#include "names/directory_name.h"
#include "names/name_texts.h"
#include "platform/command_line.h"
#include "platform/current_directory.h"
#include "platform/files.h"
#include "platform/process.h"
#include "platform/shell.h"

#include <algorithm>
#include <optional>

namespace TESK {

namespace {

// The text from one position up to another, as far as there is one.
std::string slice(const std::string& text, std::size_t begin, std::size_t end) {
    begin = std::min(begin, text.size());
    return text.substr(begin, std::max(begin, end) - begin);
}

// The way from a folder to another on the same drive. Both are texts behind the colon, with a final
// separator.
std::string way_between(std::string_view from, std::string_view to) {
    take_piece(from, '\\');
    take_piece(to, '\\');
    while (!(from.empty() && to.empty()) && first_piece(from, '\\') == first_piece(to, '\\')) {
        take_piece(from, '\\');
        take_piece(to, '\\');
    }
    std::string way;
    while (!from.empty()) {
        take_piece(from, '\\');
        way += "..\\";
    }
    return way.append(to);
}

} // namespace

Directory_entry_name& Directory_entry_name::set(const char* name) {
    std::string::assign(text_or_empty(name));
    decompose();
    return *this;
}

Directory_entry_name& Directory_entry_name::set(const wchar_t* name) {
    std::string narrow;
    if (name != nullptr)
        wide_to_narrow(name, narrow);
    return set(narrow);
}

Directory_entry_name& Directory_entry_name::set(const std::string& name) {
    std::string::assign(name);
    decompose();
    return *this;
}

void Directory_entry_name::set_path(const Directory_name& path) {
    path.append_to(name_with_extension().c_str(), *this);
}

void Directory_entry_name::set_ext(const char* ext) {
    if (!empty() && front() == '<')
        return;
    need_positions();
    const std::string_view new_ext = text_or_empty(ext);
    std::string text = slice(*this, 0, ext_pos);
    if (!new_ext.empty() && new_ext.front() != '.')
        text += '.';
    set(text.append(new_ext));
}

const Ustring& Directory_entry_name::get_name(bool with_extension) const {
    need_positions();
    const std::size_t count = with_extension ? npos : ext_pos - name_pos;
    return buffer = substr(std::min(name_pos, size()), count);
}

void Directory_entry_name::decompose() const {
    drive_pos = path_pos = name_pos = npos;
    std::size_t path_start = 0;
    std::size_t name_start = 0;
    std::size_t dot = 0;
    for (std::size_t i = 0; i < size(); ++i) {
        switch ((*this)[i]) {
        case '.': dot = i; break;
        case '\\':
        case '/':
            if (path_pos == npos)
                path_pos = path_start;
            name_start = i + 1;
            break;
        case ':':
            drive_pos = 0;
            path_start = name_start = i + 1;
            break;
        default: break;
        }
    }
    name_pos = name_start;
    ext_pos = dot == 0 ? size() : dot;
    decomposed = true;
}

bool Directory_entry_name::explore(bool select) const {
    const std::string command = select ? "explorer /n,/e,/select," : "explorer /n,/e,";
    if (platform::refusal_of_name(*this).empty())
        platform::launcher().execute(command + platform::in_quotes(*this), platform::normal_window);
    return true;
}

bool Directory_entry_name::exists() const {
    return platform::exists(*this);
}

std::string& Directory_entry_name::label_to(std::string& out) const {
    return out = show_full_path ? *this : get_name(show_extension);
}

bool Directory_entry_name::set_selected(bool selected) {
    return is_selected() == selected || toggle_selected() == selected;
}

bool Directory_entry_name::set_checked(bool checked) {
    return is_checked() == checked || toggle_checked() == checked;
}

bool Directory_entry_name::toggle_selected() {
    marks ^= selected_mark;
    return is_selected();
}

bool Directory_entry_name::toggle_checked() {
    marks ^= checked_mark;
    return is_checked();
}

std::ostream& Directory_entry_name::write(std::ostream& out) const {
    return out << *this << '\n';
}

void Directory_entry_name::set_drive(const char* drive) {
    std::string text = text_or_empty(drive);
    if (!text.empty() && text.find(':') == npos)
        text += ':';
    set(text + path_without_drive() + name_with_extension());
}

void Directory_entry_name::set_name(const char* name) {
    set(before_name() + text_or_empty(name) + extension());
}

void Directory_entry_name::set_name_ext(const char* name) {
    set(before_name() + text_or_empty(name));
}

void Directory_entry_name::get_path(Directory_name& out, bool strip_separator) const {
    std::string path = before_name();
    if (strip_separator && !path.empty() && path.back() == '\\')
        path.pop_back();
    out.set(path);
}

std::string& Directory_entry_name::get_path_no_drive(std::string& out) const {
    need_positions();
    if (path_pos != npos)
        out = path_without_drive();
    return out;
}

const Ustring& Directory_entry_name::get_ext() const {
    return buffer = extension();
}

std::string& Directory_entry_name::get_ext(std::string& out) const {
    return out = extension();
}

bool Directory_entry_name::has_ext(const char* ext) const {
    std::string wanted = text_or_empty(ext);
    if (wanted.empty() || wanted.front() != '.')
        wanted.insert(0, 1, '.');
    return equal_ignoring_case(extension(), wanted);
}

bool Directory_entry_name::is_qualified(bool need_drive) const {
    return need_drive ? size() > 1 && (*this)[1] == ':' : std::string::find('\\') != npos;
}

bool Directory_entry_name::qualify() {
    if (!empty() && front() == '<')
        return false;
    if ((!empty() && front() == '\\') || is_qualified(true))
        return true;
    // Without a step up the current directory need not be touched.
    std::optional<platform::Directory_guard> guard;
    std::string_view rest = *this;
    for (std::string_view piece = first_piece(rest, '\\'); piece == "..\\" || piece == "../";
         piece = first_piece(rest, '\\')) {
        if (!guard)
            guard.emplace();
        platform::change_directory("..");
        take_piece(rest, '\\');
    }
    set(platform::current_directory().append("\\").append(rest));
    return true;
}

bool Directory_entry_name::qualify_in_root() {
    const bool relative = !is_qualified(true);
    const bool qualified = qualify();
    if (relative && std::string::compare(1, 3, ":\\\\") == 0)
        set(std::string(*this).erase(2, 1));
    return qualified;
}

void Directory_entry_name::make_relative_to(const Directory_name& base) {
    Directory_name absolute(*this);
    absolute.qualify();
    const std::string& text = absolute;
    if (equal_ignoring_case(std::string_view(text).substr(0, base.size()), base)) {
        const std::size_t begin = base.size();
        set(text.substr(begin < text.size() && text[begin] == '\\' ? begin + 1 : begin));
        return;
    }
    const std::string from_text = base + '\\';
    const std::string to_text = absolute.before_name();
    std::string_view from = from_text;
    std::string_view to = to_text;
    if (take_piece(from, ':') != take_piece(to, ':'))
        set(text);
    else
        set_path(Directory_name(way_between(from, to)));
}

bool Directory_entry_name::recycle(bool permanently) const {
    if (!exists())
        return false;
    return permanently ? platform::shell().delete_permanently(*this) : platform::shell().recycle(*this);
}

void Directory_entry_name::need_positions() const {
    if (!decomposed)
        decompose();
}

std::string Directory_entry_name::before_name() const {
    need_positions();
    return slice(*this, 0, name_pos);
}

std::string Directory_entry_name::name_with_extension() const {
    need_positions();
    return slice(*this, name_pos, npos);
}

std::string Directory_entry_name::extension() const {
    need_positions();
    return slice(*this, ext_pos, npos);
}

std::string Directory_entry_name::path_without_drive() const {
    need_positions();
    return slice(*this, path_pos, name_pos);
}

} // namespace TESK
