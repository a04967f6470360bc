// What the statistics commands share: the field splitter, number readings of prompts and files,
// the item of a token at a lexical level, the matrix text file and the usual checks. They live in
// a namespace of their own, since their names are common ones.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/dialogue.hpp"
#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"

namespace telvoris::stats {

// The filter of the data-file dialogs of the statistics area (the list chooser has its own).
inline constexpr std::string_view FILTRE_TXT_STATS = "Text files (*.TXT)¢*.TXT"_cp;
inline constexpr std::string_view SEPARATEUR_PARTITIONS = "<---------->";

// The field splitter of the statistics area: the shared splitter under its own name.
inline std::vector<std::string_view> DecouperChamps(std::string_view texte, std::string_view separateur) {
    return Decouper(texte, separateur);
}

// Field `n` (from 1) of a tab-separated line; nullopt when the line has fewer fields.
std::optional<std::string_view> Champ(std::string_view ligne, int n);

// An integer written in a file: optional blanks and sign, then digits only. Anything else is the
// conversion failure, whose message names the text and where it was read.
long long LireEntier(std::string_view texte, std::string_view ou);
bool EssayerEntier(std::string_view texte, long long& valeur);
[[noreturn]] void EchecConversion(std::string_view texte, std::string_view ou);
// The same, where `ou()` makes the place only when it is needed (for hot loops).
template <class Ou>
long long LireEntierOu(std::string_view texte, Ou&& ou) {
    long long v;
    if (!EssayerEntier(texte, v)) EchecConversion(texte, ou());
    return v;
}
// True when the text reads as a number (integer or decimal, with a comma or a point).
bool EstNombre(std::string_view texte);
// A number read from a prompt or a file, decimal comma or point; the conversion failure otherwise.
double LireNombre(std::string_view texte, std::string_view ou);

// An input box whose answer must be a number; Cancel and an empty answer are the conversion failure.
double DemanderNombre(Dialogue& dialogue, std::string_view texte, std::string_view titre, std::string_view defaut);

// The item of a token at a lexical level, as the lexicon commands make it:
// 0 the form through the normaliser, 1 the form as written, 2 the lemma (an ambiguous lemma gives
// "normalised form|lemmas" when `composer`), 3 the form of a capitalised word, else "".
void ItemDuJeton(const AttributsJeton& a, int niveau, bool composer, std::string& item);

// The folder OLBRIN_TT of the corpus root; when missing, the program ends with the message
// "Le sous-dossier <path> n'existe pas. Recommencez.".
std::filesystem::path ExigerOlbrinTT(const std::filesystem::path& doss_racine);

// A matrix text file: a tab before each column name, then per row its name and a tab before each
// cell; CR LF line ends.
class EcrivainMatrice {
public:
    EcrivainMatrice(const std::filesystem::path& chemin, const std::vector<std::string>& colonnes);
    void DebutLigne(std::string_view nom) { ligne_.assign(nom); }
    void Cellule(std::string_view valeur) {
        ligne_ += '\t';
        ligne_ += valeur;
    }
    void Cellule(long long valeur);
    void FinLigne() { sortie_.Ligne(ligne_); }
    void Fermer() { sortie_.Fermer(); }

private:
    EcrivainFichier sortie_;
    std::string ligne_;
};

// Reads the item list of a row or column file: the text before the first tab of each line.
// A line without a tab, more than `max` lines, or (when `nombreExige`) a field behind the tab that
// is not a number is an execution error naming the file and the line.
std::vector<std::string> LireItemsFichier(const std::filesystem::path& fichier, std::size_t max,
                                          bool nombreExige, std::string_view quoi);

}  // namespace telvoris::stats
