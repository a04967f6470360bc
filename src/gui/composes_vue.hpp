// The validation session of candidate compounds (smn_mcid) in a window of Form2, the pane
// "FLEXION COMPOSES": the candidates in a list with the one shown marked, the option list that
// settles a case, the text box and category options for the compounds that vary, and the
// confirmation every ten cases with the buffer open for correction. The window only renders
// SessionComposes and calls its commands, so the same decisions write the same files as the
// terminal's prompts.
#pragma once

#include <QAbstractTableModel>
#include <QWidget>
#include <memory>

#include "lexicon/dico_composes.hpp"

class QButtonGroup;
class QGroupBox;
class QLabel;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QTableView;

namespace telvoris::gui {

class ZoneTravail;

// The candidates: rank, sequence; the one shown is bold, those behind it are greyed.
class ModeleComposes : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit ModeleComposes(const SessionComposes& session, QObject* parent = nullptr);
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    void Rafraichir();

private:
    const SessionComposes& session_;
};

class FenetreComposes : public QWidget {
    Q_OBJECT
public:
    FenetreComposes(ZoneTravail& zone, std::unique_ptr<SessionComposes> session);
    // Shows the first case, or ends at once when the session resumed past its last one.
    void Commencer();

    SessionComposes& Session() { return *session_; }
    QTableView* Table() const { return table_; }

    // The commands behind the pane, callable by tests as a click would.
    void ChoisirOption(int option);  // an entry of ONGLET_COMP_LB
    void Valider();                  // ONGLET_COMP_VAL "VALIDER" with the typed forms
    void Confirmer();                // "CONFIRMER": the box, with the buffer as corrected
    void Arreter();                  // "ARRETER": the session stops, to be resumed later

private:
    void Montrer();
    void Apres();

    ZoneTravail& zone_;
    std::unique_ptr<SessionComposes> session_;
    ModeleComposes* modele_ = nullptr;
    QLabel* etat_ = nullptr;
    QLabel* candidat_ = nullptr;
    QTableView* table_ = nullptr;
    QListWidget* options_ = nullptr;
    QGroupBox* cadre_ = nullptr;
    QPlainTextEdit* texte_ = nullptr;
    QButtonGroup* categories_ = nullptr;
    QPushButton* valider_ = nullptr;
    QPushButton* confirmer_ = nullptr;
    QPushButton* arreter_ = nullptr;
};

}  // namespace telvoris::gui
