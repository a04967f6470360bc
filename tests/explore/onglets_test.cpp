#include "explore/carte_accueil.hpp"
#include "explore/onglet_dictionnaire.hpp"

#include <gtest/gtest.h>

#include "core/texte.hpp"
#include "vues_corpus.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;

TEST(OngletDictionnaire, LabelsRechercheEtListes) {
    DossierTemporaire dossier;
    EtatCorpus etat = test::OuvrirCorpusVues(test::CorpusVues(dossier.Chemin()));
    OngletDictionnaire o(etat.PATH_INDEX);
    // At validation: the frequency dictionaries; letters whose file is empty are not offered.
    EXPECT_EQ(o.Vue(false).marque, 0);
    EXPECT_EQ(o.Vue(false).texte, "3\tchat\r\n2\tle\r\n1\tdort\r\n1\tla\r\n1\tmaison\r\n1\trouge\r\n1\tun\r\n1\tvoit\r\n");
    EXPECT_TRUE(o.Vue(false).disponible[3]);    // C
    EXPECT_FALSE(o.Vue(false).disponible[1]);   // A
    EXPECT_TRUE(o.Vue(false).disponible[23]);   // W
    EXPECT_TRUE(o.Vue(true).disponible[12]);    // L: le_DA
    EXPECT_TRUE(o.Vue(true).disponible[3]);     // chat_SM
    EXPECT_FALSE(o.Vue(true).disponible[1]);
    EXPECT_FALSE(o.Choisir(false, 1));
    EXPECT_EQ(o.Vue(false).marque, 0);
    EXPECT_EQ(FichierLabel(23, true), "W_LEMMES.txt");
    EXPECT_EQ(FichierLabel(0, false), "FREQUENTIEL_FORMES.txt");

    // The frequency dictionary is not searched.
    EXPECT_FALSE(o.Chercher(false, "le"));
    ASSERT_TRUE(o.Choisir(false, 12));
    EXPECT_EQ(o.Vue(false).texte, "1\tla\r\n2\tle\r\n");
    EXPECT_TRUE(o.Chercher(false, "LE"));  // folded
    EXPECT_EQ(o.Vue(false).curseur, 7);
    EXPECT_FALSE(o.Chercher(false, "lu"));  // the cursor stays
    EXPECT_EQ(o.Vue(false).curseur, 7);
    EXPECT_FALSE(o.Chercher(false, ""));

    // Clicks anywhere on a line take its word; no second line for a word already there, and
    // the first line of the list is found too.
    ListesMots l;
    EXPECT_EQ(o.MotEn(false, 0), "la");
    EXPECT_EQ(o.MotEn(false, 5), "la");  // on the CR
    EXPECT_EQ(o.MotEn(false, 7), "le");
    EXPECT_EQ(o.MotEn(false, 13), "");   // past the last line
    o.Cliquer(false, 2, l);
    o.Cliquer(false, 9, l);
    o.Cliquer(false, 3, l);
    o.Cliquer(false, 10, l);
    EXPECT_EQ(l.LISTE_FORMES, "la\r\nle\r\n");
    EXPECT_TRUE(l.LISTE_LEMMES.empty());
    EXPECT_FALSE(AjouterSansRepeter(l.LISTE_FORMES, "la"));
    EXPECT_TRUE(AjouterSansRepeter(l.LISTE_FORMES, "l"));
    EXPECT_TRUE(AjouterSansRepeter(l.LISTE_FORMES, "a"));  // "la" holds "a", not as a line
    EXPECT_EQ(l.LISTE_FORMES, "la\r\nle\r\nl\r\na\r\n");

    // The lemma side, and a double click that sends the word to the panel.
    ASSERT_TRUE(o.Choisir(true, 3));
    EXPECT_EQ(o.Vue(true).texte, "3\tchat_SM\r\n");
    o.Cliquer(true, 0, l);
    EXPECT_EQ(l.LISTE_LEMMES, "chat_SM\r\n");
    const auto envoi = o.DoubleCliquer(false, 8, l);
    ASSERT_TRUE(envoi);
    EXPECT_EQ(envoi->mot, "le");
    EXPECT_FALSE(envoi->lemme);
    EXPECT_EQ(l.LISTE_FORMES, "le\r\n");

    // smn_rq fills the panel from the lists unless the field is in use; the list commands.
    PanneauRequete panneau;
    RemplirDepuisListes(panneau, l);
    EXPECT_EQ(panneau.multiple, "le\r\n");
    EXPECT_EQ(panneau.lemlist, "chat_SM\r\n");
    EXPECT_EQ(panneau.option, 3);
    ListesMots autres{"chat\r\n", ""};
    RemplirDepuisListes(panneau, autres);
    EXPECT_EQ(panneau.multiple, "le\r\n");
    panneau.option = 1;
    const ParametresRequete p = ParametresDuPanneau(panneau);
    EXPECT_EQ(p.type, TypeSaisie::ListeFormes);
    EXPECT_EQ(p.saisie, "le\r\n");
    ListeEditee(l, 0) = "rouge\r\n";
    ListeEditee(l, 1) += "le_DA\r\n";
    EXPECT_EQ(l.LISTE_FORMES, "rouge\r\n");
    EXPECT_EQ(l.LISTE_LEMMES, "chat_SM\r\nle_DA\r\n");
    ViderListeLemmes(l);
    EXPECT_TRUE(l.LISTE_LEMMES.empty());
    ViderListeFormes(l);
    EXPECT_TRUE(l.LISTE_FORMES.empty());

    // A list built here runs as a query.
    test::DialogueScripte d;
    Requete r;
    ParametresRequete q;
    q.type = TypeSaisie::ListeFormes;
    q.saisie = "chat\r\nrouge\r\n";
    ASSERT_TRUE(LancerRequete(etat, q, r, d));
    EXPECT_EQ(r.LIBELLE, "chat_LISTE");
    EXPECT_EQ(r.occ.size(), 4u);
}

