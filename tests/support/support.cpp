#include "support/support.hpp"

#include "core/erreurs.hpp"
#include "core/texte.hpp"

#include <unistd.h>

#include <atomic>
#include <fstream>
#include <sstream>

namespace telvoris::test {

DossierTemporaire::DossierTemporaire() {
    static std::atomic<int> compteur{0};
    chemin_ = fs::temp_directory_path() /
              ("telvoris_test_" + std::to_string(::getpid()) + "_" + std::to_string(compteur++));
    fs::remove_all(chemin_);
    fs::create_directories(chemin_);
}

DossierTemporaire::~DossierTemporaire() {
    std::error_code ec;
    fs::remove_all(chemin_, ec);
}

void Ecrire(const fs::path& fichier, const std::string& contenu) {
    fs::create_directories(fichier.parent_path());
    std::ofstream f(fichier, std::ios::binary);
    f << contenu;
}

std::string Lignes(const std::vector<std::string>& lignes) {
    std::string r;
    for (const auto& l : lignes) r += l + "\r\n";
    return r;
}

std::string Lire(const fs::path& fichier) {
    std::ifstream f(fichier, std::ios::binary);
    std::stringstream ss;
    ss << f.rdbuf();
    return ss.str();
}

std::map<std::string, std::string> Arbo(const fs::path& dossier) {
    std::map<std::string, std::string> r;
    for (const auto& e : fs::recursive_directory_iterator(dossier))
        if (e.is_regular_file()) r[fs::relative(e.path(), dossier).generic_string()] = Lire(e.path());
    return r;
}

std::string MessageErreur(const std::function<void()>& f) {
    try {
        f();
    } catch (const ErreurExecution& e) {
        return Cp1252VersUtf8(e.what());
    }
    return "(aucune erreur)";
}

fs::path DossierSource() { return TELVORIS_SOURCE_DIR; }
fs::path RessourcesTest() { return DossierSource() / "tests/fixtures/MORVENTA/morv_res"; }

std::optional<std::string> DialogueScripte::Demander(std::string_view, std::string_view, std::string_view defaut) {
    if (reponses.empty()) return std::string(defaut);
    auto r = reponses.front();
    reponses.pop_front();
    return r;
}

std::optional<fs::path> DialogueScripte::ChoisirFichier(std::string_view, std::string_view) {
    if (fichiers.empty()) return std::nullopt;
    auto r = fichiers.front();
    fichiers.pop_front();
    return r;
}

}  // namespace telvoris::test
