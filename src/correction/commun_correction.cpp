#include "correction/commun_correction.hpp"

#include <charconv>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"

namespace telvoris {

bool EstMajuscule(unsigned char c) { return (c >= 65 && c <= 90) || c == 140 || (c >= 192 && c <= 223); }
bool EstMinuscule(unsigned char c) { return (c >= 97 && c <= 122) || c == 156 || c >= 224; }

int TypeCasse(std::string_view forme) {
    int lettres = 0, capitales = 0;
    for (char ch : forme) {
        const unsigned char c = Code(ch);
        if (EstMajuscule(c)) {
            ++lettres;
            ++capitales;
        } else if (EstMinuscule(c)) {
            ++lettres;
        }
    }
    if (lettres == capitales) return 2;
    if (!forme.empty() && EstMajuscule(Code(forme[0]))) return 1;
    if (capitales > 1) return 3;
    return 0;
}

void ChargerConnus(TableFormes& table, const fs::path& racine, const ChoixConnus& choix) {
    table.Vider();
    if (choix.dico) ChargerDico(table, racine, false);
    if (choix.etrangers) ChargerEtrangers(table, racine);
    if (choix.composants) ChargerComposants(table, racine);
    if (choix.abreviations) ChargerAbreviationsFormes(table, racine);
    if (choix.romains) ChargerRomains(table, racine);
    if (choix.rescor) ChargerCorrectionsFormes(table, racine);
    if (choix.accents) ChargerAccents(table, racine);
    if (choix.prefixes) {
        const fs::path fichier = FichierUtilitaire(racine, "PREFIXES.txt");
        const std::string source = TexteChemin(fichier);
        for (const std::string& p : ChargerPrefixes(racine)) table.Ajouter(classe_mot(p), p, Origine::COMP, source);
    }
}

namespace {
std::size_t IndiceCasier(CleMot cle) {
    return static_cast<std::size_t>(cle.ClasseInitiale) * (MAX_CLASSE_LONGUEUR + 1) +
           static_cast<std::size_t>(cle.ClasseLongueur);
}
}  // namespace

FormesFrequences::FormesFrequences() : casiers_((MAX_CLASSE_INITIALE + 1) * (MAX_CLASSE_LONGUEUR + 1)) {}

void FormesFrequences::Ajouter(std::string_view forme, long long frequence, std::string_view source) {
    auto& casier = casiers_[IndiceCasier(classe_mot(forme))];
    if (casier.size() >= MAX_FREQUENCES_CASIER)
        LimiteDepassee("MAX_FREQUENCES_CASIER", MAX_FREQUENCES_CASIER,
                       Joindre("formes dans une case de la table des fréquences, en lisant "_cp, source));
    if (casier.try_emplace(std::string(forme), frequence).second) ++total_;
}

void FormesFrequences::Charger(const fs::path& racine, long long minimum) {
    std::string contenu;
    for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
            const fs::path fichier = FichierCasier(racine, DOSSIER_FILTRAGE, l, c);
            LireFichier(fichier, contenu);
            const std::string source = TexteChemin(fichier);
            LecteurLignes lecteur(contenu);
            std::string_view ligne;
            while (lecteur.Suivante(ligne)) {
                if (ligne.empty()) continue;
                const std::size_t tab = ligne.find('\t');
                if (tab == std::string_view::npos) LigneSansTabulation(ligne, fichier, lecteur.Numero());
                const long long f = LireEntier(ligne.substr(tab + 1), fichier, lecteur.Numero());
                if (f < minimum) continue;
                Ajouter(ligne.substr(0, tab), f, source);
            }
        }
}

std::optional<long long> FormesFrequences::Frequence(std::string_view forme) const {
    if (forme.empty()) return std::nullopt;
    const auto& casier = casiers_[IndiceCasier(classe_mot(forme))];
    // The maps are keyed by std::string: build the key once per lookup.
    thread_local std::string cle;
    cle.assign(forme);
    const auto it = casier.find(cle);
    if (it == casier.end()) return std::nullopt;
    return it->second;
}

std::string Endroit(const fs::path& fichier, long long ligne) {
    return Joindre(TexteChemin(fichier), ", ligne "_cp, std::to_string(ligne));
}

void LigneSansTabulation(std::string_view ligne, const fs::path& fichier, long long numero) {
    throw ErreurExecution(Joindre("Ligne sans tabulation : « "_cp, ligne, " » ("_cp, Endroit(fichier, numero), ")"));
}

long long LireEntier(std::string_view texte, const fs::path& fichier, long long ligne) {
    std::string_view t = texte;
    const std::size_t tab = t.find('\t');
    if (tab != std::string_view::npos) t = t.substr(0, tab);
    while (!t.empty() && t.back() == ' ') t.remove_suffix(1);
    while (!t.empty() && t.front() == ' ') t.remove_prefix(1);
    long long v = 0;
    const char* debut = t.data();
    if (!t.empty() && t.front() == '+') ++debut;
    const auto r = std::from_chars(debut, t.data() + t.size(), v);
    if (t.empty() || r.ec != std::errc() || r.ptr != t.data() + t.size())
        throw ErreurExecution(Joindre("Conversion impossible en nombre entier : « "_cp, texte, " » ("_cp,
                                      Endroit(fichier, ligne), ")"));
    return v;
}

std::vector<std::string> ListeUtilitaire(const fs::path& racine, std::string_view nom, std::string_view limite,
                                         std::size_t max) {
    return LireListeBornee(FichierUtilitaire(racine, nom), limite, max);
}

std::optional<long long> DemanderEntier(Dialogue& dialogue, std::string_view texte, std::string_view titre,
                                        std::string_view defaut) {
    while (true) {
        const auto r = dialogue.Demander(texte, titre, defaut);
        if (!r) return std::nullopt;
        std::string_view t = *r;
        while (!t.empty() && t.front() == ' ') t.remove_prefix(1);
        while (!t.empty() && t.back() == ' ') t.remove_suffix(1);
        long long v = 0;
        const auto res = std::from_chars(t.data(), t.data() + t.size(), v);
        if (!t.empty() && res.ec == std::errc() && res.ptr == t.data() + t.size()) return v;
        dialogue.Afficher(Joindre("Réponse attendue : un nombre entier (« "_cp, *r, " »)."_cp));
    }
}

bool DansListe(const std::vector<std::string>& liste, std::string_view mot) {
    for (const std::string& m : liste)
        if (m == mot) return true;
    return false;
}

}  // namespace telvoris
