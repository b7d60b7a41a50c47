// The folder of shortcuts to the documents that were in use last, for the use of this folder alone. Paths are
// the host's; a shortcut is a symbolic link.
#pragma once

#include <string>
#include <vector>

namespace platform {

// Makes the folder where it is missing.
std::string recent_documents_folder();

// Puts the document first.
void note_recent_document(const std::string& path);

// The paths of the shortcuts, the newest first.
std::vector<std::string> recent_shortcuts();

// The absolute path that a symbolic link leads to, one step on; "" for what is no link.
std::string target_of_link(const std::string& path);

} // namespace platform
