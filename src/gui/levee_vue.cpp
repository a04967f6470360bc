#include "gui/levee_vue.hpp"

#include <QApplication>
#include <QButtonGroup>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QVBoxLayout>

#include "core/jetons.hpp"
#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "gui/dialogue_qt.hpp"
#include "gui/fenetres.hpp"
#include "gui/texte_qt.hpp"

namespace telvoris::gui {

namespace {

const std::string_view kQuestionArret =
    "Voulez-vous vraiment (O/N) interrompre cette session après avoir sauvegardé vos données ?"_cp;
constexpr const char* kNomVue = "levee";

}  // namespace

// ---------------------------------------------------------------------------------------------

ModeleLevee::ModeleLevee(SessionLevee& session, QObject* parent) : QAbstractTableModel(parent), session_(session) {}

int ModeleLevee::rowCount(const QModelIndex& parent) const {
    if (parent.isValid() || session_.Terminee()) return 0;
    const auto e = session_.Etiquette();
    if (e == EtiquetteSession::levcon_simp || e == EtiquetteSession::levcon_s1x) return 0;
    return static_cast<int>(session_.NbOccurrences());
}

int ModeleLevee::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : session_.NbLectures() + 3;
}

int ModeleLevee::Lecture(int colonne) const {
    return colonne >= 0 && colonne < session_.NbLectures() ? colonne + 1 : 0;
}

QVariant ModeleLevee::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const OccurrenceLevee& o = session_.Occurrence(static_cast<std::size_t>(index.row()));
    const int j = Lecture(index.column());
    if (role == Qt::BackgroundRole && index.row() == marque_) return QColor(255, 235, 150);
    if (j > 0) {
        if (role == Qt::CheckStateRole) return o.coche == j ? Qt::Checked : Qt::Unchecked;
        if (role == Qt::ToolTipRole) {
            const LibelleLecture& l = session_.Libelles()[static_cast<std::size_t>(j - 1)];
            return VersQt(Joindre(l.lemme, l.flexion));
        }
        return {};
    }
    const int c = index.column() - ColonneGauche();
    if (role == Qt::DisplayRole) {
        if (c == 0) return VersQt(o.gauche);
        if (c == 1) return o.jeton == "<M >" ? QStringLiteral("<M >") : VersQt(ValeurAttribut(o.jeton, "f"));
        return VersQt(o.droite);
    }
    if (role == Qt::TextAlignmentRole) {
        if (c == 0) return QVariant::fromValue(Qt::AlignRight | Qt::AlignVCenter);
        if (c == 1) return QVariant::fromValue(Qt::AlignHCenter | Qt::AlignVCenter);
        return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
    }
    if (role == Qt::ForegroundRole && c == 1) return QColor(180, 0, 0);
    if (role == Qt::ToolTipRole && c == 1) return VersQt(o.jeton);
    return {};
}

QVariant ModeleLevee::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole) return QAbstractTableModel::headerData(section, orientation, role);
    if (orientation == Qt::Vertical) return section + 1;
    if (const int j = Lecture(section)) {
        const LibelleLecture& l = session_.Libelles()[static_cast<std::size_t>(j - 1)];
        return VersQt(l.flexion.empty() ? l.lemme : Joindre(l.lemme, "\n", l.flexion));
    }
    const int c = section - ColonneGauche();
    if (c == 0) return QStringLiteral("contexte gauche");
    if (c == 1) return QStringLiteral("forme");
    return QStringLiteral("contexte droit");
}

Qt::ItemFlags ModeleLevee::flags(const QModelIndex& index) const {
    if (!index.isValid()) return Qt::NoItemFlags;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable;
}

void ModeleLevee::Recharger() {
    beginResetModel();
    marque_ = -1;
    endResetModel();
}

