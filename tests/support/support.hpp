// Helpers shared by the tests: temporary folders, CP1252 files, a scripted dialogue.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "core/dialogue.hpp"

namespace telvoris::test {

namespace fs = std::filesystem;

// A fresh empty folder under the system's temporary folder, removed by the destructor.
class DossierTemporaire {
public:
    DossierTemporaire();
    ~DossierTemporaire();
    const fs::path& Chemin() const { return chemin_; }

private:
    fs::path chemin_;
};

// Writes a file (creating its folders); `contenu` is written as it stands.
void Ecrire(const fs::path& fichier, const std::string& contenu);
// Joins lines with CR LF, each line ended.
std::string Lignes(const std::vector<std::string>& lignes);
std::string Lire(const fs::path& fichier);
// Every file below a folder, by relative path, with its bytes: two trees compared whole.
std::map<std::string, std::string> Arbo(const fs::path& dossier);

// The UTF-8 message of the execution error that f throws, or "(aucune erreur)".
std::string MessageErreur(const std::function<void()>& f);

fs::path DossierSource();
fs::path RessourcesTest();

// A dialogue that answers from a script and records what it is told.
class DialogueScripte : public Dialogue {
public:
    std::deque<std::string> reponses;
    std::deque<fs::path> fichiers;
    std::vector<std::string> messages;
    std::vector<std::string> libelles;

    std::optional<std::string> Demander(std::string_view, std::string_view, std::string_view defaut) override;
    std::optional<fs::path> ChoisirFichier(std::string_view, std::string_view) override;
    void Afficher(std::string_view message) override { messages.emplace_back(message); }
    void Resultat(std::string_view texte) override { messages.emplace_back(texte); }
    void Progression(std::string_view libelle, long long, long long) override { libelles.emplace_back(libelle); }
    void MasquerProgression() override {}
};

}  // namespace telvoris::test
