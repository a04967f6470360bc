// The dialogue of the command line: answers given with --reponse first, then the person at the
// terminal, else the defaults. Messages and results go to stdout in UTF-8; the bar to stderr.
#pragma once

#include <deque>
#include <string>

#include "core/dialogue.hpp"

namespace telvoris {

class DialogueTerminal : public Dialogue {
public:
    DialogueTerminal(std::deque<std::string> reponsesUtf8, bool entreeInteractive, bool barreVisible);

    std::optional<std::string> Demander(std::string_view texte, std::string_view titre,
                                        std::string_view defaut) override;
    std::optional<std::filesystem::path> ChoisirFichier(std::string_view titre, std::string_view filtre) override;
    void Afficher(std::string_view message) override;
    void Resultat(std::string_view texte) override;
    void Progression(std::string_view libelle, long long i, long long n) override;
    void MasquerProgression() override;

private:
    std::optional<std::string> LireReponse(std::string_view invite);
    std::deque<std::string> reponses_;
    bool interactive_;
    bool barre_;
    bool barreAffichee_ = false;
};

}  // namespace telvoris
