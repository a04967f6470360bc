#include "cli/dialogue_terminal.hpp"

#include <cstdio>
#include <iostream>

#include "core/texte.hpp"

namespace telvoris {

DialogueTerminal::DialogueTerminal(std::deque<std::string> reponses, bool interactive, bool barre)
    : reponses_(std::move(reponses)), interactive_(interactive), barre_(barre) {}

std::optional<std::string> DialogueTerminal::LireReponse(std::string_view invite) {
    if (!reponses_.empty()) {
        std::string r = std::move(reponses_.front());
        reponses_.pop_front();
        return r;
    }
    if (!interactive_) return std::nullopt;
    MasquerProgression();
    std::cerr << invite << std::flush;
    std::string ligne;
    if (!std::getline(std::cin, ligne)) return std::nullopt;
    if (!ligne.empty() && ligne.back() == '\r') ligne.pop_back();
    return ligne;
}

std::optional<std::string> DialogueTerminal::Demander(std::string_view texte, std::string_view titre,
                                                      std::string_view defaut) {
    const bool avaitReponses = !reponses_.empty();
    const std::string invite = Cp1252VersUtf8(Joindre(titre, titre.empty() ? "" : " - ", texte, " [", defaut, "] "));
    auto r = LireReponse(invite);
    if (!r) {
        // Nobody to ask: the box takes its default. End of input at the terminal is Cancel.
        if (!avaitReponses && !interactive_) return std::string(defaut);
        return std::nullopt;
    }
    if (!avaitReponses && r->empty()) return std::string(defaut);
    return Utf8VersCp1252(*r);
}

std::optional<std::filesystem::path> DialogueTerminal::ChoisirFichier(std::string_view titre, std::string_view filtre) {
    const std::string invite = Cp1252VersUtf8(Joindre(titre, " (", filtre, ") : "));
    auto r = LireReponse(invite);
    if (!r || r->empty()) return std::nullopt;
    return std::filesystem::path(*r);
}

void DialogueTerminal::Afficher(std::string_view message) {
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
