#include "stats/macro_distribution.hpp"

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

struct ReleveurMacro::Index {
    std::unordered_map<std::string, std::size_t, HachageTexte, std::equal_to<>> premier;
};

CoupeDate LireCoupeDate(std::string_view r) {
    if (r.find_first_not_of("0123456789-") != std::string_view::npos)
        throw FinProgramme(std::string("Vous ne devez saisir que des chiffres. Recommencez"_cp));
    const std::size_t tiret = r.find('-');
    if (tiret == std::string_view::npos)
        throw FinProgramme(std::string("Vous devez séparer les deux rubriques de votre réponse par un tiret. Recommencez"_cp));
    const auto champs = Decouper(r, "-");
    CoupeDate coupe;
    coupe.debut = ValeurEntiere(champs[0]);
    coupe.longueur = ValeurEntiere(champs[1]);
    if (coupe.longueur == 0)
        throw FinProgramme(std::string("Le nombre de caractères pertinents ne peut être égal à zéro. Recommencez"_cp));
    // The check "shorter than 3 and longer than 4 characters" that came next can hold for no
    // answer: its message never shows.
    return coupe;
}

ReleveurMacro::ReleveurMacro(std::vector<std::string> lignes, std::string cle, std::optional<CoupeDate> coupe)
    : lignes_(std::move(lignes)), cle_(std::move(cle)), coupe_(coupe), index_(std::make_unique<Index>()) {
    for (std::size_t r = 0; r < lignes_.size(); ++r) index_->premier.try_emplace(lignes_[r], r);
    brut_.emplace_back(lignes_.size(), 0);
}

ReleveurMacro::~ReleveurMacro() = default;

std::size_t ReleveurMacro::Colonne(const std::string& valeur) {
    for (std::size_t c = 1; c < colonnes_.size(); ++c)
        if (colonnes_[c] == valeur) return c;
    if (colonnes_.size() > MAX_COLONNES_MACRO)
        LimiteDepassee("MAX_COLONNES_MACRO", MAX_COLONNES_MACRO, Joindre("colonnes (valeur « "_cp, valeur, " »)"_cp));
    colonnes_.push_back(valeur);
    jetons_.push_back(0);
    brut_.emplace_back(lignes_.size(), 0);
    return colonnes_.size() - 1;
}

void ReleveurMacro::Texte(std::string_view tague, std::string_view index, std::string_view nom) {
    // The metadata of partition k: what follows the k-th "<QORX_ATTR" up to its first ">".
    std::vector<std::string_view> metas;
    {
        const auto morceaux = Decouper(tague, "<QORX_ATTR");
        for (std::size_t k = 1; k < morceaux.size(); ++k) {
            const std::size_t fin = morceaux[k].find('>');
            metas.push_back(morceaux[k].substr(0, fin == std::string_view::npos ? 0 : fin + 1));
        }
    }
    if (metas.size() > MAX_PARTITIONS_TEXTE)
        LimiteDepassee("MAX_PARTITIONS_TEXTE", MAX_PARTITIONS_TEXTE, Joindre("partitions dans le texte "_cp, nom));
    std::size_t partition = 0;
    AttributsJeton a;
    std::string forme, valeur;
    LecteurLignes lecteur(index);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        auto ou = [&] { return Joindre("index de "_cp, nom, ", ligne "_cp, std::to_string(lecteur.Numero())); };
        if (ligne == SEPARATEUR_PARTITIONS) {
            ++partition;
            if (partition > metas.size())
                throw ErreurExecution(Joindre("La partition "_cp, std::to_string(partition),
                                              " n'a pas de ligne de métadonnées dans le texte étiqueté ("_cp, ou(), ")"));
            auto morceaux = Decouper(metas[partition - 1], "=");
            for (auto& m : morceaux)
                if (!m.empty() && m[0] == '"') m.remove_prefix(1);
            for (std::size_t m = 0; m < morceaux.size(); ++m) {
                if (!morceaux[m].ends_with(cle_)) continue;
                const std::size_t blanc = m + 1 < morceaux.size() ? morceaux[m + 1].find(' ') : std::string_view::npos;
                if (blanc == std::string_view::npos)
                    throw ErreurExecution(Joindre("Valeur de « "_cp, cle_, " » illisible dans la métadonnée « "_cp,
                                                  metas[partition - 1], " » ("_cp, ou(), ")"));
                valeur.assign(morceaux[m + 1].substr(0, blanc));
                if (coupe_) {
                    if (coupe_->debut < 1 || coupe_->longueur < 0)
                        throw ErreurExecution(Joindre("Coupe de la date impossible : début "_cp, std::to_string(coupe_->debut),
                                                      ", longueur "_cp, std::to_string(coupe_->longueur)));
                    const auto debut = static_cast<std::size_t>(coupe_->debut - 1);
                    valeur = debut >= valeur.size() ? std::string()
                                                    : valeur.substr(debut, static_cast<std::size_t>(coupe_->longueur));
                }
                courante_ = Colonne(valeur);
                break;
            }
            // A partition without the key leaves the current column as it was.
            continue;
        }
        const auto champ2 = Champ(ligne, 2);
        if (!champ2) throw ErreurExecution(Joindre("Ligne d'index sans compte : « "_cp, ligne, " » ("_cp, ou(), ")"));
        const long long compte = LireEntierOu(*champ2, ou);
        jetons_[courante_] += compte;
        a = LireAttributs(*Champ(ligne, 1));
        Minusculiser(a.f, forme);
        const auto it = index_->premier.find(forme);
        if (it != index_->premier.end()) brut_[courante_][it->second] += compte;
    }
}

