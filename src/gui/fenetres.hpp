// The desktop application: the three work areas, their menus, the running of an operation, and
// the extension point through which the views of the library's models join the areas.
//
// HOW TO ADD A VIEW (exploration tabs of Form1, map viewers of Form3, sessions of Form2)
//
// 1. Text. Every text of the library is CP1252; every Qt text is a QString. Cross only through
//    VersQt(cp1252) and DepuisQt(qstring) (gui/texte_qt.hpp), in both directions, everywhere.
//
// 2. Where a view lives. Each work area (ZoneTravail, a QMainWindow) has a view area, a
//    QTabWidget above its result pane: Form1 holds the exploration views (query panel,
//    concordance, full text, distributions, dictionary tab, home map) there, Form3 the map viewers,
//    Form2 the review window. Add or find a view with
//        zone.AjouterVue(widget, VersQt("Concordance"_cp))   // takes ownership, shows its tab
//        zone.Vue<MaVue>("nom_objet")                          // the view whose objectName it is
//    A view is a widget that reads a model of the library (no Qt in the model) and turns clicks
//    into the model's commands.
//
// 3. Which menu item opens it. Menus are built from Operations() (shell/operations.hpp) only. To
//    make an item open or drive a view instead of running its batch, register a factory for its id
//    from the view's own .cpp file (all files of src/gui/ are linked whole, so a static
//    registration runs):
//        static const bool inscrit = EnregistrerVue("smn_v2", [](ContexteVue& c) { ... });
//    "Form1.smn_idx" names one area's item where an id stands in two areas; a bare id serves any
//    area. The factory runs on the GUI thread each time the item is chosen.
//
// 4. Long work from a view. zone.Lancer(travail, ensuite) runs travail(Contexte&) on a worker
//    thread with the menus of the three areas disabled; its Dialogue (input boxes, file dialog,
//    messages, result pane, progress bar) blocks the worker on each call while the GUI thread
//    shows the box, so the window keeps repainting. FinProgramme shows its message and ends the
//    program; ErreurExecution shows its message and the area stays. `ensuite` runs on the GUI
//    thread after a normal end (not after an error), e.g. to show the model that travail built.
//    Work that is short can use zone.Dialogue() directly from the GUI thread.
//
// 5. Ending. zone.App().Terminer(code) ends the program (the quit items, FinProgramme);
//    tests replace Application::surFin to observe it.
#pragma once

#include <QMainWindow>
#include <QString>
#include <QTabWidget>
#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/contexte.hpp"
#include "core/horloge.hpp"
#include "gui/texte_qt.hpp"
#include "shell/operations.hpp"

class QPlainTextEdit;
class QSplitter;
class QLabel;

namespace telvoris::gui {

class Application;
class BarreProgression;
class DialogueQt;
class ZoneTravail;

// The titles of the three areas.
inline constexpr std::string_view TITRE_FORM1 = "TELVORIS_ACCUEIL ET EXPLORATION";
inline constexpr std::string_view TITRE_FORM2 = "ENVIRONNEMENT D'ETIQUETAGE SEMI-AUTOMATIQUE : OLBRIN";
inline constexpr std::string_view TITRE_FORM3 = "OUTILS DE COLLECTE ET DE PROJECTION POUR L'AFC";

// What a view's factory receives.
struct ContexteVue {
    Application& application;
    ZoneTravail& zone;            // the area whose menu item was chosen
    const Operation& operation;   // that item's entry of the table
};
using FabriqueVue = std::function<void(ContexteVue&)>;

// Registers the view of a menu item ("smn_v2", or "Form1.smn_idx" for one area's item). A later
// registration of the same key replaces the earlier. Returns true, for static registration.
bool EnregistrerVue(std::string_view cle, FabriqueVue fabrique);
// The factory for an area's item: "zone.id" first, then the bare id; nullptr when none.
const FabriqueVue* TrouverFabriqueVue(std::string_view zone, std::string_view id);

// One work area.
class ZoneTravail : public QMainWindow {
    Q_OBJECT
public:
    ZoneTravail(Application& app, QString nom, QString titre);
    ~ZoneTravail() override;

