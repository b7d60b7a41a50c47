#include "trees/suite_directory.h"

#include "trees/places.h"

#include <cstdlib>

TVS::Suite_Directory* suite_directory = nullptr;

std::string suite_web_address() {
    const char* address = std::getenv("TVS_WEB_ADDRESS");
    return address == nullptr ? "http://example.org/TVS_suite" : address;
}

namespace {

// The folder, or the file, of that name in the parent, kept from the first call on.
const TESK::Smart_directory_name& get_folder(std::unique_ptr<TESK::Smart_directory_name>& folder,
                                             const TESK::Directory_name& parent, const std::string& name) {
    if (folder == nullptr)
        folder = std::make_unique<TESK::Smart_directory_name>(folder_in(parent, name.c_str()));
    return *folder;
}

const TESK::File_name& get_file(std::unique_ptr<TESK::File_name>& file, const TESK::Directory_name& parent,
                                const char* name) {
    if (file == nullptr)
        file = std::make_unique<TESK::File_name>(file_in(parent, name));
    return *file;
}

} // namespace

namespace TESK {

const Smart_directory_name& Application_directory::get_manual_directory() {
    return get_folder(manual_directory_, *this, manual_folder_name);
}

const Smart_directory_name& Application_directory::get_icons_directory() {
    return get_folder(icons_directory_, *this, icons_folder_name);
}

Smart_file_name& Application_directory::get_icon_filename(const char* name, Smart_file_name& result) {
    get_icons_directory().append_to(name, result, false);
    return result;
}

void Application_directory::reset() {
    manual_directory_.reset();
    icons_directory_.reset();
    programs_.clear();
}

const File_name& Application_directory::get_program(const char* name) {
    const auto [place, is_new] = programs_.try_emplace(name);
    if (is_new)
        place->second = file_in(*this, name);
    return place->second;
}

const Smart_directory_name& Suite_directory::get_common_directory() {
    return get_folder(common_directory_, *this, "common");
}

const Smart_directory_name& Suite_directory::get_icons_directory() {
    return get_folder(icons_directory_, *this, icons_folder_name);
}

void Suite_directory::reset() {
    common_directory_.reset();
    icons_directory_.reset();
}

Smart_file_name& Suite_directory::get_icon_filename(const char* name, Smart_file_name& result) {
    get_icons_directory().append_to(name, result, false);
    return result;
}

} // namespace TESK

namespace TVS {

const TESK::File_name& Tilverra_Directory::get_model_exe() {
    if (model_exe_.empty()) {
        model_exe_ = file_in(*this, "tilverra_5.exe");
        if (!model_exe_.exists())
            model_exe_.set_name("tilverra_4");
    }
    return model_exe_;
}

Suite_Directory::Suite_Directory(const TESK::File_name& program)
    : Suite_directory(TESK::Smart_directory_name(-1)) {
    started_from.set(program);
    find_suite_root(program);
}

bool Suite_Directory::find_suite_root(const TESK::Directory_entry_name& program) {
    TESK::Smart_directory_name directory("");
    TESK::Smart_directory_name parent("");
    for (directory.set(program); !is_root(); directory = parent) {
        directory.get_path(parent, true);
        if (!parent.exists())
            return false;
        if (*this != parent) {
            set(parent);
            reset();
        }
        if (is_suite_root())
            return true;
    }
    return false;
}

bool Suite_Directory::is_suite_root() {
    return get_skymill_directory().exists() || get_tilverra_directory().exists();
}

void Suite_Directory::reset() {
    Suite_directory::reset();
    tilverra_directory_.reset();
    XEB_directory_.reset();
    skymill_directory_.reset();
    skymill_exe_.reset();
    explorer_exe_.reset();
    suite_exe_.reset();
}

Tilverra_Directory& Suite_Directory::get_tilverra_directory() {
    if (tilverra_directory_ == nullptr)
        tilverra_directory_ = std::make_unique<Tilverra_Directory>(folder_in(*this, "Tilverra"));
    return *tilverra_directory_;
}

XEB::Application_directory& Suite_Directory::get_XEB_directory() {
    if (XEB_directory_ == nullptr)
        XEB_directory_ = std::make_unique<XEB::Application_directory>(folder_in(*this, "XEB"));
    return *XEB_directory_;
}

Skymill_Directory& Suite_Directory::get_skymill_directory() {
    if (skymill_directory_ == nullptr)
        skymill_directory_ = std::make_unique<Skymill_Directory>(get_skymill_exe());
    return *skymill_directory_;
}

const TESK::File_name& Suite_Directory::get_skymill_exe() {
    return get_file(skymill_exe_, *this, "Skymill.exe");
}

const TESK::File_name& Suite_Directory::get_explorer_exe() {
    return get_file(explorer_exe_, *this, "TVS_explorer.exe");
}

const TESK::File_name& Suite_Directory::get_suite_exe() {
    return get_file(suite_exe_, *this, "TVS_suite.exe");
}

} // namespace TVS
