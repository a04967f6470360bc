#include "cli/dialogue_terminal.hpp"

#include <cstdio>
#include <iostream>

#include "core/texte.hpp"

namespace telvoris {

std::string FiltreAffiche(std::string_view filtre) {
    // The pattern stands after the last separator, "|" or the legacy "¢".
    const std::size_t sep = filtre.find_last_of("|\xA2");
    std::string motif(sep == std::string_view::npos ? filtre : filtre.substr(sep + 1));
    for (char& c : motif)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return Cp1252VersUtf8(motif);
}

std::string InviteQuestion(std::string_view texte, std::string_view titre, std::string_view defaut) {
    std::string invite = Cp1252VersUtf8(Joindre(titre, titre.empty() ? "" : " - ", texte));
    if (!defaut.empty()) invite += Joindre(" [", Cp1252VersUtf8(defaut), "]");
    return invite + " ";
}

DialogueTerminal::DialogueTerminal(std::deque<std::string> reponses, bool interactive, bool barre)
    : reponses_(std::move(reponses)), interactive_(interactive), barre_(barre) {}

std::optional<std::string> DialogueTerminal::LireReponse(std::string_view invite) {
    if (!reponses_.empty()) {
        std::string r = std::move(reponses_.front());
        reponses_.pop_front();
        return r;
    }
    MasquerProgression();
    std::cerr << invite << std::flush;
    std::string ligne;
    if (!std::getline(std::cin, ligne)) {
        std::cerr << '\n';
        return std::nullopt;
    }
    if (!ligne.empty() && ligne.back() == '\r') ligne.pop_back();
    return ligne;
}

std::optional<std::string> DialogueTerminal::Demander(std::string_view texte, std::string_view titre,
                                                      std::string_view defaut) {
    abandonnee_ = false;
    ++questions_;
    const bool scriptee = !reponses_.empty();
    if (!scriptee && !interactive_) {
        // Nobody to ask: the box takes its default; without one the run cannot go on.
        if (defaut.empty()) throw ReponseManquante(Cp1252VersUtf8(texte.empty() ? titre : texte), questions_);
        return std::string(defaut);
    }
    auto r = LireReponse(InviteQuestion(texte, titre, defaut));
    if (!r) {
        // End of input at the terminal is Cancel.
        abandonnee_ = true;
        return std::nullopt;
    }
    if (!scriptee && r->empty()) return std::string(defaut);
    return Utf8VersCp1252(*r);
}

std::optional<std::filesystem::path> DialogueTerminal::ChoisirFichier(std::string_view titre, std::string_view filtre) {
    abandonnee_ = false;
    ++questions_;
    if (reponses_.empty() && !interactive_) throw ReponseManquante(Cp1252VersUtf8(titre), questions_);
    auto r = LireReponse(Joindre(Cp1252VersUtf8(titre), " (", FiltreAffiche(filtre), ") : "));
    if (!r || r->empty()) {
        abandonnee_ = true;
        return std::nullopt;
    }
    return std::filesystem::path(*r);
}

void DialogueTerminal::Afficher(std::string_view message) {
    abandonnee_ = false;
    MasquerProgression();
    std::cout << Cp1252VersUtf8(message) << '\n' << std::flush;
}

void DialogueTerminal::Resultat(std::string_view texte) { Afficher(texte); }

void DialogueTerminal::Progression(std::string_view libelle, long long i, long long n) {
    if (!barre_) return;
    constexpr int kLargeur = 30;
    std::string ligne = "\r\x1b[K";
    if (n > 0) {
        const int plein = static_cast<int>(static_cast<long long>(LargeurBarre(i, n)) * kLargeur / (LARGEUR_BARRE + 1));
        ligne += '[';
        ligne.append(static_cast<std::size_t>(plein), '#');
        ligne.append(static_cast<std::size_t>(kLargeur - plein), ' ');
        ligne += "] ";
    }
    ligne += Cp1252VersUtf8(libelle);
    std::cerr << ligne << std::flush;
    barreAffichee_ = true;
}

void DialogueTerminal::MasquerProgression() {
    if (!barreAffichee_) return;
    std::cerr << "\r\x1b[K" << std::flush;
    barreAffichee_ = false;
}

}  // namespace telvoris
