#include "lexicon/dictionnaire.hpp"

#include <cstring>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/hachage.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "lexicon/reprise_dico.hpp"

namespace telvoris {

namespace {

constexpr int kClassesInitiales = MAX_CLASSE_INITIALE + 1;
constexpr int kClassesLongueur = MAX_CLASSE_LONGUEUR + 1;
constexpr std::size_t kCasiers = kClassesInitiales * kClassesLongueur;

std::size_t IndiceCasier(CleMot cle) {
    return static_cast<std::size_t>(cle.ClasseInitiale) * kClassesLongueur + static_cast<std::size_t>(cle.ClasseLongueur);
}

std::uint64_t Hacher(std::string_view s) { return HachageTexte{}(s); }

std::string TexteCasier(CleMot cle) {
    return Joindre("le casier ("_cp, std::to_string(cle.ClasseLongueur), ", "_cp,
                   std::to_string(cle.ClasseInitiale), ")"_cp);
}

}  // namespace

CleMot classe_mot(std::string_view mot) { return ClasserItem(mot, Copie::Etiquetage); }

std::string decoder_lemme(std::string_view forme, std::string_view lemme_code) {
    if (lemme_code.empty()) return std::string(forme);
    std::size_t i = 0;
    std::size_t n = 0;
    while (i < lemme_code.size() && lemme_code[i] >= '0' && lemme_code[i] <= '9') {
        n = n * 10 + static_cast<std::size_t>(lemme_code[i] - '0');
        if (n > forme.size()) n = forme.size() + 1;  // keeps the count bounded: all is cut anyway
        ++i;
    }
    const std::size_t garde = n >= forme.size() ? 0 : forme.size() - n;
    std::string lemme(forme.substr(0, garde));
    lemme.append(lemme_code.substr(i));
    return lemme;
}

Interpretation CouperInterpretation(std::string_view s) {
    Interpretation r;
    const std::size_t point = s.find('.');
    if (point == std::string_view::npos) {
        r.lemme_code = s;
        return r;
    }
    r.lemme_code = s.substr(0, point);
    const std::string_view reste = s.substr(point + 1);
    const std::size_t deux = reste.find(':');
    if (deux == std::string_view::npos) {
        r.categorie = reste;
    } else {
        r.categorie = reste.substr(0, deux);
        r.flexion = reste.substr(deux + 1);
    }
    return r;
}

std::string_view TexteOrigine(Origine origine) {
    switch (origine) {
        case Origine::DICO: return "DICO";
        case Origine::COR: return "COR";
        case Origine::CORACC: return "CORACC";
        case Origine::ETR: return "ETR";
        case Origine::COMP: return "COMP";
        case Origine::ABR: return "ABR";
        case Origine::ROM: return "ROM";
    }
    return "";
}

// ---------------------------------------------------------------- first-match index

void IndexPremiers::Vider() {
    cases_.clear();
    n_ = 0;
}

void IndexPremiers::Agrandir(const std::vector<std::string>& textes) {
    std::vector<std::uint32_t> anciennes;
    anciennes.swap(cases_);
    cases_.assign(anciennes.empty() ? 16 : anciennes.size() * 2, 0);
    const std::size_t masque = cases_.size() - 1;
    for (std::uint32_t v : anciennes) {
        if (v == 0) continue;
        std::size_t k = Hacher(textes[v - 1]) & masque;
        while (cases_[k] != 0) k = (k + 1) & masque;
        cases_[k] = v;
    }
}

void IndexPremiers::Inserer(const std::vector<std::string>& textes, std::uint32_t i) {
    if ((n_ + 1) * 2 > cases_.size()) Agrandir(textes);
    const std::string_view t = textes[i];
    const std::size_t masque = cases_.size() - 1;
    std::size_t k = Hacher(t) & masque;
    while (cases_[k] != 0) {
        if (textes[cases_[k] - 1] == t) return;  // the earlier line keeps the form
        k = (k + 1) & masque;
    }
    cases_[k] = i + 1;
    ++n_;
}

std::optional<std::uint32_t> IndexPremiers::Trouver(const std::vector<std::string>& textes,
                                                    std::string_view t) const {
    if (cases_.empty()) return std::nullopt;
    const std::size_t masque = cases_.size() - 1;
    std::size_t k = Hacher(t) & masque;
    while (cases_[k] != 0) {
        if (textes[cases_[k] - 1] == t) return cases_[k] - 1;
        k = (k + 1) & masque;
    }
    return std::nullopt;
}

// ---------------------------------------------------------------- table of forms

TableFormes::TableFormes() : casiers_(kCasiers) {}

TableFormes::Casier& TableFormes::At(CleMot cle) { return casiers_[IndiceCasier(cle)]; }
const TableFormes::Casier& TableFormes::At(CleMot cle) const { return casiers_[IndiceCasier(cle)]; }

std::uint32_t TableFormes::Ajouter(CleMot cle, std::string_view forme, Origine origine, std::string_view source) {
    Casier& c = At(cle);
    if (c.formes.size() >= MAX_FORMES_CASIER)
        LimiteDepassee("MAX_FORMES_CASIER", MAX_FORMES_CASIER,
                       Joindre("formes dans "_cp, TexteCasier(cle), " de la table des formes, en lisant "_cp, source));
    const auto i = static_cast<std::uint32_t>(c.formes.size());
    c.formes.emplace_back(forme);
    c.origines.push_back(origine);
    c.lemmes.emplace_back();
    c.categories.emplace_back();
    c.flexions.emplace_back();
    c.index.Inserer(c.formes, i);
    ++total_;
    return i;
}

void TableFormes::DefinirInterpretation(CleMot cle, std::uint32_t i, std::string lemme, std::string_view categorie,
                                        std::string_view flexion) {
    Casier& c = At(cle);
    c.lemmes[i] = std::move(lemme);
    c.categories[i].assign(categorie);
    c.flexions[i].assign(flexion);
}

std::optional<EntreeForme> TableFormes::Chercher(std::string_view forme) const {
    return Chercher(forme, classe_mot(forme));
}

std::optional<EntreeForme> TableFormes::Chercher(std::string_view forme, CleMot cle) const {
    const Casier& c = At(cle);
    const auto i = c.index.Trouver(c.formes, forme);
    if (!i) return std::nullopt;
    return Entree(cle, *i);
}

std::size_t TableFormes::TailleCasier(CleMot cle) const { return At(cle).formes.size(); }

EntreeForme TableFormes::Entree(CleMot cle, std::uint32_t i) const {
    const Casier& c = At(cle);
    return {c.formes[i], c.origines[i], c.lemmes[i], c.categories[i], c.flexions[i]};
}

void TableFormes::Vider() {
    for (auto& c : casiers_) c = Casier{};
    total_ = 0;
}

// ---------------------------------------------------------------- interpretations

LectureChargee InterpreterLigne(std::string_view forme, std::string_view droite) {
    LectureChargee r;
    if (droite.find('/') == std::string_view::npos) {
        const Interpretation i = CouperInterpretation(droite);
        r.categorie = i.categorie;
        r.flexion = i.flexion;
        r.lemme = i.lemme_code.empty() ? Minusculiser(forme) : decoder_lemme(forme, i.lemme_code);
        return r;
    }
    // Several readings: an open class keeps the raw list, except for four words that are above
    // all function words; closed classes only settle the word as a function word.
    bool ouverte = false;
    for (std::string_view marque : {".J", ".S", ".R", ".V", ".M"})
        if (droite.find(marque) != std::string_view::npos) ouverte = true;
    if (ouverte) {
        if (forme == "tu" || forme == "la" || forme == "lui" || forme == "plus")
            r.lemme = Joindre(forme, "_O*");
        else
            r.lemme.assign(droite);
    } else {
        r.lemme = Joindre(forme, "_O");
    }
    return r;
}

// ---------------------------------------------------------------- loaders

namespace {

template <class Fonction>
void PourChaqueCasier(Fonction&& f) {
    for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) f(l, c);
}

// Left field of a tab-separated store, blank lines skipped.
void ChargerChampGauche(TableFormes& table, const fs::path& racine, std::string_view dossier, Origine origine) {
    std::string contenu;
    PourChaqueCasier([&](int l, int c) {
        const fs::path fichier = FichierCasier(racine, dossier, l, c);
        const std::string source = TexteChemin(fichier);
        PourChaqueLigneNonVide(fichier, contenu, [&](std::string_view ligne) {
            table.Ajouter({l, c}, ligne.substr(0, ligne.find('\t')), origine, source);
        });
    });
}

// One word a line into the word's own bucket, short and known words skipped.
void ChargerMotsUniques(TableFormes& table, const fs::path& fichier, Origine origine, bool plier) {
    const std::string contenu = LireFichier(fichier);
    const std::string source = TexteChemin(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    std::string mot;
    while (lecteur.Suivante(ligne)) {
        if (plier) Minusculiser(ligne, mot);
        else mot.assign(ligne);
        if (mot.size() < 2) continue;
        const CleMot cle = classe_mot(mot);
        if (table.Chercher(mot, cle)) continue;
        table.Ajouter(cle, mot, origine, source);
    }
}

}  // namespace

void VerifierFinDeFichier(std::string_view contenu, const fs::path& fichier) {
    if (contenu.empty() || contenu.back() == '\n' || contenu.back() == '\r') return;
    const std::size_t debut = contenu.find_last_of("\r\n");
    const std::string_view derniere = debut == std::string_view::npos ? contenu : contenu.substr(debut + 1);
    const std::size_t virgule = derniere.find(',');
    bool complete = virgule != std::string_view::npos;
    if (complete)
        for (std::string_view lecture : Decouper(derniere.substr(virgule + 1), "/"))
            if (lecture.empty() || lecture.find('.') == std::string_view::npos || lecture.back() == '.')
                complete = false;
    if (complete) return;
    long long numero = 0;
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) numero = lecteur.Numero();
    throw ErreurExecution(Joindre("Fichier de ressources coupé : la dernière ligne est incomplète (« "_cp, derniere,
                                  " ») : "_cp, TexteChemin(fichier), ", ligne "_cp, std::to_string(numero),
                                  ". Vérifiez les ressources (verifier-ressources) ou réinstallez-les."_cp));
}

