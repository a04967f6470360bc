#include "stats/parametres.hpp"

#include <string>

#include "core/texte.hpp"

namespace telvoris {

namespace {

constexpr std::string_view kTitre = "B11_Paramètres"_cp;

// "O" or "N" (either case); nullopt on Cancel or any other answer, which is told.
std::optional<bool> DemanderOuiNon(Dialogue& d, std::string_view question) {
    const auto r = d.Demander(question, kTitre, "N");
    if (!r) return std::nullopt;
    if (*r == "O" || *r == "o") return true;
    if (*r == "N" || *r == "n") return false;
    d.Afficher(Joindre("Répondez par O ou N : « "_cp, question, " »"_cp));
    return std::nullopt;
}

}  // namespace

std::optional<ParametresReleve> DemanderParametresReleve(Dialogue& d, ModeReleve mode) {
    ParametresReleve p;
    const auto niveau = d.Demander("niveau lexical à traiter"_cp, kTitre, "0");
    if (!niveau) return std::nullopt;
    if (niveau->size() != 1 || (*niveau)[0] < '0' || (*niveau)[0] > '3') {
        d.Afficher(
            "Le niveau lexical est 0 (formes, sans respect typogr.), 1 (formes, avecrespect typogr.), 2 (lemmes) ou 3 (noms propres seuls)."_cp);
        return std::nullopt;
    }
    p.NiveauLexical = (*niveau)[0] - '0';
    if (mode != ModeReleve::Lex && mode != ModeReleve::Mic && mode != ModeReleve::TgLex) return p;

    const auto phrase = DemanderOuiNon(d, "relevé limité à la phrase ?"_cp);
    if (!phrase) return std::nullopt;
    p.LimitePhrase = *phrase;
    const auto empan = DemanderOuiNon(d, "limité à un empan cotextuel ?"_cp);
    if (!empan) return std::nullopt;
    p.EmpanFixe = *empan;
    if (!p.EmpanFixe) return p;
    const auto dimension = d.Demander("dimension de l'empan ?"_cp, kTitre, "");
    if (!dimension) return std::nullopt;
    if (dimension->empty()) {
        d.Afficher("Vous devez renseigner le champ de longueur de l'empan"_cp);
        return std::nullopt;
    }
    // The field takes digits only (codes 48 to 57).
    if (dimension->find_first_not_of("0123456789") != std::string::npos || dimension->size() > 9) {
        d.Afficher(Joindre("La dimension de l'empan ne prend que des chiffres : « "_cp, *dimension, " »"_cp));
        return std::nullopt;
    }
    p.Empan = std::stoll(*dimension);
    return p;
}

}  // namespace telvoris
