// axisolve: the correspondence-analysis solver that the AFC run starts. It reads a matrix text
// file, computes the analysis and writes the nine result files named by its options.
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <iostream>
#include <string>

#include "solver/afc.hpp"

namespace {

constexpr int kFait = 0, kErreur = 1, kUsage = 2;

void Usage(std::ostream& os) {
    os << "Usage : axisolve --eigenvalues=F --rcoor=F --rcontrib=F --rcos2=F --rdisto=F\n"
          "                 --ccoor=F --ccontrib=F --ccos2=F --cdisto=F [--facteurs=K] MATRICE.txt\n"
          "  Analyse des correspondances de MATRICE.txt (en-tête : une tabulation avant chaque nom de\n"
          "  colonne ; puis par ligne son nom et une tabulation avant chaque cellule, entière >= 0).\n"
          "  Chaque option nomme un fichier de résultats : valeurs propres ; coordonnées, contributions,\n"
          "  cosinus carrés et distances des lignes (r...) et des colonnes (c...).\n"
          "  --facteurs=K : nombre de facteurs écrits (défaut "
       << axisolve::FACTEURS_PAR_DEFAUT << ", 0 = tous).\n";
}

// Seconds since `debut`, to the hundredth, and the processor seconds of all threads since the
// last call (since the start for `total`): on a shared machine the second figure says what the
// work itself cost.
std::string Duree(std::chrono::steady_clock::time_point debut, bool total = false) {
    static std::clock_t processeur = 0;
    if (total) processeur = 0;
    const std::clock_t maintenant = std::clock();
    const double secondes = std::chrono::duration<double>(std::chrono::steady_clock::now() - debut).count();
    const double cpu = static_cast<double>(maintenant - processeur) / CLOCKS_PER_SEC;
    processeur = maintenant;
    return axisolve::FormaterPoint(std::round(secondes * 100) / 100) + " s (" +
           axisolve::FormaterPoint(std::round(cpu * 100) / 100) + " s de processeur)";
}

}  // namespace

int main(int argc, char** argv) {
    using namespace axisolve;
    Sorties s;
    struct Option {
        const char* nom;
        std::string* cible;
    };
    const Option options[] = {{"--eigenvalues=", &s.eigen}, {"--rcoor=", &s.rcoor},     {"--rcontrib=", &s.rcontrib},
                              {"--rcos2=", &s.rcos2},       {"--rdisto=", &s.rdisto},   {"--ccoor=", &s.ccoor},
                              {"--ccontrib=", &s.ccontrib}, {"--ccos2=", &s.ccos2},     {"--cdisto=", &s.cdisto}};
    std::string matrice;
    int facteurs = FACTEURS_PAR_DEFAUT;
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        if (a == "--aide" || a == "--help" || a == "-h") {
            Usage(std::cout);
            return kFait;
        }
        bool reconnue = false;
        for (const auto& o : options) {
            const std::size_t l = std::strlen(o.nom);
            if (a.compare(0, l, o.nom) == 0) {
                *o.cible = a.substr(l);
                reconnue = true;
            }
        }
        if (reconnue) continue;
        if (a.rfind("--facteurs=", 0) == 0) {
            try {
                std::size_t fin = 0;
                facteurs = std::stoi(a.substr(11), &fin);
                if (fin != a.size() - 11 || facteurs < 0) throw std::invalid_argument(a);
            } catch (const std::exception&) {
                std::cerr << "axisolve : --facteurs attend un entier positif ou nul : " << a << "\n";
                return kUsage;
            }
            continue;
        }
        if (a.rfind("--", 0) == 0) {
            std::cerr << "axisolve : option inconnue : " << a << "\n";
            Usage(std::cerr);
            return kUsage;
        }
        if (!matrice.empty()) {
            std::cerr << "axisolve : une seule matrice est attendue (" << matrice << ", " << a << ")\n";
            return kUsage;
        }
        matrice = a;
    }
    for (const auto& o : options)
        if (o.cible->empty()) {
            std::cerr << "axisolve : option manquante : " << o.nom << "FICHIER\n";
            Usage(std::cerr);
            return kUsage;
        }
    if (matrice.empty()) {
        std::cerr << "axisolve : aucune matrice à analyser\n";
        Usage(std::cerr);
        return kUsage;
    }

    const auto debut = std::chrono::steady_clock::now();
    try {
        std::cout << "axisolve : lecture de " << matrice << std::endl;
        Matrice m = LireFichierMatrice(matrice);
        std::cout << "axisolve : " << m.lignes.size() << " lignes, " << m.colonnes.size() << " colonnes, lues en "
                  << Duree(debut) << std::endl;
        const auto calcul = std::chrono::steady_clock::now();
        const Resultat r = AnalyserEnPlace(m, facteurs);
        std::cout << "axisolve : inertie totale " << FormaterPoint(r.inertie) << ", " << r.facteursNonTriviaux
                  << " facteurs, " << r.valeurs.size() << " écrits ; calcul en " << Duree(calcul) << std::endl;
        const auto ecriture = std::chrono::steady_clock::now();
        EcrireResultats(m, r, s);
        std::cout << "axisolve : résultats écrits en " << Duree(ecriture) << std::endl;
    } catch (const ErreurSolveur& e) {
        std::cerr << "axisolve : " << e.what() << "\n";
        return kErreur;
    } catch (const std::bad_alloc&) {
        std::cerr << "axisolve : mémoire insuffisante pour cette matrice\n";
        return kErreur;
    }
    std::cout << "axisolve : terminé en " << Duree(debut, true) << std::endl;
    return kFait;
}
