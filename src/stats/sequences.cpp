#include "stats/sequences.hpp"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "core/erreurs.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/liste_textes.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"
#include "stats/commun.hpp"
#include "stats/fichiers_stats.hpp"

namespace telvoris {

using namespace stats;
namespace fs = std::filesystem;

EnsembleMots LireMots(const fs::path& fichier) {
    EnsembleMots mots;
    std::string tampon;
    PourChaqueLigneNonVide(fichier, tampon, [&](std::string_view l) { mots.emplace(l); });
    return mots;
}

EnsembleMots ChargerClesComposes(const fs::path& ressources) {
    EnsembleMots cles;
    std::string tampon;
    for (const char* dossier : {"dico/comp/namb", "dico/comp/amb"}) {
        const fs::path d = ressources / dossier;
        if (!DossierExiste(d)) continue;
        std::vector<fs::path> fichiers;
        for (const auto& e : fs::directory_iterator(d))
            if (e.is_regular_file()) fichiers.push_back(e.path());
        std::sort(fichiers.begin(), fichiers.end());
        for (const auto& f : fichiers)
            PourChaqueLigneNonVide(f, tampon, [&](std::string_view l) { cles.emplace(l.substr(0, l.find(','))); });
    }
    return cles;
}

std::string EnteteSequences() {
    std::string e = "CODICO\tSEQUENCE\tNB_OCC\tPIVOT\tTAUX_PIVOT";
    for (int i = 1; i <= NB_TAUX_ENTETE; ++i) e += "\tTAUX_" + std::to_string(i);
    return e;
}

namespace {

constexpr std::size_t kNbCasiers = (MAX_CLASSE_LONGUEUR + 1) * (MAX_CLASSE_INITIALE + 1);

std::size_t IndiceCasier(CleMot c) {
    return static_cast<std::size_t>(c.ClasseLongueur * (MAX_CLASSE_INITIALE + 1) + c.ClasseInitiale);
}

// A word that holds a digit from 1 to 9 or ":" (codes 49 to 58) stops a walk; "0" does not.
bool AChiffre(std::string_view mot) {
    for (char c : mot)
        if (Code(c) >= 49 && Code(c) <= 58) return true;
    return false;
}

// Lower case of one CP1252 byte, so that a folded text keeps its offsets.
char MinusculeOctet(char c) {
    const int k = Code(c);
    if ((k >= 65 && k <= 90) || (k >= 192 && k <= 222 && k != 215)) return static_cast<char>(k + 32);
    if (k == 138 || k == 140 || k == 142) return static_cast<char>(k + 16);
    if (k == 159) return static_cast<char>(255);
    return c;
}

}  // namespace

// The sequences, numbered in order of first appearance (a sequence always falls in the bucket of
// its longest word), with their count and kind, and the order of each bucket.
struct ReleveurSequences::Table {
    struct Entree {
        long long n = 0;
        char code = 'A';
    };
    IndexTextes index;
    std::vector<Entree> entrees;
    std::array<std::vector<std::uint32_t>, kNbCasiers> casiers;
};

ReleveurSequences::ReleveurSequences(EnsembleMots nonOuvrants, EnsembleMots nonFermants, const EnsembleMots* composes,
                                     CasierLexique* lexique, long long seuil, EcrivainFichier& sortie)
    : table_(std::make_unique<Table>()),
      nonOuvrants_(std::move(nonOuvrants)),
      nonFermants_(std::move(nonFermants)),
      composes_(composes),
      lexique_(lexique),
      seuil_(seuil),
      sortie_(sortie) {}

ReleveurSequences::~ReleveurSequences() = default;

void ReleveurSequences::Texte(std::string_view tague) {
    LigneJetons lj;
    std::vector<std::string> formes;
    // Per token: 1 a word, 2 a word that may not open, 4 one that may not close, 8 one with a digit.
    enum : unsigned char { kMot = 1, kNonOuvrant = 2, kNonFermant = 4, kChiffre = 8 };
    std::vector<unsigned char> drapeaux;
    std::vector<std::string_view> brutes;
    std::string sequence;
    LecteurLignes lecteur(tague);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty() || ligne.starts_with("<QORX_ATTR")) continue;
        DecouperLigne(ligne, lj, Copie::Statistiques);
        const auto n = static_cast<std::size_t>(lj.NbJetons);
        if (formes.size() < n + 1) formes.resize(n + 1);
        drapeaux.assign(n + 1, 0);
        brutes.assign(n + 1, {});
        for (std::size_t i = 1; i <= n; ++i) {
            const std::string_view j = lj.jeton[i];
            // A tag with "f= " has no form: it is no word.
            if (!j.starts_with("<M") || j.find("f= ") != std::string_view::npos) continue;
            brutes[i] = LireAttributsVue(j).f;
            if (brutes[i].empty()) continue;
            Minusculiser(brutes[i], formes[i]);
            unsigned char d = kMot;
            if (nonOuvrants_.contains(formes[i])) d |= kNonOuvrant;
            if (nonFermants_.contains(formes[i])) d |= kNonFermant;
            if (AChiffre(formes[i])) d |= kChiffre;
            drapeaux[i] = d;
        }
        for (std::size_t i = 1; i <= n; ++i) {
            if (!(drapeaux[i] & kMot) || (drapeaux[i] & (kNonOuvrant | kNonFermant))) continue;
            const int c0 = Code(brutes[i][0]);
            if (!((c0 >= 97 && c0 <= 122) || c0 >= 224) || brutes[i] == "M.") continue;
            sequence = formes[i];
            std::string_view plusLong = formes[i];
            for (std::size_t j = i + 1; j <= n && j <= i + MAX_MOTS_SUITE_SEQUENCE; ++j) {
                if (!(drapeaux[j] & kMot) || (drapeaux[j] & kChiffre)) break;
                const std::string& mot = formes[j];
                if (mot.size() > plusLong.size()) plusLong = mot;
                sequence += ' ';
                sequence += mot;
                if (drapeaux[j] & kNonFermant) continue;
                if (composes_ && composes_->contains(sequence)) continue;
                bool nouveau = false;
                const std::uint32_t k = table_->index.Inserer(sequence, nouveau);
                if (!nouveau) {
                    ++table_->entrees[k].n;
                    continue;
                }
                // The kind "C": the sequence closes on a word that may not open one.
                table_->entrees.push_back({1, (drapeaux[j] & kNonOuvrant) ? 'C' : 'A'});
                auto& casier = table_->casiers[IndiceCasier(ClasserItem(plusLong, Copie::Statistiques))];
                casier.push_back(k);
                if (casier.size() > MAX_ENTREES_CASIER_SEQUENCES) Vider();
            }
        }
    }
}

