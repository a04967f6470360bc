// Files and lines, the clock texts, the number texts and the list of texts.
#include <gtest/gtest.h>

#include <sys/resource.h>

#include <csignal>

#include "core/dialogue.hpp"
#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/liste_textes.hpp"
#include "core/nom_fichier.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"
#include "support/support.hpp"

using namespace telvoris;
using namespace telvoris::test;

namespace {

std::vector<std::string> ToutesLesLignes(std::string_view texte, long long* numero = nullptr) {
    LecteurLignes lecteur(texte);
    std::vector<std::string> r;
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) r.emplace_back(ligne);
    if (numero) *numero = lecteur.Numero();
    return r;
}
using V = std::vector<std::string>;

}  // namespace

TEST(LecteurLignes, FinsDeLigneCrLfCrEtLf) {
    long long n = -1;
    EXPECT_EQ(ToutesLesLignes("a\r\n\r\nb", &n), (V{"a", "", "b"}));
    EXPECT_EQ(n, 3);
    EXPECT_EQ(ToutesLesLignes("a\r\n"), (V{"a"}));
    EXPECT_EQ(ToutesLesLignes("", &n), V{});
    EXPECT_EQ(n, 0);
    EXPECT_EQ(ToutesLesLignes("a\rb\nc\r\nd"), (V{"a", "b", "c", "d"}));
    // LF then CR is two line ends, unlike CR LF.
    EXPECT_EQ(ToutesLesLignes("a\n\rb"), (V{"a", "", "b"}));
    EXPECT_EQ(ToutesLesLignes("\r\n"), (V{""}));
    EXPECT_EQ(ToutesLesLignes("a\r"), (V{"a"}));
}

TEST(EcrivainFichier, CrLfRemplacementEtVidageAuDestructeur) {
    DossierTemporaire d;
    const auto f = d.Chemin() / "sortie.txt";
    Ecrire(f, "ancien contenu bien plus long\r\n");
    {
        EcrivainFichier e(f);
        e.Ecrire("x");
        e.Ligne("y");
        e.Ligne("");
        e.Fermer();
    }
    EXPECT_EQ(Lire(f), "xy\r\n\r\n");

    // An operation that stops on an error never calls Fermer: the file it was replacing stays
    // whole, and no temporary is left beside it.
    const auto g = d.Chemin() / "interrompu.txt";
    Ecrire(g, "version pr\xE9" "c\xE9" "dente\r\n");
    try {
        EcrivainFichier e(g);
        e.Ligne("d\xE9" "but");
        throw ErreurExecution("arrêt");
    } catch (const ErreurExecution&) {
    }
    EXPECT_EQ(Lire(g), "version pr\xE9" "c\xE9" "dente\r\n");
    EXPECT_FALSE(fs::exists(CheminProvisoire(g)));

    // Larger than the buffer, so that a flush happens in the middle.
    const std::string gros(3 << 20, 'z');
    {
        EcrivainFichier e(g);
        e.Ligne(gros);
        e.Ligne("fin");
    }
    EXPECT_EQ(Lire(g), gros + "\r\nfin\r\n");
}

TEST(Fichiers, LectureAbsenteEtNomsCp1252) {
    DossierTemporaire d;
    const auto absent = d.Chemin() / "absent.txt";
    try {
        LireFichier(absent);
        FAIL() << "no error for a missing file";
    } catch (const ErreurExecution& e) {
        const std::string m = e.what();
        EXPECT_NE(m.find("Fichier introuvable"), std::string::npos) << m;
        EXPECT_NE(m.find(absent.string()), std::string::npos) << m;
    }

    const auto p = Chemin(d.Chemin(), "apports_rejetés.txt"_cp);
    EXPECT_EQ(p, d.Chemin() / "apports_rejetés.txt");
    EcrireFichier(p, "\xE9\r\n");
    EXPECT_TRUE(fs::exists(d.Chemin() / "apports_rejetés.txt"));
    EXPECT_EQ(LireFichier(p), "\xE9\r\n");
    EXPECT_EQ(TexteChemin(p), TexteChemin(d.Chemin()) + "/" + std::string("apports_rejetés.txt"_cp));
    EXPECT_EQ(Chemin(d.Chemin(), "sous/x.txt"), d.Chemin() / "sous" / "x.txt");
    EXPECT_EQ(Chemin(d.Chemin(), "sous\\x.txt"), d.Chemin() / "sous" / "x.txt");
}

