// Any bytes are a dBase table: walking, reading and changing it must do no harm.
#include "require.h"
#include "tables/dbase_data_source.h"

#include <algorithm>
#include <cstring>

namespace {

// A file in memory.
class Memory_file : public TESK::Binary_file_abstract {
public:
    explicit Memory_file(std::string contents)
        : Binary_file_abstract("memory", false), contents_(std::move(contents)) {}

    std::size_t read_bytes(char* bytes, std::size_t count) override {
        const std::size_t there = position_ < contents_.size() ? contents_.size() - position_ : 0;
        good_ = count <= there;
        count = std::min(count, there);
        std::memcpy(bytes, contents_.data() + std::min(position_, contents_.size()), count);
        position_ += count;
        return count;
    }
    void write_bytes(const char* bytes, std::size_t count) override {
        constexpr std::size_t largest = 1 << 24;
        good_ = position_ + count <= largest;
        if (!good_)
            return;
        contents_.resize(std::max(contents_.size(), position_ + count));
        std::memcpy(contents_.data() + position_, bytes, count);
        position_ += count;
    }
    void seek(std::int64_t offset, TESK::Seek_direction direction) override {
        const auto base = direction == TESK::Seek_direction::from_start ? 0
                          : direction == TESK::Seek_direction::from_end ? contents_.size()
                                                                        : position_;
        const std::int64_t target = static_cast<std::int64_t>(base) + offset;
        good_ = target >= 0;
        position_ = static_cast<std::size_t>(std::max<std::int64_t>(target, 0));
    }
    bool at_eof() override { return false; }
    std::int64_t tell() override { return static_cast<std::int64_t>(position_); }
    bool good() override { return good_; }

private:
    std::string contents_;
    std::size_t position_ = 0;
    bool good_ = true;
};

} // namespace

void try_input(const std::string& input) {
    Memory_file file(input);
    TESK::dBase_data_source source(file);
    const auto record = source.make_record();
    int rows = 0;
    for (bool there = source.goto_first(); there && rows < 100; there = source.goto_next(1), ++rows)
        source.get(*record);
    for (const auto& field : TESK::Items_of<TESK::dBase_data_source::Field_item>(source.fields))
        source.get_field_type(field.get_key());
    source.goto_last();
    source.set(*record);
    record->set_position(0);
    source.set(*record);
    source.append_blank(2);
    source.goto_previous(1);
    source.finish();
}
