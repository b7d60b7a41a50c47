#include "toolkit/screen_language.h"

#include <algorithm>

Screen_language* current_screen_language = nullptr;

std::string worded(const std::string& text) {
    return current_screen_language ? current_screen_language->wording(text) : text;
}

std::string worded(const std::string& text, const std::string& inserted) {
    constexpr std::string_view mark = "%1";
    std::string result = worded(text);
    if (const std::size_t place = result.find(mark); place != std::string::npos)
        result.replace(place, mark.size(), inserted);
    return result;
}

std::string worded_lines(const std::string& text, const std::string& between) {
    std::string result;
    for (std::size_t start = 0; start <= text.size();) {
        const std::size_t end = std::min(text.find(between, start), text.size());
        result += (start > 0 ? between : "") + worded(text.substr(start, end - start));
        start = end + between.size();
    }
    return result;
}
