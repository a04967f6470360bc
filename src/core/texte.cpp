#include "core/texte.hpp"

namespace telvoris {

std::string Utf8VersCp1252(std::string_view utf8) {
    std::string r;
    r.reserve(utf8.size());
    std::size_t i = 0;
    while (i < utf8.size()) r.push_back(static_cast<char>(detail::OctetCp1252(detail::LireUtf8(utf8, i))));
    return r;
}

std::string Cp1252VersUtf8(std::string_view cp1252) {
    std::string r;
    r.reserve(cp1252.size() + cp1252.size() / 8);
    for (std::size_t i = 0; i < cp1252.size(); ++i) {
        // Runs of plain ASCII, most of any text, are copied whole.
        std::size_t j = i;
        while (j < cp1252.size() && Code(cp1252[j]) < 0x80) ++j;
        if (j > i) {
            r.append(cp1252.data() + i, j - i);
            if (j == cp1252.size()) break;
            i = j;
        }
        char32_t cp = Code(cp1252[i]);
        if (cp >= 0x80 && cp < 0xA0) cp = detail::kCp1252Haut[cp - 0x80];
        if (cp < 0x80) {
            r.push_back(static_cast<char>(cp));
        } else if (cp < 0x800) {
            r.push_back(static_cast<char>(0xC0 | (cp >> 6)));
            r.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        } else {
            r.push_back(static_cast<char>(0xE0 | (cp >> 12)));
            r.push_back(static_cast<char>(0x80 | ((cp >> 6) & 0x3F)));
            r.push_back(static_cast<char>(0x80 | (cp & 0x3F)));
        }
    }
    return r;
}

}  // namespace telvoris
