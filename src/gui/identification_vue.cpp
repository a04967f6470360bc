#include "gui/identification_vue.hpp"

#include <QCheckBox>
#include <QComboBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "gui/dialogue_qt.hpp"
#include "gui/fenetres.hpp"
#include "gui/texte_qt.hpp"

namespace telvoris::gui {

namespace {

constexpr const char* kNomVue = "identification";

QPushButton* Bouton(const QString& texte, const char* nom, QWidget* parent) {
    auto* b = new QPushButton(texte, parent);
    b->setObjectName(QLatin1String(nom));
    return b;
}

}  // namespace

FenetreIdentification::FenetreIdentification(ZoneTravail& zone, std::unique_ptr<SessionIdentification> session)
    : QWidget(&zone), zone_(zone), session_(std::move(session)) {
    setObjectName(kNomVue);
    auto* pile = new QVBoxLayout(this);
    progression_ = new QLabel(this);
    progression_->setObjectName(QStringLiteral("progression"));
    progression_->setTextFormat(Qt::PlainText);
    mot_ = new QLabel(this);
    mot_->setObjectName(QStringLiteral("mot"));
    mot_->setTextFormat(Qt::PlainText);
    mot_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont grand = mot_->font();
    grand.setBold(true);
    grand.setPointSizeF(grand.pointSizeF() * 1.4);
    mot_->setFont(grand);
    effectif_ = new QLabel(this);
    effectif_->setObjectName(QStringLiteral("C_LAB2"));
    effectif_->setTextFormat(Qt::PlainText);
    auto* haut = new QHBoxLayout;
    haut->addWidget(progression_);
    haut->addSpacing(24);
    haut->addWidget(mot_);
    haut->addSpacing(24);
    haut->addWidget(effectif_);
    haut->addStretch(1);
    pile->addLayout(haut);

    concordance_ = new QPlainTextEdit(this);
    concordance_->setObjectName(QStringLiteral("concordance"));
    concordance_->setReadOnly(true);
    concordance_->setLineWrapMode(QPlainTextEdit::NoWrap);
    concordance_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    pile->addWidget(concordance_, 1);

    // The main choices, going back, the candidates and the stop.
    principal_ = new QWidget(this);
    auto* grille = new QGridLayout(principal_);
    const auto& libelles = SessionIdentification::ChoixPrincipaux();
    for (std::size_t i = 0; i < libelles.size(); ++i) {
        auto* b = new QPushButton(VersQt(libelles[i]), principal_);
        b->setObjectName(QStringLiteral("choix%1").arg(i));
        connect(b, &QPushButton::clicked, this, [this, i] { Choisir(static_cast<int>(i)); });
        grille->addWidget(b, static_cast<int>(i / 4), static_cast<int>(i % 4));
        choix_.push_back(b);
    }
    auto* ligneRetour = new QHBoxLayout;
    auto* reviser = Bouton(QStringLiteral("REVISER"), "REVISER", principal_);
    retour_ = new QSpinBox(principal_);
    retour_->setObjectName(QStringLiteral("retour"));
    retour_->setRange(1, MAX_RETOUR);
    retour_->setSuffix(QStringLiteral(" cas en arrière"));
    connect(reviser, &QPushButton::clicked, this, [this] { Revenir(retour_->value()); });
    candidat_ = new QLineEdit(principal_);
    candidat_->setObjectName(QStringLiteral("candidat"));
    candidat_->setPlaceholderText(QStringLiteral("candidat relevé dans la concordance"));
    auto* compose = Bouton(QStringLiteral("Noter composé"), "noter_compose", principal_);
    auto* nomPropre = Bouton(QStringLiteral("Noter nom propre"), "noter_nom_propre", principal_);
    connect(compose, &QPushButton::clicked, this, [this] { Noter(true); });
    connect(nomPropre, &QPushButton::clicked, this, [this] { Noter(false); });
    auto* quitter = Bouton(QStringLiteral("QUITTER"), "C_LAB3", principal_);
    connect(quitter, &QPushButton::clicked, this, &FenetreIdentification::Quitter);
    ligneRetour->addWidget(reviser);
    ligneRetour->addWidget(retour_);
    ligneRetour->addSpacing(16);
    ligneRetour->addWidget(candidat_, 1);
    ligneRetour->addWidget(compose);
    ligneRetour->addWidget(nomPropre);
    ligneRetour->addSpacing(16);
    ligneRetour->addWidget(quitter);
    grille->addLayout(ligneRetour, 2, 0, 1, 4);
    pile->addWidget(principal_);

    formulaires_ = new QStackedWidget(this);
    formulaires_->addWidget(new QWidget(formulaires_));  // nothing open

    // The entry form.
    auto* entree = new QWidget(formulaires_);
    entree->setObjectName(QStringLiteral("entree"));
    auto* fe = new QVBoxLayout(entree);
    titreEntree_ = new QLabel(entree);
    titreEntree_->setFont(mot_->font());
    fe->addWidget(titreEntree_);
    auto* champs = new QFormLayout;
    forme_ = new QLineEdit(entree);
    forme_->setObjectName(QStringLiteral("forme"));
    categorie_ = new QComboBox(entree);
    categorie_->setObjectName(QStringLiteral("categorie"));
    for (const auto& [code, libelle] : SessionIdentification::Categories())
        categorie_->addItem(VersQt(Joindre(code, " : ", libelle)), VersQt(code));
    flexions_ = new QListWidget(entree);
    flexions_->setObjectName(QStringLiteral("flexions"));
    flexions_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    infinitif_ = new QCheckBox(QStringLiteral("infinitif+participe"), entree);
    infinitif_->setObjectName(QStringLiteral("infinitif_participe"));
    champs->addRow(QStringLiteral("Forme de l'entrée :"), forme_);
    champs->addRow(QStringLiteral("Catégorie :"), categorie_);
    champs->addRow(QStringLiteral("Code flexionnel :"), flexions_);
    champs->addRow(QString(), infinitif_);
    fe->addLayout(champs);
    auto* be = new QHBoxLayout;
    auto* enregistrer = Bouton(QStringLiteral("ENREGISTRER"), "ENREGISTRER", entree);
    auto* annulerEntree = Bouton(QStringLiteral("ANNULER"), "ANNULER_ENTREE", entree);
    be->addWidget(enregistrer);
    be->addWidget(annulerEntree);
    be->addStretch(1);
    fe->addLayout(be);
    connect(categorie_, &QComboBox::currentIndexChanged, this, [this] { MontrerFlexions(); });
    connect(enregistrer, &QPushButton::clicked, this, &FenetreIdentification::Enregistrer);
    connect(annulerEntree, &QPushButton::clicked, this, &FenetreIdentification::Annuler);
    formulaires_->addWidget(entree);

    // The correction form.
    auto* corr = new QWidget(formulaires_);
    corr->setObjectName(QStringLiteral("correction"));
    auto* fc = new QVBoxLayout(corr);
    correction_ = new QLineEdit(corr);
    correction_->setObjectName(QStringLiteral("texte_correction"));
    fc->addWidget(new QLabel(QStringLiteral("CORRIGEZ DANS LE CHAMP"), corr));
    fc->addWidget(correction_);
    auto* bc = new QHBoxLayout;
    const std::pair<int, QString> kCorrections[] = {{2, QStringLiteral("MOT POUR MOT")},
                                                    {3, QStringLiteral("Noter la paire et rester")},
                                                    {4, QStringLiteral("Noter la paire, cas suivant")}};
    for (const auto& [index, texte] : kCorrections) {
        auto* b = new QPushButton(texte, corr);
        b->setObjectName(QStringLiteral("corriger%1").arg(index));
        connect(b, &QPushButton::clicked, this, [this, index = index] { Corriger(index); });
        bc->addWidget(b);
    }
    auto* annulerCorr = Bouton(QStringLiteral("ANNULER"), "ANNULER_CORRECTION", corr);
    connect(annulerCorr, &QPushButton::clicked, this, &FenetreIdentification::Annuler);
    bc->addWidget(annulerCorr);
    bc->addStretch(1);
    fc->addLayout(bc);
    formulaires_->addWidget(corr);

    // The language list.
    auto* langue = new QWidget(formulaires_);
    langue->setObjectName(QStringLiteral("langue"));
    auto* fl = new QHBoxLayout(langue);
    langues_ = new QListWidget(langue);
    langues_->setObjectName(QStringLiteral("langues"));
    for (const auto& [nom, code] : SessionIdentification::Langues()) langues_->addItem(VersQt(nom));
    connect(langues_, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { ChoisirLangue(langues_->row(item)); });
    auto* annulerLangue = Bouton(QStringLiteral("ANNULER"), "ANNULER_LANGUE", langue);
    connect(annulerLangue, &QPushButton::clicked, this, &FenetreIdentification::Annuler);
    fl->addWidget(langues_, 1);
    fl->addWidget(annulerLangue, 0, Qt::AlignTop);
    formulaires_->addWidget(langue);
    pile->addWidget(formulaires_);
    Montrer();
}

void FenetreIdentification::Montrer() {
    if (session_->Terminee()) {
        Fin();
        return;
    }
    const CasInconnu& c = session_->CasCourant();
    progression_->setText(VersQt(session_->LigneProgression()));
    mot_->setText(VersQt(c.mot));
    effectif_->setText(VersQt(session_->LigneEffectif()));
    QString conc = VersQt(c.concordance);
    conc.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    concordance_->setPlainText(conc);
    choix_[4]->setText(VersQt(Joindre(SessionIdentification::ChoixPrincipaux()[4], c.mot)));
    using E = SessionIdentification::Ecran;
    const E e = session_->EcranCourant();
    principal_->setEnabled(e == E::Principal);
    switch (e) {
        case E::Entree:
            titreEntree_->setText(VersQt(session_->TitreEntree()));
            forme_->setText(VersQt(session_->FormeEntree()));
            categorie_->setCurrentIndex(std::max(0, categorie_->findData(QStringLiteral("SM"))));
            infinitif_->setChecked(false);
            MontrerFlexions();
            formulaires_->setCurrentIndex(1);
            forme_->setFocus();
            break;
        case E::Correction:
            correction_->setText(VersQt(session_->TexteCorrection()));
            formulaires_->setCurrentIndex(2);
            correction_->setFocus();
            break;
        case E::Langue: formulaires_->setCurrentIndex(3); break;
        default: formulaires_->setCurrentIndex(0); break;
    }
}

void FenetreIdentification::MontrerFlexions() {
    const std::string code = DepuisQt(categorie_->currentData().toString());
    flexions_->clear();
    int r = 0;
    for (const std::string& c : session_->ChoixFlexion(code)) flexions_->addItem(QStringLiteral("%1 : ").arg(r++) + VersQt(c));
    if (flexions_->count() > 0) flexions_->setCurrentRow(0);
    flexions_->setEnabled(flexions_->count() > 0);
    infinitif_->setVisible(code == "V");
}

void FenetreIdentification::Choisir(int index) {
    if (session_->EcranCourant() != SessionIdentification::Ecran::Principal) return;
    session_->Choisir(index);
    Montrer();
}

void FenetreIdentification::Revenir(int n) {
    if (session_->EcranCourant() != SessionIdentification::Ecran::Principal) return;
    session_->OuvrirRetour();
    session_->Revenir(n);
    Montrer();
}

void FenetreIdentification::Noter(bool compose) {
    const QString t = candidat_->text().trimmed();
    if (t.isEmpty()) return;
    session_->NoterCandidat(compose, DepuisQt(t));
    candidat_->clear();
}

void FenetreIdentification::Quitter() {
    const auto ok = zone_.Dialogue().Demander("Voulez-vous vraiment quitter (0/N) ?"_cp, "", "O");
    if (!ok || QString::fromStdString(*ok).trimmed().toUpper() != QLatin1String("O")) return;
    session_->Quitter();
    Montrer();
}

void FenetreIdentification::Enregistrer() {
    const std::string forme = DepuisQt(forme_->text().trimmed());
    if (forme.empty()) {
        zone_.Dialogue().Afficher("La forme de l'entrée est vide."_cp);
        return;
    }
    const std::string code = DepuisQt(categorie_->currentData().toString());
    const int flexion = flexions_->count() > 0 ? std::max(0, flexions_->currentRow()) : 0;
    session_->ValiderEntree(forme, code, flexion, code == "V" && infinitif_->isChecked());
    Montrer();
}

void FenetreIdentification::Corriger(int index) {
    session_->Corriger(index, DepuisQt(correction_->text().trimmed()));
    Montrer();
}

void FenetreIdentification::ChoisirLangue(int index) {
    session_->ChoisirLangue(index);
    Montrer();
}

void FenetreIdentification::Annuler() {
    session_->Annuler();
    Montrer();
}

void FenetreIdentification::Fin() {
    zone_.Dialogue().Afficher("Session terminée : décisions sauvegardées."_cp);
    zone_.RetirerVue(this);
}

// ---------------------------------------------------------------------------------------------

namespace {

void OuvrirIdentification(ContexteVue& c) {
    ZoneTravail& zone = c.zone;
    if (auto* v = zone.Vue<FenetreIdentification>(QLatin1String(kNomVue))) {
        zone.MontrerVue(v);
        zone.Dialogue().Afficher("Une session d'identification est déjà ouverte : quittez-la d'abord."_cp);
        return;
    }
    auto session = std::make_shared<std::unique_ptr<SessionIdentification>>();
    auto vide = std::make_shared<bool>(false);
    zone.Lancer(
        [session, vide](Contexte& ctx) {
            Dialogue& d = ctx.dialogue;
            const auto famille = d.Demander("Avec (NP) ou sans (FC) une majuscule initiale ?"_cp, "", "FC");
            if (!famille) return;
            const auto liste = ChoisirListeTextes(d);
            if (!liste) return;
            auto s = std::make_unique<SessionIdentification>(
                SessionIdentification::Ouvrir(liste->doss_racine, *famille, ctx.ressources, d));
            if (s->Terminee()) {
                d.Afficher("Aucun cas à examiner."_cp);
                return;
            }
            *session = std::move(s);
        },
        [session, &zone] {
            if (!*session) return;
            auto* f = new FenetreIdentification(zone, std::move(*session));
            zone.AjouterVue(f, QStringLiteral("Identification inconnus"));
        });
}

const bool kInscrit = EnregistrerVue("Form2.smn_iic", [](ContexteVue& c) { OuvrirIdentification(c); });

}  // namespace

}  // namespace telvoris::gui
