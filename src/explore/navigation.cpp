#include "explore/navigation.hpp"

#include <algorithm>

#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"

namespace telvoris {

std::vector<Cooccurrence> CooccurrencesDe(const EntreeCooc& e, bool lemme) {
    std::vector<Cooccurrence> v;
    const auto parties = Decouper(e.parties, "/");
    const auto longueurs = Decouper(e.longueurs, "/");
    std::size_t n = 0;
    for (const auto morceau : parties) {
        if (morceau.empty()) continue;
        const std::size_t tiret = morceau.find('-');
        if (tiret == std::string_view::npos) continue;
        Cooccurrence c;
        c.partition = ValeurEntiere(morceau.substr(0, tiret));
        c.k = ValeurEntiere(morceau.substr(tiret + 1));
        c.longueur = static_cast<long long>(e.cle.size());
        if (lemme) {
            // The lengths list runs beside the places, one entry each.
            std::size_t vus = 0;
            for (const auto l : longueurs)
                if (!l.empty() && vus++ == n) {
                    c.longueur = ValeurEntiere(l);
                    break;
                }
        }
        ++n;
        v.push_back(c);
    }
    std::stable_sort(v.begin(), v.end(), [](const Cooccurrence& a, const Cooccurrence& b) {
        return a.partition != b.partition ? a.partition < b.partition : a.k < b.k;
    });
    return v;
}

Navigateur::Navigateur(const EtatCorpus& etat) : etat_(etat) {}

void Navigateur::NouvelleRequete(const Requete* requete) {
    requete_ = requete;
    coocs_.clear();
    OCC_COURANTE = 0;
    COOC_COURANTE = 0;
    choixDirect = false;
}

void Navigateur::ChoisirCooccurrences(std::vector<Cooccurrence> cooccurrences) {
    coocs_ = std::move(cooccurrences);
    COOC_COURANTE = coocs_.empty() ? 0 : 1;
    if (!coocs_.empty()) PART_COURANTE = coocs_[0].partition;
    MontrerPartie();
}

long long Navigateur::NbOccurrences() const {
    return requete_ ? static_cast<long long>(requete_->ORDRE_POS.size()) : 0;
}

const Occurrence& Navigateur::OccurrenceDeRang(long long n) const {
    return requete_->occ[requete_->ORDRE_POS[static_cast<std::size_t>(n - 1)]];
}

const std::string& Navigateur::TexteCache(long long p) {
    auto it = cache_.find(p);
    if (it == cache_.end())
        it = cache_.emplace(p, LireFichier(etat_.PATH_INDEX / "TEXTE_AFFICHE" / (std::to_string(p) + ".txt"))).first;
    return it->second;
}

void Navigateur::Boutons() {
    const long long nb = NbOccurrences();
    occPrecedente = OCC_COURANTE > 1;
    occSuivante = OCC_COURANTE < nb;
    coocPrecedente = COOC_COURANTE > 1;
    coocSuivante = COOC_COURANTE < NB_COOC_SEL();
    legendeCooc = COOC_COURANTE > 0 ? Joindre("co-occurrence n° "_cp, std::to_string(COOC_COURANTE)) : std::string();
}

void Navigateur::MontrerPartie() {
    const long long p = PART_COURANTE;
    if (p <= 0 || p > etat_.NB_PARTS) return;
    texte = TexteCache(p);
    marques.clear();
    curseur = -1;
    titre = etat_.TITRE_PART[static_cast<std::size_t>(p)];
    partPrecedente = p > 1;
    partSuivante = p < etat_.NB_PARTS;
    legendeOcc.clear();
    legendeCooc.clear();
    if (requete_ && requete_->NB_OCC_SANS_POSITION > 0) {
        // Counted without positions: nothing to mark or step through, but the partition's count
        // is known, and saying "no occurrence" would be wrong.
        const auto i = static_cast<std::size_t>(p);
        const long long c = i < requete_->OCC_PAR_PART.size() ? requete_->OCC_PAR_PART[i] : 0;
        choixDirect = false;
        OCC_COURANTE = 0;
        occPrecedente = occSuivante = coocPrecedente = coocSuivante = false;
        legendeOcc = c == 0   ? std::string("Pas d'occurrence dans ce texte")
                     : c == 1 ? std::string("1 occurrence, position non indexée"_cp)
                              : Joindre(std::to_string(c), " occurrences, positions non indexées"_cp);
        return;
    }
    if (requete_ && requete_->NB_ATTENDU >= SEUIL_MARQUAGE) {
        choixDirect = false;
        occPrecedente = occSuivante = coocPrecedente = coocSuivante = false;
        return;
    }
    for (std::size_t j = 0; j < coocs_.size(); ++j) {
        const Cooccurrence& c = coocs_[j];
        if (c.partition != p || c.k < 1) continue;
        marques.push_back({c.k - 1, c.longueur, true});
        if (static_cast<long long>(j) + 1 == COOC_COURANTE) curseur = c.k - 1;
    }
    const long long nb = NbOccurrences();
    long long premier = 0, kPremier = 0, avant = 0;
    for (long long n = 1; n <= nb; ++n) {
        const Occurrence& o = OccurrenceDeRang(n);
        if (o.partition < p) ++avant;
        if (o.partition != p) continue;
        if (o.k >= 1) marques.push_back({o.k - 1, o.longueur, false});
        if (premier == 0 || o.k < kPremier) premier = n, kPremier = o.k;
    }
    if (premier == 0) {
        // Ranks run in position order, so the last rank of the nearest earlier partition with
        // occurrences is the number of occurrences before this partition.
        OCC_COURANTE = avant;
        choixDirect = false;
        legendeOcc = "Pas d'occurrence dans ce texte";
    } else {
        if (!choixDirect || OCC_COURANTE < 1 || OCC_COURANTE > nb || OccurrenceDeRang(OCC_COURANTE).partition != p)
            OCC_COURANTE = premier;
        choixDirect = false;
        legendeOcc = Joindre("occurrence n° "_cp, std::to_string(OCC_COURANTE));
        const Occurrence& o = OccurrenceDeRang(OCC_COURANTE);
        if (curseur < 0 && o.k >= 1) curseur = o.k - 1;
    }
    Boutons();
}

void Navigateur::Avance(int index) {
    const long long nb = NbOccurrences();
    const long long nc = NB_COOC_SEL();
    switch (index) {
        case PartieSuivante:
        case DernierePartie:
        case PartiePrecedente:
        case PremierePartie: {
            if (etat_.NB_PARTS < 1) return;
            long long p = PART_COURANTE;
            if (index == PartieSuivante) p = std::min(p + 1, etat_.NB_PARTS);
            else if (index == DernierePartie) p = etat_.NB_PARTS;
            else if (index == PartiePrecedente) p = std::max(p - 1, 1LL);
            else p = 1;
            PART_COURANTE = p;
            OCC_COURANTE = 1;
            choixDirect = false;
            break;
        }
        case OccSuivante:
        case DerniereOcc:
        case OccPrecedente:
        case PremiereOcc: {
            if (nb == 0) return;
            long long n = OCC_COURANTE;
            if (index == OccSuivante) n = std::min(n + 1, nb);
            else if (index == DerniereOcc) n = nb;
            else if (index == OccPrecedente) n = std::max(n - 1, 1LL);
            else n = 1;
            OCC_COURANTE = n;
            PART_COURANTE = OccurrenceDeRang(n).partition;
            // The rank reached is kept by the display, as a choice from the concordance is.
            choixDirect = true;
            break;
        }
        case CoocSuivante:
        case DerniereCooc:
        case CoocPrecedente:
        case PremiereCooc: {
            if (nc == 0) return;
            long long n = COOC_COURANTE;
            if (index == CoocSuivante) n = std::min(n + 1, nc);
            else if (index == DerniereCooc) n = nc;
            else if (index == CoocPrecedente) n = std::max(n - 1, 1LL);
            else n = 1;
            COOC_COURANTE = n;
            PART_COURANTE = coocs_[static_cast<std::size_t>(n - 1)].partition;
            break;
        }
        default:
            return;
    }
    MontrerPartie();
}

bool Navigateur::ChoisirTitreCourt(std::string_view t) {
    for (long long p = 1; p <= etat_.NB_PARTS; ++p)
        if (etat_.TITRE_COURT[static_cast<std::size_t>(p)] == t) {
            PART_COURANTE = p;
            choixDirect = false;
            MontrerPartie();
            return true;
        }
    return false;
}

void Navigateur::Ouvrir() {
    if (etat_.NB_PARTS < 1) return;
    if (texte.empty()) {
        PART_COURANTE = NbOccurrences() > 0 ? OccurrenceDeRang(1).partition : 1;
        choixDirect = false;
    }
    MontrerPartie();
}

void Navigateur::AllerOccurrence(std::size_t i) {
    if (!requete_) return;
    const auto& ordre = requete_->ORDRE_POS;
    const auto it = std::find(ordre.begin(), ordre.end(), i);
    if (it == ordre.end()) return;
    OCC_COURANTE = static_cast<long long>(it - ordre.begin()) + 1;
    PART_COURANTE = requete_->occ[i].partition;
    choixDirect = true;
    MontrerPartie();
}

void Navigateur::AllerPartition(long long p) {
    if (p < 1 || p > etat_.NB_PARTS) return;
    const long long nb = NbOccurrences();
    long long avant = 0;
    while (avant < nb && OccurrenceDeRang(avant + 1).partition < p) ++avant;
    choixDirect = avant < nb && OccurrenceDeRang(avant + 1).partition == p;
    if (choixDirect) OCC_COURANTE = avant + 1;
    PART_COURANTE = p;
    MontrerPartie();
}

void Navigateur::Recueillir(long long debut, long long longueur, ListesMots& listes) {
    const long long p = PART_COURANTE;
    if (p < 1 || p > etat_.NB_PARTS || longueur <= 0) return;
    if (!tranches_) tranches_ = std::make_unique<Tranches>(etat_.PATH_INDEX, etat_.NB_MOTS);
    const auto i = static_cast<std::size_t>(p);
    for (long long q = etat_.CUMUL_MOTS[i]; q > etat_.CUMUL_MOTS[i - 1]; --q) {
        const std::string_view tag = tranches_->Balise(q);
        if (tag.empty()) continue;
        const AttributsJeton a = LireAttributs(tag);
        if (a.k - 1 < debut || a.k - 1 >= debut + longueur) continue;
        AjouterSansRepeter(listes.LISTE_FORMES, a.f);
        if (!a.l.empty() && a.l.find('_') != std::string::npos && a.l.find('/') == std::string::npos)
            AjouterSansRepeter(listes.LISTE_LEMMES, a.l);
    }
}

}  // namespace telvoris
