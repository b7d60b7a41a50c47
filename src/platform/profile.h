// Settings in a file of sections with "key=value" lines, as the desktop's shell reads them.
#pragma once

#include <string_view>

namespace platform {

// Sets the key in the section of the file, which is made when it is missing, like the section and the key;
// their case does not count. All other lines stay as they are. New lines end in CR LF; a line break in one of
// the texts becomes a blank. False, with the file as it was, when it cannot be read or written.
bool write_profile_string(std::string_view file, std::string_view section, std::string_view key,
                          std::string_view value);

} // namespace platform
