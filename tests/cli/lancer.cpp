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

Execution Executer(const std::string& commande, const DossierTemporaire& d) {
    Execution e;
    FILE* p = popen(commande.c_str(), "r");
    std::array<char, 4096> tampon;
    std::size_t n;
    while ((n = fread(tampon.data(), 1, tampon.size(), p)) > 0) e.sortie.append(tampon.data(), n);
    const int s = pclose(p);
    e.statut = WIFEXITED(s) ? WEXITSTATUS(s) : -1;
    if (fs::exists(d.Chemin() / "err")) e.erreurs = Lire(d.Chemin() / "err");
    return e;
}

std::string Commande(const std::vector<std::string>& arguments) {
    std::string commande = Citer(TELVORIS_EXE);
    for (const auto& a : arguments) commande += " " + Citer(a);
    return commande;
}

}  // namespace

Execution Lancer(const std::vector<std::string>& arguments) {
    DossierTemporaire d;
    return Executer(Commande(arguments) + " </dev/null 2>" + Citer((d.Chemin() / "err").string()), d);
}

Execution LancerTerminal(const std::vector<std::string>& arguments, const std::string& frappe) {
    DossierTemporaire d;
    Ecrire(d.Chemin() / "frappe", frappe);
    return Executer("script -qec " + Citer(Commande(arguments)) + " /dev/null <" + Citer((d.Chemin() / "frappe").string()),
                    d);
}

std::string LancerPython(const std::string& programme, const std::string& entree) {
    DossierTemporaire d;
    Ecrire(d.Chemin() / "programme.py", programme);
    Ecrire(d.Chemin() / "entree", entree);
    return Executer("python3 " + Citer((d.Chemin() / "programme.py").string()) + " <" +
                        Citer((d.Chemin() / "entree").string()) + " 2>&1",
                    d)
        .sortie;
}

}  // namespace telvoris::test