void ReleveurSequences::Vider() {
    // By count, equal counts in bucket order and order of first appearance.
    std::vector<std::uint32_t> retenues;
    for (const auto& casier : table_->casiers)
        for (const std::uint32_t k : casier)
            if (table_->entrees[k].n >= seuil_) retenues.push_back(k);
    const auto& entrees = table_->entrees;
    std::stable_sort(retenues.begin(), retenues.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return entrees[a].n > entrees[b].n; });
    std::string& ligne = sortie_.Tampon();
    std::string taux;
    for (const std::uint32_t k : retenues) {
        const auto& e = entrees[k];
        const std::string& sequence = table_->index.Texte(k);
        if (!lexique_) {
            ligne += sequence;
            ligne += '\t';
            ligne += std::to_string(e.n);
            sortie_.FinLigne();
            continue;
        }
        ligne += e.code;
        ligne += '\t';
        ligne += sequence;
        ligne += '\t';
        ligne += std::to_string(e.n);
        taux.clear();
        std::string_view pivot;
        float meilleur = 0;
        for (const std::string_view mot : Decouper(sequence, " ")) {
            const auto* l = lexique_->Trouver(mot, CasierLexique::Cle(mot));
            if (!l || l->compte == 0) {
                taux += "\t-";
                continue;
            }
            const auto t = static_cast<float>(Round(static_cast<double>(e.n) / static_cast<double>(l->compte), 3));
            if (t > meilleur) {
                meilleur = t;
                pivot = mot;
            }
            taux += '\t';
            taux += FormaterSingle(t);
        }
        ligne += '\t';
        ligne += pivot;
        ligne += '\t';
        ligne += FormaterSingle(meilleur);
        ligne += taux;
        sortie_.FinLigne();
    }
    table_->index.Vider();
    table_->entrees.clear();
    for (auto& casier : table_->casiers) casier.clear();
}

