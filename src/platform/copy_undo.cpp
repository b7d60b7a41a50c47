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
    return text ? replace_by_link(copy, *text) : copy_host_file(path, copy);
}

Write_result Copy_undo::will_write_to(const std::string& path) {
    const std::string copy = kept(steps_.size());
    struct stat state {};
    const bool is_there = stat(path.c_str(), &state) == 0;
    if (!is_there && errno != ENOENT)
        return write_result_from_errno(errno);
    note(written, path, state);
    return is_there ? copy_host_file(path, copy) : Write_result();
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
        return false;
    if (has_begun_)
        end();
    return true;
}

bool Copy_undo::take_back(std::size_t number) const {
    const Step& step = steps_[number];
    const std::string path = join_host_path(target_, step.path);
    const std::string old = kept(number);
    struct stat found {};
    const bool is_there =
        (step.kind == written ? stat(path.c_str(), &found) : lstat(path.c_str(), &found)) == 0;
    if (!is_there && errno != ENOENT)
        return false;
    if (step.kind == written) {
        if (host_entry_exists(old))
            return is_there && (step.is_of(found) || copy_host_file(old, path).ok());
        return !is_there || unlink(real_path(path).c_str()) == 0;
    }
    if (is_there && step.kind == added && S_ISDIR(found.st_mode))
        return rmdir(path.c_str()) == 0 || errno == ENOTEMPTY || errno == EEXIST;
    if (!is_there || !step.is_of(found))
        return true;
    const auto put_back = [&] {
        return step.kind == added ? unlink(path.c_str()) : std::rename(old.c_str(), path.c_str());
    };
    return outcome_of(Write_step::rename, put_back) == 0;
}

} // namespace platform
