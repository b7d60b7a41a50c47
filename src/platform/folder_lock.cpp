#include "platform/folder_lock.h"

#include "platform/host_names.h"

#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace platform {

Folder_lock::Folder_lock(std::string_view folder)
    : descriptor_(open(host_path(folder).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    constexpr int most_tries = 600;
    constexpr timespec pause{0, 5'000'000};
    for (int i = 0; i < most_tries && descriptor_ >= 0; ++i) {
        is_refused_ = flock(descriptor_, LOCK_EX | LOCK_NB) != 0 && (errno == EWOULDBLOCK || errno == EINTR);
        if (!is_refused_)
            return;
        nanosleep(&pause, nullptr);
    }
}

// Closing it ends the lock.
Folder_lock::~Folder_lock() {
    if (descriptor_ >= 0)
        close(descriptor_);
}

} // namespace platform
