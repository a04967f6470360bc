#include "core/parallele.hpp"

namespace telvoris {

unsigned FilsParDefaut() {
    const unsigned n = std::thread::hardware_concurrency();
    return n == 0 ? 1u : n;
}

unsigned FilsEffectifs(unsigned demande) { return demande == 0 ? FilsParDefaut() : demande; }

}  // namespace telvoris
