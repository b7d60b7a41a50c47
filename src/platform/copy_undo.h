// What a copy does to a folder that is there already, written down before the first step so that it can be
// taken back: by the copy itself when it fails, by a later program when this one was killed. For the use of
// this folder alone.
//
// All of it lies in the unfinished folder of the copy: the file "undo" as long as steps may have to be taken
// back, and under the number of its step what stood there before.
#pragma once

#include "platform/write_result.h"

#include <cstddef>
#include <string>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace platform {

class Copy_undo {
public:
    // `aside` is the unfinished folder, in the folder `target`.
    Copy_undo(std::string aside, std::string target) : aside_(std::move(aside)), target_(std::move(target)) {}

    // What will be done to an entry of the target, by its whole path. `made` is what will stand there: in
    // place of nothing, or renamed over what stands there now. The ok result says that this has been kept.
    void will_add(const std::string& path, const struct stat& made);
    Write_result will_replace(const std::string& path, const struct stat& made);
    // The same for a file, or the end of a link, that will be written to.
    Write_result will_write_to(const std::string& path);
    // Brings all of that to the disk: with an ok result the steps may be made.
    Write_result begin();
    // All steps have been made, and are not to be taken back any more.
    void end();

    // Reads what another program has begun. Gives 0 or the error number: ENOENT when it has not.
    int read();
    // Takes back the steps that were made, but for entries that somebody has changed since. What another
    // program began is taken back only where no link leads and where it was not written through: what it had
    // kept of all else comes into a folder of the target that users see. True when that is done; otherwise it
    // can be tried again.
    bool take_back();
    // The paths of the entries that could not be put back, and of the folder that holds what they were.
    const std::vector<std::string>& not_put_back() const { return not_put_back_; }

private:
    enum Kind : char { added = 'a', replaced = 'r', written = 'w' };
    struct Step {
        char kind;
        std::string path; // below the target
        // Of what the step puts there, or, for a file that is written to, of what is there before.
        long long seconds, nanoseconds, size;
        bool is_of(const struct stat& state) const;
    };
    void note(Kind kind, const std::string& path, const struct stat& state);
    std::string undo_file() const;
    std::string kept(std::size_t step) const;
    bool take_back(std::size_t step) const;
    bool lies_behind_link(const std::string& path) const;
    bool show_kept();

    std::string aside_;
    std::string target_;
    std::vector<Step> steps_;
    bool has_begun_ = false;
    bool is_ours_ = true; // not begun by another program
    std::vector<std::string> not_put_back_;
};

} // namespace platform
