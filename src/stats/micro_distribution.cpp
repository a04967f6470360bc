#include "stats/micro_distribution.hpp"

#include <cmath>
#include <unordered_map>

#include "core/erreurs.hpp"
#include "core/hachage.hpp"
#include "core/horloge.hpp"
#include "core/liste_textes.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"
#include "stats/commun.hpp"

namespace telvoris {

using namespace stats;

namespace stats {

// The first index of each item of a list, as a first-match linear search would find it.
class IndexPremier {
public:
    explicit IndexPremier(const std::vector<std::string>& items) {
        for (std::size_t i = 0; i < items.size(); ++i) index_.try_emplace(items[i], static_cast<int>(i));
    }
    int Trouver(std::string_view item) const {
        const auto it = index_.find(item);
        return it == index_.end() ? -1 : it->second;
    }

private:
    std::unordered_map<std::string, int, HachageTexte, std::equal_to<>> index_;
};

}  // namespace stats

namespace {

// A sentence ends where the item is found inside this text: "?", ".", "!", "|", code 177, and
// also the empty item, as a substring test gives.
const std::string kDelimiteurs = Joindre("?|.|!|", "±"_cp);

}  // namespace

TableMicro::TableMicro(std::vector<std::string> l, std::vector<std::string> c)
    : lignes(std::move(l)),
      colonnes(std::move(c)),
      brut(lignes.size() * colonnes.size(), 0),
      sommeLigne(lignes.size(), 0),
      sommeColonne(colonnes.size(), 0) {}

ReleveurMicro::ReleveurMicro(TableMicro& table, const ReglagesMicro& reglages)
    : table_(table),
      reglages_(reglages),
      lignes_(std::make_unique<IndexPremier>(table.lignes)),
      colonnes_(std::make_unique<IndexPremier>(table.colonnes)) {}

ReleveurMicro::~ReleveurMicro() = default;

void ReleveurMicro::Texte(std::string_view texte) {
    TableMicro& table = table_;
    const ReglagesMicro& reglages = reglages_;
    const int niveau = reglages.panneau.NiveauLexical;
    const long long empan = reglages.panneau.Empan;
    const bool phrase = reglages.panneau.LimitePhrase;
    const long long exclusion = reglages.exclusion;

    LigneJetons lj;
    std::vector<std::string> items;
    std::vector<int> ligneDe, colonneDe;
    std::vector<char> finPhrase;
    LecteurLignes lecteur(texte);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        // Metadata lines are not counted. The selection criterion asked by the command would set a
        // flag here, but every body line sets it again before it is examined: it selects nothing.
        if (ligne.empty() || ligne.starts_with("<QORX_ATTR")) continue;
        DecouperLigne(ligne, lj, Copie::Statistiques);
        const int n = lj.NbJetons;
        items.resize(static_cast<std::size_t>(n) + 1);
        ligneDe.assign(static_cast<std::size_t>(n) + 1, -1);
        colonneDe.assign(static_cast<std::size_t>(n) + 1, -1);
        finPhrase.assign(static_cast<std::size_t>(n) + 1, 0);
        bool pivot = false;
        for (int i = 1; i <= n; ++i) {
            const AttributsJeton a = LireAttributs(lj.jeton[static_cast<std::size_t>(i)]);
            std::string& item = items[static_cast<std::size_t>(i)];
            if (niveau == 0) Minusculiser(a.f, item);
            else if (niveau == 1) item.assign(a.f);
            else item.assign(a.l);
            const auto k = static_cast<std::size_t>(i);
            ligneDe[k] = lignes_->Trouver(item);
            colonneDe[k] = colonnes_->Trouver(item);
            finPhrase[k] = phrase && kDelimiteurs.find(item) != std::string::npos;
            pivot = pivot || ligneDe[k] >= 0;
        }
        if (!pivot) continue;
        const std::size_t nc = table.colonnes.size();
        for (int i = 1; i <= n; ++i) {
            const int r = ligneDe[static_cast<std::size_t>(i)];
            if (r < 0) continue;
            long long* rangee = table.brut.data() + static_cast<std::size_t>(r) * nc;
            long long compte = 0;
            auto compter = [&](int c) {
                ++rangee[c];
                ++table.sommeColonne[static_cast<std::size_t>(c)];
                ++compte;
            };
            // Leftwards, a repetition of the pivot counts.
            for (int j = i - 1, d = 1; j >= 1; --j, ++d) {
                if (d == empan) break;  // a span of N looks at N - 1 tokens a side
                const auto k = static_cast<std::size_t>(j);
                if (finPhrase[k]) break;
                if (colonneDe[k] >= 0 && d > exclusion) compter(colonneDe[k]);
            }
            // Rightwards, it does not.
            const std::string& item = items[static_cast<std::size_t>(i)];
            for (int j = i + 1, d = 1; j <= n; ++j, ++d) {
                if (d == empan) break;
                const auto k = static_cast<std::size_t>(j);
                if (finPhrase[k]) break;
                if (colonneDe[k] >= 0 && d > exclusion && items[k] != item) compter(colonneDe[k]);
            }
            table.sommeLigne[static_cast<std::size_t>(r)] += compte;
            table.total += compte;
        }
    }
}

