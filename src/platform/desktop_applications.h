// What the desktop's own files say about its applications, for the use of this folder alone. Paths are the
// host's.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace platform {

// The words of a command as desktop entries and $VISUAL hold it: separated by blanks, double or single quotes
// around words with blanks, a backslash in front of a character that counts as text.
std::vector<std::string> command_words(std::string_view text);

// The command that opens the file in the user's default application for a MIME type: the program as an
// absolute path, and its arguments. Applications that need a terminal are passed over. Empty when there is
// none.
std::vector<std::string> default_application(const std::string& mime_type, const std::string& path);

// The folder that the user keeps documents in: the one of the desktop's settings when it is there, else home.
std::string documents_folder();

} // namespace platform