TEST(Horloge, TextesHeureDateDureeEtHorodatage) {
    const Instant t{2026, 11, 21, 9, 5, 7};
    EXPECT_EQ(TexteHeure(t), "09:05:07");
    EXPECT_EQ(TexteDate(t), "21/11/2026");
    EXPECT_EQ(TexteDate({2026, 1, 2, 0, 0, 0}), "02/01/2026");
    EXPECT_EQ(Horodater(HorlogeFixe({2026, 11, 21, 9, 5, 0})), "261121_0905");
    EXPECT_EQ(Horodater(HorlogeFixe({2030, 1, 2, 23, 59, 59})), "300102_2359");

    HorlogeFixe h({2026, 11, 21, 10, 0, 0});
    EXPECT_EQ(TexteDuree("10:00:00", h), "1 secondes");
    h.Regler({2026, 11, 21, 10, 0, 5});
    EXPECT_EQ(TexteDuree("10:00:00", h), "5 secondes");
    EXPECT_EQ(TexteDuree("10:00:00", h, Copie::Statistiques), " 5 secondes");
    h.Regler({2026, 11, 21, 11, 1, 10});
    EXPECT_EQ(TexteDuree("10:59:50", h), "1 minutes, 20 secondes");
    h.Regler({2026, 11, 22, 1, 0, 30});
    EXPECT_EQ(TexteDuree("23:59:00", h), "1 heures, 1 minutes, 30 secondes");
    EXPECT_EQ(TexteDuree("23:59:00", h, Copie::Statistiques), " 1 heures, 1 minutes, 30 secondes");
    h.Regler({2026, 11, 21, 12, 0, 0});
    EXPECT_EQ(TexteDuree("10:00:00", h), "2 heures");

    const auto i = LireInstant("2026-11-21 09:05:00");
    ASSERT_TRUE(i.has_value());
    EXPECT_EQ(TexteDate(*i), "21/11/2026");
    EXPECT_EQ(TexteHeure(*i), "09:05:00");
    for (const char* mauvais : {"", "2026-11-21", "2026-11-21 09:05", "hier", "2026-xx-21 09:05:00"})
        EXPECT_FALSE(LireInstant(mauvais).has_value()) << mauvais;
}

TEST(Nombres, ArrondiBancaireEtTexteFrancais) {
    EXPECT_EQ(Round(2.5), 2);
    EXPECT_EQ(Round(3.5), 4);
    EXPECT_EQ(Round(-2.5), -2);
    EXPECT_EQ(Round(0.5), 0);
    EXPECT_EQ(Round(1.5), 2);
    EXPECT_EQ(Round(2.4999), 2);
    EXPECT_DOUBLE_EQ(Round(0.125, 2), 0.12);
    EXPECT_DOUBLE_EQ(Round(2.675, 2), 2.68);
    EXPECT_DOUBLE_EQ(Round(1.005, 2), 1.0);

    EXPECT_EQ(FormaterDouble(-0.25), "-0,25");
    EXPECT_EQ(FormaterDouble(3), "3");
    EXPECT_EQ(FormaterDouble(12.5), "12,5");
    EXPECT_EQ(FormaterDouble(0.1 + 0.2), "0,3");
    EXPECT_EQ(FormaterDouble(1e-5), "1E-05");
    EXPECT_EQ(FormaterDouble(1e15), "1E+15");
    EXPECT_EQ(FormaterDouble(123456789012345.0), "123456789012345");
    EXPECT_EQ(FormaterDouble(0), "0");
    EXPECT_EQ(FormaterSingle(1.0f / 3), "0,3333333");

    EXPECT_EQ(LargeurBarre(1, 2), 3367);
    EXPECT_EQ(LargeurBarre(2, 2), 6733);
}

TEST(ListeTextes, ChargementNomsEtLimite) {
    DossierTemporaire d;
    const auto f = d.Chemin() / "REPERTOIRE.txt";
    Ecrire(f, "a\r\n\r\nb\r\n");
    auto l = ChargerListeTextes(f);
    EXPECT_EQ(l.doss_racine, d.Chemin());
    EXPECT_EQ(l.nom, "REPERTOIRE");
    EXPECT_EQ(l.noms, (V{"a", "", "b"}));

    // A list file with an accented name on disk: the name is CP1252 inside.
    const auto g = d.Chemin() / "sous" / "répertoire.txt";
    Ecrire(g, "d\xE9j\xE0\r\n");
    l = ChargerListeTextes(g);
    EXPECT_EQ(l.doss_racine, d.Chemin() / "sous");
    EXPECT_EQ(l.nom, "répertoire"_cp);
    EXPECT_EQ(l.noms, (V{"d\xE9j\xE0"}));

    std::string beaucoup;
    for (std::size_t i = 0; i < MAX_TEXTES; ++i) beaucoup += "x\r\n";
    Ecrire(f, beaucoup);
    EXPECT_EQ(ChargerListeTextes(f).noms.size(), MAX_TEXTES);
    Ecrire(f, beaucoup + "y\r\n");
    EXPECT_THROW(ChargerListeTextes(f), ErreurExecution);

    DialogueScripte dialogue;
    dialogue.fichiers.push_back(g);
    const auto choisie = ChoisirListeTextes(dialogue);
    ASSERT_TRUE(choisie.has_value());
    EXPECT_EQ(choisie->nom, "répertoire"_cp);
    EXPECT_FALSE(ChoisirListeTextes(dialogue).has_value());
}