void ModeleLevee::Rafraichir() {
    if (rowCount() == 0) return;
    emit dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void ModeleLevee::Marquer(int rang) {
    marque_ = rang;
    Rafraichir();
}

// ---------------------------------------------------------------------------------------------

FenetreLevee::FenetreLevee(ZoneTravail& zone, std::unique_ptr<SessionLevee> session)
    : QWidget(&zone), zone_(zone), session_(std::move(session)) {
    setObjectName(kNomVue);
    auto* pile = new QVBoxLayout(this);
    ligneCas_ = new QLabel(this);
    ligneCas_->setObjectName(QStringLiteral("ligne_cas"));
    ligneCas_->setTextFormat(Qt::PlainText);
    QFont gras = ligneCas_->font();
    gras.setBold(true);
    ligneCas_->setFont(gras);
    ligneCas_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    pile->addWidget(ligneCas_);

    // The way of working.
    panneauMode_ = new QWidget(this);
    auto* mode = new QHBoxLayout(panneauMode_);
    auto* ordre = new QRadioButton(QStringLiteral("Cas dans l'ordre des fichiers"), panneauMode_);
    parLemmes_ = new QRadioButton(QStringLiteral("Choisir les cas par la liste des lemmes"), panneauMode_);
    ordre->setChecked(true);
    auto* valide = new QPushButton(QStringLiteral("VALIDE"), panneauMode_);
    valide->setObjectName(QStringLiteral("AF3VAL"));
    mode->addWidget(ordre);
    mode->addWidget(parLemmes_);
    mode->addWidget(valide);
    mode->addStretch(1);
    pile->addWidget(panneauMode_);
    connect(valide, &QPushButton::clicked, this, &FenetreLevee::ValiderMode);

    // The lemma list.
    panneauLemmes_ = new QWidget(this);
    auto* pl = new QVBoxLayout(panneauLemmes_);
    lemmes_ = new QListWidget(panneauLemmes_);
    lemmes_->setObjectName(QStringLiteral("lemmes"));
    lemmes_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    auto* valider = new QPushButton(QStringLiteral("VALIDER VOTRE SELECTION"), panneauLemmes_);
    valider->setObjectName(QStringLiteral("B_VAL1"));
    pl->addWidget(lemmes_, 1);
    pl->addWidget(valider);
    pile->addWidget(panneauLemmes_, 1);
    connect(valider, &QPushButton::clicked, this, &FenetreLevee::ValiderLemmes);

    // The occurrences.
    modele_ = new ModeleLevee(*session_, this);
    table_ = new QTableView(this);
    table_->setObjectName(QStringLiteral("occurrences"));
    table_->setModel(modele_);
    table_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setWordWrap(false);
    table_->setTextElideMode(Qt::ElideNone);
    table_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    // Fixed row heights: the view never measures the rows it does not show.
    table_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table_->verticalHeader()->setDefaultSectionSize(QFontMetrics(table_->font()).height() + 6);
    table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Interactive);
    table_->horizontalHeader()->setSectionsClickable(true);
    table_->horizontalHeader()->setHighlightSections(false);
    table_->viewport()->installEventFilter(this);
    table_->installEventFilter(this);
    connect(table_->horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int colonne) {
        if (const int j = modele_->Lecture(colonne)) CliquerEntete(j);
    });
    pile->addWidget(table_, 1);

    // The buttons.
    auto* boutons = new QHBoxLayout;
    // The longest captions first, so that the layout gives the buttons room for every state.
    suivant_ = new QPushButton(QStringLiteral("CAS PRECEDENT"), this);
    suivant_->setObjectName(QStringLiteral("B_CX"));
    suivant_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Return));
    suivant_->setToolTip(QStringLiteral("Valide les coches et passe au cas suivant (Ctrl+Entrée)"));
    tri_ = new QPushButton(QStringLiteral("TRI GAUCHE"), this);
    tri_->setObjectName(QStringLiteral("B_TRB"));
    tri_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_T));
    reviser_ = new QPushButton(QStringLiteral("REVISER"), this);
    reviser_->setObjectName(QStringLiteral("B_CORR"));
    reviser_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_R));
    interrompre_ = new QPushButton(QStringLiteral("INTERROMPRE"), this);
    interrompre_->setObjectName(QStringLiteral("B_CONC"));
    for (QPushButton* b : {suivant_, tri_}) b->setMinimumWidth(b->sizeHint().width() + 12);
    boutons->addWidget(suivant_);
    boutons->addWidget(tri_);
    boutons->addWidget(reviser_);
    boutons->addStretch(1);
    boutons->addWidget(interrompre_);
    pile->addLayout(boutons);
    auto* aide = new QLabel(
        QString::fromUtf8("Clavier : 1 à 5 coche la lecture de la ligne courante, 0 l'efface ; "
                          "clic sur une lecture : la colonne entière ; clic droit : marque une ligne, "
                          "un second clic droit coche la lecture de la marque jusqu'ici (Maj+clic de même)."),
        this);
    aide->setWordWrap(true);
    pile->addWidget(aide);
    connect(suivant_, &QPushButton::clicked, this, &FenetreLevee::Suivant);
    connect(tri_, &QPushButton::clicked, this, &FenetreLevee::ChangerTri);
    connect(reviser_, &QPushButton::clicked, this, &FenetreLevee::Reviser);
    connect(interrompre_, &QPushButton::clicked, this, &FenetreLevee::Interrompre);

    zone_.gardeFermeture = [this] { return GarderFermeture(); };
}

