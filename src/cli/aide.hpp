// The help of the command line, built from the operation table: the list of operations by work
// area and menu, and the description of one operation with its questions.
#pragma once

#include <ostream>
#include <string>
#include <string_view>

namespace telvoris {

struct Operation;

// The name of a work area as the person knows it: "Form2 (environnement d'étiquetage)".
std::string NomZone(std::string_view zone);

// Every operation, grouped by work area (Form1, Form2, Form3) and by menu in table order: one
// line "    FormN.smn_xxx<TAB>caption" each, under the headings (UTF-8).
std::string ListeOperations();

// The help of one operation: work area, menu and caption, then its description and questions.
std::string AideOperation(const Operation& op);

// `telvoris aide NOM`: prints the help of the operation NOM ("smn_lx" or "Form1.smn_idx").
// Returns 0, or 2 when no operation has that name.
int AfficherAideOperation(std::string_view nom, std::ostream& sortie, std::ostream& erreurs);

}  // namespace telvoris
