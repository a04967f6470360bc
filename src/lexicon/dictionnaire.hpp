// The dictionary store: the word class that files a word, the lemma code, and the table of
// forms that every loader appends to (the general dictionary, the correction and accent
// stores, foreign words, compound components, abbreviations, Roman numerals), with its
// interpretation columns. Buckets are scanned in file order and the first equal form wins;
// a hash index beside each bucket finds that first form without scanning.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/jetons.hpp"

namespace telvoris {

namespace fs = std::filesystem;

// Hard limits of the tables.
inline constexpr std::size_t MAX_FORMES_CASIER = 10000;
inline constexpr std::size_t MAX_CORRECTIONS_CASIER = 10000;
inline constexpr std::size_t MAX_ABREVIATIONS_CASIER = 1000;
inline constexpr std::size_t MAX_PREFIXES = 100;
inline constexpr std::size_t MAX_NOMBRES = 1000;
// Readings of one form (the scratch array of a word).
inline constexpr std::size_t MAX_LECTURES = 10;

// The bucket of a word, on disk and in memory: (ClasseLongueur, ClasseInitiale).
CleMot classe_mot(std::string_view mot);

// The lemma of a form from its lemma code: an empty code gives the form; otherwise the leading
// digits say how many characters to cut from the end of the form, and the rest is appended.
std::string decoder_lemme(std::string_view forme, std::string_view lemme_code);

// One interpretation "lemme_code.CATEGORY:flexion" cut into its three parts: the first "."
// ends the code, the first ":" behind it ends the category. Without a dot, all is the code.
struct Interpretation {
    std::string_view lemme_code;
    std::string_view categorie;
    std::string_view flexion;
};
Interpretation CouperInterpretation(std::string_view interpretation);

// The source of an entry of the table of forms.
enum class Origine : std::uint8_t { DICO, COR, CORACC, ETR, COMP, ABR, ROM };
std::string_view TexteOrigine(Origine origine);

// First-match index over the texts of one bucket: open addressing on their positions.
class IndexPremiers {
public:
    // Records position i of `textes` unless an equal text is recorded already.
    void Inserer(const std::vector<std::string>& textes, std::uint32_t i);
    // The position of the first equal text, or nullopt.
    std::optional<std::uint32_t> Trouver(const std::vector<std::string>& textes, std::string_view t) const;
    void Vider();

private:
    void Agrandir(const std::vector<std::string>& textes);
    std::vector<std::uint32_t> cases_;  // position + 1; 0 is a free slot
    std::size_t n_ = 0;
};

// What a lookup finds: views into the table, valid until the table changes.
struct EntreeForme {
    std::string_view forme;
    Origine origine;
    std::string_view lemme;      // empty when the table was loaded without interpretations
    std::string_view categorie;  // empty for an ambiguous or settled function word
    std::string_view flexion;
};

// table_formes with table_origines, table_lemmes, table_categories and table_flexions, as
// arrays by initial class (0 to 20) and length class (0 to 15).
class TableFormes {
public:
    TableFormes();

    // Appends an entry to a given bucket (a dictionary file fills the bucket it is named after).
    // More than MAX_FORMES_CASIER entries in a bucket is a bound error naming `source`.
    std::uint32_t Ajouter(CleMot cle, std::string_view forme, Origine origine, std::string_view source);
    void DefinirInterpretation(CleMot cle, std::uint32_t i, std::string lemme, std::string_view categorie,
                               std::string_view flexion);

    // The first entry equal to `forme` in its bucket.
    std::optional<EntreeForme> Chercher(std::string_view forme) const;
    std::optional<EntreeForme> Chercher(std::string_view forme, CleMot cle) const;
    bool Contient(std::string_view forme) const { return Chercher(forme).has_value(); }

