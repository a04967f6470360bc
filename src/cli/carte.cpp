#include "cli/carte.hpp"

#include <filesystem>
#include <iostream>
#include <optional>
#include <string>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "stats/carte_scene.hpp"

namespace telvoris {

namespace {

void UsageCarte() {
    std::cerr << "Usage : telvoris carte FICHIER --svg SORTIE [options]\n"
                 "  FICHIER : un fichier de projection (_PROJ : carte plane ; _PLANISPH_ : planisphère)\n"
                 "  --codage FICHIER      colore les étiquettes par un fichier de codage (item, tabulation, code 0 à 4)\n"
                 "  --mode N              mode de coloration (plan : 1 Aucune, 2 4 Couleurs, 3 Mise en gras ;\n"
                 "                        planisphère : 1 Aucune, 2 4 Couleurs, 3 2 couleurs, 4 2 couleurs graduées)\n"
                 "  --corps N             taille de la police (défaut 8)\n"
                 "  --gras                plan : étiquettes en gras\n"
                 "  --saillantes          planisphère : colonnes « Saillantes »\n"
                 "  --contributions K     marque les contributions de l'axe (plan : 1, 2) ou du facteur (planisphère : 1 à 3)\n"
                 "  --rotation N          planisphère : N rotations de 90°\n"
                 "  --detail NOM          planisphère : la vue de détail autour de l'item NOM\n"
                 "  --zoom NOM            plan : le zoom autour de l'étiquette NOM\n";
}

bool Entier(const std::string& s, int& v) {
    try {
        std::size_t n = 0;
        v = std::stoi(s, &n);
        return n == s.size();
    } catch (...) {
        return false;
    }
}

template <class Carte>
std::optional<std::size_t> TrouverItem(const Carte& c, const std::string& nom) {
    for (std::size_t i = 0; i < c.Etiquettes().size(); ++i)
        if (c.Etiquettes()[i].nom == nom) return i;
    return std::nullopt;
}

}  // namespace

int CommandeCarte(int argc, char** argv) {
    std::optional<std::filesystem::path> fichier, sortie, codage;
    std::optional<int> mode;
    int corps = 8, contributions = 0, rotations = 0;
    bool gras = false, saillantes = false;
    std::optional<std::string> detail, zoom;
    for (int i = 2; i < argc; ++i) {
        const std::string a = argv[i];
        auto valeur = [&]() -> std::optional<std::string> {
            if (i + 1 >= argc) return std::nullopt;
            return std::string(argv[++i]);
        };
        auto entier = [&](int& v) {
            const auto s = valeur();
            return s && Entier(*s, v);
        };
        bool ok = true, inconnue = false;
        if (a == "--help") {
            UsageCarte();
            return 0;
        }
        if (a == "--svg") {
            const auto v = valeur();
            ok = v.has_value();
            if (ok) sortie = std::filesystem::path(*v);
        } else if (a == "--codage") {
            const auto v = valeur();
            ok = v.has_value();
            if (ok) codage = std::filesystem::path(*v);
        } else if (a == "--mode") {
            int m = 0;
            ok = entier(m) && m >= 1 && m <= 4;
            mode = m;
        } else if (a == "--corps") {
            ok = entier(corps) && corps >= 4 && corps <= 72;
        } else if (a == "--contributions") {
            ok = entier(contributions) && contributions >= 1 && contributions <= 3;
        } else if (a == "--rotation") {
            ok = entier(rotations) && rotations >= 0;
        } else if (a == "--gras") {
            gras = true;
        } else if (a == "--saillantes") {
            saillantes = true;
        } else if (a == "--detail" || a == "--zoom") {
            const auto v = valeur();
            ok = v.has_value();
            if (ok) (a == "--detail" ? detail : zoom) = Utf8VersCp1252(*v);
        } else if (!a.starts_with("-") && !fichier) {
            fichier = std::filesystem::path(a);
        } else {
            std::cerr << "Option inconnue : " << a << "\n";
            ok = false;
            inconnue = true;
        }
        if (!ok) {
            if (!inconnue) std::cerr << "Valeur manquante ou invalide pour " << a << "\n";
            UsageCarte();
            return 2;
        }
    }
    if (!fichier || !sortie) {
        UsageCarte();
        return 2;
    }
    try {
        const std::string contenu = LireFichier(*fichier);
        const bool globe = !contenu.empty() && contenu[0] == '&';
        const int m = mode.value_or(codage ? 2 : 1);
        if (m != 1 && !codage) {
            std::cerr << "Le mode de coloration " << m << " demande un fichier de codage (--codage)\n";
            return 2;
        }
        carte::Scene scene;
        std::size_t n = 0;
        if (globe) {
            carte::ParametresGlobe p;
            p.modeCouleur = m;
            p.colonnes = saillantes ? 2 : 1;
            p.corps = corps;
            auto c = carte::CarteGlobe::Lire(*fichier, p, codage);
            for (int k = 0; k < rotations % 4; ++k) c.Tourner();
            if (contributions) c.MarquerContributions(contributions);
            if (detail) {
                const auto i = TrouverItem(c, *detail);
                if (!i) {
                    std::cerr << "Item introuvable dans la carte : " << Cp1252VersUtf8(*detail) << "\n";
                    return 1;
                }
                scene = carte::SceneDetail(c, c.DetailAutour(*i));
            } else {
                scene = carte::SceneGlobe(c);
            }
        } else {
            if (m == 4) {
                std::cerr << "La carte plane n'a que les modes de coloration 1 à 3\n";
                return 2;
            }
            carte::ParametresPlan p;
            p.modeCouleur = m;
            p.corps = corps;
            p.gras = gras;
            auto c = carte::CartePlan::Lire(*fichier, p, codage);
            if (contributions) {
                if (contributions > 2) {
                    std::cerr << "La carte plane n'a que les axes 1 et 2\n";
                    return 2;
                }
                c.MarquerContributions(contributions);
            }
            if (zoom) {
                const auto i = TrouverItem(c, *zoom);
                if (!i) {
                    std::cerr << "Item introuvable dans la carte : " << Cp1252VersUtf8(*zoom) << "\n";
                    return 1;
                }
                const auto z = c.ZoomEtiquette(*i);
                scene = carte::ScenePlan(c, &z);
            } else {
                scene = carte::ScenePlan(c);
            }
        }
        n = scene.textes.size();
        EcrireFichier(*sortie, carte::SceneEnSvg(scene, Utf8VersCp1252(fichier->filename().string())));
        std::cout << n << " étiquettes écrites dans " << sortie->string() << "\n";
    } catch (const ErreurExecution& e) {
        std::cerr << Cp1252VersUtf8(e.what()) << '\n';
        return 1;
    } catch (const FinProgramme& e) {
        std::cout << Cp1252VersUtf8(e.what()) << '\n';
        return 3;
    }
    return 0;
}

}  // namespace telvoris
