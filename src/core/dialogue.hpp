// How an operation talks to the person: input boxes, the file dialog, messages, the result pane
// and the progress bar. Texts are CP1252; each front end renders them its own way.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace telvoris {

class Dialogue {
public:
    virtual ~Dialogue() = default;
    // An input box with a default answer; nullopt is Cancel.
    virtual std::optional<std::string> Demander(std::string_view texte, std::string_view titre,
                                                std::string_view defaut) = 0;
    // The common file dialog; nullopt is Cancel.
    virtual std::optional<std::filesystem::path> ChoisirFichier(std::string_view titre,
                                                                std::string_view filtre) = 0;
    virtual void Afficher(std::string_view message) = 0;
    virtual void Resultat(std::string_view texte) = 0;
    // Shows the bar at file i of n with the stage's label; n = 0 shows the label alone.
    virtual void Progression(std::string_view libelle, long long i, long long n) = 0;
    virtual void MasquerProgression() = 0;
};

// Width of the filled part of the bar at file i of n, on a bar 6,732 units wide.
inline constexpr int LARGEUR_BARRE = 6732;
int LargeurBarre(long long i, long long n);

}  // namespace telvoris
