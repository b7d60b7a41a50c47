#include "operations/parameter_folder.h"

#include "names/recycling.h"
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

Added_file Parameter_folder::add_copy(const TESK::File_name& source) const {
    return add(source.get_name(true),
               [&](const std::string& copy) { return platform::copy_file(source, copy); });
}

Added_file Parameter_folder::make_file(const std::string& typed, const TESK::Filtered_file_name& kind) const {
    const std::string name = new_parameter_file_name(typed, kind);
    if (name.empty())
        return {};
    if (is_set() && platform::is_file(file(name)))
        return {file(name), ""};
    return add(name, [](const std::string& made) {
        return platform::write_file(made, "", platform::Durability::durable);
    });
}

Added_file Parameter_folder::add(const std::string& name, const Maker& make) const {
    if (!is_set())
        return {};
    Added_file added;
    added.refusal = platform::refusal_of_name(name);
    if (!added.refusal.empty())
        return added;
    if (!is_ready()) {
        added.refusal = "The folder for these files is not there.";
        return added;
    }
    const TESK::Smart_file_name made = file(name);
    if (platform::exists(made) || platform::is_link(made))
        added.refusal = "There is a file of this name already.";
    else
        added.refusal = make(made).reason;
    if (added.refusal.empty())
        added.name = made;
    return added;
}

Operation_outcome delete_parameter_files(const std::vector<std::string>& files,
                                         const Operation_progress& progress) {
    const TESK::Recycling recycled = TESK::recycle_all(
        files, false, [&](std::size_t done) { return goes_on(progress, done, files.size()); });
    Operation_outcome outcome;
    outcome.done = recycled.done;
    outcome.stopped = recycled.was_stopped;
    for (const std::string& name : recycled.kept)
        outcome.not_done.push_back({name, why_not_deleted(name, false)});
    return outcome;
}