TEST(CarteAccueil, ChargementClicsZoomEtGroupes) {
    DossierTemporaire dossier;
    const auto fichier = dossier.Chemin() / "carte.txt";
    test::Ecrire(fichier, test::Lignes({"**1\xA4" "45,5", "", "**2\xA4" "20,1", "***3\xA4" "9", "sans tabulation",
                                        "1\t5000\t300", "2\t100\t-200", "chat\t9990\t100", "maison_SF\t4000\t50",
                                        "12\t3000\t3000", "rouge_Jx\t10\t10"}));
    CarteAccueil c;
    c.Charger(fichier);
    ASSERT_EQ(c.NB_ITEMS(), 6);
    EXPECT_EQ(c.NB_LIGNES, 2);  // digits only, as long as they last
    EXPECT_EQ(c.info, "Axe horizontal. Facteur 1. Inertie = 45,5%. --- Axe vertical. Facteur 2. Inertie = 20,1%.");
    EXPECT_EQ(c.titreLignes, "2 lignes");
    EXPECT_EQ(c.titreColonnes, "4 colonnes");
    // Labels centred on x (widths 100 a character plus 60), kept inside the field.
    EXPECT_EQ(c.items[0].x, 4920);
    EXPECT_EQ(c.items[1].x, 20);
    EXPECT_EQ(c.items[1].y, -200);
    EXPECT_EQ(c.items[2].x, 9340);  // 9760 + 460 reaches 10000
    EXPECT_EQ(c.items[5].x, 0);
    EXPECT_EQ(c.items[0].gaucheMini, 738);
    EXPECT_EQ(c.items[0].hautMini, 45);
    EXPECT_EQ(c.SurplusLignes(), 0);

    ListesMots l;
    EXPECT_FALSE(c.Cliquer(1, l));
    EXPECT_TRUE(c.Cliquer(3, l));
    EXPECT_TRUE(c.Cliquer(4, l));
    EXPECT_TRUE(c.Cliquer(5, l));
    EXPECT_TRUE(c.Cliquer(6, l));
    EXPECT_FALSE(c.Cliquer(3, l));
    EXPECT_FALSE(c.Cliquer(7, l));
    EXPECT_EQ(l.LISTE_FORMES, "chat\r\n12\r\nrouge_Jx\r\n");
    EXPECT_EQ(l.LISTE_LEMMES, "maison_SF\r\n");

    c.BasculerGroupe(false);
    EXPECT_FALSE(c.items[0].visible);
    EXPECT_TRUE(c.items[2].visible);
    EXPECT_EQ(c.CouleurFond(false, 255), BLANC);
    EXPECT_EQ(c.CouleurFond(true, 255), 255);
    c.BasculerGroupe(true);
    EXPECT_FALSE(c.items[5].visible);
    c.BasculerGroupe(false);
    EXPECT_TRUE(c.items[1].visible);
    c.Rafraichir();
    EXPECT_TRUE(c.items[5].visible);

    c.Zoomer(500, 1000, 2);  // point of view (450, 900)
    EXPECT_TRUE(c.EST_ZOOM);
    EXPECT_EQ(c.items[0].Gauche(), 8940);
    EXPECT_EQ(c.items[0].Haut(), -1200);
    EXPECT_EQ(c.regle1, 120);
    EXPECT_EQ(c.regle2, 420);
    c.Zoomer(0, 0, 3);
    EXPECT_FALSE(c.EST_ZOOM);
    EXPECT_EQ(c.items[0].Gauche(), 4920);

    // Five columns stop the load and leave the map as it was.
    test::Ecrire(fichier, test::Lignes({"1\t10\t20", "chat\t10\t20\t1\t2"}));
    EXPECT_EQ(test::MessageErreur([&] { c.Charger(fichier); }),
              "Conversion impossible dans " + fichier.string() +
                  ", ligne 2 : une ligne de carte porte un libellé, une abscisse et une ordonnée entières, séparés par une "
                  "tabulation.");
    EXPECT_EQ(c.NB_ITEMS(), 6);
    test::Ecrire(fichier, "");
    c.Charger(fichier);
    EXPECT_EQ(c.NB_ITEMS(), 0);
    EXPECT_EQ(c.titreLignes, "0 lignes");
    EXPECT_TRUE(c.titreColonnes.empty());
}

