// The text record file: reads one into a record and writes a record back. Lines of "[section]" and
// "key=value", without quoting, comments or continuation; a line ends in a carriage return and a line feed,
// bytes are passed through as they stand, and names are compared byte for byte. Reading knows no errors: what
// fits nothing is kept as an unknown section, an unknown entry, or the value of the empty key.
#pragma once

#include "platform/file_writer.h"
#include "platform/files.h"
#include "records/data_source.h"
#include "records/record_reader.h"

#include <istream>
#include <optional>
#include <string>
#include <utility>

namespace TESK {

class VV_file : public Data_source {
public:
    // A larger file is no record file: it counts as one that cannot be read.
    static constexpr std::size_t largest_file = std::size_t{64} << 20;

    // A null name stands for no file. With `keep_structure` a record keeps its sections and entries after
    // reading, the unknown ones too.
    explicit VV_file(const char* filename, bool keep_structure = false);

    // Reads the whole file into the record. False, and the record untouched, when there is no such file or it
    // cannot be read. When it was stopped also false, with a part of the file in the record.
    bool get(Data_record& record) override;

    // What get() tells how far it has come, and may say stop; empty for none.
    void set_progress(Reading_progress progress) { progress_ = std::move(progress); }

    // The file's name; a null name leaves the buffer as it is.
    std::string& label(std::string& buffer) const override;

    // Writes the file, all of it or none of it, and drops the record's structure. False only without a name:
    // whether the disk was reached is told by get_last_write(). With the record's preserve_unexpected set,
    // what the file that it was loaded from holds and the record does not declare is written too, the text
    // that no reading reaches included; when that file exists and cannot be read, nothing is written.
    bool write_record(Data_record& record) override;

    // Reads lines from the stream's place on into the record. With `unexpected_only` the values of entries
    // that the record has are left alone, and nothing new is declared. With `one_section` it stops before a
    // second header, and leaves the stream there. True when it met a header or an entry.
    virtual bool read_stream(std::istream& stream, Data_record& record, bool unexpected_only,
                             bool one_section);

    // Whether there is a name, and something in the file system that has it.
    bool exists() const;

    // What became of the last set() or write_record().
    const platform::Write_result& get_last_write() const { return last_write_; }
    // What that wrote. It can be taken once.
    std::string take_last_text() { return std::move(last_text_); }

    // Whether writing waits until the disk holds the file, as it does unless told otherwise.
    void set_durability(platform::Durability durability) { durability_ = durability; }

private:
    bool bring_back_unexpected(Data_record& record);

    std::optional<std::string> filename_;
    bool keep_structure_;
    platform::Durability durability_ = platform::Durability::durable;
    platform::Write_result last_write_;
    std::string last_text_;
    Reading_progress progress_;
};

} // namespace TESK
