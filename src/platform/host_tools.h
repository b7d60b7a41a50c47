// The tools of the host and of the user's desktop, for the use of this folder alone: where they are and how
// each is started. Paths are the host's.
#pragma once

#include "platform/child_process.h"

#include <optional>
#include <string>
#include <string_view>

namespace platform {

// The program in the first of the absolute folders of PATH that has it, or the program of an absolute path;
// "" when there is none that can be started.
std::string find_tool(const std::string& tool);

// The folder of Wine's files whose drives are in use; "" when the drives are not Wine's.
std::string wine_prefix();

// What a tool is told for a name: the host path of a file, a file's address with the anchor of "name#anchor",
// and a web address as it is, with forward slashes. "" when there is no such file.
std::string document_for_tool(std::string_view name);

// Starts of the tools; nothing where the host does not have the tool, or no desktop session that could show
// it. The desktop's own opener shows a file by the program for its type, a folder, or a web address.
std::optional<Program_start> opener_start(const std::string& document);
std::optional<Program_start> printer_start(const std::string& path);
// The editor of $VISUAL; without it the desktop's default for plain text, whatever the file's type; else the
// opener.
std::optional<Program_start> text_editor_start(const std::string& path);

} // namespace platform
