#include "stats/casier_lexique.hpp"

#include <algorithm>
#include <charconv>

#include "core/erreurs.hpp"
#include "core/texte.hpp"

namespace telvoris {

CasierLexique::Entree* CasierLexique::Trouver(std::string_view item, CleMot cle) {
    auto& casier = casiers_[Indice(cle)];
    const auto it = casier.index.find(item);
    return it == casier.index.end() ? nullptr : &casier.entrees[it->second];
}

CasierLexique::Entree& CasierLexique::Nouvelle(std::string_view item, CleMot cle, long long compte) {
    auto& casier = casiers_[Indice(cle)];
    VerifierPlace(casier.entrees.size(), item);
    casier.index.emplace(std::string(item), static_cast<std::uint32_t>(casier.entrees.size()));
    casier.entrees.push_back({std::string(item), compte});
    return casier.entrees.back();
}

void CasierLexique::VerifierPlace(std::size_t taille, std::string_view item) {
    if (taille >= MAX_ENTREES_CASIER)
        LimiteDepassee("MAX_ENTREES_CASIER", MAX_ENTREES_CASIER,
                       Joindre("entrées dans la case de « "_cp, item, " » de la table des items"_cp));
}

void CasierLexique::Blanchir(CleMot cle, std::size_t i) {
    auto& casier = casiers_[Indice(cle)];
    auto& e = casier.entrees[i];
    const auto it = casier.index.find(e.item);
    if (it != casier.index.end() && it->second == i) casier.index.erase(it);
    e.item.clear();
}

void CasierLexique::Vider() {
    for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
            auto& casier = casiers_[Indice({l, c})];
            casier.entrees.clear();
            casier.index.clear();
        }
}

void EcrireParFrequence(CasierLexique& casier, EcrivainFichier& sortie) {
    struct Rang {
        long long rang;
        std::string item;
        long long compte;
    };
    std::vector<Rang> rangs;
    std::array<std::size_t, 6> parCompte{};  // items of counts 1 to 5
    casier.Parcourir([&](CleMot cle, std::size_t i, CasierLexique::Entree& e) {
        if (e.item.empty() || e.item.find('|') != std::string::npos) return;
        const long long s = std::min(e.compte, MAX_RANG_FREQUENCE);
        if (s >= 1 && s <= 5) {
            const std::size_t max = s == 1 ? MAX_HAPAX : MAX_LISTE_FREQUENCE;
            if (++parCompte[static_cast<std::size_t>(s)] > max)
                LimiteDepassee(s == 1 ? "MAX_HAPAX" : "MAX_LISTE_FREQUENCE", static_cast<long long>(max),
                               Joindre("items de fréquence "_cp, std::to_string(s), " dans un lexique"_cp));
        }
        if (s >= 1) rangs.push_back({s, e.item, e.compte});
        casier.Blanchir(cle, i);
    });
    // Equal ranks keep the bucket order of the walk.
    std::stable_sort(rangs.begin(), rangs.end(), [](const Rang& a, const Rang& b) { return a.rang > b.rang; });
    std::string ligne;
    char tampon[24];
    for (const auto& r : rangs) {
        ligne.assign(r.item);
        ligne += '\t';
        const auto fin = std::to_chars(tampon, tampon + sizeof tampon, r.compte).ptr;
        ligne.append(tampon, static_cast<std::size_t>(fin - tampon));
        sortie.Ligne(ligne);
    }
}

}  // namespace telvoris