void ChargerDico(TableFormes& table, const fs::path& racine, bool avecInterpretations) {
    ExigerDictionnaireComplet(RepriseOlbrin(racine));
    std::string contenu;
    PourChaqueCasier([&](int l, int c) {
        const fs::path fichier = FichierCasier(racine, DOSSIER_DICO, l, c);
        LireFichier(fichier, contenu);
        VerifierFinDeFichier(contenu, fichier);
        const std::string source = TexteChemin(fichier);
        LecteurLignes lecteur(contenu);
        std::string_view ligne;
        while (lecteur.Suivante(ligne)) {
            // The slot is taken before the blank test: a blank line keeps its place.
            const std::size_t virgule = ligne.find(',');
            const std::string_view forme = ligne.substr(0, virgule);
            const std::string_view droite = virgule == std::string_view::npos ? std::string_view{} : ligne.substr(virgule + 1);
            const std::uint32_t i = table.Ajouter({l, c}, forme, Origine::DICO, source);
            if (!avecInterpretations || ligne.empty()) continue;
            LectureChargee lecture = InterpreterLigne(forme, droite);
            table.DefinirInterpretation({l, c}, i, std::move(lecture.lemme), lecture.categorie, lecture.flexion);
        }
    });
}

void ChargerCorrectionsFormes(TableFormes& table, const fs::path& racine) {
    ChargerChampGauche(table, racine, DOSSIER_RESCOR, Origine::COR);
}

