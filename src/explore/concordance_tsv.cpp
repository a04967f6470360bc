#include "explore/concordance_tsv.hpp"

#include "core/fichiers.hpp"
#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "explore/corpus.hpp"
#include "explore/requete.hpp"

namespace fs = std::filesystem;

namespace telvoris {

namespace {

std::string_view SansBlancsAutour(std::string_view t) {
    while (!t.empty() && t.front() == ' ') t.remove_prefix(1);
    while (!t.empty() && t.back() == ' ') t.remove_suffix(1);
    return t;
}

// A tab or a line end inside a value would break the columns.
std::string Cellule(std::string_view t) {
    std::string c(t);
    for (char& x : c)
        if (x == '\t' || x == '\r' || x == '\n') x = ' ';
    return c;
}

// The lines of a variable's file, one a partition; a missing file gives none.
std::vector<std::string> Valeurs(const fs::path& f) {
    std::vector<std::string> lignes;
    if (!FichierExiste(f)) return lignes;
    const std::string texte = LireFichier(f);
    LecteurLignes lecteur(texte);
    std::string_view l;
    while (lecteur.Suivante(l)) lignes.emplace_back(l);
    return lignes;
}

}  // namespace

std::vector<std::string> TextesDesPartitions(const fs::path& liste, long long nbPartitions) {
    std::vector<std::string> noms(static_cast<std::size_t>(std::max(nbPartitions, 0LL)) + 1);
    const ListeTextes l = ChargerListeTextes(liste);
    std::size_t p = 1;
    std::string tampon;
    for (const std::string& nom : l.noms) {
        if (nom.empty()) continue;
        const fs::path comptes = Chemin(l.doss_racine / "OLBRIN_TT" / "NB_PARTITIONS", Joindre(nom, ".txt"));
        if (!FichierExiste(comptes)) break;  // the texts after it cannot be placed
        LireFichier(comptes, tampon);
        LecteurLignes lecteur(tampon);
        std::string_view ligne;
        while (lecteur.Suivante(ligne) && p < noms.size()) noms[p++] = nom;
    }
    return noms;
}

std::string ConcordanceTsv(const EtatCorpus& etat, const Requete& r, bool triGauche,
                           const std::vector<std::string>& textes, const std::vector<std::string>& titres) {
    std::vector<std::vector<std::string>> valeurs;
    for (const auto& v : titres)
        valeurs.push_back(Valeurs(Chemin(etat.PATH_INDEX / "METADONNEES_QORX", Joindre(v, ".txt"))));
    std::string t = "texte\tpartition";
    for (const auto& v : titres) t += Joindre("\t", Cellule(v));
    t += "\tposition\tgauche\tpivot\tdroite";
    if (!r.contextes) return t;
    for (const std::size_t i : triGauche ? r.ORDRE_GAUCHE : r.ORDRE_DROIT) {
        const Occurrence& o = r.occ[i];
        const auto p = static_cast<std::size_t>(o.partition);
        t += '\n';
        t += Joindre(p < textes.size() ? Cellule(textes[p]) : std::string(), "\t", std::to_string(o.partition));
        for (const auto& lignes : valeurs)
            t += Joindre("\t", p >= 1 && p - 1 < lignes.size() ? Cellule(lignes[p - 1]) : std::string());
        // The right context begins with the key: the forms of the occurrence, joined by blanks.
        const std::size_t cle = std::min(o.droite.size(), static_cast<std::size_t>(std::max(o.longueur, 0LL)));
        t += Joindre("\t", std::to_string(o.pos), "\t", Cellule(SansBlancsAutour(o.gauche)), "\t",
                     Cellule(std::string_view(o.droite).substr(0, cle)), "\t",
                     Cellule(SansBlancsAutour(std::string_view(o.droite).substr(cle))));
    }
    return t;
}

}  // namespace telvoris