void EcrireMicro(const fs::path& dossier, TableMicro& t, long long ecretage, double seuilForts) {
    if (t.total > SEUIL_ECHELLE_MICRO) {
        // Keeps the product of two margins inside 32 bits; expectations keep their value.
        t.total = static_cast<long long>(Round(static_cast<double>(t.total) / 100.0));
        for (auto& s : t.sommeLigne) s = static_cast<long long>(Round(static_cast<double>(s) / 10.0));
        for (auto& s : t.sommeColonne) s = static_cast<long long>(Round(static_cast<double>(s) / 10.0));
    }
    EcrivainMatrice brut(dossier / "MICRO_BRUT.txt", t.colonnes);
    EcrivainMatrice ecarts(dossier / "MICRO_ECARTS.txt", t.colonnes);
    EcrivainMatrice ecretee(dossier / "MICRO_ECRETEE.txt", t.colonnes);
    EcrivainMatrice amortie(dossier / "MICRO_AMORTIE.txt", t.colonnes);
    EcrivainFichier forts(dossier / "FORTS_ECARTS.txt");
    const double tt = static_cast<double>(ecretage);
    for (std::size_t r = 0; r < t.lignes.size(); ++r) {
        for (auto* m : {&brut, &ecarts, &ecretee, &amortie}) m->DebutLigne(t.lignes[r]);
        for (std::size_t c = 0; c < t.colonnes.size(); ++c) {
            const long long b = t.Cellule(r, c);
            // An empty table has no expectation: every cell keeps its count.
            const double E = t.total == 0 ? 0.0
                                          : static_cast<double>(t.sommeColonne[c]) * static_cast<double>(t.sommeLigne[r]) /
                                                static_cast<double>(t.total);
            double z = 0;
            long long ecr = b, amo = b;
            if (E > 0) {
                const double s = std::sqrt(E);
                z = Round((static_cast<double>(b) - E) / s, 2);
                if (z > tt) {
                    ecr = static_cast<long long>(Round(tt * s + E));
                } else if (z < -tt) {
                    const long long v = static_cast<long long>(Round(E - tt * s));
                    // A strongly negative cell is never 0.
                    ecr = v < 0 ? 0 : v;
                    if (ecr == 0) ecr = 1;
                }
                amo = static_cast<long long>(Round(10.0 * (E + (static_cast<double>(b) - E) / 2.0)));
            }
            brut.Cellule(b);
            const std::string texteZ = FormaterDouble(z);
            ecarts.Cellule(texteZ);
            ecretee.Cellule(ecr);
            amortie.Cellule(amo);
            if (z > seuilForts) forts.Ligne(Joindre(t.lignes[r], "\t", t.colonnes[c], "\t", texteZ));
        }
        for (auto* m : {&brut, &ecarts, &ecretee, &amortie}) m->FinLigne();
    }
    for (auto* m : {&brut, &ecarts, &ecretee, &amortie}) m->Fermer();
    forts.Fermer();
}

