#include "trees/program_directory.h"

#include "foundation/code_page_1252.h"
#include "foundation/lists.h"
#include "trees/common_parameters_directory.h"
#include "trees/places.h"
#include "trees/suite_directory.h"

#include <algorithm>

TESK::Program_directory* program_directory = nullptr;

namespace TESK {

namespace {

constexpr const char* topic_names[documentation_topic_count] = {"tutorial", "help", "manual", "FAQ",
                                                                "history"};

std::size_t index_of(Documentation_topic topic) {
    return static_cast<std::size_t>(topic);
}

Directory_name folder_of(const Directory_entry_name& name) {
    Directory_name folder("");
    name.get_path(folder, true);
    return folder;
}

} // namespace

Adjunct_directory::Adjunct_directory(const File_name& program)
    : Smart_directory_name(without_extension(program)), program_file(program) {}

Adjunct_directory::Adjunct_directory(const Directory_name& folder)
    : Smart_directory_name(folder), program_file(std::string(folder + ".exe").c_str()) {}

bool Adjunct_directory::find_file_by_stem(const char* stem, Smart_file_name& result) const {
    if (result.exists())
        return true;
    Bidirectional_list files;
    list_entries(files, false, true, true, false, false, list_files, nullptr, nullptr);
    bool found = false;
    for (const File_name& file : Items_of<File_name>(files)) {
        if (file.get_name(false) == stem) {
            result.set(file);
            found = true;
        }
    }
    return found;
}

const Smart_directory_name& Documentation_directory::get_directory(Documentation_topic topic) {
    auto& directory = directories_[index_of(topic)];
    if (!directory)
        directory = folder_in(*this, topic_names[index_of(topic)]);
    return *directory;
}

const Smart_file_name& Documentation_directory::get_page(Documentation_topic topic) {
    auto& page = pages_[index_of(topic)];
    if (!page)
        page = find_page(topic);
    return *page;
}

Smart_file_name Documentation_directory::find_page(Documentation_topic topic) {
    const char* name = topic_names[index_of(topic)];
    Smart_file_name page;
    if (find_file_by_stem(name, page))
        return page;
    page = file_in(get_directory(topic), "index.html");
    if (!page.exists())
        page.set_ext("htm");
    if (!page.exists())
        page = file_in(*this, (std::string(name) + ".htm").c_str());
    return page;
}

void Documentation_directory::rebase_to_URL(const char* new_root, const char* old_root) {
    const std::string_view head = old_root;
    if (size() >= head.size() && equal_ignoring_case(std::string_view(*this).substr(0, head.size()), head)) {
        std::string rest = substr(head.size());
        std::replace(rest.begin(), rest.end(), '\\', '/');
        set(new_root + rest);
    }
    reset();
}

void Documentation_directory::reset() {
    directories_.fill(std::nullopt);
    pages_.fill(std::nullopt);
}

Program_directory::Program_directory(const File_name& program, bool find_ini)
    : Adjunct_directory(program), documentation(program), default_ini("default.ini") {
    if (!documentation.exists())
        documentation.set(folder_of(program));
    default_ini.set_path(*this);
    if (find_ini)
        find_default_ini();
}

Program_directory::~Program_directory() = default;

bool Program_directory::find_default_ini() {
    return find_file_by_stem("default.ini", default_ini);
}

Application_directory& Program_directory::get_application() {
    if (application_ == nullptr)
        application_ = std::make_unique<Application_directory>(folder_of(program_file), "Manual", "Icons");
    return *application_;
}

Suite_directory& Program_directory::get_suite() {
    if (suite_ == nullptr)
        suite_ = std::make_unique<Suite_directory>(folder_of(get_application()));
    return *suite_;
}

void Program_directory::reset() {
    application_.reset();
    suite_.reset();
    documentation.reset();
}

} // namespace TESK