FenetreLevee::~FenetreLevee() { zone_.gardeFermeture = nullptr; }

void FenetreLevee::Commencer() {
    if (session_->Terminee()) {
        Finir();
        return;
    }
    Montrer();
}

void FenetreLevee::Montrer() {
    const EtiquetteSession e = session_->Etiquette();
    const bool choixMode = e == EtiquetteSession::levcon_simp;
    const bool choixLemmes = e == EtiquetteSession::levcon_s1x;
    panneauMode_->setVisible(choixMode);
    panneauLemmes_->setVisible(choixLemmes);
    table_->setVisible(!choixMode && !choixLemmes);
    for (QPushButton* b : {suivant_, tri_, reviser_}) b->setVisible(!choixMode && !choixLemmes);
    if (choixMode) {
        ligneCas_->setText(QStringLiteral("Mode de travail"));
        return;
    }
    if (choixLemmes) {
        ligneCas_->setText(QStringLiteral("Choisissez les lemmes"));
        if (lemmes_->count() == 0) {
            for (const std::string& l : session_->LemmesAffiches()) {
                auto* item = new QListWidgetItem(VersQt(l), lemmes_);
                item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
                item->setCheckState(Qt::Unchecked);
            }
        }
        return;
    }
    ligneCas_->setText(VersQt(session_->LigneCas()));
    suivant_->setText(VersQt(session_->LibelleBouton()));
    tri_->setText(VersQt(session_->LibelleTri()));
    modele_->Recharger();
    // Column widths from the font, never from the rows: a large case opens at once.
    const QFontMetrics fm(table_->font());
    const int car = fm.horizontalAdvance(QLatin1Char('m'));
    for (int c = 0; c < modele_->columnCount(); ++c) {
        if (modele_->Lecture(c)) {
            const QString t = modele_->headerData(c, Qt::Horizontal, Qt::DisplayRole).toString();
            int w = 0;
            for (const QString& ligne : t.split(QLatin1Char('\n'))) w = std::max(w, fm.horizontalAdvance(ligne));
            table_->setColumnWidth(c, std::max(w + 16, 3 * car));
        }
    }
    const int g = modele_->ColonneGauche();
    table_->setColumnWidth(g, static_cast<int>(LARGEUR_CONTEXTE_LEVEE) * car + 12);
    table_->setColumnWidth(g + 1, 18 * car);
    table_->setColumnWidth(g + 2, static_cast<int>(LARGEUR_CONTEXTE_LEVEE) * car + 12);
    ancre_ = -1;
    if (modele_->rowCount() > 0) table_->setCurrentIndex(modele_->index(0, 0));
}

void FenetreLevee::Finir() {
    // The cases are exhausted: the session has saved; the program ends.
    zone_.Dialogue().Afficher("Opération terminée"_cp);
    zone_.App().Terminer(0);
}

