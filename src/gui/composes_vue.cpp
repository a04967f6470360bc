#include "gui/composes_vue.hpp"

#include <QButtonGroup>
#include <QFontDatabase>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>

#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "gui/dialogue_qt.hpp"
#include "gui/fenetres.hpp"
#include "gui/texte_qt.hpp"

namespace telvoris::gui {

namespace {

constexpr const char* kNomVue = "ONGLET_COMP";

// The buffer as the text box shows it (lines) and back as the files hold it (CR LF).
QString TamponVersBoite(std::string_view tampon) {
    QString t = VersQt(tampon);
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return t;
}

std::string BoiteVersTampon(const QString& texte) {
    QString t = texte;
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    t.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    return DepuisQt(t);
}

}  // namespace

// ---------------------------------------------------------------------------------------------

ModeleComposes::ModeleComposes(const SessionComposes& session, QObject* parent)
    : QAbstractTableModel(parent), session_(session) {}

int ModeleComposes::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : session_.Total();
}

int ModeleComposes::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : 2; }

QVariant ModeleComposes::data(const QModelIndex& index, int role) const {
    if (!index.isValid()) return {};
    const int rang = index.row() + 1;
    if (role == Qt::DisplayRole) {
        if (index.column() == 0) return rang;
        return VersQt(session_.Candidats()[static_cast<std::size_t>(index.row())]);
    }
    if (role == Qt::TextAlignmentRole && index.column() == 0)
        return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
    if (role == Qt::FontRole && rang == session_.Rang()) {
        QFont f;
        f.setBold(true);
        return f;
    }
    // The cases settled in this session (or before its resumption) are behind the one shown.
    if (role == Qt::ForegroundRole && rang < session_.Rang()) return QColor(Qt::gray);
    return {};
}

QVariant ModeleComposes::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) return {};
    if (orientation == Qt::Vertical) return {};
    return section == 0 ? QStringLiteral("n°") : QStringLiteral("séquence candidate");
}

