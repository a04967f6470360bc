#include "outils.hpp"

#include <gtest/gtest.h>

namespace telvoris::test {

void Banc::Choisir(const char* zone, const char* id) {
    QAction* a = Zone(zone).Action(QString::fromLatin1(id));
    ASSERT_NE(a, nullptr) << zone << "." << id;
    ASSERT_TRUE(a->isEnabled());
    a->trigger();
    ASSERT_TRUE(AttendreQue([this] { return !app.Occupee(); }));
}

std::map<std::string, std::string> Arbre(const fs::path& racine) {
    std::map<std::string, std::string> r;
    for (const auto& e : fs::recursive_directory_iterator(racine))
        if (e.is_regular_file()) r[fs::relative(e.path(), racine).generic_string()] = Lire(e.path());
    return r;
}

void CopierExemple(const fs::path& cible) {
    fs::create_directories(cible);
    fs::copy(DossierSource() / "exemples" / "presse", cible, fs::copy_options::recursive);
}

}  // namespace telvoris::test
