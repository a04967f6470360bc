// What the GUI tests share: an application started on the fixture tree with a fixed clock, and
// the comparison of whole corpus trees.
#pragma once

#include <QAction>
#include <map>
#include <memory>
#include <string>

#include "core/horloge.hpp"
#include "gui/fenetres.hpp"
#include "pilote.hpp"
#include "support/support.hpp"

namespace telvoris::test {

inline const Instant kInstant{2026, 11, 21, 10, 0, 0};
inline constexpr const char* kHorlogeCli = "2026-11-21 10:00:00";

struct Banc {
    HorlogeFixe horloge{kInstant};
    gui::Application app{&horloge};
    Pilote pilote;
    int fin = -1;  // the status the program ended with, -1 while it runs

    Banc() : Banc(RessourcesTest()) {}
    // On another resource tree: operations that write into it get a copy of the fixture tree.
    explicit Banc(const fs::path& ressources) {
        app.surFin = [this](int code) { fin = code; };
        app.DemarrerAvec(ressources);
    }
    gui::ZoneTravail& Zone(const char* nom) { return app.Zone(QString::fromLatin1(nom)); }
    // Chooses a menu item of an area and waits for its run to end.
    void Choisir(const char* zone, const char* id);
};

// Every file under `racine`, by path relative to it, with its bytes.
std::map<std::string, std::string> Arbre(const fs::path& racine);
// Copies the example corpus of the project into `cible`.
void CopierExemple(const fs::path& cible);

}  // namespace telvoris::test
