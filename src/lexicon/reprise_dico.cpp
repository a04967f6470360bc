#include "lexicon/reprise_dico.hpp"

#include <algorithm>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"

namespace telvoris {

namespace {

constexpr std::string_view kEnTete = "#EN_COURS";

// One flush of the file system that holds `dossier`, rather than one per restored file: the
// record may go only once every restored file is on the disk.
void RendreDurable(const fs::path& dossier) {
    const int fd = ::open(dossier.c_str(), O_RDONLY | O_DIRECTORY);
    const bool ok = fd >= 0 && ::syncfs(fd) == 0;
    if (fd >= 0) ::close(fd);
    if (!ok) throw ErreurExecution(Joindre("Écriture impossible dans le dossier : "_cp, TexteChemin(dossier)));
}

}  // namespace

RepriseDictionnaire::RepriseDictionnaire(fs::path fichier, std::string etape)
    : fichier_(std::move(fichier)), etape_(std::move(etape)) {}

bool RepriseDictionnaire::EnCours() const { return FichierExiste(fichier_); }

std::optional<long long> RepriseDictionnaire::Retablir() {
    if (!EnCours()) return std::nullopt;
    const std::string contenu = LireFichier(fichier_);
    const fs::path base = fichier_.parent_path();
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    long long n = 0;
    sauvegardes_.clear();
    etapeInachevee_ = etape_;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        if (lecteur.Numero() == 1 && ligne.starts_with(kEnTete)) {
            const auto tab = ligne.find('\t');
            if (tab != std::string_view::npos) etapeInachevee_.assign(ligne.substr(tab + 1));
            continue;
        }
        const auto tab = ligne.find('\t');
        if (tab == std::string_view::npos || tab == 0 || tab + 1 >= ligne.size())
            throw ErreurExecution(Joindre("Ligne mal formée dans "_cp, TexteChemin(fichier_), ", ligne ",
                                          std::to_string(lecteur.Numero()), " : « sauvegarde<TAB>dossier » attendu : "_cp,
                                          ligne));
        const fs::path sauvegarde = base / fs::path(std::string(ligne.substr(0, tab)));
        const fs::path dossier = base / fs::path(std::string(ligne.substr(tab + 1)));
        if (!DossierExiste(sauvegarde))
            throw ErreurExecution(Joindre("La sauvegarde manque pour rétablir le dictionnaire : "_cp,
                                          TexteChemin(sauvegarde), " (nommée dans "_cp, TexteChemin(fichier_),
                                          ", ligne "_cp, std::to_string(lecteur.Numero()), ")"));
        std::vector<fs::path> fichiers;
        std::error_code ec;
        for (fs::directory_iterator it(sauvegarde, ec), fin; !ec && it != fin; it.increment(ec))
            if (it->is_regular_file() && !it->path().filename().string().starts_with("."))
                fichiers.push_back(it->path());
        if (ec) throw ErreurExecution(Joindre("Lecture impossible du dossier : "_cp, TexteChemin(sauvegarde)));
        std::sort(fichiers.begin(), fichiers.end());
        CreerDossier(dossier);
        for (const auto& f : fichiers) {
            EcrireFichier(dossier / f.filename(), LireFichier(f));
            ++n;
        }
        if (!sauvegardes_.empty()) sauvegardes_ += ", ";
        sauvegardes_ += std::string(ligne.substr(0, tab));
        RendreDurable(dossier);
    }
    // The dictionary stands again as before the unfinished run: its record has done its work.
    Terminer();
    return n;
}

void RepriseDictionnaire::Commencer(const std::vector<std::pair<fs::path, fs::path>>& dossiers) {
    const fs::path base = fichier_.parent_path();
    std::string r = Joindre(kEnTete, "\t", etape_, "\r\n");
    for (const auto& [dossier, sauvegarde] : dossiers)
        r += Joindre(fs::relative(sauvegarde, base).generic_string(), "\t", fs::relative(dossier, base).generic_string(),
                     "\r\n");
    EcrireFichier(fichier_, r, true);
}

void RepriseDictionnaire::Terminer() {
    std::error_code ec;
    fs::remove(fichier_, ec);
    if (ec) throw ErreurExecution(Joindre("Impossible de supprimer le fichier : "_cp, TexteChemin(fichier_)));
}

std::string RepriseDictionnaire::MessageReprise(long long retablis) const {
    return Joindre("La fonction « "_cp, etapeInachevee_,
                   " » n'était pas allée à son terme lors de son dernier lancement : "_cp, std::to_string(retablis),
                   " fichier(s) du dictionnaire rétabli(s) depuis "_cp, sauvegardes_, " avant de lancer « "_cp, etape_,
                   " »."_cp);
}

void ExigerDictionnaireComplet(const fs::path& enregistrement) {
    if (!FichierExiste(enregistrement)) return;
    const std::string contenu = LireFichier(enregistrement);
    LecteurLignes lecteur(contenu);
    std::string_view tete;
    lecteur.Suivante(tete);
    const auto tab = tete.find('\t');
    const std::string etape(tab == std::string_view::npos ? std::string_view("?") : tete.substr(tab + 1));
    throw FinProgramme(Joindre("Le dictionnaire est incomplet : la fonction « "_cp, etape,
                               " » n'est pas allée à son terme (trace : "_cp, TexteChemin(enregistrement),
                               "). Relancez-la : elle le rétablit depuis sa sauvegarde avant de reprendre."_cp));
}

fs::path RepriseOlbrin(const fs::path& racine) { return Chemin(racine, "dico/#EN_COURS_olbrin.txt"); }
fs::path RepriseComposes(const fs::path& racine) { return Chemin(racine, "dico/comp/#EN_COURS_comp.txt"); }

}  // namespace telvoris
