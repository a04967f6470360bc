// Matrix text files and the solver: the reader, then the analysis of what it accepted.
#include <cmath>
#include <cstdlib>

#include "commun.hpp"
#include "solver/afc.hpp"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t taille) {
    const std::string_view entree = telvoris::fuzz::Octets(data, taille);
    try {
        const axisolve::Matrice m = axisolve::LireMatrice(entree, "fuzz.txt");
        if (static_cast<std::size_t>(m.n.rows()) != m.lignes.size() ||
            static_cast<std::size_t>(m.n.cols()) != m.colonnes.size())
            std::abort();
        // Small enough to stay fast: the solver's work grows with the cube of the smaller side.
        if (m.n.rows() > 60 || m.n.cols() > 60) return 0;
        const axisolve::Resultat r = axisolve::Analyser(m, 5);
        if (!std::isfinite(r.inertie)) std::abort();
        for (Eigen::Index i = 0; i < r.valeurs.size(); ++i) axisolve::FormaterPoint(r.valeurs(i));
    } catch (const axisolve::ErreurSolveur&) {
    }
    return 0;
}