void MicroDistribution(Contexte& ctx, const ParametresReleve& p) {
    Dialogue& d = ctx.dialogue;
    // The ranges that the prompts state are not checked.
    const double seuilForts = DemanderNombre(d, "Seuil pour les forts écarts-réduits (de 15 à 50) ?"_cp, "", "10");
    const auto selection =
        d.Demander("Souhaitez-vous sélectionner selon une métadonnée à l'intérieur de votre corpus -O/N- ?"_cp, "", "N");
    if (selection && *selection == "O") d.Demander("Entrez le libellé du critère de sélection (type LOC=X)."_cp, "", "");
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    const fs::path tt = ExigerOlbrinTT(liste->doss_racine);
    ReglagesMicro reglages;
    reglages.panneau = p;
    reglages.exclusion = static_cast<long long>(Round(DemanderNombre(
        d, "Exclure les cooccurrents les plus proches ? Si oui, entrez le nombre. Si non, entrez ZERO"_cp, "EXCLUSION ?", "0")));
    const long long ecretage = static_cast<long long>(
        Round(DemanderNombre(d, "Fixez un seuil d'écart-réduit pour l'ecrétage (un nombre entier de 2 à 5)."_cp, "", "2")));
    const auto fichierLignes = d.ChoisirFichier("items en lignes", FILTRE_TXT_STATS);
    if (!fichierLignes || fichierLignes->empty()) return;
    auto lignes = LireItemsFichier(*fichierLignes, MAX_LIGNES_MICRO, true, "lignes");
    const auto fichierColonnes = d.ChoisirFichier("items en colonnes", FILTRE_TXT_STATS);
    if (!fichierColonnes || fichierColonnes->empty()) return;
    auto colonnes = LireItemsFichier(*fichierColonnes, MAX_COLONNES_MICRO, false, "colonnes");
    const std::string horodate = Horodater(ctx.horloge);
    std::string nom = d.Demander("Nommez votre matrice - sinon elle sera nommée automatiquement"_cp, "", "").value_or("");
    if (nom.empty()) {
        // The default name tells the settings: sentence limit or not, the span, the rows, the time.
        nom = Joindre(p.LimitePhrase ? "P" : "O", p.EmpanFixe ? std::to_string(p.Empan) : "", "_",
                      std::to_string(lignes.size()), "-", horodate);
    }
    const fs::path racineMicro = liste->doss_racine / "AFC_MICRO";
    CreerDossier(racineMicro);
    const fs::path dossier = Chemin(racineMicro, nom);
    if (fs::exists(dossier))
        throw ErreurExecution(Joindre("Le dossier "_cp, TexteChemin(dossier), " existe déjà : nommez autrement la matrice."_cp));
    CreerDossier(dossier);

    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    TableMicro table(std::move(lignes), std::move(colonnes));
    ReleveurMicro releveur(table, reglages);
    const std::size_t n = liste->noms.size();
    std::string contenu;
    for (std::size_t i = 0; i < n; ++i) {
        d.Progression(Joindre("Relevé. Fichier "_cp, std::to_string(i + 1), " de "_cp, std::to_string(n)),
                      static_cast<long long>(i + 1), static_cast<long long>(n));
        const fs::path fichier = Chemin(tt, Joindre(liste->noms[i], ".txt"));
        LireFichier(fichier, contenu);
        try {
            releveur.Texte(contenu);
        } catch (const ErreurExecution& e) {
            throw ErreurExecution(Joindre(e.what(), " ("_cp, TexteChemin(fichier), ")"));
        }
    }
    EcrireMicro(dossier, table, ecretage, seuilForts);
    d.MasquerProgression();
    const std::string duree = TexteDuree(debut, ctx.horloge, Copie::Statistiques);
    d.Resultat(Joindre("Relevé terminé en"_cp, "\r\n", duree));
    d.Afficher(Joindre("Terminé en "_cp, duree));
}

void OperationMicroDistribution(Contexte& ctx) {
    if (const auto p = DemanderParametresReleve(ctx.dialogue, ModeReleve::Mic)) MicroDistribution(ctx, *p);
}

}  // namespace telvoris
