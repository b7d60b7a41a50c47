#include "runs/printed_text.h"

#include "platform/files.h"

#include <algorithm>

Printed_text::~Printed_text() {
    if (left_out_ > 0)
        write("\n[" + std::to_string(left_out_) + " bytes left out here]\n");
    if (!ending_.empty())
        write(ending_);
}

void Printed_text::add(std::string_view bytes) {
    const std::size_t first = std::min(bytes.size(), longest_beginning - beginning_);
    if (first > 0) {
        write(bytes.substr(0, first));
        beginning_ += first;
        bytes.remove_prefix(first);
    }
    ending_.append(bytes);
    // Cut now and then, not for every piece.
    if (ending_.size() < 2 * longest_ending)
        return;
    left_out_ += ending_.size() - longest_ending;
    ending_.erase(0, ending_.size() - longest_ending);
}

void Printed_text::write(std::string_view bytes) {
    if (!stream_) {
        platform::make_folders(file_.substr(0, file_.rfind('\\')));
        stream_ = std::make_unique<platform::File_stream>(file_, true);
        if (stream_->good())
            stream_->seek(stream_->size());
    }
    stream_->write(bytes.data(), bytes.size());
    stream_->good(); // so that it can be read while the run goes on
}
