// Tagged lines: the token cutter, the attribute readers and the word classes.
#include <cstdlib>

#include "commun.hpp"
#include "core/fichiers.hpp"
#include "core/jetons.hpp"

using namespace telvoris;
namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t taille) {
    const std::string_view entree = fuzz::Octets(data, taille);
    static LigneJetons ligne;
    LecteurLignes lecteur(entree);
    std::string_view texte;
    while (lecteur.Suivante(texte)) {
        fuzz::Accepter([&] {
            for (Copie copie : {Copie::Etiquetage, Copie::Exploration}) {
                DecouperLigne(texte, ligne, copie);
                // The pieces put back together give the line.
                std::string refait(ligne.suite.empty() ? std::string_view{} : ligne.suite[0]);
                for (int i = 1; i <= ligne.NbJetons; ++i) {
                    const auto iu = static_cast<std::size_t>(i);
                    refait.append(ligne.jeton[iu]);
                    refait.append(ligne.suite[iu]);
                    const AttributsJeton a = LireAttributs(ligne.jeton[iu]);
                    const AttributsVue v = LireAttributsVue(ligne.jeton[iu]);
                    if (a.f != v.f || a.l != v.l || a.x != v.x || a.k != v.k) std::abort();
                    ValeurAttribut(ligne.jeton[iu], "flex");
                    ClasserItem(a.f, copie);
                    Minusculiser(a.l);
                }
                if (refait != texte) std::abort();
            }
            Decouper(texte, " ");
            DecoderUtf8(texte);
            ValeurEntiere(texte);
        });
    }
    return 0;
}
