// The distribution tab: the histograms of deviates over the partitions (Picture1) and over the
// contrast classes (Picture2), drawn from their model in logical units and scaled; Label3 for a
// bar's numbers, the saving labels Label11, and the micro-distribution lists with their sort
// labels Label7.
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QVBoxLayout>

#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "explore/distribution.hpp"
#include "gui/dialogue_qt.hpp"
#include "gui/exploration.hpp"
#include "gui/fenetres.hpp"

namespace telvoris::gui {

namespace {

// The vertical extent drawn, in logical units: the guide lines reach 10 deviates up, 5 down.
inline constexpr long long HAUT_LOGIQUE = -1100, BAS_LOGIQUE = 600;

class Image : public QWidget {
public:
    Histogramme h;
    std::function<void(long long barre, Qt::MouseButton)> clic;

    Image() { setMinimumHeight(180); }

    // Logical units to pixels and back: the whole picture fits the widget's width.
    double Echelle() const { return h.largeurImage > 0 ? width() / static_cast<double>(h.largeurImage) : 1.0; }
    double EchelleY(long long haut, long long bas) const { return height() / static_cast<double>(bas - haut); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter p(this);
        p.fillRect(rect(), Qt::white);
        if (h.vide) return;
        long long haut = HAUT_LOGIQUE, bas = BAS_LOGIQUE;
        for (const Barre& b : h.barres) haut = std::min(haut, b.hauteur - 50), bas = std::max(bas, b.hauteur + 50);
        const double ex = Echelle(), ey = EchelleY(haut, bas);
        auto X = [&](long long x) { return static_cast<int>(x * ex); };
        auto Y = [&](long long y) { return static_cast<int>((y - haut) * ey); };
        p.setPen(QColor(200, 200, 200));
        for (const Repere& g : h.guides) {
            p.drawLine(0, Y(g.y), width(), Y(g.y));
            p.setPen(Qt::darkGray);
            p.drawText(2, Y(g.y) - 2, QString::fromStdString(g.texte));
            p.setPen(QColor(200, 200, 200));
        }
        p.setPen(Qt::black);
        p.drawLine(0, Y(0), width(), Y(0));
        for (const Barre& b : h.barres) {
            const QRect r(QPoint(X(b.x), Y(std::min(0LL, b.hauteur))), QPoint(X(b.x + b.largeur) - 1, Y(std::max(0LL, b.hauteur))));
            p.fillRect(r, b.sansOccurrence ? QColor(170, 170, 170) : QColor(30, 80, 200));
        }
        for (const Repere& g : h.graduations) {
            p.drawLine(X(g.x), Y(0), X(g.x), Y(0) + 4);
            p.drawText(X(g.x) + 2, Y(0) + 14, QString::fromStdString(g.texte));
        }
        p.drawText(X(h.total.x) - 40, Y(0) - 4, QString::fromStdString(h.total.texte));
    }

