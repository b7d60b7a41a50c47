#include "platform/file_steps.h"

#include "platform/entry_names.h"

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <string_view>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

int error_of(const File_faults::Fault& fault) {
    if (fault.error_number == killed_there)
        kill(getpid(), SIGKILL);
    return fault.error_number;
}

} // namespace

int fault_at(Write_step step) {
    const File_faults::Fault* fault = File_faults::at(step);
    return fault != nullptr ? error_of(*fault) : 0;
}

int write_range(Write_step step, const Host_handle& file, const Content& content, off_t begin, off_t end,
                std::size_t& written) {
    std::string buffer;
    std::string_view piece;
    while (begin < end) {
        if (const int error = content.read(begin, end, buffer, piece))
            return error;
        while (!piece.empty()) {
            std::size_t size = piece.size();
            if (const File_faults::Fault* fault = File_faults::at(step)) {
                size = std::min(size, fault->after_bytes - std::min(written, fault->after_bytes));
                if (size == 0)
                    return error_of(*fault);
            }
            const ssize_t count = pwrite(file.get(), piece.data(), size, begin);
            if (count < 0 && errno == EINTR)
                continue;
            if (count <= 0)
                return count < 0 ? errno : ENOSPC;
            piece.remove_prefix(static_cast<std::size_t>(count));
            begin += count;
            written += static_cast<std::size_t>(count);
        }
    }
    return 0;
}

int write_all(Write_step step, const Host_handle& file, const Content& content) {
    std::size_t written = 0;
    if (content.size() == 0)
        return fault_at(step);
    return write_range(step, file, content, 0, content.size(), written);
}

std::string unique_digits() {
    static std::uint64_t number = [] {
        std::uint64_t seed = 0;
        return getentropy(&seed, sizeof seed) == 0 ? seed : static_cast<std::uint64_t>(getpid()) << 24;
    }();
    static_assert(unfinished_save_digits == 12);
    char digits[17];
    std::snprintf(digits, sizeof digits, "%012llx",
                  static_cast<unsigned long long>(++number & 0xFFFFFFFFFFFFU));
    return digits;
}

int create_unique(Write_step step, const std::string& head, mode_t mode, std::string& path,
                  Host_handle& file) {
    for (int attempts = 0; attempts < 100; ++attempts) {
        path = head + unique_digits();
        const int error = outcome_of(step, [&] {
            file = Host_handle(open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
            return file.get();
        });
        if (error != EEXIST)
            return error;
    }
    return EEXIST;
}

int take_over_permissions(const Host_handle& file, const struct stat& old) {
    if (const int error = fault_at(Write_step::set_permissions))
        return error;
    struct stat state {};
    if (fstat(file.get(), &state) != 0)
        return errno;
    const bool same_owner = (state.st_uid == old.st_uid && state.st_gid == old.st_gid) ||
                            fchown(file.get(), old.st_uid, old.st_gid) == 0;
    const bool same_group = same_owner || state.st_gid == old.st_gid ||
                            fchown(file.get(), static_cast<uid_t>(-1), old.st_gid) == 0;
    mode_t mode = old.st_mode & 07777;
    if (!same_owner)
        mode &= 0777;
    if (!same_group) // another group may do no more than everybody
        mode &= ~mode_t{070} | (mode & 07) << 3;
    return fchmod(file.get(), mode) != 0 ? errno : 0;
}

int flush_folder(const std::string& folder) {
    return outcome_of(Write_step::flush_folder, [&] {
        const Host_handle handle(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        // Some file systems cannot flush a folder, and some folders may not be opened.
        return handle.is_open() && fsync(handle.get()) != 0 && errno == EIO ? -1 : 0;
    });
}

} // namespace platform
