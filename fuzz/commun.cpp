#include "commun.hpp"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "core/erreurs.hpp"

namespace telvoris::fuzz {

namespace {

struct Travail {
    fs::path chemin;
    Travail() {
        chemin = fs::temp_directory_path() / ("telvoris_fuzz_" + std::to_string(::getpid()));
        fs::create_directories(chemin);
    }
    ~Travail() {
        std::error_code ec;
        fs::remove_all(chemin, ec);
    }
};

Travail& LeTravail() {
    static Travail t;
    return t;
}

}  // namespace

const fs::path& DossierTravail() { return LeTravail().chemin; }

void ViderDossierTravail() {
    const fs::path& d = DossierTravail();
    std::error_code ec;
    for (const auto& e : fs::directory_iterator(d, ec)) fs::remove_all(e.path(), ec);
}

fs::path DossierSource() { return TELVORIS_SOURCE_DIR; }
fs::path RessourcesFixture() { return DossierSource() / "tests/fixtures/MORVENTA/morv_res"; }

void EcrireOctets(const fs::path& fichier, std::string_view octets) {
    fs::create_directories(fichier.parent_path());
    std::FILE* f = std::fopen(fichier.c_str(), "wb");
    if (!f) std::abort();
    if (!octets.empty() && std::fwrite(octets.data(), 1, octets.size(), f) != octets.size()) std::abort();
    std::fclose(f);
}

std::vector<std::string_view> Morceaux(std::string_view entree, std::size_t n) {
    std::vector<std::string_view> r;
    while (r.size() + 1 < n) {
        const std::size_t p = entree.find("@@@@\n");
        if (p == std::string_view::npos) break;
        r.push_back(entree.substr(0, p));
        entree.remove_prefix(p + 5);
    }
    r.push_back(entree);
    r.resize(n);
    return r;
}

void Accepter(const std::function<void()>& f) {
    try {
        f();
    } catch (const ErreurExecution&) {
    } catch (const FinProgramme&) {
    }
}

}  // namespace telvoris::fuzz
