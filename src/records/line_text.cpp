#include "records/line_text.h"

namespace TESK {

void blank_line_breaks(std::string& text, std::size_t start) {
    for (std::size_t end = text.size(); end > start && text[end - 1] == '\r'; --end)
        text[end - 1] = ' ';
    const std::size_t first = text.find('\n', start);
    if (first == std::string::npos)
        return;
    std::size_t kept = first;
    for (std::size_t at = first; at < text.size(); ++at) {
        if (text[at] == '\n' && kept > start && text[kept - 1] == '\r')
            --kept;
        text[kept++] = text[at] == '\n' ? ' ' : text[at];
    }
    text.resize(kept);
}

} // namespace TESK
