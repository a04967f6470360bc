#include "explore/concordance_tsv.hpp"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

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

// The lines of a variable's file for the partitions asked (one line a partition), by partition;
// a missing file gives none. The other lines are passed over without being kept.
std::unordered_map<long long, std::string> Valeurs(const fs::path& f, const std::unordered_set<long long>& partitions) {
    std::unordered_map<long long, std::string> lignes;
    if (!FichierExiste(f)) return lignes;
    const std::string texte = LireFichier(f);
    LecteurLignes lecteur(texte);
    std::string_view l;
    for (long long p = 1; lecteur.Suivante(l); ++p)
        if (partitions.count(p)) lignes.emplace(p, l);
    return lignes;
}

}  // namespace

std::string_view TextesPartitions::De(long long p) const {
    if (p < 1 || p >= fin) return {};
    // The last text beginning at or before p: a text of no partition shares its first number
    // with the next, which is the one that holds it.
    const auto it = std::upper_bound(premieres.begin(), premieres.end(), p);
    if (it == premieres.begin()) return {};
    return noms[static_cast<std::size_t>(it - premieres.begin()) - 1];
}

TextesPartitions TextesDesPartitions(const fs::path& liste, long long nbPartitions) {
    TextesPartitions t;
    const long long limite = std::max(nbPartitions, 0LL) + 1;
    const ListeTextes l = ChargerListeTextes(liste);
    long long p = 1;
    std::string tampon;
    for (const std::string& nom : l.noms) {
        if (nom.empty()) continue;
        if (p >= limite) break;
        const fs::path comptes = Chemin(l.doss_racine / "OLBRIN_TT" / "NB_PARTITIONS", Joindre(nom, ".txt"));
        if (!FichierExiste(comptes)) break;  // the texts after it cannot be placed
        LireFichier(comptes, tampon);
        LecteurLignes lecteur(tampon);
        std::string_view ligne;
        t.noms.push_back(nom);
        t.premieres.push_back(p);
        while (p < limite && lecteur.Suivante(ligne)) ++p;
    }
    t.fin = p;
    return t;
}

std::string ConcordanceTsv(const EtatCorpus& etat, const Requete& r, bool triGauche,
                           const TextesPartitions& textes, const std::vector<std::string>& titres) {
    std::unordered_set<long long> partitions;
    if (r.contextes)
        for (const auto& o : r.occ) partitions.insert(o.partition);
    std::vector<std::unordered_map<long long, std::string>> valeurs;
    for (const auto& v : titres)
        valeurs.push_back(Valeurs(Chemin(etat.PATH_INDEX / "METADONNEES_QORX", Joindre(v, ".txt")), partitions));
    std::string t = "texte\tpartition";
    for (const auto& v : titres) t += Joindre("\t", Cellule(v));
    t += "\tposition\tgauche\tpivot\tdroite";
    if (!r.contextes) return t;
    for (const std::size_t i : triGauche ? r.ORDRE_GAUCHE : r.ORDRE_DROIT) {
        const Occurrence& o = r.occ[i];
        t += '\n';
        t += Joindre(Cellule(textes.De(o.partition)), "\t", std::to_string(o.partition));
        for (const auto& lignes : valeurs) {
            const auto v = lignes.find(o.partition);
            t += Joindre("\t", v != lignes.end() ? Cellule(v->second) : std::string());
        }
        // The right context begins with the key: the forms of the occurrence, joined by blanks.
        const std::size_t cle = std::min(o.droite.size(), static_cast<std::size_t>(std::max(o.longueur, 0LL)));
        t += Joindre("\t", std::to_string(o.pos), "\t", Cellule(SansBlancsAutour(o.gauche)), "\t",
                     Cellule(std::string_view(o.droite).substr(0, cle)), "\t",
                     Cellule(SansBlancsAutour(std::string_view(o.droite).substr(cle))));
    }
    return t;
}

}  // namespace telvoris