void FenetreLevee::ValiderMode() {
    if (session_->Etiquette() != EtiquetteSession::levcon_simp) return;
    if (parLemmes_->isChecked()) {
        session_->ChoisirParLemmes();
    } else {
        session_->TravaillerDansLOrdre();
        if (session_->Terminee()) {
            Finir();
            return;
        }
    }
    Montrer();
}

void FenetreLevee::ValiderLemmes() {
    if (session_->Etiquette() != EtiquetteSession::levcon_s1x) return;
    std::vector<std::size_t> choisis;
    for (int i = 0; i < lemmes_->count(); ++i)
        if (lemmes_->item(i)->checkState() == Qt::Checked) choisis.push_back(static_cast<std::size_t>(i));
    session_->ValiderLemmes(choisis);
    if (session_->Terminee()) {
        Finir();
        return;
    }
    Montrer();
}

void FenetreLevee::Suivant() {
    if (!session_->CasSuivant()) {
        Finir();
        return;
    }
    Montrer();
}

void FenetreLevee::ChangerTri() {
    session_->ChangerTri();
    Montrer();
}

void FenetreLevee::Reviser() {
    if (!session_->Reviser()) {
        zone_.Dialogue().Afficher("Aucun cas à réviser."_cp);
        return;
    }
    suivant_->setText(VersQt(session_->LibelleBouton()));
    zone_.Dialogue().Demander("Cliquez sur 'CAS PRECEDENT' ci-dessus", "POUR REVISER LE CAS PRECEDENT",
                              std::string(70, '*'));
}

void FenetreLevee::Interrompre() {
    const auto r = zone_.Dialogue().Demander(kQuestionArret, "INTERROMPRE ?", "O");
    if (!r || *r != "O") return;
    session_->Sauver();
    zone_.App().Terminer(0);
}

bool FenetreLevee::GarderFermeture() {
    if (session_->Etiquette() != EtiquetteSession::levcon_comp || session_->Terminee()) return true;
    const auto r = zone_.Dialogue().Demander(kQuestionArret, "INTERROMPRE ?", "O");
    if (!r || *r != "O") return false;
    session_->Sauver();
    return true;
}

void FenetreLevee::CocherPlage(int de, int a, int lecture) {
    const int n = std::abs(a - de) + 1;
    if (static_cast<std::size_t>(n) > MAX_LIGNES_PLAGE) {
        zone_.Dialogue().Afficher(Joindre("Une plage compte au plus "_cp, std::to_string(MAX_LIGNES_PLAGE), " lignes."));
        return;
    }
    session_->CocherPlage(static_cast<std::size_t>(std::min(de, a)), static_cast<std::size_t>(std::max(de, a)),
                          lecture);
}

void FenetreLevee::CliquerCase(int rang, int lecture, bool plage) {
    if (rang < 0 || rang >= modele_->rowCount() || lecture < 1 || lecture > session_->NbLectures()) return;
    const int depart = modele_->Marque() >= 0 ? modele_->Marque() : ancre_;
    if (plage && depart >= 0) {
        CocherPlage(depart, rang, lecture);
        modele_->Marquer(-1);
    } else {
        const OccurrenceLevee& o = session_->Occurrence(static_cast<std::size_t>(rang));
        session_->Cocher(static_cast<std::size_t>(rang), o.coche == lecture ? 0 : lecture);
    }
    ancre_ = rang;
    modele_->Rafraichir();
}

void FenetreLevee::CliquerDroit(int rang, int lecture) {
    if (rang < 0 || rang >= modele_->rowCount()) return;
    if (modele_->Marque() < 0) {
        modele_->Marquer(rang);
        return;
    }
    if (lecture >= 1 && lecture <= session_->NbLectures()) CocherPlage(modele_->Marque(), rang, lecture);
    modele_->Marquer(-1);
}

void FenetreLevee::GlisserDroit(int de, int a, int lecture) {
    if (de < 0 || a < 0 || de >= modele_->rowCount() || a >= modele_->rowCount()) return;
    if (lecture >= 1 && lecture <= session_->NbLectures()) CocherPlage(de, a, lecture);
    modele_->Marquer(-1);
}

void FenetreLevee::CliquerEntete(int lecture) {
    session_->CocherColonne(lecture);
    modele_->Rafraichir();
}