    void mousePressEvent(QMouseEvent* ev) override {
        if (!clic || h.vide) return;
        const long long b = h.BarreEn(ev->position().x() / Echelle());
        if (b > 0) clic(b, ev->button());
    }
};

class ListeMicroTexte : public QPlainTextEdit {
public:
    std::function<void(int ligne)> double_;

protected:
    void mouseDoubleClickEvent(QMouseEvent* ev) override {
        QPlainTextEdit::mouseDoubleClickEvent(ev);
        if (double_) double_(cursorForPosition(ev->position().toPoint()).blockNumber());
    }
};

class VueDistribution : public QWidget {
public:
    explicit VueDistribution(Exploration& e) : e_(e) {
        auto* l = new QVBoxLayout(this);
        label3_ = new QLabel(this);
        label3_->setObjectName(QStringLiteral("Label3"));
        l->addWidget(label3_);
        for (int i = 0; i < 2; ++i) {
            images_[i] = new Image;
            images_[i]->setObjectName(i == 0 ? QStringLiteral("Picture1") : QStringLiteral("Picture2"));
            l->addWidget(images_[i], 1);
            auto* sauver = new QPushButton(i == 0 ? QStringLiteral("sauvegarder la distribution par partition")
                                                  : QStringLiteral("sauvegarder la distribution par classe"),
                                           this);
            sauver->setObjectName(QStringLiteral("Label11_%1").arg(i + 2));
            sauver->setFlat(true);
            l->addWidget(sauver, 0, Qt::AlignLeft);
            const bool classes = i == 1;
            connect(sauver, &QPushButton::clicked, this, [this, classes] {
                e_.Commande([&] {
                    const Requete* r = e_.DerniereRequete();
                    if (!r || r->NB_OCC() == 0 || (classes && e_.Etat().NB_CLASSES == 0)) return;
                    const auto f = SauverDistribution(e_.Etat(), *r, classes, e_.Zone().App().HorlogeCourante());
                    e_.Zone().Dialogue().Afficher(Joindre("Distribution sauvegardée : "_cp, TexteChemin(f)));
                });
            });
        }
        images_[0]->clic = [this](long long p, Qt::MouseButton b) {
            label3_->setText(VersQt(images_[0]->h.Libelle(p)));
            if (b != Qt::RightButton) return;
            e_.Commande([&] { e_.Navigation()->AllerPartition(p); });
            emit e_.navigationChangee();
            e_.Montrer(VUE_PLEIN_TEXTE);
        };
        images_[1]->clic = [this](long long c, Qt::MouseButton) { label3_->setText(VersQt(images_[1]->h.Libelle(c))); };

        auto* micro = new QHBoxLayout;
        for (int i = 0; i < 2; ++i) {
            auto* colonne = new QVBoxLayout;
            tri_[i] = new QPushButton(this);
            tri_[i]->setObjectName(QStringLiteral("Label7_%1").arg(i));
            tri_[i]->setFlat(true);
            listes_[i] = new ListeMicroTexte;
            listes_[i]->setObjectName(i == 0 ? QStringLiteral("micro_formes") : QStringLiteral("micro_lemmes"));
            listes_[i]->setReadOnly(true);
            listes_[i]->setLineWrapMode(QPlainTextEdit::NoWrap);
            QFont police(QStringLiteral("Courier New"));
            police.setStyleHint(QFont::Monospace);
            listes_[i]->setFont(police);
            colonne->addWidget(new QLabel(i == 0 ? QStringLiteral("co-occurrents : formes") : QStringLiteral("co-occurrents : lemmes"), this));
            colonne->addWidget(tri_[i], 0, Qt::AlignLeft);
            colonne->addWidget(listes_[i]);
            micro->addLayout(colonne);
            // A double click on a co-occurrent: its places are marked in the full text.
            listes_[i]->double_ = [this, i](int ligne) {
                const Requete* r = e_.DerniereRequete();
                if (!r) return;
                const EntreeCooc* entree = TrouverCooccurrent(*r, micro_[i].CleDeLigne(static_cast<std::size_t>(ligne)), i == 1);
                if (!entree) return;
                e_.Commande([&] { e_.Navigation()->ChoisirCooccurrences(CooccurrencesDe(*entree, i == 1)); });
                emit e_.navigationChangee();
                e_.Montrer(VUE_PLEIN_TEXTE);
            };
            connect(tri_[i], &QPushButton::clicked, this, [this, i] {
                micro_[i].Basculer();
                AfficherMicro(i);
            });
        }
        l->addLayout(micro, 1);
        connect(&e_, &Exploration::requeteFaite, this, [this] { Rafraichir(); });
        Rafraichir();
    }

private:
    void Rafraichir() {
        label3_->clear();
        const Requete* r = e_.DerniereRequete();
        const bool macro = r && r->NB_OCC() > 0 && e_.ParametresDerniere().macro;
        images_[0]->h = macro ? HistogrammePartitions(e_.Etat(), *r) : Histogramme();
        images_[1]->h = macro ? HistogrammeClasses(e_.Etat(), *r) : Histogramme();
        for (auto* im : images_) im->update();
        const bool micro = r && !r->occ.empty() && e_.ParametresDerniere().micro;
        for (int i = 0; i < 2; ++i) micro_[i] = ListeMicro();
        if (micro) {
            e_.Commande([&] {
                micro_[0] = CalculerMicro(e_.Etat(), *r, false);
                micro_[1] = CalculerMicro(e_.Etat(), *r, true);
                // The marks for the map and the whole result, kept with the index's saved files,
                // as the command line keeps them.
                EcrireFichiersMicro(e_.Etat(), micro_[0], micro_[1], e_.Etat().PATH_INDEX / "SAUVEGARDES");
            });
        }
        for (int i = 0; i < 2; ++i) AfficherMicro(i);
    }

    void AfficherMicro(int i) {
        tri_[i]->setText(VersQt(micro_[i].Legende()));
        listes_[i]->setPlainText(VersQt(micro_[i].Affichee()).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    }

    Exploration& e_;
    QLabel* label3_;
    Image* images_[2];
    QPushButton* tri_[2];
    ListeMicroTexte* listes_[2];
    ListeMicro micro_[2];
};

const bool inscrit = EnregistrerVue("Form1.smn_st", [](ContexteVue& c) { Exploration::De(c.zone).Montrer(VUE_STAT); });

}  // namespace

QWidget* CreerVueDistribution(Exploration& e) { return new VueDistribution(e); }

}  // namespace telvoris::gui
