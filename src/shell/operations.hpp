// The single table of the operations of the three work areas: every front end builds its menus
// and commands from it.
#pragma once

#include <span>
#include <string_view>

#include "core/contexte.hpp"

namespace telvoris {

struct Operation {
    std::string_view id;       // the menu item, "smn_seg"
    std::string_view zone;     // "Form1", "Form2" or "Form3"
    std::string_view menu;     // the menu that holds it (CP1252)
    std::string_view legende;  // its caption (CP1252)
    void (*executer)(Contexte&);
    // What the operation does and writes, then one line a question it asks, in order:
    // "? <question> [défaut : X] (réponses : ...)", or "Aucune question." (UTF-8, for --help and
    // the menus' tooltips).
    std::string_view aide = {};
};

std::span<const Operation> Operations();

// Finds an operation by "id" or "Form1.id". A bare id that several work areas share names the
// tagging environment's one.
const Operation* TrouverOperation(std::string_view nom);

}  // namespace telvoris
