#include "stats/carte_operations.hpp"

#include "core/jetons.hpp"
#include "core/texte.hpp"
#include "stats/commun.hpp"

namespace telvoris::carte {

namespace {

std::string Minuscules(std::string_view s) {
    std::string r;
    Minusculiser(s, r);
    return r;
}

// A prompt whose answer must be one of `choix` (compared without case); its rank from 1.
std::optional<int> Choisir(Dialogue& d, std::string_view question, std::string_view defaut,
                           const std::vector<std::string_view>& choix) {
    for (;;) {
        const auto r = d.Demander(question, "PARAMETRES", defaut);
        if (!r) return std::nullopt;
        const std::string rep = Minuscules(*r);
        for (std::size_t i = 0; i < choix.size(); ++i)
            if (rep == Minuscules(choix[i]) || rep == std::to_string(i + 1)) return static_cast<int>(i + 1);
        d.Afficher("Saisie erronée. Recommencez."_cp);
    }
}

std::optional<int> Corps(Dialogue& d, std::string_view question) {
    for (;;) {
        const auto r = d.Demander(question, "PARAMETRES", "8");
        if (!r) return std::nullopt;
        long long v;
        if (stats::EssayerEntier(*r, v) && v >= 4 && v <= 72) return static_cast<int>(v);
        d.Afficher("Saisie erronée. Recommencez."_cp);
    }
}

}  // namespace

std::optional<ParametresPlan> DemanderParametresPlan(Dialogue& d) {
    ParametresPlan p;
    const auto mode = Choisir(d, "Colorations : Aucune, 4 Couleurs, Mise en gras ?"_cp, "Aucune", {"Aucune", "4 Couleurs", "Mise en gras"});
    if (!mode) return std::nullopt;
    p.modeCouleur = *mode;
    const auto sur = Choisir(d, "Couleur de surimpression : noir, rouge, vert, bleu, magenta ?"_cp, "noir",
                             {"noir", "rouge", "vert", "bleu", "magenta"});
    if (!sur) return std::nullopt;
    p.surimpression = *sur - 1;
    const auto corps = Corps(d, "Police d'affichage : taille ?"_cp);
    if (!corps) return std::nullopt;
    p.corps = *corps;
    const auto gras = Choisir(d, "Police d'affichage : mise en gras (O/N) ?"_cp, "N", {"O", "N"});
    if (!gras) return std::nullopt;
    p.gras = *gras == 1;
    return p;
}

std::optional<ParametresGlobe> DemanderParametresGlobe(Dialogue& d) {
    ParametresGlobe p;
    const auto mode = Choisir(d, "Colorations : Aucune, 4 Couleurs, 2 couleurs, 2 couleurs graduées ?"_cp, "Aucune",
                              {"Aucune", "4 Couleurs", "2 couleurs", "2 couleurs graduées"_cp});
    if (!mode) return std::nullopt;
    p.modeCouleur = *mode;
    const auto col = Choisir(d, "Colonnes : Comme lignes, Saillantes ?"_cp, "Comme lignes", {"Comme lignes", "Saillantes"});
    if (!col) return std::nullopt;
    p.colonnes = *col;
    const auto corps = Corps(d, "Police d'affichage : corps ?"_cp);
    if (!corps) return std::nullopt;
    p.corps = *corps;
    return p;
}

std::optional<ChoixCarte> ChoisirFichiersCarte(Dialogue& d, bool codageDemande) {
    ChoixCarte c;
    const auto f = d.ChoisirFichier("AFC à afficher"_cp, stats::FILTRE_TXT_STATS);
    if (!f) return std::nullopt;
    c.fichier = *f;
    // The coding file is asked before the map is loaded.
    if (codageDemande) {
        c.codage = d.ChoisirFichier("Fichier de codage", stats::FILTRE_TXT_STATS);
        if (!c.codage) return std::nullopt;
    }
    return c;
}

namespace {

void Ajouter(std::string& t, std::string_view ligne) {
    t += ligne;
    t += "\r\n";
}

}  // namespace

std::string ResumePlan(const CartePlan& carte) {
    std::string t;
    Ajouter(t, Joindre(std::to_string(carte.Etiquettes().size()), " étiquettes : "_cp, std::to_string(carte.NombreColonnes()),
                       " colonnes, "_cp, std::to_string(carte.NombreLignes()), " lignes"_cp));
    if (const auto l = carte.Legende(); !l.empty()) Ajouter(t, l);
    for (const auto& l : carte.LignesInertie()) Ajouter(t, l);
    if (carte.NombreColonnes()) {
        Ajouter(t, "COLONNES");
        t += carte.TexteColonnes();
    }
    Ajouter(t, "LIGNES");
    t += carte.TexteLignes();
    return t;
}

std::string ResumeGlobe(const CarteGlobe& carte) {
    std::string t;
    Ajouter(t, Joindre("PLANISPHERE : "_cp, std::to_string(carte.Etiquettes().size()), " étiquettes : "_cp,
                       std::to_string(carte.NombreColonnes()), " colonnes, "_cp, std::to_string(carte.NombreLignes()),
                       " lignes"_cp));
    for (const auto& l : carte.LignesInertie()) Ajouter(t, l);
    Ajouter(t, "COLONNES");
    t += carte.TexteColonnes();
    Ajouter(t, "LIGNES");
    t += carte.TexteLignes();
    return t;
}

}  // namespace telvoris::carte

namespace telvoris {

void OperationVisualisation2(Contexte& ctx) {
    const auto p = carte::DemanderParametresPlan(ctx.dialogue);
    if (!p) return;
    const auto choix = carte::ChoisirFichiersCarte(ctx.dialogue, p->modeCouleur == 2 || p->modeCouleur == 3);
    if (!choix) return;
    const auto c = carte::CartePlan::Lire(choix->fichier, *p, choix->codage);
    ctx.dialogue.Resultat(carte::ResumePlan(c));
}

void OperationVisualisation3(Contexte& ctx) {
    const auto p = carte::DemanderParametresGlobe(ctx.dialogue);
    if (!p) return;
    const auto choix = carte::ChoisirFichiersCarte(ctx.dialogue, p->modeCouleur != 1);
    if (!choix) return;
    const auto c = carte::CarteGlobe::Lire(choix->fichier, *p, choix->codage);
    ctx.dialogue.Resultat(carte::ResumeGlobe(c));
}

}  // namespace telvoris
