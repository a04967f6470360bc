#include "core/dialogue.hpp"

#include "core/nombres.hpp"

namespace telvoris {

int LargeurBarre(long long i, long long n) {
    if (n <= 0) return 0;
    return static_cast<int>(Round(static_cast<double>(i) * LARGEUR_BARRE / static_cast<double>(n))) + 1;
}

}  // namespace telvoris