bool FenetreLevee::eventFilter(QObject* objet, QEvent* evenement) {
    if (objet == table_->viewport() &&
        (evenement->type() == QEvent::MouseButtonPress || evenement->type() == QEvent::MouseButtonDblClick)) {
        auto* m = static_cast<QMouseEvent*>(evenement);
        const QModelIndex i = table_->indexAt(m->position().toPoint());
        if (!i.isValid()) return false;
        const int j = modele_->Lecture(i.column());
        if (m->button() == Qt::RightButton) {
            // The row pressed: released on another row, the drag ticks the range; released on
            // the same row, it is a click that marks (or closes a marked range).
            pressionDroite_ = i.row();
            return true;
        }
        if (m->button() == Qt::LeftButton && j > 0) {
            table_->setCurrentIndex(i);
            CliquerCase(i.row(), j, (m->modifiers() & Qt::ShiftModifier) != 0);
            return true;
        }
        return false;
    }
    if (objet == table_->viewport() && evenement->type() == QEvent::MouseButtonRelease) {
        auto* m = static_cast<QMouseEvent*>(evenement);
        if (m->button() != Qt::RightButton || pressionDroite_ < 0) return false;
        const int depart = pressionDroite_;
        pressionDroite_ = -1;
        const QModelIndex i = table_->indexAt(m->position().toPoint());
        if (!i.isValid()) return true;
        const int j = modele_->Lecture(i.column());
        if (i.row() == depart) CliquerDroit(depart, j);
        else GlisserDroit(depart, i.row(), j);
        return true;
    }
    if (objet == table_ && evenement->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(evenement);
        const int rang = table_->currentIndex().row();
        if (rang < 0) return false;
        if (k->key() >= Qt::Key_0 && k->key() <= Qt::Key_5 && k->modifiers() == Qt::NoModifier) {
            const int j = k->key() - Qt::Key_0;
            if (j > session_->NbLectures()) return true;
            session_->Cocher(static_cast<std::size_t>(rang), j);
            modele_->Rafraichir();
            // On to the next row, as a person ticks down the list.
            if (rang + 1 < modele_->rowCount())
                table_->setCurrentIndex(modele_->index(rang + 1, table_->currentIndex().column()));
            return true;
        }
        if (k->key() == Qt::Key_Space && modele_->Lecture(table_->currentIndex().column())) {
            CliquerCase(rang, modele_->Lecture(table_->currentIndex().column()), false);
            return true;
        }
    }
    return false;
}

// ---------------------------------------------------------------------------------------------

namespace {

void OuvrirLevee(ContexteVue& c, bool composes) {
    ZoneTravail& zone = c.zone;
    if (auto* v = zone.Vue<FenetreLevee>(QLatin1String(kNomVue))) {
        zone.MontrerVue(v);
        zone.Dialogue().Afficher("Une session de levée est déjà ouverte : terminez-la ou interrompez-la."_cp);
        return;
    }
    auto session = std::make_shared<std::unique_ptr<SessionLevee>>();
    zone.Lancer(
        [session, composes](Contexte& ctx) {
            const auto liste = ChoisirListeTextes(ctx.dialogue);
            if (!liste) return;
            *session = std::make_unique<SessionLevee>(
                composes ? SessionLevee::OuvrirComposes(*liste, ctx.horloge, ctx.dialogue)
                         : SessionLevee::OuvrirSimples(*liste, ctx.horloge, ctx.dialogue));
        },
        [session, composes, &zone] {
            if (!*session) return;
            auto* f = new FenetreLevee(zone, std::move(*session));
            zone.AjouterVue(f, composes ? VersQt("Levée composés ambigus"_cp) : VersQt("Levée simples ambigus"_cp));
            f->Commencer();
        });
}

const bool kInscritSimples = EnregistrerVue("Form2.smn_lev", [](ContexteVue& c) { OuvrirLevee(c, false); });
const bool kInscritComposes = EnregistrerVue("Form2.smn_lca", [](ContexteVue& c) { OuvrirLevee(c, true); });

}  // namespace

}  // namespace telvoris::gui
