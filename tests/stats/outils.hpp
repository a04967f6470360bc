// Helpers of the statistics tests: a corpus root with hand-written index and tagged files, a
// resource tree with the post-clitic list, a fixed clock, and a dialogue that records prompts.
#pragma once

#include <string>
#include <vector>

#include "core/contexte.hpp"
#include "core/horloge.hpp"
#include "support/support.hpp"

namespace telvoris::test {

inline const std::string kSep = "<---------->";

// A dialogue that records the questions asked and the titles of the file dialogs.
class DialogueNote : public DialogueScripte {
public:
    std::vector<std::string> questions;
    std::vector<std::string> defauts;
    std::vector<std::string> titresFichiers;
    std::optional<std::string> Demander(std::string_view texte, std::string_view titre, std::string_view defaut) override {
        questions.emplace_back(texte);
        defauts.emplace_back(defaut);
        (void)titre;
        return DialogueScripte::Demander(texte, titre, defaut);
    }
    std::optional<fs::path> ChoisirFichier(std::string_view titre, std::string_view filtre) override {
        titresFichiers.emplace_back(titre);
        return DialogueScripte::ChoisirFichier(titre, filtre);
    }
};

// A corpus root in a temporary folder, with a resource tree beside it and a fixed clock
// (21/11/2026 10:05:00, so the stamp is "261121_1005").
struct Banc {
    DossierTemporaire dossier;
    DialogueNote dialogue;
    HorlogeFixe horloge{Instant{2026, 11, 21, 10, 5, 0}};
    Contexte ctx{dialogue, horloge, dossier.Chemin() / "res"};
    fs::path racine = dossier.Chemin() / "corpus";

    Banc() { Ecrire(dossier.Chemin() / "res" / "utilitaires" / "postclit2.txt", Lignes({"il", "le", "t-il"})); }
    void Index(const std::string& nom, const std::vector<std::string>& lignes) {
        Ecrire(racine / "OLBRIN_TT" / "LEXINDEX" / (nom + ".txt"), Lignes(lignes));
    }
    void Tague(const std::string& nom, const std::vector<std::string>& lignes) {
        Ecrire(racine / "OLBRIN_TT" / (nom + ".txt"), Lignes(lignes));
    }
    fs::path Liste(const std::vector<std::string>& noms, const std::string& fichier = "liste.txt") {
        Ecrire(racine / fichier, Lignes(noms));
        return racine / fichier;
    }
    std::string Sortie(const std::string& relatif) const { return Lire(racine / relatif); }
};

}  // namespace telvoris::test
