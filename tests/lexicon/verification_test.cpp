#include "lexicon/verification.hpp"

#include <gtest/gtest.h>

#include <cstdio>

#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Ecrire;
using test::Lignes;

fs::path ArbreLivre() { return fs::path(TELVORIS_EXE).parent_path() / "MORVENTA" / "morv_res"; }

std::string Executer(const std::string& commande, int& statut) {
    std::string sortie;
    FILE* p = popen(commande.c_str(), "r");
    if (!p) return sortie;
    char tampon[4096];
    std::size_t n;
    while ((n = fread(tampon, 1, sizeof tampon, p)) > 0) sortie.append(tampon, n);
    statut = WEXITSTATUS(pclose(p));
    return sortie;
}

TEST(VerificationRessources, ArbreLivreSainEtCopieAbimee) {
    const RapportRessources sain = VerifierRessources(ArbreLivre());
    EXPECT_TRUE(sain.Valide()) << (sain.problemes.empty() ? "" : Cp1252VersUtf8(sain.problemes[0]));
    EXPECT_EQ(sain.comptes.front().substr(0, 26), "dico/olbrin : 300 fichiers");
    EXPECT_GT(sain.formesChargees, 400000);
    EXPECT_LT(sain.secondesChargement, 5.0);

    DossierTemporaire d;
    const fs::path r = d.Chemin() / "MORVENTA" / "morv_res";
    fs::create_directories(r);
    fs::copy(ArbreLivre(), r, fs::copy_options::recursive);
    fs::remove(FichierCasier(r, "dico/olbrin", 9, 20));
    fs::remove(FichierCasier(r, "dico/comp/amb", 4, 2));
    fs::remove(FichierUtilitaire(r, "noms_de_mois.txt"));
    Ecrire(FichierCasier(r, "dico/olbrin", 4, 16),
           Lignes({"pont,.SM:s", "Pain,.SM:s", "pomme,.SF:s", "paon", "pois,3.SM:x/.", "peur,xx.SF:s"}));
    Ecrire(FichierCasier(r, "dico/comp/namb", 2, 16), Lignes({"pomme de terre,.SF:s", "pot au,.SM:s", "tout,.A"}));
    Ecrire(FichierCasier(r, "rescor/rescor", 3, 1), Lignes({"abc"}));
    Ecrire(FichierUtilitaire(r, "POSTCLIT_DESAMB.txt"), Lignes({"-je\t1", "-il\t4"}));
    std::vector<std::string> prefixes(101, "pre");
    Ecrire(FichierUtilitaire(r, "PREFIXES.txt"), Lignes(prefixes));

    const RapportRessources abime = VerifierRessources(r);
    std::vector<std::string> attendus = {
        "mal formé : dico/olbrin/4p.txt, ligne 2 : forme non pliée en minuscules : Pain",
        "mal formé : dico/olbrin/4p.txt, ligne 3 : forme rangée dans un autre fichier que le sien : pomme",
        "mal formé : dico/olbrin/4p.txt, ligne 4 : pas de virgule entre la forme et ses lectures",
        "mal formé : dico/olbrin/4p.txt, ligne 5 : lecture sans catégorie : .",
        "mal formé : dico/olbrin/4p.txt, ligne 6 : code de lemme sans nombre : xx.SF:s",
        "manquant : dico/olbrin/9t.txt",
        "mal formé : rescor/rescor/3a.txt, ligne 1 : pas de tabulation entre la forme fautive et la bonne",
        "mal formé : dico/comp/namb/2p.txt, ligne 1 : 3 mots dans un fichier de 2 : pomme de terre",
        "mal formé : dico/comp/namb/2p.txt, ligne 3 : 1 mots dans un fichier de 2 : tout",
        "manquant : dico/comp/amb/4b.txt",
        "limite dépassée : utilitaires/PREFIXES.txt a 101 lignes pour 100 au plus",
        "mal formé : utilitaires/POSTCLIT_DESAMB.txt, ligne 2 : code de personne attendu : 1, 2, 3, 6 ou 245",
        "manquant : utilitaires/noms_de_mois.txt",
    };
    std::vector<std::string> obtenus;
    for (const auto& p : abime.problemes) obtenus.push_back(Cp1252VersUtf8(p));
    EXPECT_EQ(obtenus, attendus);
    // With a file of the series missing, the dictionary is not loaded.
    EXPECT_EQ(abime.formesChargees, 0);

    // The command reports the same, with its exit status.
    int statut = -1;
    const std::string sortie = Executer(std::string(TELVORIS_EXE) + " verifier-ressources " + d.Chemin().string(), statut);
    EXPECT_EQ(statut, 1);
    EXPECT_NE(sortie.find("13 problèmes :\n  mal formé : dico/olbrin/4p.txt, ligne 2 : forme non pliée en minuscules : Pain\n"), std::string::npos) << sortie;
    EXPECT_NE(sortie.find("  dico/olbrin : 299 fichiers, "), std::string::npos) << sortie;
    const std::string saine = Executer(std::string(TELVORIS_EXE) + " verifier-ressources", statut);
    EXPECT_EQ(statut, 0) << saine;
    EXPECT_NE(saine.find("Ressources complètes : aucun fichier manquant ni mal formé.\n"), std::string::npos);
    Executer(std::string(TELVORIS_EXE) + " verifier-ressources " + (d.Chemin() / "rien").string(), statut);
    EXPECT_EQ(statut, 1);
}

TEST(VerificationRessources, TropDeFautesDansUnFichierSontComptees) {
    DossierTemporaire d;
    std::vector<std::string> lignes;
    for (int i = 0; i < 14; ++i) lignes.push_back(std::string("A").append(std::to_string(i)));
    Ecrire(FichierCasier(d.Chemin(), "dico/olbrin", 2, 1), Lignes(lignes));
    const RapportRessources r = VerifierRessources(d.Chemin());
    ASSERT_GT(r.problemes.size(), 12u);
    EXPECT_EQ(r.problemes[0], "manquant : dico/olbrin/1a.txt");
    // 10 faults are listed, then the rest counted.
    std::size_t i = 0;
    while (i < r.problemes.size() && r.problemes[i].find("2a.txt") == std::string::npos) ++i;
    EXPECT_EQ(r.problemes[i], "mal formé : dico/olbrin/2a.txt, ligne 1 : pas de virgule entre la forme et ses lectures"_cp);
    EXPECT_EQ(r.problemes[i + 10], "mal formé : dico/olbrin/2a.txt : 4 autres lignes fautives"_cp);
}

}  // namespace
}  // namespace telvoris
