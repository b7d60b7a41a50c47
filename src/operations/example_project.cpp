#include "operations/example_project.h"

#include "names/file_name.h"
#include "platform/files.h"
#include "platform/listing.h"

namespace {

constexpr const char* projects = "\\Projects\\";
constexpr const char* database = "\\Database";
constexpr const char* extension = ".tvp";

} // namespace

Example_project::Example_project(const TESK::Directory_name& shipped,
                                 const TESK::Directory_name& simulation_folder)
    : shipped_(shipped), simulation_folder_(simulation_folder) {
    for (const platform::Folder_entry& entry :
         platform::list_folder(shipped_ + projects, std::string("*") + extension))
        if (name_.empty() || entry.name < name_)
            name_ = TESK::File_name(entry.name.c_str()).get_name(false);
}

std::string Example_project::file() const {
    return simulation_folder_ + projects + name_ + extension;
}

platform::Write_result Example_project::put_in_place() const {
    if (platform::exists(file()))
        return {};
    const std::string project = projects + name_;
    if (!platform::make_folders(simulation_folder_ + projects))
        return platform::write_failure(platform::Write_error::absent);
    for (const std::string& folder : {std::string(database), project}) {
        const bool is_missing = !platform::exists(simulation_folder_ + folder);
        if (!is_missing || !platform::is_folder(shipped_ + folder))
            continue;
        const platform::Copy_result copied =
            platform::copy_tree(shipped_ + folder, simulation_folder_ + folder);
        if (!copied.ok())
            return copied;
    }
    // Last: where the file is, all of the example is.
    return platform::copy_file(shipped_ + project + extension, file());
}
