// Tells when files have come, gone or been written in folders that a screen shows, whoever did it.
#pragma once

#include "platform/folder_watch.h"
#include "toolkit/descriptor_watch.h"
#include "toolkit/timer.h"

#include <functional>
#include <string>
#include <vector>

class File_follower {
public:
    File_follower();

    // What to follow from now on, in place of what was followed before: entries of folders, and single files.
    // Of what cannot be watched nothing is told; empty names are passed over.
    void follow(const std::vector<std::string>& folders, const std::vector<std::string>& files);

    std::function<void()> on_change; // once for changes that follow one another closely

private:
    platform::Folder_watch watch_;
    TDescriptor_watch ready_{watch_.descriptor()};
    TTimer settling_{200};
    std::vector<std::string> followed_;
    std::vector<int> watches_;
};
