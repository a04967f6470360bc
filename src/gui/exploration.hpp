// The exploration state of Form1 (the opened corpus, the last query, the word lists, the
// navigator, the dictionaries, the map) and the hand-over between its views: a query refreshes
// the concordance, the distributions and the full text; a click in one view drives another.
#pragma once

#include <QObject>
#include <QString>
#include <functional>
#include <memory>
#include <optional>

#include "explore/carte_accueil.hpp"
#include "explore/corpus.hpp"
#include "explore/listes_mots.hpp"
#include "explore/navigation.hpp"
#include "explore/onglet_dictionnaire.hpp"
#include "explore/requete.hpp"

namespace telvoris::gui {

class ZoneTravail;

// objectNames of the views, which are also the names of the tabs' widgets.
inline constexpr const char* VUE_REQUETE = "CF_parametres";
inline constexpr const char* VUE_CONCORDANCE = "ONGLET_CONC";
inline constexpr const char* VUE_PLEIN_TEXTE = "ONGLET_PLEINTEXTE";
inline constexpr const char* VUE_STAT = "ONGLET_STAT";
inline constexpr const char* VUE_DICO = "ONGLET_DICO";
inline constexpr const char* VUE_AFC = "ONGLET_AFC";

class Exploration : public QObject {
    Q_OBJECT
public:
    // The state of an area, made on first use (a child of the area).
    static Exploration& De(ZoneTravail& zone);

    ZoneTravail& Zone() const { return zone_; }
    bool Ouvert() const { return etat_ != nullptr; }
    EtatCorpus& Etat() { return *etat_; }
    const Requete* DerniereRequete() const { return requeteFaite_ ? &requete_ : nullptr; }
    Requete& RequeteCourante() { return requete_; }
    const ParametresRequete& ParametresDerniere() const { return derniers_; }
    ListesMots listes;
    PanneauRequete panneau;
    CarteAccueil carte;
    Navigateur* Navigation() { return navigateur_.get(); }
    OngletDictionnaire* Dictionnaires() { return dictionnaires_.get(); }

    // A corpus validated: the views are made afresh for it.
    void CorpusValide(std::unique_ptr<EtatCorpus> etat);
    // Runs the query of the panel on the worker thread, then refreshes the views it asks for.
    void LancerRequetePanneau();

    // Runs f on the GUI thread as a view's command: an end of the program or an error is
    // shown as the menu items show theirs.
    void Commande(const std::function<void()>& f);

    // Brings a view to the front, making it when it does not exist yet; nullptr without a corpus.
    QWidget* Montrer(const char* nom);

signals:
    void corpusChange();
    void requeteFaite();
    void navigationChangee();
    void listesChangees();
    void carteChangee();
    void panneauChange();

private:
    explicit Exploration(ZoneTravail& zone);
    QWidget* Creer(const char* nom);

    ZoneTravail& zone_;
    std::unique_ptr<EtatCorpus> etat_;
    Requete requete_;
    bool requeteFaite_ = false;
    ParametresRequete derniers_;
    std::unique_ptr<Navigateur> navigateur_;
    std::unique_ptr<OngletDictionnaire> dictionnaires_;
};

// The factories of the views, each defined in its own vue_*.cpp.
QWidget* CreerVueRequete(Exploration& e);
QWidget* CreerVueConcordance(Exploration& e);
QWidget* CreerVuePleinTexte(Exploration& e);
QWidget* CreerVueDistribution(Exploration& e);
QWidget* CreerVueDictionnaire(Exploration& e);
QWidget* CreerVueCarte(Exploration& e);

// Qt colour of a legacy colour number (red in the low byte).
unsigned CouleurRgb(long long couleurVb);

}  // namespace telvoris::gui
