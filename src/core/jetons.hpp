// Token tags and the text routines that every stage shares: the line parser, the attribute
// reader, the bucket key of a word, the case normaliser, the splitter and the intake decoder.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace telvoris {

// The three work areas each had their own copy of these routines; where the copies differ,
// the routine takes the copy as a parameter.
enum class Copie { Etiquetage, Exploration, Statistiques };

inline constexpr int MAX_JETONS_LIGNE = 50000;
inline constexpr std::size_t MAX_MORCEAUX = 100000;

// Tags that count as tokens: "<M ", "<MN ", "<MC ", "<PC " (the exploration copy has no "<MN ").
bool EstJeton(std::string_view balise, Copie copie = Copie::Etiquetage);

// A parsed tagged line. Views into the line given to DecouperLigne, which must outlive it.
// jeton[1..NbJetons] are the tags; suite[i] is everything between tag i and the next token
// (suite[0]: what stands before the first). suite[0] + jeton[1] + suite[1] + ... is the line.
struct LigneJetons {
    int NbJetons = 0;
    std::vector<std::string_view> jeton;
    std::vector<std::string_view> suite;
};

// Cuts a tagged line into tokens. More than `max` tokens is a bound error.
void DecouperLigne(std::string_view ligne, LigneJetons& resultat, Copie copie = Copie::Etiquetage,
                   long long max = MAX_JETONS_LIGNE);

struct AttributsJeton {
    std::string f;
    std::string l;
    std::string x;
    long long k = 0;
    bool avecK = false;  // the tag holds a " k=" (an offset from an earlier indexing)
};

// The same attributes as views into the tag (or into static texts for a form made from l).
struct AttributsVue {
    std::string_view f;
    std::string_view l;
    std::string_view x;
    long long k = 0;
    bool avecK = false;
};

// Suspension points made from "S<n>" are at most this many dots.
inline constexpr long long MAX_POINTS_SUSPENSION = 1000;

// Reads f, k, l, x of a tag; an empty f is made from l (punctuation classes), then l = f.
AttributsJeton LireAttributs(std::string_view jeton);
AttributsVue LireAttributsVue(std::string_view jeton);
// The raw value of one attribute: what follows " nom=" up to the next blank, or "" when absent.
std::string_view ValeurAttribut(std::string_view jeton, std::string_view nom);

struct CleMot {
    int ClasseLongueur = 0;
    int ClasseInitiale = 0;
    friend bool operator==(const CleMot&, const CleMot&) = default;
};

inline constexpr int MAX_CLASSE_LONGUEUR = 15;
inline constexpr int MAX_CLASSE_INITIALE = 20;

// The bucket of a word: length capped at 15, and the class of its first character.
CleMot ClasserItem(std::string_view mot, Copie copie = Copie::Etiquetage);

// Lower case, with an initial "E" given its accent by the French rules of the normaliser.
std::string Minusculiser(std::string_view mot);
// The same into a buffer that the caller reuses, or appended to a text.
void Minusculiser(std::string_view mot, std::string& resultat);
void AjouterMinuscules(std::string_view mot, std::string& dest);
// Plain lower case of every letter, with no rule for an initial "E".
std::string MinusculesSimples(std::string_view texte);
void AjouterMinusculesSimples(std::string_view texte, std::string& dest);

// Cuts a text at each occurrence of a separator (one or more characters). A text without a
// separator is one piece; a separator at the end gives an empty last piece. More than `max`
// pieces is a bound error.
std::vector<std::string_view> Decouper(std::string_view texte, std::string_view separateur,
                                       std::size_t max = MAX_MORCEAUX);
// The same, dropping the last piece when it is empty.
std::vector<std::string_view> DecouperSansVideFinal(std::string_view texte, std::string_view separateur,
                                                    std::size_t max = MAX_MORCEAUX);

// The intake's byte decoder: UTF-8 read as CP1252, with its fixed tables (quirks included).
std::string DecoderUtf8(std::string_view octets);

// The leading integer of a text, as the legacy numeric reading gives it ("12>" gives 12).
long long ValeurEntiere(std::string_view texte);

}  // namespace telvoris
