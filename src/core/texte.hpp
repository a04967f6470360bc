// Windows-1252 byte strings: the library's text type, and the conversions used at its edges.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace telvoris {

namespace detail {

// Unicode code points of the CP1252 bytes 0x80 to 0x9F; the five unassigned bytes map to the C1
// control of the same value, so that any byte string survives a round trip.
inline constexpr std::array<char32_t, 32> kCp1252Haut = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// The CP1252 byte of a code point, or '?' when the code page has none.
constexpr unsigned char OctetCp1252(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return static_cast<unsigned char>(cp);
    for (std::size_t i = 0; i < kCp1252Haut.size(); ++i)
        if (kCp1252Haut[i] == cp) return static_cast<unsigned char>(0x80 + i);
    return '?';
}

// Decodes one UTF-8 sequence at s[i]; advances i. An invalid byte decodes as U+FFFD.
constexpr char32_t LireUtf8(std::string_view s, std::size_t& i) {
    const auto b = static_cast<unsigned char>(s[i]);
    int suite = 0;
    char32_t cp = 0;
    if (b < 0x80) { ++i; return b; }
    if ((b & 0xE0) == 0xC0) { suite = 1; cp = b & 0x1F; }
    else if ((b & 0xF0) == 0xE0) { suite = 2; cp = b & 0x0F; }
    else if ((b & 0xF8) == 0xF0) { suite = 3; cp = b & 0x07; }
    else { ++i; return 0xFFFD; }
    if (i + suite >= s.size()) { ++i; return 0xFFFD; }
    for (int k = 1; k <= suite; ++k) {
        const auto c = static_cast<unsigned char>(s[i + k]);
        if ((c & 0xC0) != 0x80) { ++i; return 0xFFFD; }
        cp = (cp << 6) | (c & 0x3F);
    }
    i += suite + 1;
    return cp;
}

template <std::size_t N>
struct LitteralCp1252 {
    char octets[N]{};
    std::size_t taille = 0;
    constexpr LitteralCp1252(const char (&utf8)[N]) {
        const std::string_view s(utf8, N - 1);
        std::size_t i = 0;
        while (i < s.size()) octets[taille++] = static_cast<char>(OctetCp1252(LireUtf8(s, i)));
    }
};

template <LitteralCp1252 L>
inline constexpr LitteralCp1252 kStockCp1252 = L;

}  // namespace detail

// "Segmenté"_cp: a text of the system written in the source as UTF-8, as CP1252 bytes.
template <detail::LitteralCp1252 L>
constexpr std::string_view operator""_cp() {
    return {detail::kStockCp1252<L>.octets, detail::kStockCp1252<L>.taille};
}

// Converts UTF-8 (a terminal, a command-line argument, a file name on disk) to CP1252.
std::string Utf8VersCp1252(std::string_view utf8);
// Converts CP1252 to UTF-8.
std::string Cp1252VersUtf8(std::string_view cp1252);

inline unsigned char Code(char c) { return static_cast<unsigned char>(c); }

// Joins texts: Joindre("Fichier introuvable : "_cp, nom).
template <class... T>
std::string Joindre(const T&... morceaux) {
    std::string r;
    (r.append(std::string_view(morceaux)), ...);
    return r;
}

}  // namespace telvoris
