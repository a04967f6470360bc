#include "core/hachage.hpp"

namespace telvoris {

std::size_t IndexTextes::Sonder(std::string_view t, std::uint64_t h) const {
    const std::size_t masque = cases_.size() - 1;
    std::size_t c = static_cast<std::size_t>(h) & masque;
    while (cases_[c] != kAbsent) {
        const std::uint32_t i = cases_[c];
        if (hachages_[i] == h && textes_[i] == t) return c;
        c = (c + 1) & masque;
    }
    return c;
}

std::uint32_t IndexTextes::Trouver(std::string_view t) const {
    if (n_ == 0) return kAbsent;
    return cases_[Sonder(t, HachageTexte{}(t))];
}

std::uint32_t IndexTextes::Inserer(std::string_view t, bool& nouveau) {
    if ((n_ + 1) * 2 > cases_.size()) Agrandir();
    const std::uint64_t h = HachageTexte{}(t);
    const std::size_t c = Sonder(t, h);
    if (cases_[c] != kAbsent) {
        nouveau = false;
        return cases_[c];
    }
    nouveau = true;
    const auto i = static_cast<std::uint32_t>(n_++);
    if (textes_.size() < n_) {
        textes_.emplace_back(t);
        hachages_.push_back(h);
    } else {
        textes_[i].assign(t);
        hachages_[i] = h;
    }
    cases_[c] = i;
    return i;
}

void IndexTextes::Agrandir() {
    const std::size_t taille = cases_.empty() ? 16 : cases_.size() * 2;
    cases_.assign(taille, kAbsent);
    for (std::uint32_t i = 0; i < n_; ++i) {
        std::size_t c = static_cast<std::size_t>(hachages_[i]) & (taille - 1);
        while (cases_[c] != kAbsent) c = (c + 1) & (taille - 1);
        cases_[c] = i;
    }
}

void IndexTextes::Vider() {
    // Each text in use empties its own slot; the table keeps its size.
    for (std::uint32_t i = 0; i < n_; ++i) {
        std::size_t c = static_cast<std::size_t>(hachages_[i]) & (cases_.size() - 1);
        while (cases_[c] != i) c = (c + 1) & (cases_.size() - 1);
        cases_[c] = kAbsent;
    }
    n_ = 0;
}

}  // namespace telvoris
