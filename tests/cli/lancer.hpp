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

}  // namespace telvoris::test
