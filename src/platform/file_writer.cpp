#include "platform/file_writer.h"

#include "platform/entry_names.h"
#include "platform/file_replacement.h"
#include "platform/unfinished_file.h"

#include <algorithm>
#include <string>

namespace platform {

namespace {

File_faults* faults_in_force = nullptr;

} // namespace

Write_result write_file(std::string_view name, std::string_view contents, Durability durability) {
    Write_result failure;
    const std::string path = path_to_write(name, failure);
    if (path.empty())
        return failure;
    clear_unfinished_saves(host_folder_of(path));
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

void File_faults::fail_call(std::size_t number, int error_number, std::size_t after_bytes) {
    calls_ = 0;
    only_call_ = number;
    fault_of_call_ = {Write_step::create, error_number, after_bytes};
}

void File_faults::clear() {
    faults_.clear();
    only_call_ = 0;
}

const File_faults::Fault* File_faults::at(Write_step step) {
    if (faults_in_force == nullptr)
        return nullptr;
    if (++faults_in_force->calls_ == faults_in_force->only_call_)
        return &faults_in_force->fault_of_call_;
    const std::vector<Fault>& faults = faults_in_force->faults_;
    const auto found =
        std::find_if(faults.begin(), faults.end(), [&](const Fault& fault) { return fault.step == step; });
    return found == faults.end() ? nullptr : &*found;
}

} // namespace platform
