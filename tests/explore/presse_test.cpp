// The example press corpus as the segmenter and the segment indexer left it: its index and
// queries on it.
#include <gtest/gtest.h>

#include <set>

#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "explore/concordance.hpp"
#include "explore/corpus.hpp"
#include "explore/indexation.hpp"
#include "explore/requete.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

namespace fs = std::filesystem;

// A tag as the slices hold it, less its offset.
std::string SansK(std::string_view tag) {
    std::string t(tag);
    const std::size_t k = t.find(" k=");
    if (k != std::string::npos) t.erase(k, t.find(' ', k + 1) - k);
    return t;
}

TEST(CorpusPresse, PositionsEtTranchesConcordent) {
    test::DossierTemporaire d;
    fs::copy(test::DossierSource() / "tests/fixtures/exploration/presse", d.Chemin(), fs::copy_options::recursive);
    const auto l = ChargerListeTextes(d.Chemin() / "REPERTOIRE.txt");
    const auto x = DossierIndex(l);
    fs::create_directories(x);
    test::DialogueScripte dialogue;
    ConstruireIndex(l, x, true, dialogue);

    // Every tag of the slices, in corpus order.
    std::vector<std::string> corpus;
    for (int n = 1; fs::exists(x / "TEXTE_ETIQUETE" / (std::to_string(n) + ".txt")); ++n) {
        const std::string tranche = test::Lire(x / "TEXTE_ETIQUETE" / (std::to_string(n) + ".txt"));
        LigneJetons lj;
        DecouperLigne(tranche, lj, Copie::Exploration);
        if (fs::exists(x / "TEXTE_ETIQUETE" / (std::to_string(n + 1) + ".txt"))) {
            EXPECT_EQ(lj.NbJetons, 220);
        }
        for (int i = 1; i <= lj.NbJetons; ++i) corpus.push_back(SansK(lj.jeton[static_cast<std::size_t>(i)]));
    }
    const auto cumuls = test::Lire(x / "LONPARTS_M.txt");
    EXPECT_TRUE(cumuls.ends_with("\r\n" + std::to_string(corpus.size()) + "\r\n"));

    // Tags whose positions the segment indexer did not keep take those of the line before them.
    std::set<std::string> courts;
    for (const auto& nom : l.noms) {
        const std::string lex = LireFichier(Chemin(d.Chemin() / "OLBRIN_TT/LEXINDEX", nom + ".txt"));
        LecteurLignes lignes(lex);
        std::string_view ligne;
        while (lignes.Suivante(ligne))
            if (ligne.ends_with("\t!")) courts.insert(std::string(ligne.substr(0, ligne.find('\t'))));
    }
    ASSERT_FALSE(courts.empty());
    long long verifiees = 0;
    for (const auto& f : fs::directory_iterator(x / "LEXINDEX")) {
        const std::string contenu = test::Lire(f.path());
        LecteurLignes lignes(contenu);
        std::string_view ligne;
        while (lignes.Suivante(ligne)) {
            const auto t1 = ligne.find('\t'), t2 = ligne.find('\t', t1 + 1);
            const std::string tag(ligne.substr(0, t1));
            const std::string_view liste = ligne.substr(t2 + 1);
            ASSERT_EQ(liste.size() % 3, 0u) << tag;
            if (courts.count(tag)) continue;
            EXPECT_EQ(static_cast<long long>(liste.size() / 3), ValeurEntiere(ligne.substr(t1 + 1))) << tag;
            long long avant = 0;
            for (std::size_t i = 0; i < liste.size(); i += 3) {
                const long long q = LireCodePosition(liste.data() + i);
                EXPECT_GT(q, avant) << tag;  // corpus order
                avant = q;
                ASSERT_LE(q, static_cast<long long>(corpus.size()));
                EXPECT_EQ(corpus[static_cast<std::size_t>(q - 1)], tag);
                ++verifiees;
            }
        }
    }
    EXPECT_GT(verifiees, 500);

    // Queries read back what the index holds.
    EtatCorpus etat = OuvrirCorpus(d.Chemin() / "REPERTOIRE.txt");
    ValiderCorpus(etat, {{1}, 0}, dialogue);
    EXPECT_EQ(etat.NB_MOTS, static_cast<long long>(corpus.size()));
    EXPECT_EQ(etat.NB_CLASSES, 2);
    Requete r;
    ParametresRequete p;
    p.saisie = "port*";
    p.macro = true;
    ASSERT_TRUE(LancerRequete(etat, p, r, dialogue));
    ASSERT_EQ(r.occ.size(), 7u);
    for (const auto& o : r.occ) {
        EXPECT_TRUE(o.forme.starts_with("port")) << o.forme;
        EXPECT_EQ(o.droite.substr(0, o.forme.size()), o.forme);
        EXPECT_EQ(corpus[static_cast<std::size_t>(o.pos - 1)].find("f=" + o.forme + " "), 3u);
    }
    long long parClasse = 0;
    for (const long long n : r.OCC_PAR_CLASSE) parClasse += n;
    EXPECT_EQ(parClasse, 7);
    p.saisie = "le directeur du port";
    ASSERT_TRUE(LancerRequete(etat, p, r, dialogue));
    ASSERT_EQ(r.occ.size(), 1u);
    EXPECT_EQ(r.occ[0].forme, "le directeur du port");
    EXPECT_EQ(LignesConcordance(r, false)[0].substr(60, 21), "le directeur du port ");
}

}  // namespace
}  // namespace telvoris