void EcrireMacro(const fs::path& dossier, const ReleveurMacro& rel, double t, float seuil) {
    const std::size_t nl = rel.Lignes().size();
    const std::size_t nc = rel.Colonnes().size() - 1;  // columns 1..nc are written
    std::vector<std::string> noms(rel.Colonnes().begin() + 1, rel.Colonnes().end());
    std::vector<long long> sommeLigne(nl, 0), sommeColonne(nc + 1, 0);
    long long g = 0;
    for (std::size_t c = 1; c <= nc; ++c)
        for (std::size_t r = 0; r < nl; ++r) {
            const long long b = rel.Brut(r, c);
            sommeLigne[r] += b;
            sommeColonne[c] += b;
            g += b;
        }
    if (g == 0 && nc > 0 && nl > 0)
        throw ErreurExecution(std::string(
            "Division par zéro : aucun item des lignes n'apparaît dans les colonnes (total général nul), les écarts réduits ne peuvent être calculés."_cp));

    // Deviations first: a division by zero stops the run before any table is written.
    std::vector<double> z(nl * (nc + 1), 0.0), s(nl * (nc + 1), 0.0), e(nl * (nc + 1), 0.0);
    for (std::size_t r = 0; r < nl; ++r)
        for (std::size_t c = 1; c <= nc; ++c) {
            const double p = static_cast<double>(sommeColonne[c]) / static_cast<double>(g);
            const double E = p * static_cast<double>(sommeLigne[r]);
            const std::size_t k = r * (nc + 1) + c;
            e[k] = E;
            if (E <= 0) continue;
            const double sigma = std::sqrt(E * (1.0 - p));
            if (sigma == 0.0)
                throw ErreurExecution(Joindre("Division par zéro : la colonne « "_cp, noms[c - 1],
                                              " » réunit tout le total (p = 1), l'écart réduit de « "_cp, rel.Lignes()[r],
                                              " » ne peut être calculé. Il faut au moins deux colonnes non vides."_cp));
            s[k] = sigma;
            z[k] = Round((static_cast<double>(rel.Brut(r, c)) - E) / sigma, 2);
        }

    EcrivainMatrice brut(dossier / "MACRO_BRUT.txt", noms);
    EcrivainMatrice ecart(dossier / "ECART_REDUIT.txt", noms);
    EcrivainMatrice specif(dossier / "SPECIF_RED.txt", noms);
    EcrivainMatrice ecretee(dossier / "ECRETEE.txt", noms);
    std::vector<float> varLigne(nl, 0.0f), varColonne(nc + 1, 0.0f);
    for (std::size_t r = 0; r < nl; ++r) {
        for (auto* m : {&brut, &ecart, &specif, &ecretee}) m->DebutLigne(rel.Lignes()[r]);
        for (std::size_t c = 1; c <= nc; ++c) {
            const std::size_t k = r * (nc + 1) + c;
            const long long b = rel.Brut(r, c);
            const double zz = z[k], E = e[k];
            varLigne[r] = static_cast<float>(static_cast<double>(varLigne[r]) + zz * zz);
            varColonne[c] = static_cast<float>(static_cast<double>(varColonne[c]) + zz * zz);
            long long ecr = b;
            if (zz > t) {
                ecr = static_cast<long long>(Round(t * s[k] + E));
            } else if (zz < -t) {
                // The lower limit uses sqrt(E), the upper one the binomial s: the asymmetry stays.
                const long long v = static_cast<long long>(Round(E - t * std::sqrt(E)));
                ecr = v < 0 ? 0 : v;
            }
            brut.Cellule(b);
            const std::string texteZ = FormaterDouble(zz);
            ecart.Cellule(texteZ);
            specif.Cellule(static_cast<float>(zz) > seuil ? texteZ : std::string("0"));
            ecretee.Cellule(ecr);
        }
        for (auto* m : {&brut, &ecart, &specif, &ecretee}) m->FinLigne();
    }
    for (auto* m : {&brut, &ecart, &specif, &ecretee}) m->Fermer();
    EcrivainFichier lonparts(dossier / "LONPARTS.txt");
    EcrivainFichier varCo(dossier / "VARIANCES_CO.txt");
    for (std::size_t c = 1; c <= nc; ++c) {
        lonparts.Ligne(Joindre(noms[c - 1], "\t", std::to_string(rel.Jetons(c))));
        varCo.Ligne(Joindre(noms[c - 1], "\t", FormaterSingle(varColonne[c])));
    }
    EcrivainFichier varLi(dossier / "VARIANCES_LI.txt");
    for (std::size_t r = 0; r < nl; ++r) varLi.Ligne(Joindre(rel.Lignes()[r], "\t", FormaterSingle(varLigne[r])));
}

