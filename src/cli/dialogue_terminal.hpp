// The dialogue of the command line: answers given with --reponse first, then the person at the
// terminal. With nobody to ask, a question takes its default, and a question without one or a
// file dialog ends the run (ReponseManquante). Messages and results go to stdout in UTF-8; the
// bar to stderr.
#pragma once

#include <deque>
#include <stdexcept>
#include <string>

#include "core/dialogue.hpp"

namespace telvoris {

// No answer for a question that has no default, or for a file dialog, and nobody at a terminal.
// what() is the question, in UTF-8.
class ReponseManquante : public std::runtime_error {
public:
    ReponseManquante(const std::string& questionUtf8, int numero)
        : std::runtime_error(questionUtf8), numero(numero) {}
    int numero;  // its rank among the questions of the run, from 1
};

// The filter of a file dialog as a terminal shows it: "Text files (*.TXT)|*.TXT" and its legacy
// form with "¢" read "*.txt".
std::string FiltreAffiche(std::string_view filtreCp1252);

// The prompt line of an input box (UTF-8): "TITRE - texte [défaut] ", the brackets only when there
// is a default.
std::string InviteQuestion(std::string_view texte, std::string_view titre, std::string_view defaut);

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

    // True when the last thing the operation did was a cancelled file dialog or input box: it
    // stopped there.
    bool Abandonnee() const { return abandonnee_; }
    // Answers given with --reponse that no question took.
    std::size_t ReponsesRestantes() const { return reponses_.size(); }

private:
    std::optional<std::string> LireReponse(std::string_view invite);
    std::deque<std::string> reponses_;
    bool interactive_;
    bool barre_;
    bool barreAffichee_ = false;
    bool abandonnee_ = false;
    int questions_ = 0;
};

}  // namespace telvoris
