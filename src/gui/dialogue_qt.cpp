#include "gui/dialogue_qt.hpp"

#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QThread>

#include "gui/barre.hpp"
#include "gui/fenetres.hpp"
#include "gui/texte_qt.hpp"

namespace telvoris::gui {

namespace {

QString TitreBoite(std::string_view titre) { return titre.empty() ? QStringLiteral("Telvoris") : VersQt(titre); }

}  // namespace

DialogueQt::DialogueQt(ZoneTravail& zone) : zone_(zone) {}

template <class F>
void DialogueQt::SurGui(F&& f) {
    if (QThread::currentThread() == zone_.thread()) {
        f();
    } else {
        QMetaObject::invokeMethod(&zone_, std::forward<F>(f), Qt::BlockingQueuedConnection);
    }
}

std::optional<std::string> DialogueQt::Demander(std::string_view texte, std::string_view titre,
                                                std::string_view defaut) {
    std::optional<std::string> r;
    SurGui([&] {
        QInputDialog boite(&zone_);
        boite.setObjectName(NOM_BOITE_SAISIE);
        boite.setWindowTitle(TitreBoite(titre));
        boite.setInputMode(QInputDialog::TextInput);
        boite.setLabelText(VersQt(texte));
        boite.setTextValue(VersQt(defaut));
        // Long questions wrap instead of widening the box past the screen.
        for (QLabel* l : boite.findChildren<QLabel*>()) {
            l->setWordWrap(true);
            l->setTextFormat(Qt::PlainText);
        }
        boite.setMinimumWidth(420);
        if (boite.exec() == QDialog::Accepted) r = DepuisQt(boite.textValue());
    });
    return r;
}

std::optional<std::filesystem::path> DialogueQt::ChoisirFichier(std::string_view titre, std::string_view filtre) {
    std::optional<std::filesystem::path> r;
    SurGui([&] {
        Application& app = zone_.App();
        const QString dossier = app.dernierDossier.empty() ? QString() : QString::fromStdString(app.dernierDossier.string());
        QFileDialog boite(&zone_, VersQt(titre), dossier, FiltreQt(filtre));
        boite.setObjectName(NOM_DIALOGUE_FICHIER);
        boite.setOption(QFileDialog::DontUseNativeDialog);
        boite.setFileMode(QFileDialog::ExistingFile);
        boite.setAcceptMode(QFileDialog::AcceptOpen);
        if (boite.exec() != QDialog::Accepted || boite.selectedFiles().isEmpty()) return;
        // Names on disk are UTF-8.
        const QByteArray nom = boite.selectedFiles().first().toUtf8();
        std::filesystem::path chemin(std::string(nom.constData(), static_cast<std::size_t>(nom.size())));
        app.dernierDossier = chemin.parent_path();
        r = chemin;
    });
    return r;
}

void DialogueQt::Afficher(std::string_view message) {
    const QString texte = VersQt(message);
    SurGui([&] {
        zone_.PanneauResultat()->appendPlainText(texte);
        QMessageBox boite(QMessageBox::Information, QStringLiteral("Telvoris"), texte, QMessageBox::Ok, &zone_);
        boite.setObjectName(NOM_BOITE_MESSAGE);
        boite.setTextFormat(Qt::PlainText);
        boite.exec();
    });
}

void DialogueQt::AfficherErreur(std::string_view message) {
    const QString texte = VersQt(message);
    SurGui([&] {
        zone_.PanneauResultat()->appendPlainText(texte);
        QMessageBox boite(QMessageBox::Critical, QStringLiteral("Erreur"), texte, QMessageBox::Ok, &zone_);
        boite.setObjectName(NOM_BOITE_MESSAGE);
        boite.setTextFormat(Qt::PlainText);
        boite.exec();
    });
}

void DialogueQt::Resultat(std::string_view texte) {
    QString t = VersQt(texte);
    // The pane shows lines; CR LF of the library's texts would show as blank lines.
    t.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (t.endsWith(QLatin1Char('\n'))) t.chop(1);
    SurGui([&] {
        QPlainTextEdit* p = zone_.PanneauResultat();
        p->appendPlainText(t);
        p->verticalScrollBar()->setValue(p->verticalScrollBar()->maximum());
    });
}

void DialogueQt::Progression(std::string_view libelle, long long i, long long n) {
    std::lock_guard verrou(mutex_);
    barre_ = {std::string(libelle), i, n, true};
    if (envoiEnAttente_) return;
    envoiEnAttente_ = true;
    QMetaObject::invokeMethod(&zone_, [this] { AppliquerBarre(); }, Qt::QueuedConnection);
}

void DialogueQt::MasquerProgression() {
    std::lock_guard verrou(mutex_);
    barre_.visible = false;
    if (envoiEnAttente_) return;
    envoiEnAttente_ = true;
    QMetaObject::invokeMethod(&zone_, [this] { AppliquerBarre(); }, Qt::QueuedConnection);
}

void DialogueQt::AppliquerBarre() {
    Etat e;
    {
        std::lock_guard verrou(mutex_);
        e = barre_;
        envoiEnAttente_ = false;
    }
    zone_.Barre()->setVisible(e.visible);
    zone_.LibelleBarre()->setVisible(e.visible);
    if (!e.visible) return;
    zone_.Barre()->Regler(e.i, e.n);
    zone_.LibelleBarre()->setText(VersQt(e.libelle));
}

}  // namespace telvoris::gui
