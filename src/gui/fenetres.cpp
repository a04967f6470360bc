#include "gui/fenetres.hpp"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFontDatabase>
#include <QLabel>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QStatusBar>
#include <QThread>
#include <QVBoxLayout>
#include <map>

#include "core/erreurs.hpp"
#include "core/texte.hpp"
#include "gui/barre.hpp"
#include "gui/dialogue_qt.hpp"
#include "shell/ressources.hpp"

namespace telvoris::gui {

namespace fs = std::filesystem;

namespace {

std::map<std::string, FabriqueVue, std::less<>>& Registre() {
    static std::map<std::string, FabriqueVue, std::less<>> r;
    return r;
}

// The shell's own items of each area: moving to another area, quitting, help.
struct ItemShell {
    const char* zone;
    const char* id;
    std::string_view legende;  // CP1252
    const char* cible;         // the area shown, or nullptr
};
const ItemShell kItemsShell[] = {
    {"Form1", "smn_stt", "Accès aux fonctions statistiques"_cp, "Form3"},
    {"Form1", "smn_dtg", "Accès à Olbr&In"_cp, "Form2"},
    {"Form2", "smn_xpl", "Accès exploration"_cp, "Form1"},
    {"Form2", "smn_stt", "Accès statistiques"_cp, "Form3"},
    {"Form3", "smn_xpl", "Accès exploration"_cp, "Form1"},
    {"Form3", "smn_dtg", "Accès OlbrIn"_cp, "Form2"},
};

struct ItemQuitter {
    const char* zone;
    std::string_view legende;
};
const ItemQuitter kQuitter[] = {{"Form1", "&Fermer"}, {"Form2", "_Quitter"}, {"Form3", "Quitter"}};

const std::string_view kQuestionQuitter = "Voulez-vous interrompre la session (O/N) ?";
const std::string_view kMessageAide = "Merci de vous reporter à la documentation jointe."_cp;

int IndexZone(const QString& nom) {
    if (nom == QLatin1String("Form1")) return 0;
    if (nom == QLatin1String("Form2")) return 1;
    if (nom == QLatin1String("Form3")) return 2;
    return -1;
}

}  // namespace

bool EnregistrerVue(std::string_view cle, FabriqueVue fabrique) {
    Registre()[std::string(cle)] = std::move(fabrique);
    return true;
}

const FabriqueVue* TrouverFabriqueVue(std::string_view zone, std::string_view id) {
    auto& r = Registre();
    if (auto it = r.find(Joindre(zone, ".", id)); it != r.end()) return &it->second;
    if (auto it = r.find(id); it != r.end()) return &it->second;
    return nullptr;
}

// ---------------------------------------------------------------------------------------------

ZoneTravail::ZoneTravail(gui::Application& app, QString nom, QString titre) : app_(app), nom_(std::move(nom)) {
    setObjectName(nom_);
    setWindowTitle(titre);
    dialogue_ = std::make_unique<gui::DialogueQt>(*this);

    auto* centre = new QWidget(this);
    auto* pile = new QVBoxLayout(centre);
    auto* partage = new QSplitter(Qt::Vertical, centre);
    onglets_ = new QTabWidget(partage);
    onglets_->setObjectName(QStringLiteral("vues"));
    onglets_->setDocumentMode(true);
    onglets_->setVisible(false);
    resultat_ = new QPlainTextEdit(partage);
    resultat_->setObjectName(QStringLiteral("resultat"));
    resultat_->setReadOnly(true);
    resultat_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    resultat_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    resultat_->setPlaceholderText(QStringLiteral("Résultats des opérations"));
    partage->addWidget(onglets_);
    partage->addWidget(resultat_);
    partage->setStretchFactor(0, 3);
    partage->setStretchFactor(1, 1);
    pile->addWidget(partage, 1);
    libelleBarre_ = new QLabel(centre);
    libelleBarre_->setObjectName(QStringLiteral("A_BARRE2"));
    libelleBarre_->setTextFormat(Qt::PlainText);
    barre_ = new BarreProgression(centre);
    barre_->setObjectName(QStringLiteral("A_BARRE"));
    pile->addWidget(libelleBarre_);
    pile->addWidget(barre_);
    libelleBarre_->hide();
    barre_->hide();
    setCentralWidget(centre);
    statusBar();
    resize(980, 680);
    ConstruireMenus();
}

ZoneTravail::~ZoneTravail() = default;

const fs::path& ZoneTravail::Ressources() const { return app_.Ressources(); }

void ZoneTravail::ConstruireMenus() {
    QMenuBar* barre = menuBar();
    std::map<std::string, QMenu*, std::less<>> menus;
    const std::string zone = nom_.toStdString();
    // Menus in the order of their first item of the table, items in table order.
    for (const Operation& op : Operations()) {
        if (op.zone != zone) continue;
        QMenu*& menu = menus[std::string(op.menu)];
        if (!menu) {
            menu = barre->addMenu(VersQt(op.menu));
            menu->setToolTipsVisible(true);
        }
        QAction* a = menu->addAction(VersQt(op.legende));
        a->setObjectName(QString::fromLatin1(op.id.data(), static_cast<qsizetype>(op.id.size())));
        if (!op.aide.empty()) {
            const QString aide = QString::fromUtf8(op.aide.data(), static_cast<qsizetype>(op.aide.size()));
            a->setToolTip(aide);
            a->setStatusTip(aide.section(QLatin1Char('\n'), 0, 0));
        }
        const Operation* p = &op;
        connect(a, &QAction::triggered, this, [this, p] { Declencher(*p); });
    }
    // Moving among the areas.
    QMenu* acces = barre->addMenu(QStringLiteral("&Accès"));
    for (const ItemShell& it : kItemsShell) {
        if (nom_ != QLatin1String(it.zone)) continue;
        QAction* a = acces->addAction(VersQt(it.legende));
        a->setObjectName(QLatin1String(it.id));
        const QString cible = QLatin1String(it.cible);
        connect(a, &QAction::triggered, this, [this, cible] { app_.Montrer(cible); });
    }
    if (nom_ == QLatin1String("Form1")) {
        QMenu* aide = barre->addMenu(QStringLiteral("&?"));
        QAction* a = aide->addAction(QStringLiteral("Aide"));
        a->setObjectName(QStringLiteral("smn_aide"));
        connect(a, &QAction::triggered, this, [this] { dialogue_->Afficher(kMessageAide); });
    }
    for (const ItemQuitter& q : kQuitter) {
        if (nom_ != QLatin1String(q.zone)) continue;
        QAction* a = barre->addAction(VersQt(q.legende));
        a->setObjectName(QStringLiteral("smn_cl"));
        connect(a, &QAction::triggered, this, [this] { Quitter(); });
    }
}

QAction* ZoneTravail::Action(const QString& id) const {
    for (QAction* a : menuBar()->findChildren<QAction*>())
        if (a->objectName() == id) return a;
    // Items placed directly on the bar are its children too, but a menu's items are the menu's.
    for (QMenu* m : menuBar()->findChildren<QMenu*>())
        for (QAction* a : m->actions())
            if (a->objectName() == id) return a;
    return nullptr;
}

void ZoneTravail::Quitter() {
    // The comparison is exact: "o" does not end the session.
    const auto r = dialogue_->Demander(kQuestionQuitter, "INTERROMPRE ?", "O");
    if (r && *r == "O") app_.Terminer(0);
}

void ZoneTravail::Declencher(const Operation& op) {
    if (app_.Occupee()) return;
    if (const FabriqueVue* f = TrouverFabriqueVue(op.zone, op.id)) {
        ContexteVue c{app_, *this, op};
        try {
            (*f)(c);
        } catch (const FinProgramme& e) {
            dialogue_->Afficher(e.what());
            app_.Terminer(3);
        } catch (const std::exception& e) {
            dialogue_->AfficherErreur(e.what());
        }
        return;
    }
    Lancer(op.executer);
}

void ZoneTravail::Lancer(std::function<void(Contexte&)> travail, std::function<void()> ensuite) {
    if (app_.Occupee()) return;
    app_.MarquerOccupee(true);
    struct Issue {
        enum { Fait, Fin, Erreur } genre = Fait;
        std::string message;
    };
    auto issue = std::make_shared<Issue>();
    QThread* fil = QThread::create([this, travail = std::move(travail), issue] {
        Contexte ctx{*dialogue_, app_.HorlogeCourante(), app_.Ressources()};
        try {
            travail(ctx);
        } catch (const FinProgramme& e) {
            *issue = {Issue::Fin, e.what()};
        } catch (const ErreurExecution& e) {
            *issue = {Issue::Erreur, e.what()};
        } catch (const std::exception& e) {
            *issue = {Issue::Erreur, Joindre("Erreur : ", Utf8VersCp1252(e.what()))};
        }
        dialogue_->MasquerProgression();
    });
    fil->setObjectName(QStringLiteral("operation"));
    connect(fil, &QThread::finished, this, [this, fil, issue, ensuite = std::move(ensuite)] {
        fil->deleteLater();
        app_.MarquerOccupee(false);
        switch (issue->genre) {
            case Issue::Fait:
                if (ensuite) ensuite();
                break;
            case Issue::Fin:
                dialogue_->Afficher(issue->message);
                app_.Terminer(3);
                break;
            case Issue::Erreur:
                dialogue_->AfficherErreur(issue->message);
                break;
        }
    });
    fil->start();
}

QWidget* ZoneTravail::AjouterVue(QWidget* vue, const QString& titre) {
    onglets_->addTab(vue, titre);
    MontrerVue(vue);
    return vue;
}

void ZoneTravail::MontrerVue(QWidget* vue) {
    onglets_->setVisible(true);
    onglets_->setCurrentWidget(vue);
}

void ZoneTravail::RetirerVue(QWidget* vue) {
    const int i = onglets_->indexOf(vue);
    if (i < 0) return;
    onglets_->removeTab(i);
    vue->deleteLater();
    onglets_->setVisible(onglets_->count() > 0);
}

void ZoneTravail::closeEvent(QCloseEvent* e) {
    if (app_.Terminee()) {
        e->accept();
        return;
    }
    // An operation in progress holds its files open: the window waits for its end.
    if (app_.Occupee()) {
        statusBar()->showMessage(QStringLiteral("Une opération est en cours : attendez sa fin."), 5000);
        e->ignore();
        return;
    }
    if (gardeFermeture && !gardeFermeture()) {
        e->ignore();
        return;
    }
    e->accept();
    app_.Terminer(0);
}

// ---------------------------------------------------------------------------------------------

Application::Application(const Horloge* horloge) : horloge_(horloge ? horloge : &systeme_) {
    std::error_code ec;
    dernierDossier = fs::current_path(ec);
}

Application::~Application() {
    for (ZoneTravail*& z : zones_) {
        delete z;
        z = nullptr;
    }
}

bool Application::Demarrer(const std::optional<fs::path>& option, const fs::path& dossierExecutable,
                           const std::optional<fs::path>& maison) {
    const auto racine = LocaliserRessources(option, dossierExecutable, maison);
    if (!racine) {
        QMessageBox boite(QMessageBox::Warning, VersQt(TITRE_FORM1), VersQt(MessageRessourcesAbsentes()),
                          QMessageBox::Ok);
        boite.setObjectName(NOM_BOITE_MESSAGE);
        boite.exec();
        terminee_ = true;
        return false;
    }
    DemarrerAvec(*racine);
    return true;
}

void Application::DemarrerAvec(const fs::path& ressources) {
    ressources_ = ressources;
    Montrer(QStringLiteral("Form1"));
}

ZoneTravail& Application::Zone(const QString& nom) {
    const int i = IndexZone(nom);
    if (i < 0) throw ErreurExecution(Joindre("Zone de travail inconnue : ", nom.toStdString()));
    if (!zones_[i]) {
        const std::string_view titres[] = {TITRE_FORM1, TITRE_FORM2, TITRE_FORM3};
        zones_[i] = new ZoneTravail(*this, nom, VersQt(titres[i]));
        zones_[i]->menuBar()->setEnabled(!occupee_);
    }
    return *zones_[i];
}

ZoneTravail* Application::ZoneSiChargee(const QString& nom) const {
    const int i = IndexZone(nom);
    return i < 0 ? nullptr : zones_[i];
}

void Application::Montrer(const QString& nom) {
    ZoneTravail& cible = Zone(nom);
    for (ZoneTravail* z : zones_)
        if (z && z != &cible) z->hide();
    cible.show();
    cible.raise();
    cible.activateWindow();
}

ZoneTravail* Application::ZoneVisible() const {
    for (ZoneTravail* z : zones_)
        if (z && z->isVisible()) return z;
    return nullptr;
}

void Application::MarquerOccupee(bool occupee) {
    occupee_ = occupee;
    for (ZoneTravail* z : zones_)
        if (z) z->menuBar()->setEnabled(!occupee);
    emit OccupationChangee(occupee);
}

void Application::Terminer(int code) {
    if (terminee_) return;
    terminee_ = true;
    if (surFin) {
        surFin(code);
        return;
    }
    for (ZoneTravail* z : zones_)
        if (z) z->close();
    QCoreApplication::exit(code);
}

}  // namespace telvoris::gui
