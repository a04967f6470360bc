#include "lexicon/groupes.hpp"

#include <algorithm>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "lexicon/dictionnaire.hpp"

namespace telvoris {

namespace {
int ClasseLettre(std::string_view forme) { return classe_mot(forme).ClasseInitiale; }
}  // namespace

GroupesContexte::GroupesContexte() : groupes_(MAX_CLASSE_INITIALE + 1), mots_(MAX_CLASSE_INITIALE + 1) {}

void GroupesContexte::AjouterEntree(GroupeContexte groupe, std::string_view source) {
    auto& classe = groupes_[static_cast<std::size_t>(ClasseLettre(groupe.forme))];
    if (classe.size() >= MAX_GROUPES_CLASSE)
        LimiteDepassee("MAX_GROUPES_CLASSE", MAX_GROUPES_CLASSE,
                       Joindre("groupes de mots d'une même initiale, en lisant "_cp, source));
    for (std::string_view mot : Decouper(groupe.forme, " ")) {
        if (mot.empty() || EstMotDeGroupe(mot)) continue;
        auto& mots = mots_[static_cast<std::size_t>(ClasseLettre(mot))];
        if (mots.size() >= MAX_MOTS_GROUPES_CLASSE)
            LimiteDepassee("MAX_MOTS_GROUPES_CLASSE", MAX_MOTS_GROUPES_CLASSE,
                           Joindre("mots de groupes d'une même initiale, en lisant "_cp, source));
        mots.emplace_back(mot);
    }
    classe.push_back(std::move(groupe));
}

void GroupesContexte::Ajouter(const GroupeContexte& groupe, std::string_view source) {
    AjouterEntree(groupe, source);
    if (!groupe.forme.empty() && groupe.forme.back() == 'e') {
        GroupeContexte elide = groupe;
        elide.forme.back() = '\'';
        AjouterEntree(std::move(elide), source);
    }
}

const GroupeContexte* GroupesContexte::Chercher(std::string_view forme) const {
    for (const auto& g : groupes_[static_cast<std::size_t>(ClasseLettre(forme))])
        if (g.forme == forme) return &g;
    return nullptr;
}

bool GroupesContexte::EstMotDeGroupe(std::string_view mot) const {
    const auto& mots = mots_[static_cast<std::size_t>(ClasseLettre(mot))];
    return std::find(mots.begin(), mots.end(), mot) != mots.end();
}

std::size_t GroupesContexte::NombreGroupes() const {
    std::size_t n = 0;
    for (const auto& c : groupes_) n += c.size();
    return n;
}

std::size_t GroupesContexte::NombreMots() const {
    std::size_t n = 0;
    for (const auto& c : mots_) n += c.size();
    return n;
}

void GroupesContexte::Vider() {
    for (auto& c : groupes_) c.clear();
    for (auto& c : mots_) c.clear();
}

void ChargerGroupesContexte(GroupesContexte& table, const std::filesystem::path& racine) {
    table.Vider();
    std::string contenu;
    for (int type = 1; type <= 3; ++type) {
        static constexpr std::string_view kFichiers[] = {"preverb.txt", "prenom.txt", "prevernom.txt"};
        const fs::path fichier = FichierUtilitaire(racine, kFichiers[type - 1]);
        const std::string source = TexteChemin(fichier);
        PourChaqueLigneNonVide(fichier, contenu, [&](std::string_view ligne) {
            const auto champs = Decouper(ligne, "\t");
            auto champ = [&](std::size_t n) { return n <= champs.size() ? std::string(champs[n - 1]) : std::string(); };
            GroupeContexte g;
            g.forme = champ(1);
            g.type = type;
            if (type == 1) {
                g.valeur_verbe = champ(2);
                g.valeur_classe = champ(3);
            } else if (type == 2) {
                g.valeur_nom = champ(2);
            } else {
                g.valeur_nom = champ(2);
                g.valeur_verbe = champ(3);
                g.valeur_classe = champ(4);
            }
            table.Ajouter(g, source);
        });
    }
}

std::vector<Postclitique> ChargerPostclitiquesDesamb(const std::filesystem::path& racine) {
    std::vector<Postclitique> r;
    const fs::path fichier = FichierUtilitaire(racine, "POSTCLIT_DESAMB.txt");
    for (const auto& ligne : LireListeBornee(fichier, "MAX_POSTCLITIQUES_DESAMB", MAX_POSTCLITIQUES_DESAMB)) {
        const std::size_t tab = ligne.find('\t');
        if (tab == std::string::npos) r.push_back({ligne, ""});
        else r.push_back({ligne.substr(0, tab), ligne.substr(tab + 1)});
    }
    return r;
}

int ClasseVerbe(bool a, bool b, bool c) {
    if (a && b && c) return 4;
    if (a && b) return 5;
    if (a && c) return 6;
    if (b && c) return 7;
    if (a) return 1;
    if (b) return 2;
    if (c) return 3;
    return 0;
}

std::vector<CategorieVerbe> ChargerCategoriesVerbes(const std::filesystem::path& racine) {
    const fs::path fichier = FichierUtilitaire(racine, "CATEGORIES_DE_VERBES_.txt");
    const std::string contenu = LireFichier(fichier);
    std::vector<CategorieVerbe> r;
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    bool entete = true;
    while (lecteur.Suivante(ligne)) {
        if (entete) {
            entete = false;
            continue;
        }
        const auto champs = Decouper(ligne, "\t");
        auto marque = [&](std::size_t n) { return n <= champs.size() && champs[n - 1] == "x"; };
        const int classe = ClasseVerbe(marque(2), marque(3), marque(4));
        if (classe == 0) continue;
        if (r.size() >= MAX_VERBES_CATEGORIES)
            LimiteDepassee("MAX_VERBES_CATEGORIES", MAX_VERBES_CATEGORIES, Joindre("verbes dans "_cp, TexteChemin(fichier)));
        r.push_back({std::string(champs[0]), classe});
    }
    return r;
}

}  // namespace telvoris
