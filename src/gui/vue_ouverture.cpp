// "&Ouvrir": the corpus list chosen, then the frame NIVEAU_DIA, where the person ticks the
// variables shown in the titles and picks the contrast variable, and VALIDATION.
#include <QButtonGroup>
#include <QCheckBox>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "gui/dialogue_qt.hpp"
#include "gui/exploration.hpp"
#include "gui/fenetres.hpp"

namespace telvoris::gui {

namespace {

// NIVEAU_DIA: ten check boxes and ten option buttons, an eleventh "aucun critère".
class DialogueVariables : public QDialog {
public:
    DialogueVariables(QWidget* parent, const EtatCorpus& etat) : QDialog(parent), nombre_(static_cast<int>(std::min<std::size_t>(etat.variables.size(), 10))) {
        setObjectName(QStringLiteral("NIVEAU_DIA"));
        setWindowTitle(VersQt("choix et affichage des méta-données"_cp));
        auto* l = new QVBoxLayout(this);
        auto* texte = new QLabel(VersQt(TexteInstructionsVariables()), this);
        texte->setObjectName(QStringLiteral("PART_CRIT_LB"));
        l->addWidget(texte);
        auto* grille = new QGridLayout;
        l->addLayout(grille);
        groupe_ = new QButtonGroup(this);
        for (int i = 0; i < 10; ++i) {
            const bool present = i < static_cast<int>(etat.variables.size());
            const QString nom = present ? VersQt(etat.variables[static_cast<std::size_t>(i)]) : QString();
            auto* ck = new QCheckBox(nom, this);
            ck->setObjectName(QStringLiteral("PART_CRIT_CK2_%1").arg(i));
            auto* opt = new QRadioButton(nom, this);
            opt->setObjectName(QStringLiteral("PART_CRIT_OPT_%1").arg(i));
            ck->setVisible(present);
            opt->setVisible(present);
            grille->addWidget(ck, i, 0);
            grille->addWidget(opt, i, 1);
            groupe_->addButton(opt, i);
            cases_.push_back(ck);
        }
        auto* aucun = new QRadioButton(VersQt("aucun critère"_cp), this);
        aucun->setObjectName(QStringLiteral("PART_CRIT_OPT_10"));
        aucun->setChecked(true);
        groupe_->addButton(aucun, 10);
        grille->addWidget(aucun, 10, 1);
        auto* valider = new QPushButton(QStringLiteral("VALIDATION"), this);
        valider->setObjectName(QStringLiteral("NIVEAU_VAL_NEW"));
        l->addWidget(valider);
        connect(valider, &QPushButton::clicked, this, &QDialog::accept);
    }

    ChoixVariables Choix() const {
        ChoixVariables c;
        for (int i = 0; i < nombre_; ++i)
            if (cases_[static_cast<std::size_t>(i)]->isChecked())
                c.titres.push_back(i);
        if (const int id = groupe_->checkedId(); id >= 0 && id < nombre_) c.contraste = id;
        return c;
    }

private:
    int nombre_;
    std::vector<QCheckBox*> cases_;
    QButtonGroup* groupe_;
};

void Ouvrir(ContexteVue& c) {
    Exploration& e = Exploration::De(c.zone);
    const auto liste = c.zone.Dialogue().ChoisirFichier("Ouvrir le répertoire"_cp, "Text files (*.TXT)|*.TXT"_cp);
    if (!liste) return;
    auto etat = std::make_unique<EtatCorpus>(OuvrirCorpus(*liste));
    auto* d = new DialogueVariables(&c.zone, *etat);
    d->setAttribute(Qt::WA_DeleteOnClose);
    EtatCorpus* brut = etat.release();
    QObject::connect(d, &QDialog::finished, &c.zone, [&e, d, brut](int resultat) {
        std::unique_ptr<EtatCorpus> etat(brut);
        if (resultat != QDialog::Accepted) return;
        const ChoixVariables choix = d->Choix();
        e.Commande([&] {
            ValiderCorpus(*etat, choix, e.Zone().Dialogue());
            QString resume = VersQt(Joindre(TexteChemin(etat->PATH_INDEX), "\r\n"));
            resume += QStringLiteral("%1 partitions, %2 mots").arg(etat->NB_PARTS).arg(etat->NB_MOTS);
            if (etat->NB_CLASSES > 0) resume += QStringLiteral(", %1 classes de ").arg(etat->NB_CLASSES) + VersQt(etat->variableContraste);
            e.CorpusValide(std::move(etat));
            e.Zone().Dialogue().Resultat(DepuisQt(resume));
        });
    });
    d->open();
}

const bool inscrit = EnregistrerVue("Form1.smn_op", [](ContexteVue& c) { Ouvrir(c); });

}  // namespace

}  // namespace telvoris::gui
