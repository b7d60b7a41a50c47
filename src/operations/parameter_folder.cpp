#include "operations/parameter_folder.h"

#include "operations/scenario_catalogue.h"
#include "platform/command_line.h"
#include "platform/file_writer.h"
#include "platform/files.h"

std::string new_parameter_file_name(const std::string& typed, const TESK::Filtered_file_name& kind) {
    std::string name = new_scenario_name(typed);
    std::string extension;
    if (name.empty() || TESK::File_name(name.c_str()).has_ext(kind.get_default_extension(extension).c_str()))
        return name;
    return name + '.' + extension;
}

bool Parameter_folder::is_ready() const {
    return is_set() && (may_be_made_ ? folder_.create() : folder_.exists());
}

TESK::Smart_file_name Parameter_folder::file(const std::string& name) const {
    TESK::Smart_file_name result;
    folder_.append_to(name.c_str(), result);
    return result;
}

std::optional<TESK::Smart_file_name> Parameter_folder::add_copy(const TESK::File_name& source) const {
    if (!is_ready())
        return std::nullopt;
    const TESK::Smart_file_name copy = file(source.get_name(true));
    if (platform::exists(copy) || platform::is_link(copy) || !platform::copy_file(source, copy).ok())
        return std::nullopt;
    return copy;
}

std::optional<TESK::Smart_file_name> Parameter_folder::make_file(const std::string& typed,
                                                                 const TESK::Filtered_file_name& kind) const {
    const std::string name = new_parameter_file_name(typed, kind);
    if (name.empty() || !platform::refusal_of_name(name).empty() || !is_ready())
        return std::nullopt;
    const TESK::Smart_file_name made = file(name);
    if (platform::is_file(made))
        return made;
    if (platform::exists(made) || platform::is_link(made) ||
        !platform::write_file(made, "", platform::Durability::durable).ok())
        return std::nullopt;
    return made;
}
