#include "editing/known_contents.h"

#include <functional>

void Known_contents::take(const platform::Read_result& read) {
    outcome_ = read.outcome;
    size_ = read.contents.size();
    hash_ = std::hash<std::string>()(read.contents);
}

Known_contents::Comparison Known_contents::compare(const std::string& name) const {
    Known_contents now;
    now.take(name);
    if (now.outcome_ == platform::Read_outcome::absent)
        return Comparison::gone;
    if (now.outcome_ != platform::Read_outcome::read)
        return Comparison::unreadable;
    const bool is_same = now.outcome_ == outcome_ && now.size_ == size_ && now.hash_ == hash_;
    return is_same ? Comparison::same : Comparison::changed;
}
