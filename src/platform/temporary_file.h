// Files for what is needed for a moment only.
#pragma once

#include <string>
#include <utility>

namespace platform {

// Makes an empty file of a name that nothing had, readable for the user alone, in the host's folder for
// temporary files or, where no drive reaches that, in the current directory. Gives its name; "" when it
// cannot be made. It stays until somebody deletes it.
std::string make_temporary_file();

// Has a file deleted at the end of a scope, whatever ends it. The name may be empty: no file.
class Scratch_file {
public:
    explicit Scratch_file(std::string name) : name_(std::move(name)) {}
    Scratch_file(const Scratch_file&) = delete;
    Scratch_file& operator=(const Scratch_file&) = delete;
    ~Scratch_file();

    const std::string& name() const { return name_; }

private:
    std::string name_;
};

} // namespace platform