TEST(NomDeFichierSur, SeparateursPointsEtCaracteresInterdits) {
    EXPECT_EQ(NomDeFichierSur("Le_Monde_2005_01_03"), "Le_Monde_2005_01_03");
    EXPECT_EQ(NomDeFichierSur("Sud_Ouest_/_Bordeaux"), "Sud_Ouest___Bordeaux");
    EXPECT_EQ(NomDeFichierSur("../../x"), "______x");
    EXPECT_EQ(NomDeFichierSur("a...b"), "a__.b");  // no ".." left, the odd dot stays
    EXPECT_EQ(NomDeFichierSur("..."), "__.");
    EXPECT_EQ(NomDeFichierSur("."), "_");
    EXPECT_EQ(NomDeFichierSur(""), "_");
    EXPECT_EQ(NomDeFichierSur("a\\b:c*d?e\"f<g>h|i\tj"), "a_b_c_d_e_f_g_h_i_j");
    EXPECT_EQ(NomDeFichierSur("N\xB0" "1 r\xE9gion.txt"), "N\xB0" "1 r\xE9gion.txt");  // CP1252 letters stay
    // Whatever the name, it stays one component of its folder.
    for (const char* nom : {"..", "../", "/..", "a/../..", "\\..\\", "...."}) {
        const fs::path p = Chemin("/base", NomDeFichierSur(nom));
        EXPECT_EQ(p.parent_path(), fs::path("/base")) << nom;
        EXPECT_NE(p.filename(), "..") << nom;
    }
}

// A disk that fills up in the middle of a write: the file size limit of the process stands in
// for it, so that the failure comes from the system's own write call.
TEST(EcrivainFichier, EcritureEchoueeLaisseLAncienFichierEntier) {
    DossierTemporaire d;
    const auto f = d.Chemin() / "texte.txt";
    const std::string ancien = "ancien texte\r\n";
    Ecrire(f, ancien);
    const auto copie = d.Chemin() / "copie.txt";
    Ecrire(copie, ancien);

    struct rlimit avant {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &avant), 0);
    auto* gestion = std::signal(SIGXFSZ, SIG_IGN);
    struct rlimit petite = avant;
    petite.rlim_cur = 100000;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &petite), 0);
    const std::string gros(300000, 'z');
    const std::string message = MessageErreur([&] {
        EcrivainFichier e(f);
        e.Ligne(gros);
        e.Fermer();
    });
    const std::string message2 = MessageErreur([&] { EcrireFichier(copie, gros, true); });
    setrlimit(RLIMIT_FSIZE, &avant);
    std::signal(SIGXFSZ, gestion);

    EXPECT_EQ(message, "Écriture impossible dans le fichier : " + f.generic_string());
    EXPECT_EQ(message2, "Écriture impossible dans le fichier : " + copie.generic_string());
    EXPECT_EQ(Lire(f), ancien);
    EXPECT_EQ(Lire(copie), ancien);
    EXPECT_FALSE(fs::exists(CheminProvisoire(f)));
    EXPECT_FALSE(fs::exists(CheminProvisoire(copie)));

    // A temporary that cannot be created (a folder stands in its place): the old file is untouched.
    fs::create_directory(CheminProvisoire(f));
    EXPECT_EQ(MessageErreur([&] { EcrireFichier(f, "neuf"); }),
              "Impossible de créer le fichier : " + f.generic_string());
    EXPECT_EQ(Lire(f), ancien);
    fs::remove(CheminProvisoire(f));

    // A copy replaces its target whole too, and a journal line is appended, not rewritten.
    Ecrire(d.Chemin() / "source.txt", "source\r\n");
    CopierFichier(d.Chemin() / "source.txt", copie);
    EXPECT_EQ(Lire(copie), "source\r\n");
    AjouterLigneDurable(d.Chemin() / "journal.txt", "un");
    AjouterLigneDurable(d.Chemin() / "journal.txt", "deux");
    EXPECT_EQ(Lire(d.Chemin() / "journal.txt"), "un\r\ndeux\r\n");
}