void ChargerAccents(TableFormes& table, const fs::path& racine) {
    ChargerChampGauche(table, racine, DOSSIER_ACCENTS, Origine::CORACC);
}

void ChargerEtrangers(TableFormes& table, const fs::path& racine) {
    std::string contenu;
    PourChaqueCasier([&](int l, int c) {
        const fs::path fichier = Chemin(racine, Joindre(DOSSIER_ETRANGERS, "/", NomFichierEtrangers(l, c)));
        const std::string source = TexteChemin(fichier);
        PourChaqueLigneNonVide(fichier, contenu, [&](std::string_view ligne) {
            table.Ajouter(classe_mot(ligne), ligne, Origine::ETR, source);
        });
    });
}

void ChargerComposants(TableFormes& table, const fs::path& racine) {
    ChargerMotsUniques(table, FichierUtilitaire(racine, "COMPOSANTS.txt"), Origine::COMP, false);
}

void ChargerAbreviationsFormes(TableFormes& table, const fs::path& racine) {
    ChargerMotsUniques(table, FichierUtilitaire(racine, "ABREVIATIONS.txt"), Origine::ABR, false);
}

void ChargerRomains(TableFormes& table, const fs::path& racine) {
    ChargerMotsUniques(table, FichierUtilitaire(racine, "romains.txt"), Origine::ROM, true);
}

// ---------------------------------------------------------------- corrections

TableCorrections::TableCorrections() : casiers_(kCasiers) {}