TEST(MotsNonIndexes, RequeteSurUnMotCourtEtFrequent) {
    DossierTemporaire dossier;
    EtatCorpus etat = test::OuvrirCorpusVues(test::CorpusVues(dossier.Chemin(), {"le", "Le"}));
    // An index that keeps no counts of its short frequent words, as older ones.
    std::filesystem::remove_all(etat.PATH_INDEX / "LEXINDEX_COURTS");
    test::DialogueScripte d;
    Requete r;
    ParametresRequete p;
    p.saisie = "le";
    ASSERT_TRUE(LancerRequete(etat, p, r, d));
    // The index gave "le" the positions of "voit": none is shown.
    EXPECT_TRUE(r.occ.empty());
    EXPECT_EQ(r.nonIndexees, (std::vector<std::string>{"Le", "le"}));
    ASSERT_EQ(d.messages.size(), 1u);
    EXPECT_EQ(Cp1252VersUtf8(d.messages[0]),
              "Les occurrences des formes « Le », « le » ne sont pas indexées : ce sont des mots courts et fréquents, "
              "dont l'index ne garde pas les positions. Elles ne peuvent être ni comptées ni montrées.");
    p.casse = true;
    ASSERT_TRUE(LancerRequete(etat, p, r, d));
    EXPECT_EQ(Cp1252VersUtf8(d.messages.back()),
              "Les occurrences de la forme « le » ne sont pas indexées : ce sont des mots courts et fréquents, "
              "dont l'index ne garde pas les positions. Elles ne peuvent être ni comptées ni montrées.");
    // Other words are found as before.
    p.saisie = "voit";
    ASSERT_TRUE(LancerRequete(etat, p, r, d));
    ASSERT_EQ(r.occ.size(), 1u);
    EXPECT_EQ(r.occ[0].pos, 10);
    EXPECT_TRUE(r.nonIndexees.empty());
}

}  // namespace
}  // namespace telvoris
