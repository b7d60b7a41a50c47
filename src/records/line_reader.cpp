#include "records/line_reader.h"

#include "foundation/code_page_1252.h"

namespace TESK {

bool Line_reader::next(std::string_view& line) {
    constexpr std::size_t bytes_between = 1 << 16;
    if (watch_ && taken_ >= watched_at_ + bytes_between) {
        watched_at_ = taken_;
        stopped_ = stopped_ || !watch_(taken_);
    }
    if (stopped_)
        return false;
    std::size_t end = pending_.find('\n');
    for (std::size_t searched = pending_.size(); end == std::string_view::npos && read_more();
         searched = pending_.size())
        end = pending_.find('\n', searched);
    line_start_ = taken_;
    if (pending_.empty())
        return false;

    line = pending_.substr(0, end);
    const std::size_t length = end == std::string_view::npos ? pending_.size() : end + 1;
    pending_.remove_prefix(length);
    taken_ += length;

    while (!line.empty() && is_white_space(line.front()))
        line.remove_prefix(1);
    while (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    if (!line.empty())
        empty_lines_ = 0;
    else if (empty_lines_++ == 0)
        empty_start_ = line_start_;
    return true;
}

bool Line_reader::read_more() {
    constexpr std::size_t chunk = 1 << 16;
    if (in_ == nullptr || !in_->good())
        return false;
    const std::size_t kept = pending_.size();
    buffer_.erase(0, buffer_.size() - kept);
    buffer_.resize(kept + chunk);
    in_->read(buffer_.data() + kept, chunk);
    buffer_.resize(kept + static_cast<std::size_t>(in_->gcount()));
    pending_ = buffer_;
    return buffer_.size() > kept;
}

} // namespace TESK
