#include "pilote.hpp"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

namespace telvoris::test {

Reponse Texte(const QString& t) { return Reponse{t, {}, false}; }
Reponse Annuler() { return Reponse{std::nullopt, {}, false}; }
Reponse Fichier(const std::filesystem::path& f) { return Reponse{std::nullopt, f, true}; }

Pilote::Pilote() : minuterie_(new QTimer(this)) {
    connect(minuterie_, &QTimer::timeout, this, &Pilote::Regarder);
    minuterie_->start(5);
}

Pilote::~Pilote() = default;

void Pilote::Regarder() {
    QWidget* w = QApplication::activeModalWidget();
    if (!w || !w->isVisible()) return;
    if (auto* m = qobject_cast<QMessageBox*>(w)) {
        messages << m->text();
        m->accept();
        return;
    }
    if (auto* b = qobject_cast<QInputDialog*>(w)) {
        questions << b->windowTitle() + QLatin1Char('|') + b->labelText() + QLatin1Char('|') + b->textValue();
        if (reponses.empty() || reponses.front().estFichier) {
            imprevus << b->labelText();
            b->reject();
            return;
        }
        const Reponse r = reponses.front();
        reponses.pop_front();
        if (!r.texte) {
            b->reject();
            return;
        }
        b->setTextValue(*r.texte);
        b->accept();
        return;
    }
    if (auto* f = qobject_cast<QFileDialog*>(w)) {
        fichiers << f->windowTitle() + QLatin1Char('|') + f->nameFilters().join(QStringLiteral(";;")) +
                        QLatin1Char('|') + f->directory().absolutePath();
        if (reponses.empty() || !reponses.front().estFichier) {
            imprevus << f->windowTitle();
            f->reject();
            return;
        }
        const Reponse r = reponses.front();
        reponses.pop_front();
        if (r.fichier.empty()) {
            f->reject();
            return;
        }
        f->selectFile(QString::fromStdString(r.fichier.string()));
        static_cast<QDialog*>(f)->accept();
        return;
    }
}

bool AttendreQue(const std::function<bool()>& condition) { return QTest::qWaitFor(condition, 120000); }

}  // namespace telvoris::test