void MacroDistribution(Contexte& ctx, const ParametresReleve&) {
    // The lexical level of the panel is not used: a row item is always matched against the
    // normalised form.
    Dialogue& d = ctx.dialogue;
    const double ecretage = DemanderNombre(d, "Valeur d'écart-réduit pour écretage ?"_cp, "", "2");
    const auto seuil = static_cast<float>(DemanderNombre(d, "Valeur seuil pour prise en compte spécificité"_cp, "", "3"));
    const auto fichierLignes = d.ChoisirFichier("items en lignes", FILTRE_TXT_STATS);
    if (!fichierLignes || fichierLignes->empty()) return;
    auto lignes = LireItemsFichier(*fichierLignes, MAX_LIGNES_MACRO, false, "lignes");
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    const fs::path tt = ExigerOlbrinTT(liste->doss_racine);
    const std::string cle = d.Demander("Clé de variable colonnes ?"_cp, "CLE ?", "").value_or("");
    std::optional<CoupeDate> coupe;
    if (cle == "DATE" || cle == "date" || cle == "Date") {
        // No date format is loaded in this run: its place in the question stays empty.
        const auto reponse = d.Demander(
            Joindre("Quelle partie de la date est-elle à prendre en compte ? Le format de date est : "_cp, "",
                    ". Inscrivez le n° du 1er caractère  "_cp, "pertinent, un tiret puis le nombre de caractères à retenir."_cp),
            "", "1-4");
        const CoupeDate lue = LireCoupeDate(reponse.value_or(""));
        // Only "DATE" is cut; with "date" or "Date" the answer is kept and not applied.
        if (cle == "DATE") coupe = lue;
    }
    const std::string horodate = Horodater(ctx.horloge);
    const fs::path dossier = liste->doss_racine / "AFC_MACRO" / horodate;
    CreerDossier(dossier);

    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    ReleveurMacro releve(std::move(lignes), cle, coupe);
    const std::size_t n = liste->noms.size();
    std::string tague, index;
    for (std::size_t i = 0; i < n; ++i) {
        const std::string& nom = liste->noms[i];
        d.Progression(Joindre("Relevé. Fichier "_cp, std::to_string(i + 1), " de "_cp, std::to_string(n)),
                      static_cast<long long>(i + 1), static_cast<long long>(n));
        LireFichier(Chemin(tt, Joindre(nom, ".txt")), tague);
        LireFichier(Chemin(tt / "LEXINDEX", Joindre(nom, ".txt")), index);
        releve.Texte(tague, index, nom);
    }
    EcrireMacro(dossier, releve, ecretage, seuil);
    d.MasquerProgression();
    const std::string duree = TexteDuree(debut, ctx.horloge, Copie::Statistiques);
    d.Resultat(duree);
    d.Afficher(Joindre("Terminé en "_cp, duree));
}