void ModeleComposes::Rafraichir() {
    if (rowCount() == 0) return;
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

// ---------------------------------------------------------------------------------------------

FenetreComposes::FenetreComposes(ZoneTravail& zone, std::unique_ptr<SessionComposes> session)
    : QWidget(&zone), zone_(zone), session_(std::move(session)) {
    setObjectName(kNomVue);
    auto* pile = new QVBoxLayout(this);
    auto* titre = new QLabel(QStringLiteral("FLEXION COMPOSES"), this);
    QFont gras = titre->font();
    gras.setBold(true);
    titre->setFont(gras);
    pile->addWidget(titre);

    etat_ = new QLabel(this);
    etat_->setObjectName(QStringLiteral("etat"));
    etat_->setTextFormat(Qt::PlainText);
    candidat_ = new QLabel(this);
    candidat_->setObjectName(QStringLiteral("candidat"));
    candidat_->setTextFormat(Qt::PlainText);
    candidat_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont grand = gras;
    grand.setPointSizeF(grand.pointSizeF() * 1.4);
    candidat_->setFont(grand);
    auto* ligne = new QHBoxLayout;
    ligne->addWidget(etat_);
    ligne->addSpacing(24);
    ligne->addWidget(candidat_, 1);
    pile->addLayout(ligne);

    auto* corps = new QHBoxLayout;
    // The candidates.
    modele_ = new ModeleComposes(*session_, this);
    table_ = new QTableView(this);
    table_->setObjectName(QStringLiteral("candidats"));
    table_->setModel(modele_);
    table_->setSelectionMode(QAbstractItemView::NoSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->verticalHeader()->setVisible(false);
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->verticalHeader()->setDefaultSectionSize(QFontMetrics(table_->font()).height() + 6);
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->setColumnWidth(0, QFontMetrics(table_->font()).horizontalAdvance(QStringLiteral("00000")) + 12);
    corps->addWidget(table_, 3);

    // The option list: a click settles the case.
    auto* colonne = new QVBoxLayout;
    options_ = new QListWidget(this);
    options_->setObjectName(QStringLiteral("ONGLET_COMP_LB"));
    for (std::string_view o : kOptionsComposes) options_->addItem(VersQt(o));
    options_->setToolTip(QStringLiteral("Un clic sur une catégorie règle le cas ; PASSER le refuse."));
    options_->setMaximumWidth(options_->sizeHintForColumn(0) + 40);
    options_->setMinimumHeight(options_->sizeHintForRow(0) * options_->count() + 8);
    connect(options_, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { ChoisirOption(options_->row(item)); });
    colonne->addWidget(options_);
    colonne->addStretch(1);
    corps->addLayout(colonne);

    // The compounds that vary: their forms, one a line, and their category.
    auto* flexion = new QGroupBox(this);
    cadre_ = flexion;
    auto* pf = new QVBoxLayout(flexion);
    texte_ = new QPlainTextEdit(flexion);
    texte_->setObjectName(QStringLiteral("ONGLET_COMP_RTB"));
    texte_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    texte_->setLineWrapMode(QPlainTextEdit::NoWrap);
    pf->addWidget(texte_, 1);
    auto* opt = new QWidget(flexion);
    opt->setObjectName(QStringLiteral("ONGLET_COMP_OPT"));
    auto* po = new QHBoxLayout(opt);
    po->setContentsMargins(0, 0, 0, 0);
    categories_ = new QButtonGroup(this);
    const std::pair<OptionFlexion, QString> kCategories[] = {
        {OptionFlexion::SM, QStringLiteral("SM substantif masculin")},
        {OptionFlexion::SF, QStringLiteral("SF substantif féminin")},
        {OptionFlexion::R, QStringLiteral("R adverbe")},
        {OptionFlexion::J, QStringLiteral("J adjectif")}};
    for (const auto& [o, libelle] : kCategories) {
        auto* b = new QRadioButton(libelle, opt);
        categories_->addButton(b, static_cast<int>(o));
        po->addWidget(b);
    }
    po->addStretch(1);
    pf->addWidget(opt);
    auto* boutons = new QHBoxLayout;
    valider_ = new QPushButton(QStringLiteral("VALIDER"), flexion);
    valider_->setObjectName(QStringLiteral("ONGLET_COMP_VAL"));
    confirmer_ = new QPushButton(QStringLiteral("CONFIRMER"), flexion);
    confirmer_->setObjectName(QStringLiteral("CONFIRMER"));
    confirmer_->setToolTip(QStringLiteral("Le tampon ci-dessus, corrigé au besoin, part dans AJOUTS.txt"));
    boutons->addWidget(valider_);
    boutons->addWidget(confirmer_);
    boutons->addStretch(1);
    pf->addLayout(boutons);
    corps->addWidget(flexion, 3);
    pile->addLayout(corps, 1);
    connect(valider_, &QPushButton::clicked, this, &FenetreComposes::Valider);
    connect(confirmer_, &QPushButton::clicked, this, &FenetreComposes::Confirmer);

    auto* bas = new QHBoxLayout;
    arreter_ = new QPushButton(QStringLiteral("ARRETER"), this);
    arreter_->setObjectName(QStringLiteral("ARRETER"));
    arreter_->setToolTip(QStringLiteral("Arrête la session ; les cas non confirmés seront repris."));
    bas->addStretch(1);
    bas->addWidget(arreter_);
    pile->addLayout(bas);
    connect(arreter_, &QPushButton::clicked, this, &FenetreComposes::Arreter);
}

void FenetreComposes::Commencer() {
    if (session_->Termine()) {
        zone_.Dialogue().Afficher("Session terminée"_cp);
        zone_.App().Terminer(0);
        return;
    }
    Montrer();
}

void FenetreComposes::Montrer() {
    const bool confirmation = session_->ConfirmationDue();
    etat_->setText(VersQt(session_->Etat()));
    candidat_->setText(confirmation ? QString() : VersQt(session_->Candidat()));
    // While the buffer waits for its confirmation, only the box and the confirming button act.
    options_->setEnabled(!confirmation);
    valider_->setEnabled(!confirmation);
    for (QAbstractButton* b : categories_->buttons()) b->setEnabled(!confirmation);
    confirmer_->setVisible(confirmation);
    cadre_->setTitle(confirmation ? QStringLiteral("Saisie des derniers cas : corrigez-la au besoin, puis CONFIRMER")
                                  : QStringLiteral("Formes fléchies, une par ligne"));
    modele_->Rafraichir();
    if (!confirmation && session_->Rang() >= 1 && session_->Rang() <= session_->Total())
        table_->scrollTo(modele_->index(session_->Rang() - 1, 0), QAbstractItemView::PositionAtCenter);
}

void FenetreComposes::ChoisirOption(int option) {
    if (session_->ConfirmationDue() || session_->Termine() || option < 0 ||
        option >= static_cast<int>(kOptionsComposes.size()))
        return;
    std::string divers;
    if (option == OPTION_DIVERS) {
        const auto cat = zone_.Dialogue().Demander("Catégorie ?"_cp, "DIVERS", "");
        if (!cat) return;
        divers = *cat;
    }
    session_->Choisir(option, divers);
    Apres();
}

void FenetreComposes::Valider() {
    if (session_->ConfirmationDue() || session_->Termine()) return;
    const int id = categories_->checkedId();
    const OptionFlexion o = id < 0 ? OptionFlexion::Aucune : static_cast<OptionFlexion>(id);
    if (o == OptionFlexion::Aucune) {
        zone_.Dialogue().Afficher("Vous devez valider une option");
        return;
    }
    // The forms one a line, blanks around them dropped, empty lines skipped.
    std::vector<std::string> formes;
    for (const QString& l : texte_->toPlainText().split(QLatin1Char('\n'))) {
        const QString f = l.trimmed();
        if (!f.isEmpty()) formes.push_back(DepuisQt(f));
    }
    session_->Valider(o, formes);
    Apres();
}

void FenetreComposes::Apres() {
    // The pane is cleared for the next case.
    texte_->clear();
    categories_->setExclusive(false);
    for (QAbstractButton* b : categories_->buttons()) b->setChecked(false);
    categories_->setExclusive(true);
    options_->clearSelection();
    if (session_->ConfirmationDue()) {
        // The buffer of the last cases, open for correction before the box asks.
        texte_->setPlainText(TamponVersBoite(session_->Tampon()));
        Montrer();
        texte_->setFocus();
        return;
    }
    Montrer();
}

void FenetreComposes::Confirmer() {
    if (!session_->ConfirmationDue()) return;
    const auto r = zone_.Dialogue().Demander("Corrigez éventuellement la saisie de 10 cas et confirmez par 'OUI'."_cp,
                                             "CONFIRMER", "OUI");
    session_->Confirmer(r.value_or(""), BoiteVersTampon(texte_->toPlainText()));
    texte_->clear();
    if (session_->Termine()) {
        zone_.Dialogue().Afficher("Session terminée"_cp);
        zone_.App().Terminer(0);
        return;
    }
    Montrer();
}

void FenetreComposes::Arreter() {
    zone_.Dialogue().Afficher(
        Joindre("Session arrêtée au "_cp, session_->Etat(), ". Les cas non confirmés seront repris."_cp));
    zone_.RetirerVue(this);
}

// ---------------------------------------------------------------------------------------------

namespace {

constexpr std::string_view kFiltre = "Text files (*.TXT)|*.TXT";

void OuvrirComposes(ContexteVue& c) {
    ZoneTravail& zone = c.zone;
    if (auto* v = zone.Vue<FenetreComposes>(QLatin1String(kNomVue))) {
        zone.MontrerVue(v);
        zone.Dialogue().Afficher("Une session d'identification est déjà ouverte : arrêtez-la d'abord."_cp);
        return;
    }
    auto session = std::make_shared<std::unique_ptr<SessionComposes>>();
    zone.Lancer(
        [session](Contexte& ctx) {
            Dialogue& d = ctx.dialogue;
            const auto liste = d.ChoisirFichier("Localiser la liste", kFiltre);
            if (!liste) return;
            auto s = std::make_unique<SessionComposes>(ctx.ressources, *liste);
            bool reprendre = false;
            if (s->AjoutsExistent()) {
                const auto r = d.Demander(
                    "Vous avez déjà un fichier d'ajouts. Voulez-vous reprendre ce fichier (O/N) ?"_cp, "idcomp", "O");
                reprendre = r && *r == "O";
            }
            s->Demarrer(reprendre);
            *session = std::move(s);
        },
        [session, &zone] {
            if (!*session) return;
            auto* f = new FenetreComposes(zone, std::move(*session));
            zone.AjouterVue(f, QStringLiteral("FLEXION COMPOSES"));
            f->Commencer();
        });
}

const bool kInscrit = EnregistrerVue("Form2.smn_mcid", [](ContexteVue& c) { OuvrirComposes(c); });

}  // namespace

}  // namespace telvoris::gui
