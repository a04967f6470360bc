#include "lancer.hpp"

#include <sys/wait.h>

#include <array>
#include <cstdio>

#include "support/support.hpp"

namespace telvoris::test {

namespace {

std::string Citer(const std::string& s) {
    std::string r = "'";
    for (char c : s) {
        if (c == '\'') r += "'\\''";
        else r += c;
    }
    return r + "'";
}

}  // namespace

Execution Lancer(const std::vector<std::string>& arguments) {
    DossierTemporaire d;
    std::string commande = Citer(TELVORIS_EXE);
    for (const auto& a : arguments) commande += " " + Citer(a);
    commande += " </dev/null 2>" + Citer((d.Chemin() / "err").string());
    Execution e;
    FILE* p = popen(commande.c_str(), "r");
    std::array<char, 4096> tampon;
    std::size_t n;
    while ((n = fread(tampon.data(), 1, tampon.size(), p)) > 0) e.sortie.append(tampon.data(), n);
    const int s = pclose(p);
    e.statut = WIFEXITED(s) ? WEXITSTATUS(s) : -1;
    e.erreurs = Lire(d.Chemin() / "err");
    return e;
}

}  // namespace telvoris::test