void OperationSequencesMots(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const long long seuil = DemanderEntier(d, "Seuil d'occurrence ?", "", "");
    const bool filtre = Reponse(d, "Filtrer avec le dictionnaire des composés ?"_cp, "", "N") == "O";
    const auto fichierLexique = DemanderFichier(d, "LEXIQUE SIMPLE");
    if (!fichierLexique) return;
    const auto choix = d.ChoisirFichier("REPERTOIRE", "Text files (*.TXT)|*.TXT");
    if (!choix || choix->empty()) return;
    const ListeTextes liste = ChargerListeTextes(*choix);
    const std::string horodate = Horodater(ctx.horloge);
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());

    // The lists are read in this order: words that may not open, then words that may not close.
    EnsembleMots nonOuvrants = LireMots(ctx.ressources / "utilitaires" / "outils_3.txt");
    EnsembleMots nonFermants = LireMots(ctx.ressources / "utilitaires" / "outils_2.txt");
    EnsembleMots composes;
    if (filtre) composes = ChargerClesComposes(ctx.ressources);
    auto lexique = std::make_unique<CasierLexique>();
    for (const auto& [item, compte] : LireLexique(*fichierLexique)) {
        const CleMot cle = CasierLexique::Cle(item);
        if (!lexique->Trouver(item, cle)) lexique->Nouvelle(item, cle, compte);
    }
    const fs::path dossier = liste.doss_racine / "LEXIQUES";
    CreerDossier(dossier);
    EcrivainFichier sortie(Chemin(dossier, Joindre("SEG_REP_", horodate, ".txt")));
    EcrivainFichier controle(dossier / "SEG_REP_CONTROLE.txt");
    sortie.Ligne(EnteteSequences());
    ReleveurSequences releveur(std::move(nonOuvrants), std::move(nonFermants), filtre ? &composes : nullptr, lexique.get(),
                               seuil, sortie);
    std::string texte;
    const std::size_t n = liste.noms.size();
    for (std::size_t i = 0; i < n; ++i) {
        if (liste.noms[i].empty()) continue;
        d.Progression(liste.noms[i], static_cast<long long>(i + 1), static_cast<long long>(n));
        LireFichier(Chemin(liste.doss_racine / "OLBRIN_TT", Joindre(liste.noms[i], ".txt")), texte);
        releveur.Texte(texte);
        controle.Ligne(Joindre("---\t", TexteHeure(ctx.horloge.Maintenant())));
    }
    releveur.Vider();
    d.MasquerProgression();
    sortie.Fermer();
    controle.Fermer();
    d.Afficher(Joindre("Séquences récurrentes repérées en"_cp, "\r\n", TexteDuree(debut, ctx.horloge, Copie::Statistiques)));
}

void OperationUnAutreX(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const std::string cle = Reponse(d, "Entrez la clé de sélection"_cp, "", "");
    const bool casse = Reponse(d, "Respect de la casse (OUI/NON) ?", "", "NON") == "OUI";
    const long long nbMots = DemanderEntier(d, "Nombre de mots à droite"_cp, "", "");
    if (cle.empty()) return;
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    const fs::path dossier = liste->doss_racine / "SEQUENCES";
    CreerDossier(dossier);
    EcrivainFichier sortie(Chemin(dossier, Joindre(cle, ".txt")));
    std::string cleCherchee = cle;
    if (!casse)
        for (char& c : cleCherchee) c = MinusculeOctet(c);
    std::string texte, cherche;
    const std::size_t n = liste->noms.size();
    for (std::size_t i = 0; i < n; ++i) {
        if (liste->noms[i].empty()) continue;
        d.Progression(liste->noms[i], static_cast<long long>(i + 1), static_cast<long long>(n));
        LireFichier(Chemin(liste->doss_racine / "OLBRIN_TT" / "TEXTE_NU", Joindre(liste->noms[i], ".txt")), texte);
        if (!casse) {
            cherche = texte;
            for (char& c : cherche) c = MinusculeOctet(c);
        }
        const std::string& dans = casse ? texte : cherche;
        for (const std::string_view partie : Decouper(dans, SEPARATEUR_PARTITIONS, std::size_t(-1))) {
            const std::size_t base = static_cast<std::size_t>(partie.data() - dans.data());
            for (std::size_t p = partie.find(cleCherchee); p != std::string_view::npos; p = partie.find(cleCherchee, p + 1)) {
                // The key as written, then the following words of its part, cut at blanks and line ends.
                std::string ligne(std::string_view(texte).substr(base + p, cleCherchee.size()));
                std::size_t q = p + cleCherchee.size();
                for (long long m = 0; m < nbMots; ++m) {
                    while (q < partie.size() && (partie[q] == ' ' || partie[q] == '\r' || partie[q] == '\n')) ++q;
                    if (q >= partie.size()) break;
                    std::size_t fin = q;
                    while (fin < partie.size() && partie[fin] != ' ' && partie[fin] != '\r' && partie[fin] != '\n') ++fin;
                    ligne += ' ';
                    ligne.append(std::string_view(texte).substr(base + q, fin - q));
                    q = fin;
                }
                sortie.Ligne(Joindre(liste->noms[i], "\t", ligne));
            }
        }
    }
    d.MasquerProgression();
    sortie.Fermer();
    d.Afficher(Joindre("Terminé en "_cp, TexteDuree(debut, ctx.horloge, Copie::Statistiques)));
}

}  // namespace telvoris
