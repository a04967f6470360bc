// The per-text stages run on several threads give, file for file and byte for byte, what one
// thread gives: the texts, the derived files, the backups and records, the counts, the messages
// and the progress, and on an error in a middle text the same message and the same files left.
#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/parallele.hpp"
#include "pipeline/arbre_etiquetage.hpp"
#include "pipeline/automate.hpp"
#include "pipeline/indexeur.hpp"
#include "pipeline/marquage_composes.hpp"
#include "pipeline/segmenteur.hpp"

namespace telvoris {
namespace {

using test::DossierTemporaire;
using test::Lignes;
using test::Arbo;
using test::Lire;

// What a run leaves and says.
struct Issue {
    std::map<std::string, std::string> arbre;
    std::vector<std::string> messages, libelles;
    std::string erreur;
};

using Operation = void (*)(Contexte&);

// Builds a corpus with `construire` in a fresh folder (which returns its list file), runs `op` on
// `fils` threads, and gathers what it left.
Issue Lancer(Operation op, const fs::path& ressources, unsigned fils,
             const std::function<fs::path(const fs::path&)>& construire) {
    DossierTemporaire corpus;
    const fs::path liste = construire(corpus.Chemin());
    test::DialogueScripte d;
    d.fichiers.push_back(liste);
    HorlogeFixe h({2026, 11, 21, 10, 0, 0});
    Contexte ctx{d, h, ressources, fils};
    Issue r;
    try {
        op(ctx);
        r.erreur = "(aucune erreur)";
    } catch (const ErreurExecution& e) {
        r.erreur = e.what();
    } catch (const FinProgramme& e) {
        r.erreur = std::string("fin : ") + e.what();
    }
    // The temporary folder's own name differs from run to run; the messages name files in it.
    const std::string racine = corpus.Chemin().string();
    for (std::size_t p; (p = r.erreur.find(racine)) != std::string::npos;) r.erreur.replace(p, racine.size(), "<corpus>");
    r.arbre = Arbo(corpus.Chemin());
    r.messages = d.messages;
    r.libelles = d.libelles;
    return r;
}

// The run on 2, 3 and 8 threads against the run on one; returns the one-thread run.
Issue Comparer(Operation op, const fs::path& ressources, const std::function<fs::path(const fs::path&)>& construire) {
    const Issue un = Lancer(op, ressources, 1, construire);
    for (unsigned fils : {2u, 3u, 8u}) {
        SCOPED_TRACE("fils : " + std::to_string(fils));
        const Issue n = Lancer(op, ressources, fils, construire);
        EXPECT_EQ(n.erreur, un.erreur);
        EXPECT_EQ(n.messages, un.messages);
        EXPECT_EQ(n.libelles, un.libelles);
        EXPECT_EQ(n.arbre.size(), un.arbre.size());
        for (const auto& [chemin, octets] : un.arbre) {
            const auto it = n.arbre.find(chemin);
            if (it == n.arbre.end()) {
                ADD_FAILURE() << chemin << " manque";
                continue;
            }
            EXPECT_TRUE(it->second == octets) << chemin << " diffère";
        }
        for (const auto& [chemin, octets] : n.arbre)
            if (!un.arbre.count(chemin)) ADD_FAILURE() << chemin << " en trop";
    }
    return un;
}

// A line of more tokens than a line may hold.
std::string LigneTropLongue(std::string_view jeton) {
    std::string r;
    for (int i = 0; i <= 50000; ++i) r.append(jeton);
    return r;
}

const std::vector<std::string> kNoms = {"t1", "t2", "t3", "t4", "t5", "t6", "t7"};

// Raw texts of some length each, different from text to text, with several partitions.
std::string TexteBrut(int k) {
    std::vector<std::string> l = {std::string("Une ligne avant toute métadonnée."_cp)};
    for (int p = 0; p < 3; ++p) {
        l.push_back("<QORX_ATTR JOURNAL=J" + std::to_string(k) + " DATE=2024-0" + std::to_string(p + 1) + " >");
        for (int i = 0; i < 40 * k; ++i)
            l.push_back(std::string("L'été, aujourd'hui, M. Dupont a-t-il vu le porte-parole à 12,5 % ? Voir www.ex.fr"_cp) +
                        " n" + std::to_string(i) + " <br> fin-");
    }
    return Lignes(l);
}

fs::path CorpusBrut(const fs::path& racine, int erreur, bool manquant) {
    for (int k = 1; k <= 7; ++k) {
        std::string t = TexteBrut(k);
        if (k == erreur) t += Lignes({"encore", LigneTropLongue("a "), "jamais lu"});
        if (!(manquant && k == erreur)) test::Ecrire(racine / "ARCHIVE_BRUT" / (kNoms[k - 1] + ".txt"), t);
    }
    test::Ecrire(racine / "liste.txt", Lignes(kNoms));
    return racine / "liste.txt";
}

TEST(Fils, SegmentationEtIndexationIdentiques) {
    const fs::path res = test::RessourcesTest();
    const Issue ok = Comparer(OperationSegmentation, res, [](const fs::path& r) { return CorpusBrut(r, 0, false); });
    EXPECT_EQ(ok.erreur, "(aucune erreur)");
    EXPECT_EQ(ok.arbre.count("OLBRIN_TT/LEXINDEX/t7.txt"), 1u);
    EXPECT_EQ(ok.arbre.count("OLBRIN_TT/#SEGMENTATION_EN_COURS.txt"), 0u);

    // A line too long in the fourth text: the three before are segmented, nothing else is.
    const Issue longue = Comparer(OperationSegmentation, res, [](const fs::path& r) { return CorpusBrut(r, 4, false); });
    EXPECT_NE(longue.erreur.find("MAX_JETONS_LIGNE"), std::string::npos) << longue.erreur;
    EXPECT_NE(longue.erreur.find("ARCHIVE_BRUT/t4.txt, ligne " + std::to_string(1 + 3 * (1 + 160) + 2)),
              std::string::npos)
        << longue.erreur;
    EXPECT_EQ(longue.arbre.count("OLBRIN_TT/t3.txt"), 1u);
    EXPECT_EQ(longue.arbre.count("OLBRIN_TT/t4.txt"), 0u);
    EXPECT_EQ(longue.arbre.count("OLBRIN_TT/t5.txt"), 0u);
    EXPECT_EQ(longue.arbre.count("OLBRIN_TT/#SEGMENTATION_EN_COURS.txt"), 1u);

    // A raw text missing in the middle: the same.
    const Issue manque = Comparer(OperationSegmentation, res, [](const fs::path& r) { return CorpusBrut(r, 4, true); });
    EXPECT_NE(manque.erreur.find("ARCHIVE_BRUT/t4.txt"), std::string::npos) << manque.erreur;
    EXPECT_EQ(manque.arbre.count("OLBRIN_TT/t5.txt"), 0u);

    // Re-indexing with a tagged text gone from the middle: the derived files of the texts before
    // it are written, none of the texts after it.
    const Issue reindex = Comparer(OperationReindexation, res, [&](const fs::path& r) {
        const fs::path liste = CorpusBrut(r, 0, false);
        test::DialogueScripte d;
        Segmenter(ChargerListeTextes(liste), ChargerListesSegmentation(res), d, 1);
        fs::remove(r / "OLBRIN_TT/t5.txt");
        return liste;
    });
    EXPECT_NE(reindex.erreur.find("OLBRIN_TT/t5.txt"), std::string::npos) << reindex.erreur;
    EXPECT_EQ(reindex.arbre.count("OLBRIN_TT/LEXINDEX/t4.txt"), 1u);
    EXPECT_EQ(reindex.arbre.count("OLBRIN_TT/LEXINDEX/t6.txt"), 0u);
    EXPECT_EQ(reindex.libelles.back(), "Segmentation. Fichier5 de 7");

    // A name listed several times, its texts under way together on several threads: each run
    // leaves the files once, and no provisional file behind.
    const Issue repete = Comparer(OperationSegmentation, res, [](const fs::path& r) {
        CorpusBrut(r, 0, false);
        test::Ecrire(r / "liste.txt", Lignes({"t2", "t2", "t1", "t2", "t2", "t2", "t3", "t2"}));
        return r / "liste.txt";
    });
    EXPECT_EQ(repete.erreur, "(aucune erreur)");
    EXPECT_EQ(repete.arbre.count("OLBRIN_TT/TEXTE_NU/t2.txt"), 1u);
    for (const auto& [chemin, octets] : repete.arbre) EXPECT_EQ(chemin.find(".tmp"), std::string::npos) << chemin;

    // More threads than texts.
    const Issue seul = Comparer(OperationSegmentation, res, [](const fs::path& r) {
        test::Ecrire(r / "ARCHIVE_BRUT/u.txt", TexteBrut(1));
        test::Ecrire(r / "liste.txt", Lignes({"u"}));
        return r / "liste.txt";
    });
    EXPECT_EQ(seul.arbre.count("OLBRIN_TT/METADONNEES/u.txt"), 1u);
}

test::ContenuArbre ArbreEtiquetage() {
    test::ContenuArbre a;
    a.dico = {"il,.P", "le,.DMS:ms/.P", "chat,.SM:s", "porte,.SF:s/0r.V:1a", "mange,0r.V:1a/0r.V:3a/0r.V:2i",
              "de,.BX/.DS:x", "terre,.SF:s", "pomme,.SF:s", "elle,.P", "la,.DFS:fs/.P"};
    a.composes = {"pomme de,.SF:s", "pomme de terre,.SF:s"};
    a.preverb = {"il\t3\t1", "elle\t3\t1"};
    return a;
}

// Tagged texts that differ from text to text, so that the case index gathers cases from each.
std::string TexteEtiquete(int k) {
    std::vector<std::string> l;
    const std::vector<std::string> phrases = {
        "<M f=Il >Il <M f=mange >mange <M f=le >le <M f=chat >chat<PC f=. l=. >.",
        "<M f=la >la <M f=pomme >pomme <M f=de >de <M f=terre >terre <M f=porte >porte",
        "<M f=elle >elle <M f=porte >porte <M f=Pierre >Pierre <M f=12,5 >12,5 <M >",
        "<M f=le >le <M f=chat >chat <M f=porte >porte <M f=pomme >pomme <M f=de >de",
        "<M f=Pomme >Pomme <M f=de >de <M f=Terre >Terre <M f=inconnu >inconnu"};
    for (int p = 0; p < 2; ++p) {
        l.push_back("<QORX_ATTR T=" + std::to_string(k) + " P=" + std::to_string(p) + " >");
        for (int i = 0; i < 30 * k; ++i) l.push_back(phrases[static_cast<std::size_t>((i * k + p) % 5)]);
        l.push_back("");
    }
    return Lignes(l);
}

fs::path CorpusEtiquete(const fs::path& racine, int erreur, const std::string& ligneErreur) {
    std::map<std::string, std::string> textes;
    for (int k = 1; k <= 7; ++k) {
        std::string t = TexteEtiquete(k);
        if (k == erreur) t += ligneErreur;
        textes[kNoms[k - 1]] = t;
    }
    return test::ConstruireCorpus(racine, textes);
}

TEST(Fils, ComposesEtPasseAutomatiqueIdentiques) {
    DossierTemporaire arbre;
    test::ConstruireArbre(arbre.Chemin(), ArbreEtiquetage());
    const fs::path res = arbre.Chemin();
    const std::string longue = Lignes({LigneTropLongue("<M f=a >a ")});

    const Issue cmp = Comparer(OperationComposes, res, [](const fs::path& r) { return CorpusEtiquete(r, 0, ""); });
    EXPECT_EQ(cmp.erreur, "(aucune erreur)");
    ASSERT_EQ(cmp.messages.size(), 1u);
    EXPECT_NE(cmp.messages[0].find(std::string(" composés N"_cp)), std::string::npos);
    EXPECT_EQ(cmp.arbre.count("OLBRIN_TT/AVANT_COMP/t7.txt"), 1u);

    // The error in the fourth text: its backup is written and it leaves the record, which lists
    // the three texts before it, as one thread leaves them.
    const Issue cmpErr = Comparer(OperationComposes, res, [&](const fs::path& r) { return CorpusEtiquete(r, 4, longue); });
    EXPECT_NE(cmpErr.erreur.find("MAX_JETONS_LIGNE"), std::string::npos) << cmpErr.erreur;
    EXPECT_EQ(cmpErr.arbre.at("OLBRIN_TT/#EN_COURS_AVANT_COMP.txt"),
              Lignes({std::string("#EN_COURS\tComposés"_cp), "t1", "t2", "t3"}));
    EXPECT_EQ(cmpErr.arbre.count("OLBRIN_TT/AVANT_COMP/t4.txt"), 1u);
    EXPECT_EQ(cmpErr.arbre.count("OLBRIN_TT/AVANT_COMP/t5.txt"), 0u);

    const Issue aup =
        Comparer(OperationPasseAutomatique, res, [](const fs::path& r) { return CorpusEtiquete(r, 0, ""); });
    EXPECT_EQ(aup.erreur, "(aucune erreur)");
    EXPECT_EQ(aup.messages.size(), 2u);
    EXPECT_GT(aup.arbre.at("OLBRIN_TT/#INDEX_ms.txt").size(), 0u);

    // Too many readings on the second line of the added lines, a line too long for dictionary
    // application on the third: the first in line order is the one reported, as one thread does.
    std::string trop = "<M f=x l=.SM:s";
    for (int i = 1; i <= 10; ++i) trop += "/0r.V:" + std::to_string(i % 6 + 1) + "a";
    const std::string deuxErreurs = Lignes({"<M f=chat >chat", trop + " >x", LigneTropLongue("<M f=a >a ")});
    const Issue aupErr = Comparer(OperationPasseAutomatique, res,
                                  [&](const fs::path& r) { return CorpusEtiquete(r, 4, deuxErreurs); });
    const int ligneTrop = 2 * (1 + 120 + 1) + 2;
    EXPECT_NE(aupErr.erreur.find("AVANT_AUTOMATE_SIMPLES/t4.txt, ligne " + std::to_string(ligneTrop) + ")"),
              std::string::npos)
        << aupErr.erreur;
    EXPECT_EQ(aupErr.arbre.at("OLBRIN_TT/#EN_COURS_AVANT_AUTOMATE_SIMPLES.txt"),
              Lignes({"#EN_COURS\tPasse automatique", "t1", "t2", "t3"}));
    EXPECT_EQ(aupErr.arbre.at("OLBRIN_TT/t4.txt"), TexteEtiquete(4) + deuxErreurs);
    EXPECT_EQ(aupErr.arbre.at("OLBRIN_TT/t5.txt"), TexteEtiquete(5));
    EXPECT_EQ(aupErr.arbre.count("OLBRIN_TT/#INDEX_ms.txt"), 0u);

    // Dictionary application failing alone: its line is named.
    const Issue aupDico = Comparer(OperationPasseAutomatique, res,
                                   [&](const fs::path& r) { return CorpusEtiquete(r, 6, Lignes({"<M f=chat >chat"}) + longue); });
    EXPECT_NE(aupDico.erreur.find("AVANT_AUTOMATE_SIMPLES/t6.txt, ligne " + std::to_string(2 * (1 + 180 + 1) + 2) + ")"),
              std::string::npos)
        << aupDico.erreur;
    EXPECT_EQ(aupDico.arbre.count("OLBRIN_TT/AVANT_AUTOMATE_SIMPLES/t7.txt"), 0u);

    // A name listed again: its second turn reads what its first turn wrote, as one thread does.
    auto repete = [](const fs::path& r) {
        CorpusEtiquete(r, 0, "");
        test::Ecrire(r / "liste.txt", Lignes({"t2", "t5", "t2", "t1", "t2", "t3"}));
        return r / "liste.txt";
    };
    for (const auto& [op, sauvegarde] : {std::pair<Operation, const char*>{OperationComposes, "AVANT_COMP"},
                                         std::pair<Operation, const char*>{OperationPasseAutomatique, "AVANT_AUTOMATE_SIMPLES"}}) {
        const Issue r = Comparer(op, res, repete);
        EXPECT_EQ(r.erreur, "(aucune erreur)");
        EXPECT_EQ(r.arbre.count("OLBRIN_TT/t4.txt"), 1u);
        // The backup its last turn made is the text its turn before wrote, not the original.
        const std::string sauve = r.arbre.at("OLBRIN_TT/" + std::string(sauvegarde) + "/t2.txt");
        EXPECT_NE(sauve, TexteEtiquete(2)) << sauvegarde;
        EXPECT_EQ(r.arbre.at("OLBRIN_TT/" + std::string(sauvegarde) + "/t5.txt"), TexteEtiquete(5));
    }
}

// The ordered delivery itself: every result in list order whatever the threads' pace, an error
// thrown where its text comes and nothing delivered after it.
TEST(Fils, LivraisonDansLOrdre) {
    for (unsigned fils : {1u, 2u, 5u, 16u}) {
        SCOPED_TRACE(fils);
        std::vector<std::size_t> annonces, livres;
        TraiterDansLOrdre<std::size_t>(
            40, fils, [&](std::size_t i) { annonces.push_back(i); },
            [](std::size_t i, unsigned) {
                volatile std::size_t x = 0;
                for (std::size_t k = 0; k < (40 - i) * 20000; ++k) x = x + k;
                return i * i;
            },
            [&](std::size_t i, std::size_t& r) {
                EXPECT_EQ(r, i * i);
                livres.push_back(i);
            });
        ASSERT_EQ(livres.size(), 40u);
        for (std::size_t i = 0; i < 40; ++i) EXPECT_EQ(livres[i], i);
        EXPECT_EQ(annonces, livres);

        livres.clear();
        annonces.clear();
        try {
            TraiterDansLOrdre<int>(
                30, fils, [&](std::size_t i) { annonces.push_back(i); },
                [](std::size_t i, unsigned) -> int {
                    if (i == 7 || i == 20) throw ErreurExecution("texte " + std::to_string(i));
                    return 0;
                },
                [&](std::size_t i, int&) { livres.push_back(i); });
            ADD_FAILURE();
        } catch (const ErreurExecution& e) {
            EXPECT_EQ(std::string(e.what()), "texte 7");
        }
        EXPECT_EQ(livres, (std::vector<std::size_t>{0, 1, 2, 3, 4, 5, 6}));
        EXPECT_EQ(annonces.back(), 7u);

        // An error of the delivery stops the threads as well.
        EXPECT_THROW(TraiterDansLOrdre<int>(
                         100, fils, [](std::size_t) {}, [](std::size_t, unsigned) { return 1; },
                         [](std::size_t i, int&) {
                             if (i == 3) throw FinProgramme("arrêt");
                         }),
                     FinProgramme);
    }
    EXPECT_GE(FilsParDefaut(), 1u);
    EXPECT_EQ(FilsEffectifs(0), FilsParDefaut());
    EXPECT_EQ(FilsEffectifs(3), 3u);
}

}  // namespace
}  // namespace telvoris

