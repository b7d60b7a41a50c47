#include "platform/file_writer.h"

#include "platform/file_replacement.h"

#include <algorithm>
#include <string>

namespace platform {

namespace {

File_faults* faults_in_force = nullptr;

} // namespace

Write_result write_file(std::string_view name, std::string_view contents, Durability durability) {
    const std::string path = path_to_write(name);
    if (path.empty())
        return write_failure(Write_error::bad_name);
    return replace_file(path, Content(contents), 0666, durability);
}

File_faults::File_faults() : outer_(faults_in_force) {
    faults_in_force = this;
}

File_faults::~File_faults() {
    faults_in_force = outer_;
}

void File_faults::fail(Write_step step, int error_number, std::size_t after_bytes) {
    faults_.push_back({step, error_number, after_bytes});
}

const File_faults::Fault* File_faults::at(Write_step step) {
    if (faults_in_force == nullptr)
        return nullptr;
    const std::vector<Fault>& faults = faults_in_force->faults_;
    const auto found =
        std::find_if(faults.begin(), faults.end(), [&](const Fault& fault) { return fault.step == step; });
    return found == faults.end() ? nullptr : &*found;
}

} // namespace platform