void OperationMacroDistribution(Contexte& ctx) {
    if (const auto p = DemanderParametresReleve(ctx.dialogue, ModeReleve::Mac)) MacroDistribution(ctx, *p);
}

void OperationLongueurPartitions(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    constexpr long long kPremiere = 1980, kDerniere = 2080;
    std::vector<long long> parAnnee(static_cast<std::size_t>(kDerniere - kPremiere + 1), 0);
    const std::size_t n = liste->noms.size();
    std::string index;
    for (std::size_t i = 0; i < n; ++i) {
        const std::string& nom = liste->noms[i];
        d.Progression(Joindre("Relevé. Fichier "_cp, std::to_string(i + 1), " de "_cp, std::to_string(n)),
                      static_cast<long long>(i + 1), static_cast<long long>(n));
        // The year is the last field but one of the name cut at "_".
        const auto champs = Decouper(nom, "_");
        if (champs.size() < 2)
            throw ErreurExecution(Joindre("Le nom « "_cp, nom, " » ne porte pas d'année avant son dernier « _ »."_cp));
        const long long annee = LireEntier(champs[champs.size() - 2], Joindre("année du texte "_cp, nom));
        if (annee < kPremiere || annee > kDerniere)
            throw ErreurExecution(Joindre("Année hors de la table (1980 à 2080) : "_cp, std::to_string(annee), " (texte "_cp,
                                          nom, ")"));
        const fs::path fichier = Chemin(liste->doss_racine / "OLBRIN_TT" / "LEXINDEX", Joindre(nom, ".txt"));
        LireFichier(fichier, index);
        LecteurLignes lecteur(index);
        std::string_view ligne;
        while (lecteur.Suivante(ligne)) {
            if (ligne.empty() || ligne == SEPARATEUR_PARTITIONS) continue;
            const auto ou = [&] { return Joindre(TexteChemin(fichier), ", ligne "_cp, std::to_string(lecteur.Numero())); };
            const auto champ2 = Champ(ligne, 2);
            if (!champ2) throw ErreurExecution(Joindre("Ligne d'index sans compte : « "_cp, ligne, " » ("_cp, ou(), ")"));
            parAnnee[static_cast<std::size_t>(annee - kPremiere)] += LireEntierOu(*champ2, ou);
        }
    }
    EcrivainFichier sortie(liste->doss_racine / "LONPARTS.txt");
    for (long long k = 1; k <= 35; ++k)
        sortie.Ligne(Joindre(std::to_string(kPremiere + k), "\t", std::to_string(parAnnee[static_cast<std::size_t>(k)])));
    sortie.Fermer();
    d.MasquerProgression();
    d.Afficher("Terminé"_cp);
}

}  // namespace telvoris
