// The review sessions of the tagging area in a window of Form2: the case line, the occurrences in
// their contexts (a model/view table, so a case of 200,000 occurrences costs only the rows on
// screen) with one tick column per reading, and the session's buttons. The window only renders
// SessionLevee and calls its commands.
#pragma once

#include <QAbstractTableModel>
#include <QWidget>
#include <memory>

#include "pipeline/levee.hpp"

class QLabel;
class QListWidget;
class QPushButton;
class QRadioButton;
class QTableView;

namespace telvoris::gui {

class ZoneTravail;

// The occurrences of the current case: the reading columns first (a tick each), then the left
// context, the form and the right context.
class ModeleLevee : public QAbstractTableModel {
    Q_OBJECT
public:
    ModeleLevee(SessionLevee& session, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    // The reading (1..5) of a column, 0 for the context columns.
    int Lecture(int colonne) const;
    int ColonneGauche() const { return session_.NbLectures(); }
    // After a command of the session: the case changed (Recharger) or only its ticks (Rafraichir).
    void Recharger();
    void Rafraichir();
    // The row marked by a first right-click, -1 when none.
    int Marque() const { return marque_; }
    void Marquer(int rang);

private:
    SessionLevee& session_;
    int marque_ = -1;
};

class FenetreLevee : public QWidget {
    Q_OBJECT
public:
    FenetreLevee(ZoneTravail& zone, std::unique_ptr<SessionLevee> session);
    ~FenetreLevee() override;

    // Shows the way of working (simple words) or the first case (compounds).
    void Commencer();

    SessionLevee& Session() { return *session_; }
    ModeleLevee* Modele() const { return modele_; }
    QTableView* Table() const { return table_; }

    // The commands behind the buttons and the mouse, callable by tests as a click would.
    void ValiderMode();             // AF3VAL "VALIDE"
    void ValiderLemmes();           // B_VAL1 "VALIDER VOTRE SELECTION"
    void Suivant();                 // B_CX
    void ChangerTri();              // B_TRB
    void Reviser();                 // B_CORR "REVISER"
    void Interrompre();             // B_CONC "INTERROMPRE"
    void CliquerCase(int rang, int lecture, bool plage);  // left click (shift for a range)
    void CliquerDroit(int rang, int lecture);             // right click: mark, then range
    void GlisserDroit(int de, int a, int lecture);        // right drag from row `de` to row `a`
    void CliquerEntete(int lecture);                      // a reading label: the whole column
    // Closing Form2 during a compound review asks before saving; false keeps the window.
    bool GarderFermeture();

protected:
    bool eventFilter(QObject* objet, QEvent* evenement) override;

private:
    void Montrer();
    void Finir();
    void CocherPlage(int de, int a, int lecture);

    ZoneTravail& zone_;
    std::unique_ptr<SessionLevee> session_;
    ModeleLevee* modele_ = nullptr;
    QLabel* ligneCas_ = nullptr;
    QWidget* panneauMode_ = nullptr;
    QRadioButton* parLemmes_ = nullptr;
    QWidget* panneauLemmes_ = nullptr;
    QListWidget* lemmes_ = nullptr;
    QTableView* table_ = nullptr;
    QPushButton* suivant_ = nullptr;
    QPushButton* tri_ = nullptr;
    QPushButton* reviser_ = nullptr;
    QPushButton* interrompre_ = nullptr;
    int ancre_ = -1;  // the row of the last left click, for shift-click ranges
    int pressionDroite_ = -1;  // the row where the right button went down
};

}  // namespace telvoris::gui
