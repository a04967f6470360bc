#include "explore/concordance.hpp"

#include <algorithm>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "explore/corpus.hpp"
#include "explore/index_commun.hpp"
#include "explore/requete.hpp"

namespace telvoris {

namespace {

std::string Minuscules(std::string s) {
    for (char& c : s) {
        const unsigned char u = Code(c);
        if ((u >= 65 && u <= 90) || (u >= 192 && u <= 222 && u != 215)) c = static_cast<char>(u + 32);
    }
    return s;
}

std::vector<std::size_t> Trier(const std::vector<std::string>& cles) {
    std::vector<std::size_t> ordre(cles.size());
    for (std::size_t i = 0; i < ordre.size(); ++i) ordre[i] = i;
    std::stable_sort(ordre.begin(), ordre.end(), [&](std::size_t a, std::size_t b) { return cles[a] < cles[b]; });
    return ordre;
}

}  // namespace

std::string CleTriDroite(const std::string& droite) { return Minuscules(SansAccent(droite)); }

std::string CleTriGauche(const std::string& gauche, const std::string& droite) {
    std::string cle(droite.substr(0, droite.find(' ')));
    cle += ' ';
    cle.append(gauche.rbegin(), gauche.rend());
    return Minuscules(SansAccent(cle));
}

void TrierConcordance(Requete& r) {
    if (r.occ.size() > MAX_LIGNES_TRIEES)
        LimiteDepassee("MAX_LIGNES_TRIEES", MAX_LIGNES_TRIEES, "lignes de concordance à trier"_cp);
    std::vector<std::string> droites, gauches;
    for (const auto& o : r.occ) {
        droites.push_back(CleTriDroite(o.droite));
        gauches.push_back(CleTriGauche(o.gauche, o.droite));
    }
    r.ORDRE_DROIT = Trier(droites);
    r.ORDRE_GAUCHE = Trier(gauches);
}

std::vector<std::string> LignesConcordance(const Requete& r, bool triGauche) {
    std::vector<std::string> lignes;
    if (!r.contextes) return lignes;
    for (const std::size_t i : triGauche ? r.ORDRE_GAUCHE : r.ORDRE_DROIT) lignes.push_back(r.occ[i].gauche + r.occ[i].droite);
    return lignes;
}

std::string PageConcordance(const Requete& r, bool triGauche, std::size_t rang) {
    const auto lignes = LignesConcordance(r, triGauche);
    std::string page;
    for (std::size_t n = rang; n >= 1 && n <= lignes.size() && n < rang + PAGE_CONC; ++n) {
        if (n > rang) page += "\r\n";
        page += lignes[n - 1];
    }
    return page;
}

std::string TexteInfoRequete(const Requete& r) {
    return Joindre("La requête en cours présente "_cp, "\r\n", Nombre(r.NB_OCC()),
                   " occurrence(s), ainsi réparties :"_cp, "\r\n", r.rapport);
}

std::filesystem::path SauverConcordance(const EtatCorpus& etat, const Requete& r, bool triGauche, const Horloge& horloge) {
    std::string premiere = r.occ.empty() ? std::string() : r.occ[0].forme;
    // A form such as "1/2" must not name a sub-folder.
    std::replace(premiere.begin(), premiere.end(), '/', '_');
    std::replace(premiere.begin(), premiere.end(), '\\', '_');
    const auto chemin = Chemin(etat.PATH_INDEX / "SAUVEGARDES" / "CONCORDANCES", Joindre(premiere, "_", Horodater(horloge), ".txt"));
    EcrivainFichier f(chemin);
    for (const auto& l : LignesConcordance(r, triGauche)) f.Ligne(l);
    f.Fermer();
    return chemin;
}

}  // namespace telvoris