void TableCorrections::Ajouter(std::string_view fautive, std::string_view correcte, std::string_view source) {
    const CleMot cle = classe_mot(fautive);
    Casier& c = casiers_[IndiceCasier(cle)];
    if (c.fautives.size() >= MAX_CORRECTIONS_CASIER)
        LimiteDepassee("MAX_CORRECTIONS_CASIER", MAX_CORRECTIONS_CASIER,
                       Joindre("corrections dans "_cp, TexteCasier(cle), ", en lisant "_cp, source));
    c.fautives.emplace_back(fautive);
    c.correctes.emplace_back(correcte);
    c.index.Inserer(c.fautives, static_cast<std::uint32_t>(c.fautives.size() - 1));
    ++total_;
}

std::optional<std::string_view> TableCorrections::Chercher(std::string_view fautive) const {
    const Casier& c = casiers_[IndiceCasier(classe_mot(fautive))];
    const auto i = c.index.Trouver(c.fautives, fautive);
    if (!i) return std::nullopt;
    return std::string_view(c.correctes[*i]);
}

void TableCorrections::Vider() {
    for (auto& c : casiers_) c = Casier{};
    total_ = 0;
}

void ChargerTableCorrections(TableCorrections& table, const fs::path& racine) {
    std::string contenu;
    PourChaqueCasier([&](int l, int c) {
        const fs::path fichier = FichierCasier(racine, DOSSIER_RESCOR, l, c);
        const std::string source = TexteChemin(fichier);
        PourChaqueLigneNonVide(fichier, contenu, [&](std::string_view ligne) {
            const std::size_t tab = ligne.find('\t');
            const std::string_view droite = tab == std::string_view::npos ? std::string_view{} : ligne.substr(tab + 1);
            table.Ajouter(ligne.substr(0, tab), droite.substr(0, droite.find('\t')), source);
        });
    });
}

// ---------------------------------------------------------------- word lists

TableMots::TableMots(std::string nomLimite, std::size_t maxParCasier)
    : nomLimite_(std::move(nomLimite)), max_(maxParCasier), casiers_(kCasiers) {}

void TableMots::Ajouter(std::string_view mot, std::string_view source) {
    const CleMot cle = classe_mot(mot);
    Casier& c = casiers_[IndiceCasier(cle)];
    if (c.mots.size() >= max_)
        LimiteDepassee(nomLimite_, static_cast<long long>(max_),
                       Joindre("mots dans "_cp, TexteCasier(cle), ", en lisant "_cp, source));
    c.mots.emplace_back(mot);
    c.index.Inserer(c.mots, static_cast<std::uint32_t>(c.mots.size() - 1));
    ++total_;
}

bool TableMots::Contient(std::string_view mot) const {
    const Casier& c = casiers_[IndiceCasier(classe_mot(mot))];
    return c.index.Trouver(c.mots, mot).has_value();
}

void TableMots::Vider() {
    for (auto& c : casiers_) c = Casier{};
    total_ = 0;
}

TableMots NouvelleTableAbreviations() { return TableMots("MAX_ABREVIATIONS_CASIER", MAX_ABREVIATIONS_CASIER); }

void ChargerTableAbreviations(TableMots& table, const fs::path& racine) {
    const fs::path fichier = FichierUtilitaire(racine, "ABREVIATIONS.txt");
    const std::string source = TexteChemin(fichier);
    for (const auto& mot : LireListeBornee(fichier, "", 0)) table.Ajouter(mot, source);
}

std::vector<std::string> LireListeBornee(const fs::path& fichier, std::string_view nomLimite, std::size_t max) {
    std::string contenu;
    std::vector<std::string> lignes;
    PourChaqueLigneNonVide(fichier, contenu, [&](std::string_view ligne) {
        if (max != 0 && lignes.size() >= max)
            LimiteDepassee(nomLimite, static_cast<long long>(max), Joindre("lignes dans "_cp, TexteChemin(fichier)));
        lignes.emplace_back(ligne);
    });
    return lignes;
}

std::vector<std::string> ChargerPrefixes(const fs::path& racine) {
    return LireListeBornee(FichierUtilitaire(racine, "PREFIXES.txt"), "MAX_PREFIXES", MAX_PREFIXES);
}

std::vector<std::string> ChargerNombres(const fs::path& racine) {
    return LireListeBornee(FichierUtilitaire(racine, "nombres.txt"), "MAX_NOMBRES", MAX_NOMBRES);
}

}  // namespace telvoris
