#include "explore/tranches.hpp"

#include "core/jetons.hpp"
#include "explore/index_commun.hpp"

namespace telvoris {

std::string_view Tranches::Balise(long long q) {
    if (q < 1 || q > nbMots_) return {};
    const long long tranche = (q - 1) / TAILLE_TRANCHE + 1;
    const auto place = static_cast<std::size_t>((q - 1) % TAILLE_TRANCHE);
    auto& t = tranches_[tranche];
    if (!t) {
        t = std::make_unique<Tranche>();
        if (LirePetitFichier(dossier_ / (Nombre(tranche) + ".txt"), t->texte)) {
            LigneJetons lj;
            DecouperLigne(t->texte, lj, Copie::Exploration, TAILLE_TRANCHE * 2);
            t->balises.assign(lj.jeton.begin() + 1, lj.jeton.end());
        }
    }
    return place < t->balises.size() ? t->balises[place] : std::string_view();
}

bool MemeBalise(std::string_view tranche, std::string_view balise) {
    if (tranche == balise) return true;
    const std::size_t blanc = tranche.find(' ');
    if (blanc == std::string_view::npos || tranche.substr(blanc + 1, 2) != "k=") return false;
    const std::size_t fin = tranche.find(' ', blanc + 1);
    if (fin == std::string_view::npos) return false;
    return balise.size() > blanc && tranche.substr(0, blanc + 1) == balise.substr(0, blanc + 1) &&
           tranche.substr(fin + 1) == balise.substr(blanc + 1);
}

}  // namespace telvoris