    // Entries of a bucket, in order (blank slots included).
    std::size_t TailleCasier(CleMot cle) const;
    EntreeForme Entree(CleMot cle, std::uint32_t i) const;
    std::size_t Taille() const { return total_; }
    // Every bucket emptied: whoever fills the table clears it first.
    void Vider();

private:
    struct Casier {
        std::vector<std::string> formes;
        std::vector<Origine> origines;
        std::vector<std::string> lemmes;
        std::vector<std::string> categories;
        std::vector<std::string> flexions;
        IndexPremiers index;
    };
    Casier& At(CleMot cle);
    const Casier& At(CleMot cle) const;
    std::vector<Casier> casiers_;
    std::size_t total_ = 0;
};

// Loaders. Each appends to the table; an absent file of a fixed series stops the run with the
// file error, a full bucket with the bound error.
//
// The general dictionary, 300 files: a blank line takes a slot. With interpretations, the
// lemma, category and flexion columns are filled as dictionary application reads them.
void ChargerDico(TableFormes& table, const fs::path& racine, bool avecInterpretations);

// A file of the store whose last line has no line end and no complete reading (no comma, or a
// reading without its category) was cut in the middle of that line, by a full disk or a copy
// that stopped: an execution error naming the file and the line. `contenu` is the whole file.
void VerifierFinDeFichier(std::string_view contenu, const fs::path& fichier);
// The correction store and the accent store: tab-separated, left field only, blank lines skipped.
void ChargerCorrectionsFormes(TableFormes& table, const fs::path& racine);
void ChargerAccents(TableFormes& table, const fs::path& racine);
// Foreign forms: 300 files; the bucket comes from the word, not from the file name.
void ChargerEtrangers(TableFormes& table, const fs::path& racine);
// One word a line; words under 2 characters and words already in the table are skipped.
void ChargerComposants(TableFormes& table, const fs::path& racine);
void ChargerAbreviationsFormes(TableFormes& table, const fs::path& racine);
// The same, each numeral folded to lower case first.
void ChargerRomains(TableFormes& table, const fs::path& racine);

// The interpretation columns of one dictionary line's right-hand part, as loading fills them.
struct LectureChargee {
    std::string lemme;
    std::string_view categorie;
    std::string_view flexion;
};
LectureChargee InterpreterLigne(std::string_view forme, std::string_view droite);

// table_corrections: wrong form and right form, by bucket of the wrong one, first match.
class TableCorrections {
public:
    TableCorrections();
    void Ajouter(std::string_view fautive, std::string_view correcte, std::string_view source);
    std::optional<std::string_view> Chercher(std::string_view fautive) const;
    std::size_t Taille() const { return total_; }
    void Vider();

private:
    struct Casier {
        std::vector<std::string> fautives;
        std::vector<std::string> correctes;
        IndexPremiers index;
    };
    std::vector<Casier> casiers_;
    std::size_t total_ = 0;
};
// Fills table_corrections from rescor/rescor (300 files, "wrong<TAB>right", blank lines skipped).
void ChargerTableCorrections(TableCorrections& table, const fs::path& racine);

// A word list by bucket with a bound per bucket (table_abreviations).
class TableMots {
public:
    TableMots(std::string nomLimite, std::size_t maxParCasier);
    void Ajouter(std::string_view mot, std::string_view source);
    bool Contient(std::string_view mot) const;
    std::size_t Taille() const { return total_; }
    void Vider();

private:
    struct Casier {
        std::vector<std::string> mots;
        IndexPremiers index;
    };
    std::string nomLimite_;
    std::size_t max_;
    std::vector<Casier> casiers_;
    std::size_t total_ = 0;
};
void ChargerTableAbreviations(TableMots& table, const fs::path& racine);
TableMots NouvelleTableAbreviations();

// Flat lists with a bound on their length: table_prefixes, table_nombres. Blank lines skipped.
std::vector<std::string> ChargerPrefixes(const fs::path& racine);
std::vector<std::string> ChargerNombres(const fs::path& racine);

// The non-blank lines of a list file, in order, with a bound on their number.
std::vector<std::string> LireListeBornee(const fs::path& fichier, std::string_view nomLimite, std::size_t max);

}  // namespace telvoris
