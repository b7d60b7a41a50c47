#include "tables/binary_file.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

using TESK::Binary_file_fstream;
using TESK::Seek_direction;

namespace {

class Binary_file_test : public testing::Test {
protected:
    // What stands in a new file after the writing.
    template <class Write>
    std::string written(bool big_endian, Write write) {
        std::filesystem::remove(folder.path("file"));
        {
            Binary_file_fstream file(folder.name("file").c_str(), big_endian);
            write(file);
        }
        return folder.read("file");
    }

    Temporary_folder folder;
};

TEST_F(Binary_file_test, numbers_lie_in_the_byte_order_asked_for_and_come_back) {
    const auto write = [](Binary_file_fstream& file) {
        file.write_nat8(0xAB);
        file.write_nat16(0x0102);
        file.write_int32(-2);
        file.write_float32(1.5F);
    };
    EXPECT_EQ(written(false, write), std::string("\xAB\x02\x01\xFE\xFF\xFF\xFF\0\0\xC0\x3F", 11));
    EXPECT_EQ(written(true, write), std::string("\xAB\x01\x02\xFF\xFF\xFF\xFE\x3F\xC0\0\0", 11));

    Binary_file_fstream file(folder.name("file").c_str(), true);
    EXPECT_EQ(file.read_nat8(), 0xAB);
    EXPECT_EQ(file.read_nat16(), 0x0102);
    EXPECT_EQ(file.read_int32(), -2);
    EXPECT_EQ(file.read_float32(), 1.5F);
    EXPECT_EQ(file.read_nat32(), 0U);
    EXPECT_FALSE(file.good());
    file.seek(-4, Seek_direction::from_end);
    EXPECT_EQ(file.read_float32(), 1.5F);
}

TEST_F(Binary_file_test, strings_lie_as_their_form_and_length_say_and_come_back) {
    using namespace std::string_literals;
    // the text, its form and length, its bytes, and what is read back
    const std::tuple<std::string, int, unsigned, std::string, std::string> cases[] = {
        {"ab", 1, 0, "\2ab"s, "ab"},
        {"ab", 1, 5, "\2ab\0\0"s, "ab"},
        {"abc", 0, 2, "ab"s, "ab"},
        {"ab", 0, 4, "ab\0\0"s, "ab"},
        {"ab", 4, 0, "ab\0"s, "ab"},
        {"ab", 2, 0, "\2\0ab"s, "ab"},
        {"ab", 3, 0, "\2\0\0\0ab"s, "ab"},
        {"ab", 5, 0, "\2ab\0"s, "ab"},
        {"abcdef", 1, 4, "\6abc"s, "abc"},
        {std::string(300, 'x'), 1, 0, "\xFF"s + std::string(255, 'x'), std::string(255, 'x')}};
    for (const auto& [text, form_number, length, bytes, read_back] : cases) {
        const auto form = static_cast<TESK::String_form>(form_number);
        EXPECT_EQ(written(false, [&](auto& file) { file.write_string(text, form, length); }), bytes);
        Binary_file_fstream file(folder.name("file").c_str(), false);
        std::string found;
        EXPECT_EQ(file.read_string(found, form, length), read_back) << bytes;
        EXPECT_EQ(file.tell(), static_cast<std::int64_t>(bytes.size()));
    }
    EXPECT_EQ(written(false, [](auto& file) { file.write_string(std::wstring(L"ab"), 1, 6); }),
              "\2a\0b\0\0\0\0"s);
    // A length that the file does not hold ends at its end.
    folder.write("file", "\xFF\xFF\xFF\xFFshort");
    std::string text;
    EXPECT_EQ(Binary_file_fstream(folder.name("file").c_str(), false).read_string(text, 3, 0), "short");
}

TEST_F(Binary_file_test, a_missing_file_is_made_and_a_read_only_one_is_read) {
    EXPECT_EQ(written(false, [](auto& file) { file.read_char(); }), "");
    EXPECT_TRUE(folder.has("file"));
    folder.write("fixed", "x");
    std::filesystem::permissions(folder.path("fixed"), std::filesystem::perms::owner_read);
    Binary_file_fstream file(folder.name("fixed").c_str(), false);
    EXPECT_EQ(file.read_char(), 'x');
    file.seek(0, Seek_direction::from_start);
    file.write_char('y');
    EXPECT_FALSE(file.good());
    EXPECT_EQ(folder.read("fixed"), "x");
}

TEST_F(Binary_file_test, what_is_written_anywhere_is_what_is_read) {
    std::string wanted(20'000, '.');
    folder.write("file", wanted);
    {
        Binary_file_fstream file(folder.name("file").c_str(), false);
        std::uint32_t random = 1;
        for (int i = 0; i < 2000; ++i) {
            random = random * 1664525 + 1013904223;
            const std::size_t place = (random >> 8) % 21'000;
            const std::size_t count = random % 7 == 0 ? 9'000 : random % 40;
            file.seek(static_cast<std::int64_t>(place), Seek_direction::from_start);
            std::string bytes(count, static_cast<char>('a' + i % 26));
            if (i % 2 != 0 && place <= wanted.size()) {
                file.write_bytes(bytes.data(), count);
                wanted.replace(place, count, bytes);
                EXPECT_TRUE(file.good());
            } else {
                bytes.resize(file.read_bytes(bytes.data(), count));
                EXPECT_EQ(bytes, place < wanted.size() ? wanted.substr(place, count) : "");
            }
            file.seek(0, Seek_direction::from_end);
            EXPECT_EQ(file.tell(), static_cast<std::int64_t>(wanted.size()));
        }
    }
    EXPECT_EQ(folder.read("file"), wanted);
}

} // namespace
