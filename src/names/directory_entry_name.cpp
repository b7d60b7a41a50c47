#include "names/directory_entry_name.h"

#include "foundation/code_page_1252.h"
#include "names/directory_name.h"
#include "platform/current_directory.h"
#include "platform/files.h"
#include "platform/process.h"
#include "platform/shell.h"

#include <algorithm>

namespace TESK {

namespace {

constexpr int normal_window = 1;

bool is_separator(char c) {
    return c == '\\' || c == '/';
}

} // namespace

Directory_entry_name& Directory_entry_name::set(const char* name) {
    return set(std::string(name == nullptr ? "" : name));
}

Directory_entry_name& Directory_entry_name::set(const wchar_t* name) {
    std::string narrow;
    return set(wide_to_narrow(name == nullptr ? L"" : name, narrow));
}

Directory_entry_name& Directory_entry_name::set(const std::string& name) {
    std::string::assign(name);
    decompose();
    return *this;
}

void Directory_entry_name::decompose() const {
    drive_pos = path_pos = name_pos = npos;
    std::size_t path_start = 0;
    std::size_t start = 0;
    std::size_t dot = 0;
    for (std::size_t i = 0; i < size(); ++i) {
        const char c = (*this)[i];
        if (c == '.') {
            dot = i;
        } else if (is_separator(c)) {
            if (path_pos == npos)
                path_pos = path_start;
            start = i + 1;
        } else if (c == ':') {
            drive_pos = 0;
            path_start = start = i + 1;
        }
    }
    name_pos = start;
    ext_pos = dot == 0 ? size() : dot;
    decomposed = true;
}

void Directory_entry_name::need_positions() const {
    if (!decomposed)
        decompose();
}

std::size_t Directory_entry_name::name_start() const {
    need_positions();
    return std::min(name_pos, size());
}

std::size_t Directory_entry_name::ext_start() const {
    need_positions();
    return std::min(ext_pos, size());
}

void Directory_entry_name::set_path(const Directory_name& path) {
    const std::string name = get_name(true);
    path.append_to(name.c_str(), *this, false);
}

void Directory_entry_name::set_ext(const char* ext) {
    std::string text = substr(0, ext_start());
    if (ext != nullptr && *ext != 0) {
        if (*ext != '.')
            text += '.';
        text += ext;
    }
    set(text);
}

const Ustring& Directory_entry_name::get_name(bool with_extension) const {
    // An extension that begins in a directory part gives a count that has no end.
    const std::size_t count = with_extension ? npos : ext_start() - name_start();
    return buffer = substr(name_start(), count);
}

bool Directory_entry_name::explore(bool select) {
    std::string command = "explorer /n,/e,";
    if (select)
        command += "/select,";
    platform::launcher().execute(command + '"' + *this + '"', normal_window);
    return true;
}

bool Directory_entry_name::exists() const {
    return platform::exists(*this);
}

std::string& Directory_entry_name::label_to(std::string& text) const {
    return text.assign(show_full_path ? *this : get_name(show_extension));
}

bool Directory_entry_name::set_mark(std::uint8_t mark, bool on) {
    marks = static_cast<std::uint8_t>(on ? marks | mark : marks & ~mark);
    return true;
}

bool Directory_entry_name::toggle_selected() {
    set_mark(selected_mark, (marks & selected_mark) == 0);
    return is_selected();
}

bool Directory_entry_name::toggle_checked() {
    set_mark(checked_mark, (marks & checked_mark) == 0);
    return is_checked();
}

bool Directory_entry_name::set_selected(bool selected) {
    return set_mark(selected_mark, selected);
}

bool Directory_entry_name::set_checked(bool checked) {
    return set_mark(checked_mark, checked);
}

std::ostream& Directory_entry_name::write(std::ostream& out) const {
    return out << c_str() << '\n';
}

void Directory_entry_name::set_drive(const char* drive) {
    std::string text = drive == nullptr ? "" : drive;
    if (!text.empty() && text.find(':') == npos)
        text += ':';
    Ustring path;
    get_path_no_drive(path);
    set(text + path + get_name(true));
}

void Directory_entry_name::set_name(const char* name) {
    const std::string ext = get_ext();
    set(substr(0, name_start()) + name + ext);
}

void Directory_entry_name::set_name_ext(const char* name) {
    set(substr(0, name_start()) + name);
}

void Directory_entry_name::get_path(Directory_name& out, bool strip_separator) const {
    std::string path = substr(0, name_start());
    if (strip_separator && path.ends_with('\\'))
        path.pop_back();
    out.set(path);
}

void Directory_entry_name::get_path_no_drive(Ustring& out) const {
    const std::size_t end = name_start();
    if (path_pos != npos)
        out = substr(std::min(path_pos, end), end - std::min(path_pos, end));
}

Ustring& Directory_entry_name::get_ext(Ustring& out) const {
    return out = substr(ext_start());
}

const Ustring& Directory_entry_name::get_ext() const {
    return get_ext(buffer);
}

bool Directory_entry_name::has_ext(const char* ext) const {
    std::string wanted = ext == nullptr ? "" : ext;
    if (!wanted.starts_with('.'))
        wanted.insert(0, 1, '.');
    Ustring own;
    return equal_ignoring_case(get_ext(own), wanted);
}

bool Directory_entry_name::is_qualified(bool need_drive) const {
    return need_drive ? size() > 1 && (*this)[1] == ':' : std::string::find('\\') != npos;
}

bool Directory_entry_name::qualify() {
    if (starts_with('<'))
        return false;
    if (starts_with('\\') || is_qualified(true))
        return true;
    const platform::Directory_guard current;
    Directory_name rest(*this);
    Directory_name piece("");
    for (rest.split_first(piece, '\\'); piece == "..\\" || piece == "../"; rest.split_first(piece, '\\'))
        platform::change_directory("..");
    set(platform::current_directory() + '\\' + piece + rest);
    return true;
}

void Directory_entry_name::make_relative_to(const Directory_name& base) {
    Directory_entry_name absolute(*this);
    absolute.qualify();
    if (absolute.size() >= base.size() && equal_ignoring_case(absolute.substr(0, base.size()), base)) {
        std::string rest = absolute.substr(base.size());
        if (!rest.empty() && is_separator(rest.front()))
            rest.erase(0, 1);
        set(rest);
        return;
    }

    Directory_name base_rest(base + '\\');
    Directory_name name_rest("");
    Directory_name base_piece("");
    Directory_name name_piece("");
    absolute.get_path(name_rest, false);
    base_rest.split_first(base_piece, ':');
    name_rest.split_first(name_piece, ':');
    if (base_piece != name_piece) {
        set(absolute);
        return;
    }
    // The empty piece behind the colon, and the first directory.
    for (int i = 0; i < 2; ++i) {
        base_rest.split_first(base_piece, '\\');
        name_rest.split_first(name_piece, '\\');
    }
    std::string result;
    while (!base_piece.empty() || !name_piece.empty()) {
        if (base_piece == name_piece) {
            base_rest.split_first(base_piece, '\\');
            name_rest.split_first(name_piece, '\\');
        } else if (name_piece.empty()) {
            for (; !base_piece.empty(); base_rest.split_first(base_piece, '\\'))
                result.insert(0, "..\\");
        } else {
            for (; !base_piece.empty(); base_rest.split_first(base_piece, '\\'))
                result += "..\\";
            result += name_piece;
            name_rest.split_first(name_piece, '\\');
        }
    }
    set_path(result);
}

bool Directory_entry_name::recycle(bool permanently) {
    if (!exists())
        return false;
    return permanently ? platform::shell().delete_permanently(*this) : platform::shell().recycle(*this);
}

} // namespace TESK
