#include "platform/copy_undo.h"

#include "platform/entry_names.h"
#include "platform/file_replacement.h"
#include "platform/file_steps.h"
#include "platform/host_handle.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

namespace platform {

namespace {

// All of the file; nothing, with the reason in errno, when it cannot be read.
std::optional<std::string> text_in(const std::string& path) {
    const Host_handle file = open_to_read(path);
    struct stat state {};
    if (!file.is_open() || fstat(file.get(), &state) != 0)
        return std::nullopt;
    const Content content(file, state.st_size);
    std::string text;
    std::string buffer;
    std::string_view piece;
    while (static_cast<off_t>(text.size()) < state.st_size) {
        if ((errno = content.read(static_cast<off_t>(text.size()), state.st_size, buffer, piece)) != 0)
            return std::nullopt;
        text += piece;
    }
    return text;
}

// A copy that is to outlive a power failure.
Write_result flushed_copy(const std::string& from, const std::string& to) {
    const Write_result result = copy_host_file(from, to);
    const Host_handle file(result.ok() ? open(to.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC) : -1);
    if (file.is_open())
        fsync(file.get());
    return result;
}

// Whether the entries are one, or hold the same.
bool are_same(const std::string& a, const std::string& b) {
    struct stat state_a {};
    struct stat state_b {};
    if (lstat(a.c_str(), &state_a) != 0 || lstat(b.c_str(), &state_b) != 0)
        return false;
    if (state_a.st_dev == state_b.st_dev && state_a.st_ino == state_b.st_ino)
        return true;
    if (S_ISLNK(state_a.st_mode) && S_ISLNK(state_b.st_mode))
        return link_text(a) == link_text(b);
    return S_ISREG(state_a.st_mode) && S_ISREG(state_b.st_mode) && state_a.st_size == state_b.st_size &&
           text_in(a) == text_in(b);
}

// Whether the path cannot lead out of the folder that it is below.
bool stays_below(const std::string& path) {
    return !path.empty() && path.front() != '/' && ('/' + path + '/').find("/../") == std::string::npos;
}

} // namespace

bool Copy_undo::Step::is_of(const struct stat& state) const {
    return state.st_mtim.tv_sec == seconds && state.st_mtim.tv_nsec == nanoseconds && state.st_size == size;
}

void Copy_undo::note(Kind kind, const std::string& path, const struct stat& state) {
    steps_.push_back({kind, path.substr(join_host_path(target_, "").size()), state.st_mtim.tv_sec,
                      state.st_mtim.tv_nsec, state.st_size});
}

std::string Copy_undo::undo_file() const {
    return join_host_path(aside_, "undo");
}

std::string Copy_undo::kept(std::size_t step) const {
    return join_host_path(aside_, std::to_string(step));
}

void Copy_undo::will_add(const std::string& path, const struct stat& made) {
    note(added, path, made);
}

Write_result Copy_undo::will_replace(const std::string& path, const struct stat& made) {
    const std::string copy = kept(steps_.size());
    note(replaced, path, made);
    if (outcome_of(Write_step::copy_aside,
                   [&] { return linkat(AT_FDCWD, path.c_str(), AT_FDCWD, copy.c_str(), 0); }) == 0)
        return {};
    const auto text = link_text(path);
    return text ? replace_by_link(copy, *text) : flushed_copy(path, copy);
}

Write_result Copy_undo::will_write_to(const std::string& path) {
    const std::string copy = kept(steps_.size());
    struct stat state {};
    const bool is_there = stat(path.c_str(), &state) == 0;
    if (!is_there && errno != ENOENT)
        return write_result_from_errno(errno);
    note(written, path, state);
    return is_there ? flushed_copy(path, copy) : Write_result();
}

Write_result Copy_undo::begin() {
    std::string text;
    for (const Step& step : steps_) {
        char numbers[80];
        std::snprintf(numbers, sizeof numbers, "%c %lld %lld %lld ", step.kind, step.seconds,
                      step.nanoseconds, step.size);
        text.append(numbers).append(step.path) += '\0';
    }
    has_begun_ = true;
    return replace_file(undo_file(), Content(text), 0600, Durability::durable);
}

void Copy_undo::end() {
    unlink(undo_file().c_str());
    has_begun_ = false;
    // So that a power failure does not bring the file back.
    flush_folder(aside_);
}

int Copy_undo::read() {
    is_ours_ = false;
    const auto text = text_in(undo_file());
    if (!text && (errno == ENOENT || errno == ENOTDIR))
        return ENOENT;
    not_put_back_ = {target_}; // until that is known better
    if (!text)
        return errno;
    for (std::size_t begin = 0; begin < text->size();) {
        const std::size_t end = std::min(text->find('\0', begin), text->size());
        const std::string line = text->substr(begin, end - begin);
        Step step{};
        int length = 0;
        if (std::sscanf(line.c_str(), "%c %lld %lld %lld %n", &step.kind, &step.seconds, &step.nanoseconds,
                        &step.size, &length) != 4)
            return EINVAL;
        step.path = line.substr(static_cast<std::size_t>(length));
        if (!stays_below(step.path))
            return EINVAL;
        steps_.push_back(std::move(step));
        begin = end + 1;
    }
    has_begun_ = true;
    return 0;
}

bool Copy_undo::take_back() {
    if (has_begun_)
        not_put_back_.clear();
    for (std::size_t step = has_begun_ ? steps_.size() : 0; step-- > 0;)
        if (!take_back(step))
            not_put_back_.push_back(join_host_path(target_, steps_[step].path));
    if (!not_put_back_.empty())
        return !is_ours_ && show_kept();
    if (has_begun_)
        end();
    return true;
}

// Whether a folder on the way to the entry is a link now, so that the entry may be outside of the target.
bool Copy_undo::lies_behind_link(const std::string& path) const {
    for (std::size_t end = path.find('/'); end != std::string::npos; end = path.find('/', end + 1)) {
        struct stat state {};
        if (lstat(join_host_path(target_, path.substr(0, end)).c_str(), &state) != 0)
            return errno != ENOENT;
        if (S_ISLNK(state.st_mode))
            return true;
    }
    return false;
}

// Gives the unfinished folder, with what it keeps, a name that users see.
bool Copy_undo::show_kept() {
    constexpr int most = 1000;
    const std::string head = join_host_path(target_, "Replaced by an interrupted copy");
    for (int number = 1; number < most; ++number) {
        const std::string shown = head + (number == 1 ? "" : " " + std::to_string(number));
        if (host_entry_exists(shown))
            continue;
        if (std::rename(aside_.c_str(), shown.c_str()) != 0)
            return false;
        aside_ = shown;
        for (std::size_t step = 0; step < steps_.size(); ++step)
            std::rename(kept(step).c_str(), (kept(step) + ' ' + host_entry_of(steps_[step].path)).c_str());
        remove_host_entry(AT_FDCWD, join_host_path(aside_, "new").c_str());
        end();
        not_put_back_.push_back(shown);
        return true;
    }
    return false;
}

bool Copy_undo::take_back(std::size_t number) const {
    const Step& step = steps_[number];
    const std::string path = join_host_path(target_, step.path);
    const std::string old = kept(number);
    struct stat found {};
    if (!is_ours_ && lies_behind_link(step.path))
        return false;
    const bool is_there =
        (step.kind == written ? stat(path.c_str(), &found) : lstat(path.c_str(), &found)) == 0;
    if (!is_there && errno != ENOENT)
        return false;
    if (step.kind == written && !is_ours_)
        return is_there ? step.is_of(found) : !host_entry_exists(old);
    if (step.kind == written) {
        if (host_entry_exists(old))
            return is_there && (step.is_of(found) || copy_host_file(old, path).ok());
        return !is_there || unlink(real_path(path).c_str()) == 0;
    }
    if (is_there && step.kind == added && S_ISDIR(found.st_mode))
        return rmdir(path.c_str()) == 0 || errno == ENOTEMPTY || errno == EEXIST;
    if (!is_there || !step.is_of(found))
        return step.kind == added || is_ours_ || !host_entry_exists(old) || are_same(old, path);
    const auto put_back = [&] {
        return step.kind == added ? unlink(path.c_str()) : std::rename(old.c_str(), path.c_str());
    };
    return outcome_of(Write_step::rename, put_back) == 0;
}

} // namespace platform
