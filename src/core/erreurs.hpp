// The two kinds of failure of an operation. Messages are CP1252 texts of the system.
#pragma once

#include <stdexcept>
#include <string>

namespace telvoris {

// A checked precondition that ends the program: the message is shown, then the program stops.
class FinProgramme : public std::runtime_error {
public:
    explicit FinProgramme(const std::string& message) : std::runtime_error(message) {}
};

// A run-time failure (missing file, bound exceeded, overflow): the operation stops, what it has
// written stays, and the message names the file or the limit.
class ErreurExecution : public std::runtime_error {
public:
    explicit ErreurExecution(const std::string& message) : std::runtime_error(message) {}
};

// Throws the bound error of a named limit.
[[noreturn]] void LimiteDepassee(std::string_view nom, long long valeur, std::string_view contexte);

}  // namespace telvoris
