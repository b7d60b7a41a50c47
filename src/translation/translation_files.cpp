#include "translation/translation_files.h"

#include "foundation/code_page_1252.h"
#include "foundation/lists.h"
#include "names/file_name.h"
#include "names/smart_directory_name.h"
#include "platform/files.h"
#include "translation/phrases.h"

#include <string_view>

namespace TESK {

namespace {

constexpr std::size_t largest_file = std::size_t{64} << 20;
constexpr int most_lines = 100'000;

// Takes the lines of one file, in UTF-8.
class Phrase_reader {
public:
    explicit Phrase_reader(Translations_phrases& phrases) : phrases_(phrases) {}

    // False when there is nothing more to take from this file.
    bool take(std::string_view line) {
        if (line.starts_with("L_"))
            open_phrase(line.substr(0, line.find(',')));
        else if (line.starts_with("*/"))
            return false;
        else if (!line.starts_with("/*") && current_ != nullptr)
            add_translation(line);
        return taken_ < most_lines;
    }

private:
    void open_phrase(std::string_view key) {
        current_ = new Translation(key);
        current_->native = find_built_in_phrase(key);
        phrases_.append(current_);
        ++taken_;
    }

    void add_translation(std::string_view line) {
        const std::size_t blank = line.find(' ');
        if (blank == std::string_view::npos)
            return;
        current_->translations.append(
            new Translation::Translated(line.substr(0, blank), line.substr(blank + 1)));
        ++taken_;
    }

    Translations_phrases& phrases_;
    Translation* current_ = nullptr;
    int taken_ = 0;
};

void read_lines(std::string_view text, Translations_phrases& phrases) {
    Phrase_reader reader(phrases);
    bool more = true;
    while (more && !text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        more = reader.take(line);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
}

bool is_first_half(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool is_second_half(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// An odd byte at the end is no character.
std::string utf8_from_big_endian(std::string_view bytes) {
    const auto unit = [&](std::size_t at) -> char32_t {
        return at + 1 < bytes.size()
                   ? static_cast<unsigned char>(bytes[at]) * 256U + static_cast<unsigned char>(bytes[at + 1])
                   : 0;
    };
    constexpr char32_t byte_order_mark = 0xFEFF;
    std::string result;
    result.reserve(bytes.size());
    for (std::size_t at = unit(0) == byte_order_mark ? 2 : 0; at + 1 < bytes.size(); at += 2) {
        char32_t character = unit(at);
        if (character == U'\r')
            continue;
        if (is_first_half(character) && is_second_half(unit(at + 2))) {
            character = 0x10000 + ((character & 0x3FF) << 10) + (unit(at + 2) & 0x3FF);
            at += 2;
        }
        append_utf8(result, character);
    }
    return result;
}

void read_files(const std::vector<Directory_name>& holders, const char* sub_folder,
                void (*read)(const std::string&, Translations_phrases&), Translations_phrases& phrases) {
    for (const Directory_name& holder : holders) {
        Smart_directory_name folder;
        holder.append_to(sub_folder, folder);
        Unidirectional_list files;
        folder.list_entries(files, false, true, true, false, false, list_files, nullptr, nullptr);
        for (const auto* node = files.head(); node != nullptr; node = node->next)
            read(static_cast<const File_name&>(*node->item), phrases);
    }
}

} // namespace

void add_ANSI_translations(std::string_view text, Translations_phrases& phrases) {
    read_lines(utf8_from_code_page(text), phrases);
}

void add_Unicode_translations(std::string_view text, Translations_phrases& phrases) {
    read_lines(utf8_from_big_endian(text), phrases);
}

void read_ANSI_translations(const std::string& file, Translations_phrases& phrases) {
    add_ANSI_translations(platform::read_file(file, largest_file).contents, phrases);
}

void read_Unicode_translations(const std::string& file, Translations_phrases& phrases) {
    add_Unicode_translations(platform::read_file(file, largest_file).contents, phrases);
}

void load_translations(Translations_phrases& phrases, const std::vector<Directory_name>& holding_ANSI,
                       const std::vector<Directory_name>& holding_Unicode) {
    read_files(holding_ANSI, "ANSI", read_ANSI_translations, phrases);
    read_files(holding_Unicode, "Unicode", read_Unicode_translations, phrases);
}

} // namespace TESK
