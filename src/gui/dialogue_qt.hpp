// The Dialogue of a work area: input boxes, the common file dialog, message boxes, the area's
// result pane and progress bar. Callable from the GUI thread (directly) or from the worker thread
// of an operation (each call then blocks the worker until the GUI thread has done it; the bar's
// updates are posted without blocking, the latest one winning).
#pragma once

#include <QObject>
#include <QString>
#include <mutex>
#include <string>

#include "core/dialogue.hpp"

namespace telvoris::gui {

class ZoneTravail;

// objectNames of the boxes, for tests and scripts that answer them.
inline constexpr const char* NOM_BOITE_SAISIE = "boite_saisie";
inline constexpr const char* NOM_DIALOGUE_FICHIER = "dialogue_fichier";
inline constexpr const char* NOM_BOITE_MESSAGE = "boite_message";

class DialogueQt : public Dialogue {
public:
    explicit DialogueQt(ZoneTravail& zone);

    std::optional<std::string> Demander(std::string_view texte, std::string_view titre,
                                        std::string_view defaut) override;
    std::optional<std::filesystem::path> ChoisirFichier(std::string_view titre, std::string_view filtre) override;
    void Afficher(std::string_view message) override;
    void Resultat(std::string_view texte) override;
    void Progression(std::string_view libelle, long long i, long long n) override;
    void MasquerProgression() override;

    // A message box with an error's text (its title says so); the area stays.
    void AfficherErreur(std::string_view message);

private:
    template <class F>
    void SurGui(F&& f);
    void AppliquerBarre();

    ZoneTravail& zone_;
    std::mutex mutex_;
    struct Etat {
        std::string libelle;
        long long i = 0, n = 0;
        bool visible = false;
    } barre_;
    bool envoiEnAttente_ = false;
};

}  // namespace telvoris::gui
