#include "stats/carte_commun.hpp"

#include <algorithm>
#include <cmath>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"
#include "stats/commun.hpp"

namespace telvoris::carte {

Couleur CouleurDuCode(int code) {
    static constexpr std::array<Couleur, 5> kTable = {NOIR, ROUGE, BLEU, MAGENTA, VERT_FONCE};
    if (code < 0 || code > 4) return NOIR;
    return kTable[static_cast<std::size_t>(code)];
}

Taille MesureApprochee(std::string_view texte, int corps, bool gras) {
    // A proportional sans-serif font: about 0.55 em a character, 0.6 in bold; the line is 1.25 em.
    const double em = corps * 20.0;
    const double parCaractere = em * (gras ? 0.6 : 0.55);
    return {std::round(parCaractere * static_cast<double>(texte.size())), std::round(em * 1.25)};
}

std::string_view NomSansBlancFinal(std::string_view nom) {
    if (!nom.empty() && nom.back() == ' ') nom.remove_suffix(1);
    return nom;
}

Codage Codage::Lire(const std::filesystem::path& fichier) {
    Codage c;
    const std::string contenu = LireFichier(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        auto ou = [&] { return Joindre(TexteChemin(fichier), ", ligne "_cp, std::to_string(lecteur.Numero())); };
        const auto tab = ligne.find('\t');
        if (tab == std::string_view::npos)
            throw ErreurExecution(Joindre("Ligne sans tabulation dans le fichier de codage "_cp, ou()));
        const std::string_view item = NomSansBlancFinal(ligne.substr(0, tab));
        const long long code = stats::LireEntier(ligne.substr(tab + 1), ou());
        if (code < 0 || code > 4)
            throw ErreurExecution(Joindre("Code de couleur hors de 0 à 4 ("_cp, std::to_string(code), ") dans "_cp, ou()));
        auto& classe = c.classes_[static_cast<std::size_t>(ClasserItem(item, Copie::Statistiques).ClasseInitiale)];
        if (classe.size() >= MAX_CODAGE_CLASSE)
            LimiteDepassee("MAX_CODAGE_CLASSE", static_cast<long long>(MAX_CODAGE_CLASSE),
                           Joindre("entrées d'une même initiale dans "_cp, TexteChemin(fichier)));
        classe.push_back({std::string(item), static_cast<int>(code)});
    }
    return c;
}

std::optional<int> Codage::CodePour(std::string_view nom) const {
    std::optional<int> code;
    const auto& classe = classes_[static_cast<std::size_t>(ClasserItem(nom, Copie::Statistiques).ClasseInitiale)];
    for (const auto& e : classe)
        if (nom.find(e.texte) != std::string_view::npos) code = e.code;
    return code;
}

std::size_t Codage::Taille() const {
    std::size_t n = 0;
    for (const auto& c : classes_) n += c.size();
    return n;
}

double LirePourcentage(std::string_view texte, std::string_view ou) { return stats::LireNombre(texte, ou); }

std::vector<Barre> Inertie::Barres(double echelleMax, double pasTotal, double gaucheDepart, double bas) const {
    std::vector<Barre> barres;
    if (pourcentages.empty()) return barres;
    std::vector<double> p;
    for (const auto& t : pourcentages) p.push_back(LirePourcentage(t, "pourcentage d'inertie"_cp));
    const double maximum = *std::max_element(p.begin(), p.end());
    // A map whose factors all carry 0 % has nothing to scale: no bars rather than a division by zero.
    if (!(maximum > 0)) return barres;
    const double echelle = Round(echelleMax / maximum, 0);
    const double pas = Round(pasTotal / static_cast<double>(p.size()), 0);
    for (std::size_t i = 0; i < p.size(); ++i) {
        const double h = Round(p[i] * echelle, 0);
        barres.push_back({pas * static_cast<double>(i) + gaucheDepart, bas - h, pas - 40, h});
    }
    return barres;
}

std::vector<std::string> Inertie::Lignes(std::string_view prefixe, std::size_t max) const {
    std::vector<std::string> lignes;
    for (std::size_t i = 0; i < pourcentages.size() && i < max; ++i)
        lignes.push_back(Joindre(prefixe, std::to_string(i + 1), " : ",
                                 FormaterDouble(Round(LirePourcentage(pourcentages[i], "pourcentage d'inertie"_cp), 2)),
                                 " %"));
    return lignes;
}

std::string FichierCarte::Ou(long long ligne) const {
    return Joindre(TexteChemin(chemin), ", ligne "_cp, std::to_string(ligne));
}

}  // namespace telvoris::carte
