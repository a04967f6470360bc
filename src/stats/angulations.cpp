#include "stats/angulations.hpp"

#include <cmath>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"
#include "stats/commun.hpp"
#include "stats/fichiers_stats.hpp"

namespace telvoris {

using namespace stats;
namespace fs = std::filesystem;

namespace {

const double kPi = 4 * std::atan(1.0);

std::string Ou(const fs::path& f, long long ligne) {
    return Joindre(TexteChemin(f), ", ligne "_cp, std::to_string(ligne));
}

}  // namespace

double ArcCosinus(double x) {
    // Rounding can put the cosine of two equal or opposite points just outside [-1, 1].
    if (x >= 1) return 0;
    if (x <= -1) return kPi;
    return 2 * std::atan(1.0) + std::atan(-x / std::sqrt(1 - x * x));
}

double Angle(double longitude1, double latitude1, double longitude2, double latitude2) {
    double delta = std::fabs(longitude1 - longitude2);
    if (delta > 180) delta = 360 - delta;
    const double rad = kPi / 180;
    const double p1 = latitude1 * rad, p2 = latitude2 * rad;
    // cos(360 - Δ) = cos(λ2 - λ1): the folded difference gives the same cosine.
    const double cosd = std::cos(p1) * std::cos(p2) * std::cos(delta * rad) + std::sin(p1) * std::sin(p2);
    return ArcCosinus(cosd) * 180 / kPi;
}

void OperationAngulationP3(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto fichier = DemanderFichier(d, "Projection ?");
    if (!fichier) return;
    struct Point {
        std::string nom;
        double longitude, latitude;
    };
    std::vector<Point> points;
    const std::string contenu = LireFichier(*fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (lecteur.Numero() == 1 || ligne.empty() || ligne[0] == '#' || ligne[0] == '*') continue;
        const auto champs = Decouper(ligne, "\t");
        if (champs.size() < 3)
            throw ErreurExecution(Joindre("Ligne sans longitude ni latitude : « "_cp, ligne, " » ("_cp,
                                          Ou(*fichier, lecteur.Numero()), ")"));
        // Longitude and latitude are taken as integers, rounded as the conversion does.
        const double lon = Round(LireNombre(champs[1], Ou(*fichier, lecteur.Numero())));
        const double lat = Round(LireNombre(champs[2], Ou(*fichier, lecteur.Numero())));
        points.push_back({std::string(champs[0]), lon, lat});
    }
    const fs::path dossier = SansExtension(*fichier);
    CreerDossier(dossier);
    EcrivainFichier sortie(dossier / "ANGULATIONS_3.txt");
    for (std::size_t i = 0; i < points.size(); ++i) {
        d.Progression("Angulation P3", static_cast<long long>(i + 1), static_cast<long long>(points.size()));
        for (std::size_t j = 0; j < points.size(); ++j) {
            if (i == j) continue;
            const double a = Angle(points[i].longitude, points[i].latitude, points[j].longitude, points[j].latitude);
            // The names are written with a blank at their end, which the zone command expects.
            sortie.Ligne(Joindre(points[i].nom, " \t", points[j].nom, " \t", FormaterDouble(a)));
        }
    }
    d.MasquerProgression();
    sortie.Fermer();
    d.Afficher("Terminé"_cp);
}

void OperationZoneAngulation(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const std::string nomPivot = Reponse(d, "Pivot ?", "", "");
    const std::string pivot = nomPivot + " ";
    const std::string_view question = "Angulation zone proche, en degrés entiers ?"_cp;
    const long long angle1 = DemanderEntier(d, question, "", "");
    std::optional<long long> angle2;
    if (Reponse(d, "Souhaitez-vous colorer une deuxième zone (O/N) ?"_cp, "", "N") == "O")
        angle2 = DemanderEntier(d, question, "", "");
    const auto fichier = DemanderFichier(d, "Fichier d'angles ?");
    if (!fichier) return;
    const std::string contenu = LireFichier(*fichier);
    EcrivainFichier sortie(Chemin(fichier->parent_path(), Joindre("COLOR_", nomPivot, ".txt")));
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        const auto champs = Decouper(ligne, "\t");
        if (champs[0] != pivot) continue;
        if (champs.size() < 3)
            throw ErreurExecution(Joindre("Ligne sans angle : « "_cp, ligne, " » ("_cp, Ou(*fichier, lecteur.Numero()), ")"));
        const double a = LireNombre(champs[2], Ou(*fichier, lecteur.Numero()));
        if (a < static_cast<double>(angle1)) sortie.Ligne(Joindre(champs[1], "\t1"));
        else if (angle2 && a < static_cast<double>(*angle2)) sortie.Ligne(Joindre(champs[1], "\t2"));
    }
    sortie.Fermer();
    d.Afficher("Terminé"_cp);
}

