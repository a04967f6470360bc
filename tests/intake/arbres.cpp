#include "arbres.hpp"

#include <set>
#include <string>

#include "support/support.hpp"

namespace telvoris::test {

namespace {

std::set<std::string> FichiersSous(const fs::path& racine, const fs::path& dossier) {
    std::set<std::string> r;
    if (!fs::is_directory(dossier)) return r;
    for (const auto& e : fs::recursive_directory_iterator(dossier))
        if (e.is_regular_file()) r.insert(fs::relative(e.path(), racine).generic_string());
    return r;
}

// Where two texts part, shown with a few bytes around.
std::string Ecart(const std::string& a, const std::string& b) {
    std::size_t i = 0;
    while (i < a.size() && i < b.size() && a[i] == b[i]) ++i;
    const std::size_t debut = i > 30 ? i - 30 : 0;
    return "octet " + std::to_string(i) + " : attendu « " + a.substr(debut, 60) + " », obtenu « " +
           b.substr(debut, 60) + " »";
}

}  // namespace

::testing::AssertionResult ArbresIdentiques(const fs::path& attendu, const fs::path& obtenu) {
    std::set<std::string> attendus = FichiersSous(attendu, attendu), obtenus;
    if (attendus.empty()) return ::testing::AssertionFailure() << "arbre attendu vide : " << attendu;
    for (const auto& e : fs::directory_iterator(attendu)) {
        if (e.is_directory())
            for (const auto& f : FichiersSous(obtenu, obtenu / e.path().filename())) obtenus.insert(f);
        else if (fs::exists(obtenu / e.path().filename()))
            obtenus.insert(e.path().filename().generic_string());
    }
    auto echec = ::testing::AssertionFailure();
    bool ok = true;
    for (const auto& f : attendus) {
        if (!obtenus.count(f)) {
            echec << "\nmanquant : " << f;
            ok = false;
            continue;
        }
        const std::string a = Lire(attendu / f), b = Lire(obtenu / f);
        if (a != b) {
            echec << "\ndifférent : " << f << ", " << Ecart(a, b);
            ok = false;
        }
    }
    for (const auto& f : obtenus)
        if (!attendus.count(f)) {
            echec << "\nen trop : " << f;
            ok = false;
        }
    return ok ? ::testing::AssertionSuccess() : echec;
}

}  // namespace telvoris::test
