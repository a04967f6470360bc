// Times the desktop application: from the start of the process to the first painted Form1, and
// the review window on a corpus after the automatic pass (opening through the area's worker thread
// and dialogue, then the first case, the largest, prepared by the session, shown and painted). Built and run by
// bench/gui.sh.
#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QTableView>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <memory>

#include "core/liste_textes.hpp"
#include "gui/barre.hpp"
#include "gui/fenetres.hpp"
#include "gui/levee_vue.hpp"

using namespace telvoris;
namespace fs = std::filesystem;

namespace {

long long MaintenantNs() {
    return std::chrono::duration_cast<std::chrono::nanoseconds>(std::chrono::system_clock::now().time_since_epoch())
        .count();
}

// Notes the first paint of a window.
class Guetteur : public QObject {
public:
    long long premiere = 0;
    bool eventFilter(QObject*, QEvent* e) override {
        if (e->type() == QEvent::Paint && !premiere) premiere = MaintenantNs();
        return false;
    }
};

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage : gui_mesure DEBUT_NS RESSOURCES [LISTE.txt]\n");
        return 2;
    }
    const long long debut = std::atoll(argv[1]);
    QApplication qapp(argc, argv);
    gui::Application app;
    Guetteur guetteur;
    app.Zone(QStringLiteral("Form1")).installEventFilter(&guetteur);
    app.DemarrerAvec(argv[2]);
    while (!guetteur.premiere) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::printf("démarrage jusqu'à la première peinture de Form1 : %.0f ms\n", (guetteur.premiere - debut) / 1e6);
    if (argc < 4) return 0;

    const fs::path liste = argv[3];
    gui::ZoneTravail& z = app.Zone(QStringLiteral("Form2"));
    app.Montrer(QStringLiteral("Form2"));
    auto session = std::make_shared<std::unique_ptr<SessionLevee>>();
    gui::FenetreLevee* f = nullptr;
    QElapsedTimer t;
    t.start();
    double ouverture = 0, preparation = 0, preparationProcesseur = 0, affichage = 0, defilement = 0;
    bool fini = false;
    // The biggest repaint gap of the GUI thread while the corpus loads on the worker thread.
    qint64 dernier = 0, ecartMax = 0;
    QTimer battement;
    QObject::connect(&battement, &QTimer::timeout, [&] {
        const qint64 m = t.elapsed();
        if (dernier) ecartMax = std::max(ecartMax, m - dernier);
        dernier = m;
        z.Barre()->repaint();
    });
    battement.start(10);
    // The opening as the worker thread sees it: its own clock and its processor time, apart from
    // the handing over between the threads.
    double murFil = 0, processeurFil = 0;
    z.Lancer(
        [&](Contexte& ctx) {
            QElapsedTimer mur;
            mur.start();
            timespec c0{}, c1{};
            clock_gettime(CLOCK_THREAD_CPUTIME_ID, &c0);
            *session = std::make_unique<SessionLevee>(SessionLevee::OuvrirSimples(ChargerListeTextes(liste), ctx.horloge,
                                                                                  ctx.dialogue));
            clock_gettime(CLOCK_THREAD_CPUTIME_ID, &c1);
            murFil = mur.elapsed() / 1000.0;
            processeurFil = static_cast<double>(c1.tv_sec - c0.tv_sec) + (c1.tv_nsec - c0.tv_nsec) / 1e9;
        },
        [&] {
            battement.stop();
            ouverture = t.elapsed() / 1000.0;
            t.restart();
            // The session prepares the first case (contexts, sort), then the window shows it.
            timespec p0{}, p1{};
            clock_gettime(CLOCK_THREAD_CPUTIME_ID, &p0);
            (*session)->TravaillerDansLOrdre();
            clock_gettime(CLOCK_THREAD_CPUTIME_ID, &p1);
            preparation = t.elapsed() / 1000.0;
            preparationProcesseur = static_cast<double>(p1.tv_sec - p0.tv_sec) + (p1.tv_nsec - p0.tv_nsec) / 1e9;
            t.restart();
            f = new gui::FenetreLevee(z, std::move(*session));
            z.AjouterVue(f, QStringLiteral("Levée"));
            f->Commencer();
            f->Table()->viewport()->repaint();
            affichage = t.elapsed() / 1000.0;
            t.restart();
            f->Table()->verticalScrollBar()->setValue(f->Table()->verticalScrollBar()->maximum());
            f->Table()->viewport()->repaint();
            defilement = t.elapsed() / 1000.0;
            fini = true;
        });
    while (!fini) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    std::printf("ouverture de la session (fil de travail, barre) : %.2f s, %lld positions, %zu cas\n", ouverture,
                f->Session().NbPositions(), f->Session().NbCas());
    std::printf("  dont sur le fil de travail : %.2f s (processeur du fil : %.2f s)\n", murFil, processeurFil);
    std::printf("plus long intervalle sans peinture pendant l'ouverture : %lld ms\n", static_cast<long long>(ecartMax));
    std::printf("premier cas préparé par la session (clés de tri, tri) : %.3f s (processeur : %.3f s), %zu occurrences\n",
                preparation, preparationProcesseur, f->Session().NbOccurrences());
    std::printf("fenêtre : cas affiché et peint : %.3f s\n", affichage);
    std::printf("défilement jusqu'à la dernière occurrence et peinture : %.3f s\n", defilement);
    return 0;
}