void OperationComparerAngulations(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    d.Afficher("Attention, les fichiers doivent avoir exactement la même forme, mêmes lignes et colonnes"_cp);
    const auto liste = DemanderFichier(d, "Liste ?");
    if (!liste) return;
    const std::string texteListe = LireFichier(*liste);
    LecteurLignes lecteurListe(texteListe);
    std::string_view paire;
    double grandTotal = 0;
    long long grandNombre = 0;
    // Each line of the list stands for one pair, whose two files the dialogs then give.
    while (lecteurListe.Suivante(paire)) {
        if (paire.empty()) continue;
        const auto f1 = DemanderFichier(d, "Fichier d'angulation 1");
        if (!f1) return;
        const auto f2 = DemanderFichier(d, "Fichier d'angulation 2");
        if (!f2) return;
        const std::string t1 = LireFichier(*f1), t2 = LireFichier(*f2);
        EcrivainFichier compar(ACote(*f1, "_COMPAR.txt"));
        EcrivainFichier synthese(ACote(*f1, "_COMPARSYNTHESE.txt"));
        LecteurLignes l1(t1), l2(t2);
        std::string_view a, b;
        std::string pivot;
        double total = 0;
        long long nombre = 0;
        const auto clore = [&] {
            if (nombre == 0) return;
            synthese.Ligne(Joindre(pivot, "\t", FormaterDouble(Round(total / static_cast<double>(nombre), 2))));
            total = 0;
            nombre = 0;
        };
        // No check of the shapes: the lines are paired by their number, up to the shorter file.
        while (l1.Suivante(a) && l2.Suivante(b)) {
            if (a.empty()) continue;
            const auto c1 = Decouper(a, "\t"), c2 = Decouper(b, "\t");
            if (c1.size() < 3 || c2.size() < 3)
                throw ErreurExecution(Joindre("Ligne d'angle incomplète ("_cp,
                                              Ou(c1.size() < 3 ? *f1 : *f2, l1.Numero()), ")"));
            const double x = LireNombre(c1[2], Ou(*f1, l1.Numero()));
            const double y = LireNombre(c2[2], Ou(*f2, l2.Numero()));
            if (c1[0] != pivot) {
                clore();
                pivot.assign(c1[0]);
            }
            const double ecart = std::fabs(x - y);
            compar.Ligne(Joindre(c1[0], "\t", c1[1], "\t", FormaterDouble(ecart), "\t", FormaterDouble(x), "\t",
                                 FormaterDouble(y)));
            total += ecart;
            ++nombre;
            grandTotal += ecart;
            ++grandNombre;
        }
        clore();
        compar.Fermer();
        synthese.Fermer();
    }
    const double moyenne = Diviser(grandTotal, static_cast<double>(grandNombre), "aucune ligne comparée"_cp);
    d.Afficher(Joindre("Terminé. "_cp, "\r\n", "Ecart moyen = ", FormaterDouble(Round(moyenne, 2))));
}

}  // namespace telvoris
