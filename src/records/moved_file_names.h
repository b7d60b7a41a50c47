// What a record says of files when the folder that they lie in has got another name.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace TESK {

class Data_record;

// Gives each file that the record names and that lies in the folder `from`, at whatever depth, the same place
// in the folder `to`; neither ends in a separator, and case does not count. Other names stay: relative ones
// too, since they mean the same in the new folder.
class Moved_file_names {
public:
    Moved_file_names(Data_record& record, const std::string& from, const std::string& to);
    // Puts back what was changed, in a record that is still there.
    void undo();

private:
    std::vector<std::function<void()>> undo_;
};

} // namespace TESK
