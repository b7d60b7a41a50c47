#include "platform/file_stream.h"

#include "platform/files.h"
#include "platform/host_names.h"

namespace platform {

std::unique_ptr<std::fstream> open_binary_file(std::string_view name, bool create) {
    constexpr auto reading = std::ios::in | std::ios::binary;
    auto stream = std::make_unique<std::fstream>();
    const Entry_kind kind = entry_kind(name);
    if (kind == Entry_kind::file) {
        if (!is_read_only(name))
            stream->open(host_path(name), reading | std::ios::out);
        if (!stream->is_open())
            stream->open(host_path(name), reading);
    } else if (kind == Entry_kind::absent && create) {
        stream->open(host_path(name), reading | std::ios::out | std::ios::trunc);
    }
    if (!stream->is_open())
        stream->setstate(std::ios::failbit);
    return stream;
}

} // namespace platform
