#include "stats/sequences_mois.hpp"

#include <algorithm>
#include <map>
#include <unordered_map>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/hachage.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/liste_textes.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"
#include "stats/casier_lexique.hpp"
#include "stats/commun.hpp"
#include "stats/fichiers_stats.hpp"
#include "stats/sequences.hpp"

namespace telvoris {

using namespace stats;
namespace fs = std::filesystem;

std::string MoisDuTexte(std::string_view nom) {
    const auto champs = Decouper(nom, "_");
    const auto chiffres = [](std::string_view t) {
        return !t.empty() && std::all_of(t.begin(), t.end(), [](char c) { return c >= '0' && c <= '9'; });
    };
    const std::size_t n = champs.size();
    // "<JOURNAL>_aaaa-mm-jj", as the press import names its texts.
    const std::string_view dernier = champs[n - 1];
    if (n >= 2 && dernier.size() == 10 && dernier[4] == '-' && dernier[7] == '-' && chiffres(dernier.substr(0, 4)) &&
        chiffres(dernier.substr(5, 2)) && chiffres(dernier.substr(8, 2)))
        return std::string(dernier.substr(0, 7));
    // "<JOURNAL>_aaaa_mm_jj".
    if (n >= 4 && chiffres(champs[n - 3]) && chiffres(champs[n - 2]) && chiffres(dernier))
        return Joindre(champs[n - 3], "_", champs[n - 2]);
    return "SANS_DATE";
}

namespace {

// The counting of one index file into the table: forms through the normaliser.
void CompterIndex(const fs::path& fichier, CasierLexique& casier, std::string& tampon) {
    std::string item;
    PourChaqueLigneNonVide(fichier, tampon, [&](std::string_view ligne) {
        if (ligne == SEPARATEUR_PARTITIONS) return;
        const auto champ2 = Champ(ligne, 2);
        if (!champ2) throw ErreurExecution(Joindre("Ligne d'index sans effectif : « "_cp, ligne, " » ("_cp, TexteChemin(fichier), ")"));
        const long long n = LireEntier(*champ2, TexteChemin(fichier));
        ItemDuJeton(LireAttributs(*Champ(ligne, 1)), 0, false, item);
        if (!item.empty()) casier.Ajouter(item, n);
    });
}

void SequencesPremierePasse(Contexte& ctx, std::string_view libelle) {
    Dialogue& d = ctx.dialogue;
    const long long seuil = DemanderEntier(d, "Seuil d'occurrence ?", "", "");
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    const fs::path util = ctx.ressources / "utilitaires";
    // Function words, dates and numbers may not open a sequence; function words may not close one.
    EnsembleMots outils = LireMots(util / "OUTILS.txt");
    EnsembleMots nonOuvrants = outils;
    for (const char* nom : {"dates.txt", "nombres.txt"})
        for (auto& m : LireMots(util / nom)) nonOuvrants.insert(m);
    const EnsembleMots composes = ChargerClesComposes(ctx.ressources);
    const fs::path racine = liste->doss_racine;
    for (const char* dossier : {"MEMOS", "LEXIQUES", "SEQUENCES"}) CreerDossier(racine / dossier);
    // The trace goes to the corpus root.
    EcrivainFichier controle(racine / "CONTROLE.txt");

    // The texts by month, months in order of first appearance, texts in list order.
    std::vector<std::string> mois;
    std::map<std::string, std::vector<std::string>> textes;
    for (const auto& nom : liste->noms) {
        if (nom.empty()) continue;
        const std::string m = MoisDuTexte(nom);
        if (!textes.contains(m)) mois.push_back(m);
        textes[m].push_back(nom);
    }
    auto casier = std::make_unique<CasierLexique>();
    std::string tampon;
    for (std::size_t k = 0; k < mois.size(); ++k) {
        const std::string& m = mois[k];
        d.Progression(Joindre(libelle, " ", m), static_cast<long long>(k + 1), static_cast<long long>(mois.size()));
        controle.Ligne(Joindre(m, "\t", TexteHeure(ctx.horloge.Maintenant())));
        for (const auto& nom : textes[m])
            CompterIndex(Chemin(racine / "OLBRIN_TT" / "LEXINDEX", Joindre(nom, ".txt")), *casier, tampon);
        std::string lexique;
        long long n = 0, v = 0;
        casier->Parcourir([&](CleMot, std::size_t, CasierLexique::Entree& e) {
            lexique += Joindre(e.item, "\t", std::to_string(e.compte), "\r\n");
            n += e.compte;
            ++v;
        });
        casier->Vider();
        EcrireFichier(Chemin(racine / "LEXIQUES", Joindre("PARMOIS_", m, ".txt")), lexique);
        EcrireFichier(Chemin(racine / "MEMOS", Joindre("MEMO_", m, ".txt")),
                      Joindre("N = ", std::to_string(n), "\r\nV = ", std::to_string(v), "\r\n"));
        EcrivainFichier sortie(Chemin(racine / "SEQUENCES", Joindre(m, ".txt")));
        ReleveurSequences releveur(nonOuvrants, outils, &composes, nullptr, seuil, sortie);
        for (const auto& nom : textes[m]) {
            LireFichier(Chemin(racine / "OLBRIN_TT", Joindre(nom, ".txt")), tampon);
            releveur.Texte(tampon);
        }
        releveur.Vider();
        sortie.Fermer();
    }
    d.MasquerProgression();
    controle.Fermer();
    d.Afficher(Joindre("Terminé en "_cp, TexteDuree(debut, ctx.horloge, Copie::Statistiques)));
}

}  // namespace

void OperationSequences1(Contexte& ctx) { SequencesPremierePasse(ctx, "séquences_1"_cp); }
void OperationSequencesProvi(Contexte& ctx) { SequencesPremierePasse(ctx, "seq_provi"); }

void OperationSequences2(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    const fs::path racine = liste->doss_racine;
    const fs::path memos = racine / "MEMOS";
    if (!DossierExiste(memos)) throw ErreurExecution(Joindre("Dossier introuvable : "_cp, TexteChemin(memos)));
    std::vector<std::string> mois;
    for (const auto& e : fs::directory_iterator(memos)) {
        const std::string nom = Utf8VersCp1252(e.path().filename().string());
        if (nom.starts_with("MEMO_") && nom.size() > 9) mois.push_back(nom.substr(5, nom.size() - 9));
    }
    std::sort(mois.begin(), mois.end());
    // The total of all months, sequences in order of first appearance before the sort by count.
    std::unordered_map<std::string, std::size_t, HachageTexte, std::equal_to<>> place;
    std::vector<std::pair<std::string, long long>> total;
    long long sommeN = 0;
    std::string texte;
    for (std::size_t k = 0; k < mois.size(); ++k) {
        const std::string& m = mois[k];
        d.Progression(m, static_cast<long long>(k + 1), static_cast<long long>(mois.size()));
        const fs::path memo = Chemin(memos, Joindre("MEMO_", m, ".txt"));
        LireFichier(memo, texte);
        if (!texte.starts_with("N = "))
            throw ErreurExecution(Joindre("Mémo sans « N = » en première ligne : "_cp, TexteChemin(memo)));
        const auto premiere = texte.substr(4, texte.find_first_of("\r\n") - 4);
        const double n = LireNombre(premiere, Joindre(TexteChemin(memo), ", ligne 1"_cp));
        sommeN += static_cast<long long>(n);
        const fs::path fichier = Chemin(racine / "SEQUENCES", Joindre(m, ".txt"));
        EcrivainFichier taux(Chemin(racine / "SEQUENCES", Joindre("TAUX_", m, ".txt")));
        for (const auto& [sequence, compte] : LireLexique(fichier)) {
            taux.Ligne(Joindre(sequence, "\t", std::to_string(compte), "\t",
                               FormaterDouble(Diviser(static_cast<double>(compte), n, Joindre("N nul dans "_cp, TexteChemin(memo))))));
            const auto [it, nouveau] = place.emplace(sequence, total.size());
            if (nouveau) total.emplace_back(sequence, compte);
            else total[it->second].second += compte;
        }
        taux.Fermer();
    }
    d.MasquerProgression();
    std::stable_sort(total.begin(), total.end(), [](const auto& a, const auto& b) { return a.second > b.second; });
    EcrivainFichier sortie(racine / "SEQUENCES" / "A_TOTAL.txt");
    for (const auto& [sequence, compte] : total) sortie.Ligne(Joindre(sequence, "\t", std::to_string(compte)));
    sortie.Ligne(Joindre("N = ", std::to_string(sommeN)));
    sortie.Fermer();
    d.Afficher("Terminé"_cp);
}

}  // namespace telvoris
