#include "records/vv_file.h"

#include "record_support.h"

#include <sstream>
#include <sys/stat.h>

using TESK::VV_file;

namespace {

class Vv_file_test : public Record_test {
protected:
    using Record_test::read;
    // Reads a text into an undeclared record, whose structure stands afterwards.
    void read(const std::string& text) {
        record.delete_structure();
        read(record, text, true);
    }
    std::string value(const std::string& section, const std::string& key) {
        return value_of(record, section, key);
    }

    Undeclared_record record;
};

TEST_F(Vv_file_test, lines_fall_into_headers_entries_and_bare_text) {
    read("before=any header\n[a=b\nkey=1\nkey = value\n \t\v\fkey=a=b  \n; c=1\r\r\nx:count=3\r\n"
         "[no end\nk=\xB0 \xB3\xFF\nr=a\rb\n[a]b]=c\r\n# comment\r\nk=1\n[t]\n=x\n[Version]\n[a]\none\ntwo\n"
         "[Version]\nMajor=at the end");
    EXPECT_EQ(text_of(record),
              "[primary]\r\nbefore=any header\r\n[a=b\r\nkey=a=b  \r\nkey = value\r\n; c=1\r\n"
              "x:count=3\r\n=[no end\r\nk=\xB0 \xB3\xFF\r\nr=a\rb\r\n[a]\r\n=two\r\nk=1\r\n"
              "[t]\r\n=x\r\n[Version]\r\nMajor=at the end\r\n");
    EXPECT_EQ(value("version", "Major"), "<none>");
    EXPECT_EQ(value("Version", "major"), "<none>");
}

TEST_F(Vv_file_test, keys_and_values_may_hold_nul_bytes_and_be_of_any_length) {
    using namespace std::string_literals;
    const std::string text =
        "a\0b=x\0y\r\na\0c=z\r\n"s + std::string(3000, 'k') + "=" + std::string(5000, 'v') + "\r\n";
    read(text);
    EXPECT_EQ(text_of(record), "[primary]\r\n" + text);
    Small_record small;
    read(small, "title=a\0b\n"s);
    EXPECT_EQ(small.title, "a\0b"s);
}

TEST_F(Vv_file_test, twenty_empty_lines_end_the_file_and_nineteen_do_not) {
    for (const std::string line : {"\n", "\r\n", "  \t \n"}) {
        std::string empty;
        for (int count = 0; count < 19; ++count)
            empty += line;
        read("[a]\nk=1\n" + empty + "[b]\nk=2\n");
        EXPECT_EQ(value("b", "k"), "2");
        read("[a]\nk=1\n" + empty + line + "[b]\nk=2\n");
        EXPECT_EQ(value("b", "k"), "<none>");
    }
}

TEST_F(Vv_file_test, what_is_no_readable_file_is_not_read) {
    Small_record small;
    ::mkfifo(folder.path("fifo").c_str(), 0600);
    folder.write("huge", "");
    std::filesystem::resize_file(folder.path("huge"), std::uintmax_t{1} << 30);
    for (const std::string& name :
         {std::string(), folder.name(), folder.name("fifo"), folder.name("missing"), folder.name("huge")})
        EXPECT_FALSE(VV_file(name.c_str()).get(small)) << name;
    EXPECT_FALSE(VV_file(nullptr).get(small));
    EXPECT_EQ(small.whole, 7);
    EXPECT_FALSE(small.is_structure_defined());
}

TEST_F(Vv_file_test, every_entry_is_one_line_and_an_empty_section_none) {
    Small_record small;
    small.title = "one\r\n[numbers]\nwhole=9";
    EXPECT_EQ(save(small), "[primary]\r\ntitle=one [numbers] whole=9\r\n"
                           "[numbers]\r\nwhole=7\r\nreal=0.5000000000 a caption\r\n");
}

TEST_F(Vv_file_test, a_save_keeps_what_the_record_does_not_declare) {
    folder.write("file.txt", "stray\ntitle=old\n[other]\nb=2\na=1\nb=3\n[numbers]\nunknown= x \nwhole=1\n"
                             "event:count=5\n");
    Small_record small;
    small.set_preserve_unexpected(true);
    EXPECT_EQ(save(small), "[primary]\r\ntitle=untitled\r\n=stray\r\n"
                           "[numbers]\r\nwhole=7\r\nreal=0.5000000000 a caption\r\nunknown= x \r\n"
                           "event:count=5\r\n[other]\r\nb=2\r\na=1\r\n");
}

TEST_F(Vv_file_test, under_a_new_name_it_keeps_what_the_file_it_came_from_holds) {
    Small_record small;
    small.set_preserve_unexpected(true);
    read(small, "[kept]\nk=1\n");
    folder.write("new.txt", "[lost]\nk=1\n");
    const std::string saved = save(small, "new.txt");
    EXPECT_NE(saved.find("[kept]"), std::string::npos);
    EXPECT_EQ(saved.find("[lost]"), std::string::npos);
    // From here on the new file is the one that the record lives in.
    folder.write("file.txt", "");
    EXPECT_EQ(save(small, "new.txt"), saved);
}

TEST_F(Vv_file_test, a_save_fails_rather_than_drop_what_it_cannot_read_back) {
    Small_record small;
    small.set_preserve_unexpected(true);
    read(small, "[kept]\nk=1\n");
    std::filesystem::remove(folder.path("file.txt"));
    std::filesystem::create_directory(folder.path("file.txt"));
    VV_file target(folder.name("new.txt").c_str());
    EXPECT_TRUE(target.set(small));
    EXPECT_FALSE(target.get_last_write().ok() || target.get_last_write().reason.empty());
    EXPECT_FALSE(folder.has("new.txt"));
    EXPECT_FALSE(small.is_structure_defined());
}

TEST_F(Vv_file_test, a_write_that_fails_is_answered_as_done_and_tells_why) {
    Small_record small;
    VV_file target(folder.name("no folder/file.txt").c_str());
    EXPECT_TRUE(target.set(small));
    EXPECT_FALSE(target.get_last_write().ok());
    EXPECT_FALSE(VV_file(nullptr).set(small));
    EXPECT_FALSE(VV_file("").set(small));
}

TEST_F(Vv_file_test, what_reading_has_kept_is_written_behind_what_a_save_declares) {
    class Changed_record : public TESK::Data_record {
    public:
        Changed_record() : Data_record("primary") {}
        void expect_structure(bool for_write) override {
            Data_record::expect_structure(for_write);
            if (!for_write) {
                expect_string("old_title", title, 255);
                expect_string("older_title", title, 255);
            }
            expect_string("title", title, 255);
            expect_float32_array_with_units_label("depths", "m", depths, 0, 1, false);
        }
        TESK::Ustring title;
        float depths[2] = {};
    };
    Changed_record changed;
    read(changed, "b=1\n[other]\nc=\n[unused]\n[primary]\nold_title=x\na= 1 \n[depths]\n1=2\n[other]\n=d\n",
         true);
    changed.redeclare_for_write();
    EXPECT_EQ(save(changed), "[primary]\r\ntitle=x\r\nold_title=x\r\nb=1\r\na= 1 \r\n"
                             "[depths]\r\nunits=m\r\n0=0.0000000000\r\n1=2.0000000000\r\n"
                             "[other]\r\nc=\r\n=d\r\n");
}

TEST_F(Vv_file_test, a_stream_can_hold_several_records_each_in_its_section) {
    std::istringstream stream("\n[a]\nk=1\n\n[b]\nk=2\n");
    VV_file file(nullptr);
    for (const char* text : {"[a]\r\nk=1\r\n", "[b]\r\nk=2\r\n", ""}) {
        Undeclared_record next;
        EXPECT_EQ(file.read_stream(stream, next, false, true), *text != 0);
        EXPECT_EQ(text_of(next), text);
    }
}

TEST_F(Vv_file_test, lines_longer_than_a_reading_of_the_stream_arrive_whole) {
    std::string text = "[s]\r\n";
    for (char key = 'a'; key < 'k'; ++key)
        text += std::string(1, key) + "=" + std::string(40'000, key) + "\r\n";
    std::istringstream stream(text);
    VV_file(nullptr).read_stream(stream, record, false, false);
    EXPECT_EQ(text_of(record), text);
}

} // namespace
