// The identification session of unknown words (smn_iic) in a window of Form2: the item with its
// count and concordance, the seven main choices, going back, candidates noted from the
// concordance, and the forms the choices open (entry, correction, language). The window only
// renders SessionIdentification and calls its commands, so the same decisions write the same
// files as the terminal's prompts.
#pragma once

#include <QWidget>
#include <memory>

#include "correction/identification.hpp"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPlainTextEdit;
class QPushButton;
class QSpinBox;
class QStackedWidget;

namespace telvoris::gui {

class ZoneTravail;

class FenetreIdentification : public QWidget {
    Q_OBJECT
public:
    FenetreIdentification(ZoneTravail& zone, std::unique_ptr<SessionIdentification> session);

    SessionIdentification& Session() { return *session_; }

    // The commands behind the buttons, callable by tests as a click would.
    void Choisir(int index);                // the main choices 0 to 6
    void Revenir(int n);                    // REVISER, 1 to 10 items back
    void Noter(bool compose);               // the candidate typed, as a compound or a proper noun
    void Quitter();                         // asks, then saves and closes
    void Enregistrer();                     // the entry form's ENREGISTRER
    void Corriger(int index);               // the correction form's 2, 3 or 4
    void ChoisirLangue(int index);          // the language list
    void Annuler();                         // any form's ANNULER

private:
    void Montrer();
    void MontrerFlexions();
    void Fin();

    ZoneTravail& zone_;
    std::unique_ptr<SessionIdentification> session_;
    QLabel* progression_ = nullptr;
    QLabel* mot_ = nullptr;
    QLabel* effectif_ = nullptr;
    QPlainTextEdit* concordance_ = nullptr;
    QWidget* principal_ = nullptr;
    std::vector<QPushButton*> choix_;
    QSpinBox* retour_ = nullptr;
    QLineEdit* candidat_ = nullptr;
    QStackedWidget* formulaires_ = nullptr;
    // The entry form.
    QLabel* titreEntree_ = nullptr;
    QLineEdit* forme_ = nullptr;
    QComboBox* categorie_ = nullptr;
    QListWidget* flexions_ = nullptr;
    QCheckBox* infinitif_ = nullptr;
    // The correction form.
    QLineEdit* correction_ = nullptr;
    // The language list.
    QListWidget* langues_ = nullptr;
};

}  // namespace telvoris::gui
