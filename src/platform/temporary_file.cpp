#include "platform/temporary_file.h"

#include "platform/current_directory.h"
#include "platform/entry_names.h"
#include "platform/files.h"
#include "platform/host_handle.h"
#include "platform/host_names.h"
#include "platform/user_folders.h"

#include <cstdlib>
#include <unistd.h>

namespace platform {

std::string make_temporary_file() {
    for (const std::string& folder :
         {folder_from_environment("TMPDIR", "/tmp"), host_path(current_directory())}) {
        if (name_from_host_path(folder).empty())
            continue;
        std::string path = join_host_path(folder, "tilverra-XXXXXX");
        Folder_change change(folder);
        if (const Host_handle file(mkstemp(path.data())); file.is_open()) {
            change.added(host_entry_of(path));
            return name_from_host_path(path);
        }
    }
    return {};
}

Scratch_file::~Scratch_file() {
    if (!name_.empty())
        delete_file(name_);
}

} // namespace platform