namespace telvoris {
namespace {

// A file written by a worker appears under its name only when put in place; one dropped, or one
// that cannot be created, leaves nothing behind.
TEST(Fils, FichierEnAttente) {
    test::DossierTemporaire d;
    const fs::path cible = d.Chemin() / "t.txt";
    test::Ecrire(cible, "ancien");
    {
        FichierEnAttente f(cible, "nouveau", 3);
        EXPECT_EQ(Lire(cible), "ancien");
        EXPECT_EQ(Lire(d.Chemin() / ".t.txt.3.tmp"), "nouveau");
        FichierEnAttente g(cible, "autre", 4);
        // Moved into the list of a text, then dropped with it: an error came before its turn.
        std::vector<FichierEnAttente> liste;
        liste.push_back(std::move(g));
        liste.clear();
        f.Publier();
    }
    EXPECT_EQ(Lire(cible), "nouveau");
    EXPECT_EQ(Arbo(d.Chemin()).size(), 1u);
    { FichierEnAttente f(cible, "perdu", 0); }
    EXPECT_EQ(Lire(cible), "nouveau");
    EXPECT_EQ(Arbo(d.Chemin()).size(), 1u);
    EXPECT_EQ(test::MessageErreur([&] { FichierEnAttente f(d.Chemin() / "absent" / "u.txt", "x", 1); }),
              "Impossible de créer le fichier : " + (d.Chemin() / "absent" / "u.txt").string());
}

}  // namespace
}  // namespace telvoris
