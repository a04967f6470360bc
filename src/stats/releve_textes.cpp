#include "stats/releve_textes.hpp"

#include <array>
#include <charconv>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "stats/commun.hpp"

namespace telvoris {

using namespace stats;

namespace {

// Past this many distinct tags the remembered items are forgotten, so that a thread's memory
// stays bounded on a corpus too large for it ("Grand lexique").
constexpr std::size_t kMaxEtiquettesRetenues = std::size_t{1} << 18;

}  // namespace

std::uint32_t ReleveurTextes::ItemDe(std::string_view etiquette) {
    const std::uint32_t e = etiquettes_.Trouver(etiquette);
    if (e != IndexTextes::kAbsent) return itemDe_[e];
    // The tag is remembered only once read whole, so that a tag that failed is read again.
    attributs_ = LireAttributs(etiquette);
    if (regles_.postclitiques && !attributs_.f.empty() && attributs_.f[0] == '-') {
        const std::string_view reste = std::string_view(attributs_.f).substr(1);
        for (const auto& p : *regles_.postclitiques)
            if (p == reste) {
                attributs_.f.erase(0, 1);
                break;
            }
    }
    ItemDuJeton(attributs_, regles_.niveau, regles_.composer, item_);
    std::uint32_t id = IndexTextes::kAbsent;
    bool nouveau = false;
    if (!item_.empty()) {
        id = items_.Inserer(item_, nouveau);
        if (nouveau) {
            cles_.push_back(CasierLexique::Cle(item_));
            rang_.push_back(0);
            texteDe_.push_back(0);
        }
    }
    etiquettes_.Inserer(etiquette, nouveau);
    itemDe_.push_back(id);
    return id;
}

void ReleveurTextes::Lire(const std::filesystem::path& chemin, int niveauControle, ReleveTexte& r) {
    if (etiquettes_.Taille() > kMaxEtiquettesRetenues) {
        etiquettes_.Vider();
        itemDe_.clear();
        items_.Vider();
        cles_.clear();
        rang_.clear();
        texteDe_.clear();
    }
    ++texte_;
    LireFichier(chemin, contenu_);
    LecteurLignes lecteur(contenu_);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty() || ligne == SEPARATEUR_PARTITIONS) continue;
        const auto ou = [&] { return Joindre(TexteChemin(chemin), ", ligne "_cp, std::to_string(lecteur.Numero())); };
        const std::size_t tab = ligne.find('\t');
        if (tab == std::string_view::npos)
            throw ErreurExecution(Joindre("Ligne d'index sans compte : « "_cp, ligne, " » ("_cp, ou(), ")"));
        const std::size_t tab2 = ligne.find('\t', tab + 1);
        if (regles_.champ3 && tab2 == std::string_view::npos)
            throw ErreurExecution(Joindre("Ligne d'index sans positions : « "_cp, ligne, " » ("_cp, ou(), ")"));
        const std::string_view champ2 =
            ligne.substr(tab + 1, tab2 == std::string_view::npos ? std::string_view::npos : tab2 - tab - 1);
        const long long compte = LireEntierOu(champ2, ou);
        const std::uint32_t id = ItemDe(ligne.substr(0, tab));
        if (niveauControle >= 0) {
            char tampon[24];
            r.controle.append(tampon, std::to_chars(tampon, tampon + sizeof tampon, niveauControle).ptr);
            r.controle += '\t';
            if (id != IndexTextes::kAbsent) r.controle += items_.Texte(id);
            r.controle += '\t';
            r.controle += champ2;
            r.controle += "\r\n";
        }
        if (id == IndexTextes::kAbsent) continue;
        r.N += compte;
        r.touche = true;
        r.dernier = cles_[id];
        if (texteDe_[id] == texte_) {
            r.entrees[rang_[id]].compte += compte;
        } else {
            texteDe_[id] = texte_;
            rang_[id] = static_cast<std::uint32_t>(r.entrees.size());
            r.entrees.push_back({items_.Texte(id), cles_[id], compte});
        }
    }
}

ReleveTexte ReleveurTextes::Relever(const std::filesystem::path& chemin, int niveauControle) {
    ReleveTexte r;
    try {
        Lire(chemin, niveauControle, r);
    } catch (...) {
        r.erreur = std::current_exception();
    }
    return r;
}

std::size_t Verser(const ReleveTexte& r, CasierLexique& casier) {
    std::size_t nouveaux = 0;
    for (const auto& e : r.entrees) {
        if (auto* x = casier.Trouver(e.item, e.cle)) {
            x->compte += e.compte;
        } else {
            casier.Nouvelle(e.item, e.cle, e.compte);
            ++nouveaux;
        }
    }
    return nouveaux;
}

std::vector<const ReleveTexte::Entree*> VerserTexteSeul(const ReleveTexte& r, CasierLexique& casier) {
    std::array<std::size_t, CasierLexique::kCasiers + 1> debut{};
    for (const auto& e : r.entrees) {
        if (e.cle.ClasseInitiale == 0) {
            if (auto* x = casier.Trouver(e.item, e.cle)) x->compte += e.compte;
            else casier.Nouvelle(e.item, e.cle, e.compte);
            continue;
        }
        auto& taille = debut[CasierLexique::Indice(e.cle) + 1];
        CasierLexique::VerifierPlace(taille, e.item);
        ++taille;
    }
    // A counting sort by bucket keeps the order of first appearance within each.
    for (std::size_t k = 1; k < debut.size(); ++k) debut[k] += debut[k - 1];
    std::vector<const ReleveTexte::Entree*> ordre(debut.back());
    for (const auto& e : r.entrees)
        if (e.cle.ClasseInitiale != 0) ordre[debut[CasierLexique::Indice(e.cle)]++] = &e;
    return ordre;
}

}  // namespace telvoris
