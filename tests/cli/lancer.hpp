// Runs the telvoris command built with the tests, as a person would from a shell.
#pragma once

#include <string>
#include <vector>

namespace telvoris::test {

struct Execution {
    int statut = -1;
    std::string sortie;   // stdout
    std::string erreurs;  // stderr
};

// Runs telvoris with these arguments, no standard input and no terminal.
Execution Lancer(const std::vector<std::string>& arguments);

// Runs telvoris on a pseudo-terminal, as a person at a terminal would, typing `frappe`; `sortie`
// is what the terminal shows (stdout and stderr, line ends as CR LF).
Execution LancerTerminal(const std::vector<std::string>& arguments, const std::string& frappe);

// Runs a Python 3 program on `entree` and returns its standard output ("" when python3 is absent).
std::string LancerPython(const std::string& programme, const std::string& entree);

}  // namespace telvoris::test
