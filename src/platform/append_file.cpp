#include "platform/append_file.h"

#include "platform/file_replacement.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>

namespace platform {

namespace {

bool ends_in_line_end(const Host_handle& file) {
    struct stat status {};
    char last = '\n';
    return fstat(file.get(), &status) != 0 || status.st_size == 0 ||
           pread(file.get(), &last, 1, status.st_size - 1) != 1 || last == '\n';
}

} // namespace

Append_file::Append_file(std::string_view name) {
    const std::string path = path_to_write(name, ready_);
    if (path.empty())
        return;
    constexpr mode_t usual_permissions = 0666;
    file_ = Host_handle(open(path.c_str(), O_RDWR | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK,
                             usual_permissions));
    struct stat status {};
    if (!file_.is_open())
        ready_ = write_result_from_errno(errno);
    else if (fstat(file_.get(), &status) != 0 || !S_ISREG(status.st_mode))
        ready_ = write_failure(Write_error::not_a_file);
    else
        is_cut_ = !ends_in_line_end(file_);
}

Write_result Append_file::append(std::string_view line) {
    if (!ready_.ok())
        return ready_;
    std::string text;
    text.reserve(line.size() + 2);
    if (is_cut_)
        text += '\n';
    text.append(line) += '\n';
    ssize_t count = 0;
    do
        count = write(file_.get(), text.data(), text.size());
    while (count < 0 && errno == EINTR);
    if (count == static_cast<ssize_t>(text.size())) {
        is_cut_ = false;
        return {};
    }
    if (count < 0)
        return write_result_from_errno(errno);
    is_cut_ = is_cut_ || count > 0;
    return write_failure(Write_error::no_space);
}

} // namespace platform
