// Puts new contents into a host file, whole or not at all: what write_file() and the copying of files are
// made of, for the use of this folder alone.
#pragma once

#include "platform/file_writer.h"
#include "platform/host_handle.h"

#include <string>
#include <string_view>
#include <sys/types.h>

namespace platform {

// What a file is to hold: bytes in memory, or those of an open file that outlives this.
class Content {
public:
    explicit Content(std::string_view text) : text_(text), size_(static_cast<off_t>(text.size())) {}
    Content(const Host_handle& file, off_t size) : file_(&file), size_(size) {}

    off_t size() const { return size_; }
    // Makes `piece` the bytes from `begin` on, as many as are at hand before `end`; `buffer` is where it
    // keeps them. Gives 0 or an error number.
    int read(off_t begin, off_t end, std::string& buffer, std::string_view& piece) const;

private:
    std::string_view text_;
    const Host_handle* file_ = nullptr;
    off_t size_;
};

// The host path of a file to be written; "" with the failure when no file can have the name, which one that
// ends in a separator cannot, and when it cannot be told whether it stands there in another spelling.
std::string path_to_write(std::string_view name, Write_result& failure);
// The failure of what a name was looked up for, with the listing error of host_path().
Write_result failed_lookup(int listing_error);

// Makes the file at the host path hold the content; a new one gets the permissions in `new_mode`, less the
// process's mask.
Write_result replace_file(const std::string& path, const Content& content, mode_t new_mode,
                          Durability durability);

// Copies a host file to another as copy_file() does.
Write_result copy_host_file(const std::string& from, const std::string& to);

// Makes the entry at the host path a symbolic link with the text, in place of a file or link that is there.
Write_result replace_by_link(const std::string& path, const std::string& text);

} // namespace platform
