// Files that are read and written piece by piece, in place.
#pragma once

#include <fstream>
#include <memory>
#include <string_view>

namespace platform {

// A binary stream on a regular file: for reading and writing where that is allowed, otherwise for reading
// only. With `create`, a file that is not there is made. A stream that could not be opened is not good; never
// null.
std::unique_ptr<std::fstream> open_binary_file(std::string_view name, bool create);

} // namespace platform
