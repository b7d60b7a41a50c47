#include "platform/in_place_save.h"

#include "platform/entry_names.h"
#include "platform/file_steps.h"
#include "platform/host_names.h"
#include "platform/user_folders.h"

#include <algorithm>
#include <charconv>
#include <cinttypes>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace platform {

namespace {

// What is left of an entry's name in that of its copy, so that the digits and the ending find room.
constexpr std::size_t longest_entry = 200;

bool is_known_to_hold_nothing = false;

std::string text_of(const Rescue_record& record) {
    char numbers[128];
    std::snprintf(numbers, sizeof numbers, "%lld %016" PRIx64 " %" PRIu64 " %" PRId64 " %" PRIu64 "\n",
                  static_cast<long long>(record.size), record.checksum, record.mark.number, record.mark.born,
                  record.links);
    return numbers + record.path;
}

// Takes the number at the beginning of the text and the character behind it. False, and nothing taken, when
// that is another one.
template <typename Number>
bool take(std::string_view& text, Number& number, char behind, int base = 10) {
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number, base);
    if (read.ec != std::errc() || read.ptr == end || *read.ptr != behind)
        return false;
    text.remove_prefix(static_cast<std::size_t>(read.ptr + 1 - text.data()));
    return true;
}

// The copy of a file that is written in place: deleted at its end unless it is kept.
class Rescue_copy {
public:
    int make(const std::string& path, const Host_handle& file, off_t size, bool flushes) {
        make_host_folders(rescue_folder());
        head_ = join_host_path(rescue_folder(), host_entry_of(path).substr(0, longest_entry)) + '-' +
                unique_digits();
        if (const int error = outcome_of(Write_step::copy_aside, [&] {
                copy_ = Host_handle(
                    open(copy_path().c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
                return copy_.get();
            }))
            return error;
        flock(copy_.get(), LOCK_EX | LOCK_NB);
        struct stat state {};
        if (fstat(copy_.get(), &state) != 0 || state.st_nlink == 0) // taken for a leftover just now
            return ESTALE;
        size_ = size;
        if (const int error = write_all(Write_step::copy_aside, copy_, Content(file, size)))
            return error;
        return flushes && fsync(copy_.get()) != 0 ? errno : 0;
    }
    // Writes down what the file is to hold from here on.
    int announce(const std::string& path, const Host_handle& file, std::uint64_t links,
                 const Content& content, bool flushes) const {
        const auto checksum = checksum_of(content);
        if (!checksum)
            return EIO;
        const std::string text = text_of({content.size(), *checksum, mark_of(file.get(), ""), links, path});
        const Host_handle record(
            open(record_path().c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
        if (!record.is_open())
            return errno;
        if (const int error = write_all(Write_step::copy_aside, record, Content(text)))
            return error;
        return flushes && fsync(record.get()) != 0 ? errno : 0;
    }
    // Puts the old contents back into the file, or keeps the copy.
    bool write_back(const Host_handle& file, bool only_longer) {
        if ((only_longer || write_all(Write_step::write_back, file, Content(copy_, size_)) == 0) &&
            ftruncate(file.get(), size_) == 0)
            return true;
        kept_ = true;
        return false;
    }
    std::string copy_path() const { return head_ + std::string(rescue_copy_ending); }

    Rescue_copy() = default;
    Rescue_copy(const Rescue_copy&) = delete;
    Rescue_copy& operator=(const Rescue_copy&) = delete;
    // The record goes first: without it the copy is of no use.
    ~Rescue_copy() {
        if (kept_ || !copy_.is_open())
            return;
        unlink(record_path().c_str());
        unlink(copy_path().c_str());
    }

private:
    std::string record_path() const { return head_ + std::string(rescue_record_ending); }

    std::string head_;
    Host_handle copy_;
    off_t size_ = 0;
    bool kept_ = false;
};

} // namespace

std::string rescue_folder() {
    return join_host_path(user_data_folder(), "tilverra/rescue");
}

bool nothing_lies_aside() {
    return is_known_to_hold_nothing;
}

void set_nothing_lies_aside(bool known) {
    is_known_to_hold_nothing = known;
}

File_mark mark_of(int file, const char* path) {
    struct statx state {};
    constexpr unsigned wanted = STATX_INO | STATX_BTIME;
    if (statx(file, path, *path == 0 ? AT_EMPTY_PATH : 0, wanted, &state) != 0 ||
        (state.stx_mask & wanted) != wanted)
        return {};
    constexpr std::int64_t second = 1'000'000'000;
    return {state.stx_ino, state.stx_btime.tv_sec * second + state.stx_btime.tv_nsec};
}

std::optional<Rescue_record> rescue_record_in(const std::string& text) {
    Rescue_record record;
    std::string_view rest = text;
    if (!take(rest, record.size, ' '))
        return std::nullopt;
    // Programs of before have written the checksum last.
    if (!take(rest, record.checksum, '\n', 16) &&
        !(take(rest, record.checksum, ' ', 16) && take(rest, record.mark.number, ' ') &&
          take(rest, record.mark.born, ' ') && take(rest, record.links, '\n')))
        return std::nullopt;
    record.path = rest;
    return record;
}

std::optional<std::uint64_t> checksum_of(const Content& content) {
    std::uint64_t checksum = 0xCBF29CE484222325;
    std::string buffer;
    std::string_view piece;
    for (off_t begin = 0; begin < content.size(); begin += static_cast<off_t>(piece.size())) {
        if (content.read(begin, content.size(), buffer, piece) != 0)
            return std::nullopt;
        for (const char c : piece)
            checksum = (checksum ^ static_cast<unsigned char>(c)) * 0x100000001B3;
    }
    return checksum;
}

Write_result write_in_place(const std::string& path, const Content& content, bool flushes) {
    const Host_handle file(open(path.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat old {};
    if (!file.is_open() || fstat(file.get(), &old) != 0)
        return write_result_from_errno(errno);
    set_nothing_lies_aside(false);
    Rescue_copy rescue;
    if (const int error = rescue.make(path, file, old.st_size, flushes))
        return write_result_from_errno(error);
    if (const int error = rescue.announce(path, file, old.st_nlink, content, flushes))
        return write_result_from_errno(error);

    // What the file grows by comes first: when the disk has no room for it, nothing is lost yet.
    std::size_t written = 0;
    const off_t common = std::min(old.st_size, content.size());
    constexpr Write_step step = Write_step::write_in_place;
    int error = write_range(step, file, content, common, content.size(), written);
    const bool only_longer = error != 0;
    if (error == 0)
        error = write_range(step, file, content, 0, common, written);
    if (error == 0 && ftruncate(file.get(), content.size()) != 0)
        error = errno;
    if (error == 0 && flushes)
        error = outcome_of(Write_step::flush, [&] { return fsync(file.get()); });
    Write_result result = write_result_from_errno(error);
    if (error == 0)
        forget_interrupted_saves(path);
    else if (!rescue.write_back(file, only_longer))
        result.reason += " The old contents are kept in " + name_from_host_path(rescue.copy_path()) + ".";
    return result;
}

} // namespace platform
