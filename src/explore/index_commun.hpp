// What every reader and the writer of the exploration index share: the position code, the
// bucket of a word (CASIER), the sort folding, and the paths of the index tree.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace telvoris {

// Tokens per slice of TEXTE_ETIQUETE, and the base of the position code.
inline constexpr long long TAILLE_TRANCHE = 220;
// The largest position that three one-byte characters can hold (first character at most 255).
inline constexpr long long MAX_POSITION = (255 - 34) * 48400LL + 219 * 220LL + 219;
// A corpus past MAX_POSITION has four-character codes: one more base-220 digit in front.
inline constexpr int LARGEUR_CODE_COURTE = 3;
inline constexpr int LARGEUR_CODE_LONGUE = 4;
inline constexpr long long MAX_POSITION_LONGUE = (255 - 34) * 10648000LL + 219 * 48400LL + 219 * 220LL + 219;
// The index file that declares four-character codes ("4"); without it, codes have three.
inline constexpr std::string_view kFichierLargeurCode = "LARGEUR_CODE.txt";

inline constexpr int NB_LONGUEURS = 15;
inline constexpr int NB_LETTRES = 20;
inline constexpr std::string_view kSeparateurPartitions = "<---------->";

// Appends the `largeur` (3 or 4) characters of position v.
void AjouterCodePosition(std::string& liste, long long v, int largeur = LARGEUR_CODE_COURTE);
std::string CodePosition(long long v);
std::string CodePositionLarge(long long v, int largeur);
// The value of the three characters at p.
inline long long LireCodePosition(const char* p) {
    const long long d1 = static_cast<unsigned char>(p[0]) - 33;
    const long long d2 = static_cast<unsigned char>(p[1]) - 33;
    const long long d3 = static_cast<unsigned char>(p[2]) - 33;
    return ((d1 - 1) * TAILLE_TRANCHE + d2 - 1) * TAILLE_TRANCHE + d3;
}
// The value of the `largeur` characters at p: every digit but the last has 34 as its zero.
inline long long LireCodePosition(const char* p, int largeur) {
    if (largeur == LARGEUR_CODE_COURTE) return LireCodePosition(p);
    long long v = 0;
    for (int i = 0; i + 1 < largeur; ++i) v = v * TAILLE_TRANCHE + (static_cast<unsigned char>(p[i]) - 34);
    return v * TAILLE_TRANCHE + (static_cast<unsigned char>(p[largeur - 1]) - 33);
}
// The width that a corpus of `nbMots` tokens needs.
inline int LargeurCodePour(long long nbMots) {
    return nbMots > MAX_POSITION ? LARGEUR_CODE_LONGUE : LARGEUR_CODE_COURTE;
}
// The width declared by an index folder: 3 when it declares none, as older indexes do. A file
// that declares anything but 3 or 4 is an execution error naming it.
int LireLargeurCode(const std::filesystem::path& index);

// The bucket of a word in the index files: letter rank 1 to 20, length class 1 to 15; (0, 0)
// for an empty word.
struct Casier {
    int lettre = 0;
    int longueur = 0;
    friend bool operator==(const Casier&, const Casier&) = default;
};
Casier CalculerCasier(std::string_view s);
// "<L><c>.txt", as in "3k.txt".
std::string NomFichierCasier(Casier c);
inline int IndiceCasier(Casier c) { return c.longueur * (NB_LETTRES + 1) + c.lettre; }
inline constexpr int NB_CASIERS = (NB_LONGUEURS + 1) * (NB_LETTRES + 1);

// The first character's code: a to z give 1 to 26, anything else 0.
int RangLettre(std::string_view s);
// Lower case without accents, for the alphabetical sorts.
std::string SansAccent(std::string_view s);

// The index folder of a corpus list: its path less the four-character extension, plus "_QORX_INDEX".
std::filesystem::path CheminIndex(const std::filesystem::path& liste);

// Writes a small file anew in one call; failure is an execution error naming it. The index
// has tens of thousands of them (slices, display texts), so each costs only open, write, close.
// `neuf`: the file is known not to exist, so no older content has to be cut after the write.
void EcrirePetitFichier(const std::filesystem::path& chemin, std::string_view contenu, bool neuf = false);

// Reads a small file in one call into `contenu`; false when it cannot be opened.
bool LirePetitFichier(const std::filesystem::path& chemin, std::string& contenu);

// Number to decimal text.
std::string Nombre(long long v);

}  // namespace telvoris