    const QString& Nom() const { return nom_; }
    gui::Application& App() const { return app_; }
    gui::DialogueQt& Dialogue() { return *dialogue_; }
    const std::filesystem::path& Ressources() const;

    // The view area.
    QTabWidget* Onglets() const { return onglets_; }
    // Adds a view (owned from then on) as a tab titled `titre` and brings it to the front.
    QWidget* AjouterVue(QWidget* vue, const QString& titre);
    // The view whose objectName is `nom`, cast to T; nullptr when none.
    template <class T>
    T* Vue(const QString& nom) const {
        for (int i = 0; i < onglets_->count(); ++i)
            if (onglets_->widget(i)->objectName() == nom) return qobject_cast<T*>(onglets_->widget(i));
        return nullptr;
    }
    void MontrerVue(QWidget* vue);
    void RetirerVue(QWidget* vue);

    // The result pane (selectable, copyable) and the progress bar with its label.
    QPlainTextEdit* PanneauResultat() const { return resultat_; }
    BarreProgression* Barre() const { return barre_; }
    QLabel* LibelleBarre() const { return libelleBarre_; }

    // Runs work on the worker thread (see the top of this file).
    void Lancer(std::function<void(Contexte&)> travail, std::function<void()> ensuite = {});
    // The menu item of the table: its view when one is registered, else its batch.
    void Declencher(const Operation& op);
    // The action of a menu item by id ("smn_seg", "smn_cl", "smn_stt"...), nullptr when none.
    QAction* Action(const QString& id) const;

    // Called by the closing rules: whether the close may go on. Form2 asks this of its review.
    std::function<bool()> gardeFermeture;

protected:
    void closeEvent(QCloseEvent* e) override;

private:
    void ConstruireMenus();
    void Quitter();

    gui::Application& app_;
    QString nom_;
    QTabWidget* onglets_ = nullptr;
    QPlainTextEdit* resultat_ = nullptr;
    BarreProgression* barre_ = nullptr;
    QLabel* libelleBarre_ = nullptr;
    std::unique_ptr<gui::DialogueQt> dialogue_;
};

// The program: the three areas (made when first shown), the resource tree, the clock, and the
// operation in progress.
class Application : public QObject {
    Q_OBJECT
public:
    explicit Application(const Horloge* horloge = nullptr);
    ~Application() override;

    // Locates the resource tree (the --ressources folder, then the fixed search order); without
    // one, shows Form1's message and returns false: the program then ends.
    bool Demarrer(const std::optional<std::filesystem::path>& option, const std::filesystem::path& dossierExecutable,
                  const std::optional<std::filesystem::path>& maison);
    // Same with a known root (tests).
    void DemarrerAvec(const std::filesystem::path& ressources);

    // "Form1", "Form2", "Form3": the area, made on first use.
    ZoneTravail& Zone(const QString& nom);
    ZoneTravail* ZoneSiChargee(const QString& nom) const;
    // Hides the two other areas and shows this one.
    void Montrer(const QString& nom);
    ZoneTravail* ZoneVisible() const;

    const std::filesystem::path& Ressources() const { return ressources_; }
    const Horloge& HorlogeCourante() const { return *horloge_; }

    bool Occupee() const { return occupee_; }
    // Disables or enables the menus of every area while an operation runs.
    void MarquerOccupee(bool occupee);

    // Ends the program with a status (0 quit, 3 checked precondition).
    void Terminer(int code);
    bool Terminee() const { return terminee_; }
    std::function<void(int)> surFin;

    // The folder the file dialog opens in: the last one used.
    std::filesystem::path dernierDossier;

signals:
    void OccupationChangee(bool occupee);

private:
    std::array<ZoneTravail*, 3> zones_{};
    std::filesystem::path ressources_;
    HorlogeSysteme systeme_;
    const Horloge* horloge_;
    bool occupee_ = false;
    bool terminee_ = false;
};

}  // namespace telvoris::gui
