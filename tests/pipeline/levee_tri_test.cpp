// The order of a large case: the sort keys are built apart from the contexts shown, and must give
// exactly the order of a stable sort on the contexts themselves (the left one read backwards).
#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "core/horloge.hpp"
#include "pipeline/arbre_etiquetage.hpp"
#include "pipeline/automate.hpp"
#include "pipeline/levee.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;

// Words of every length, accented ones (bytes past 127 must sort after the plain letters),
// prefixes of one another, and one longer than a whole context.
const std::vector<std::string> kMots = {
    "a", "la", "le", "les", "de", "des", "chat", "chats", "\xE9t\xE9", "\xE9" "te", "\xC9t\xE9", "zzz", "Z",
    "mot_tres_long_qui_depasse_a_lui_seul_toute_la_largeur_du_contexte_montre", "x"};

std::string Jeton(const std::string& mot) { return Joindre("<M f=", mot, " >", mot, " "); }

// Texts where "porte" stands several hundred times, at the start and end of files and of lines,
// often beside the same words so that many keys tie.
std::map<std::string, std::string> Textes() {
    std::uint32_t graine = 12345;
    const auto Tirer = [&](std::uint32_t n) {
        graine = graine * 1103515245u + 12345u;
        return (graine >> 16) % n;
    };
    std::map<std::string, std::string> r;
    for (int f = 0; f < 6; ++f) {
        std::string t;
        if (f == 2) t += Jeton("porte");  // the very first token of a file
        for (int ligne = 0; ligne < 40; ++ligne) {
            const std::uint32_t n = Tirer(12);
            for (std::uint32_t i = 0; i < n; ++i) {
                // A narrow vocabulary on some lines: equal contexts on both sides.
                t += Tirer(4) == 0 ? Jeton("porte") : Jeton(kMots[Tirer(ligne % 3 == 0 ? 3 : kMots.size())]);
            }
            if (Tirer(3) == 0) t += "<PC f=. l=PT >.";
            t += "\r\n";
        }
        t += Jeton("porte");  // the last token of a file
        r.emplace(std::string(1, static_cast<char>('a' + f)), t);
    }
    return r;
}

// The key of the old preparation, from the contexts the session shows.
std::string CleMontree(const OccurrenceLevee& o, bool droite) {
    return droite ? o.droite : std::string(o.gauche.rbegin(), o.gauche.rend());
}

void VerifierOrdre(const SessionLevee& s, bool droite) {
    for (std::size_t r = 1; r < s.NbOccurrences(); ++r) {
        const OccurrenceLevee& a = s.Occurrence(r - 1);
        const OccurrenceLevee& b = s.Occurrence(r);
        const std::string ka = CleMontree(a, droite), kb = CleMontree(b, droite);
        ASSERT_LE(ka, kb) << "rangs " << r - 1 << " et " << r << (droite ? " (tri droit)" : " (tri gauche)");
        // Equal keys keep the order of the case's positions.
        if (ka == kb) {
            ASSERT_LT(a.position, b.position) << "rang " << r;
        }
    }
}

TEST(LeveeTri, GrandCasMemeOrdreQueLesContextesMontres) {
    DossierTemporaire arbre, racine;
    test::ContenuArbre contenu;
    contenu.dico = {"porte,.SF:s/0r.V:1a", "a,.P", "la,.P", "le,.P", "les,.P", "de,.P", "des,.P", "chat,.SM:s",
                    "chats,.SM:p", "x,.SM:s"};
    test::ConstruireArbre(arbre.Chemin(), contenu);
    test::DialogueScripte d;
    HorlogeFixe h{{2026, 11, 24, 8, 0, 0}};
    Contexte ctx{d, h, arbre.Chemin()};
    const fs::path liste = test::ConstruireCorpus(racine.Chemin(), Textes());
    d.fichiers.push_back(liste);
    OperationPasseAutomatique(ctx);

    SessionLevee s = SessionLevee::OuvrirSimples(ChargerListeTextes(liste), h, d);
    s.TravaillerDansLOrdre();
    while (!s.Terminee() && s.FormeCas() != "porte") s.CasSuivant();
    ASSERT_FALSE(s.Terminee());
    ASSERT_GT(s.NbOccurrences(), 150u);
    // Every position of the case appears once.
    std::vector<long long> positions;
    for (std::size_t r = 0; r < s.NbOccurrences(); ++r) positions.push_back(s.Occurrence(r).position);
    std::sort(positions.begin(), positions.end());
    EXPECT_EQ(std::adjacent_find(positions.begin(), positions.end()), positions.end());

    VerifierOrdre(s, false);
    // The first row of a file has no left context at all; the long word is cut to the width.
    std::size_t vides = 0;
    for (std::size_t r = 0; r < s.NbOccurrences(); ++r) {
        EXPECT_EQ(s.Occurrence(r).gauche.size(), LARGEUR_CONTEXTE_LEVEE);
        EXPECT_LE(s.Occurrence(r).droite.size(), LARGEUR_CONTEXTE_LEVEE);
        vides += s.Occurrence(r).gauche == std::string(LARGEUR_CONTEXTE_LEVEE, ' ');
    }
    EXPECT_GE(vides, 1u);
    EXPECT_EQ(s.Occurrence(0).gauche, std::string(LARGEUR_CONTEXTE_LEVEE, ' '));

    s.ChangerTri();
    VerifierOrdre(s, true);
    // The last token of a file has nothing on its right and sorts first.
    EXPECT_EQ(s.Occurrence(0).droite, "");
    s.ChangerTri();
    VerifierOrdre(s, false);
}

}  // namespace
}  // namespace telvoris
