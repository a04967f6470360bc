// Timings of the exploration views on an indexed corpus, drawn by the real widgets of Form1 on
// Qt's offscreen platform: a query validated to its first concordance page painted, a partition
// of the full text shown with its marks, both histograms drawn, and a micro-distribution.
// Usage: explore_vues RESSOURCES LISTE.txt FORME [LISTE_499.txt]
#include <QApplication>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <ctime>
#include <cstdio>
#include <vector>

#include "core/dialogue.hpp"
#include "core/texte.hpp"
#include "explore/distribution.hpp"
#include "gui/exploration.hpp"
#include "gui/fenetres.hpp"

using namespace telvoris;
using Horloge_ = std::chrono::steady_clock;

namespace {

class Muet : public Dialogue {
public:
    std::optional<std::string> Demander(std::string_view, std::string_view, std::string_view d) override { return std::string(d); }
    std::optional<std::filesystem::path> ChoisirFichier(std::string_view, std::string_view) override { return std::nullopt; }
    void Afficher(std::string_view) override {}
    void Resultat(std::string_view) override {}
    void Progression(std::string_view, long long, long long) override {}
    void MasquerProgression() override {}
};

double Ms(Horloge_::time_point a, Horloge_::time_point b) { return std::chrono::duration<double, std::milli>(b - a).count(); }
// The processor time of the whole process (every thread), in ms: the machine may be shared, and
// wall-clock time then counts the waits for a processor.
double Cpu() { return 1000.0 * static_cast<double>(std::clock()) / CLOCKS_PER_SEC; }
std::vector<double> cpu;  // processor time of each measure, beside its wall time
double Mediane(std::vector<double> v) {
    std::sort(v.begin(), v.end());
    return v.empty() ? 0 : v[v.size() / 2];
}

void Ouvrir(gui::Exploration& e, const char* liste) {
    Muet d;
    auto etat = std::make_unique<EtatCorpus>(OuvrirCorpus(liste));
    ValiderCorpus(*etat, {{0}, 0}, d);
    e.CorpusValide(std::move(etat));
}

// Runs the panel's query and waits for its end; returns the milliseconds to the first page
// painted.
double Valider(gui::Exploration& e, gui::ZoneTravail& zone) {
    const double c0 = Cpu();
    const auto t0 = Horloge_::now();
    e.LancerRequetePanneau();
    while (zone.App().Occupee()) QApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
    QApplication::processEvents();
    if (QWidget* c = zone.Vue<QWidget>(QLatin1String(gui::VUE_CONCORDANCE))) c->grab();
    cpu.push_back(Cpu() - c0);
    return Ms(t0, Horloge_::now());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fprintf(stderr, "Usage : explore_vues RESSOURCES LISTE.txt FORME [LISTE_499.txt]\n");
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication qapp(argc, argv);
    HorlogeSysteme horloge;
    gui::Application app(&horloge);
    app.DemarrerAvec(argv[1]);
    gui::ZoneTravail& zone = app.Zone(QStringLiteral("Form1"));
    zone.resize(1400, 900);
    zone.show();
    gui::Exploration& e = gui::Exploration::De(zone);
    const std::string forme = Utf8VersCp1252(argv[3]);

    Ouvrir(e, argv[2]);
    std::printf("corpus : %lld partitions, %lld jetons\n", e.Etat().NB_PARTS, e.Etat().NB_MOTS);
    e.panneau.simple = forme;
    e.panneau.autres.concordance = true;
    std::vector<double> conc;
    for (int i = 0; i < 5; ++i) conc.push_back(Valider(e, zone));
    const Requete* r = e.DerniereRequete();
    std::printf("concordance de %zu lignes, de VALIDER a la premiere page peinte : mediane %.1f ms (premiere %.1f ms) ; "
                "temps processeur mediane %.1f ms\n",
                r ? r->occ.size() : 0, Mediane(conc), conc[0], Mediane(cpu));

    // The same query in the library alone, without the views.
    {
        std::vector<double> seules;
        cpu.clear();
        Muet d;
        for (int i = 0; i < 5; ++i) {
            telvoris::Requete rs;
            const double c0 = Cpu();
            const auto t0 = Horloge_::now();
            LancerRequete(e.Etat(), ParametresDuPanneau(e.panneau), rs, d);
            seules.push_back(Ms(t0, Horloge_::now()));
            cpu.push_back(Cpu() - c0);
        }
        std::printf("la meme requete dans la bibliotheque seule : mediane %.1f ms ; temps processeur mediane %.1f ms\n",
                    Mediane(seules), Mediane(cpu));
    }

    // The full text: each of the first partitions shown with its marks, then painted.
    QWidget* plein = e.Montrer(gui::VUE_PLEIN_TEXTE);
    std::vector<double> parties;
    cpu.clear();
    const long long n = std::min<long long>(e.Etat().NB_PARTS, 60);
    for (long long p = 1; p <= n; ++p) {
        const double c0 = Cpu();
        const auto t0 = Horloge_::now();
        e.Navigation()->AllerPartition(p);
        emit e.navigationChangee();
        plein->grab();
        parties.push_back(Ms(t0, Horloge_::now()));
        cpu.push_back(Cpu() - c0);
    }
    std::printf("plein texte, %lld partitions montrees avec leurs marques : mediane %.1f ms, max %.1f ms ; temps "
                "processeur mediane %.1f ms, max %.1f ms\n",
                n, Mediane(parties), *std::max_element(parties.begin(), parties.end()), Mediane(cpu),
                *std::max_element(cpu.begin(), cpu.end()));

    // The micro-distribution of the same query: the query with co-occurrents, and both lists.
    {
        Muet d;
        ParametresRequete p;
        p.saisie = forme;
        p.concordance = false;
        p.micro = true;
        telvoris::Requete rm;
        const double c0 = Cpu();
        const auto t0 = Horloge_::now();
        LancerRequete(e.Etat(), p, rm, d);
        const auto t1 = Horloge_::now();
        const ListeMicro f = CalculerMicro(e.Etat(), rm, false), l = CalculerMicro(e.Etat(), rm, true);
        const auto t2 = Horloge_::now();
        std::printf("micro-distribution sur %zu occurrences (%lld co-occurrents, %zu formes et %zu lemmes retenus) : "
                    "requete %.0f ms, listes %.0f ms, total %.0f ms ; temps processeur %.0f ms\n",
                    rm.occ.size(), rm.NB_COOC, f.retenus.size(), l.retenus.size(), Ms(t0, t1), Ms(t1, t2), Ms(t0, t2),
                    Cpu() - c0);
    }

    // Both histograms, on a corpus of at most 499 partitions.
    if (argc > 4) {
        Ouvrir(e, argv[4]);
        e.panneau.simple = forme;
        e.panneau.autres.concordance = false;
        e.panneau.autres.macro = true;
        Valider(e, zone);
        QWidget* stat = e.Montrer(gui::VUE_STAT);
        QWidget* p1 = stat->findChild<QWidget*>(QStringLiteral("Picture1"));
        QWidget* p2 = stat->findChild<QWidget*>(QStringLiteral("Picture2"));
        std::vector<double> dessins;
        cpu.clear();
        for (int i = 0; i < 10; ++i) {
            const double c0 = Cpu();
            const auto t0 = Horloge_::now();
            const Histogramme h1 = HistogrammePartitions(e.Etat(), *e.DerniereRequete());
            const Histogramme h2 = HistogrammeClasses(e.Etat(), *e.DerniereRequete());
            p1->grab();
            p2->grab();
            dessins.push_back(Ms(t0, Horloge_::now()));
            cpu.push_back(Cpu() - c0);
        }
        std::printf("histogrammes de %lld partitions et %d classes, calcul et dessin des deux : mediane %.1f ms ; "
                    "temps processeur mediane %.1f ms\n",
                    e.Etat().NB_PARTS, e.Etat().NB_CLASSES, Mediane(dessins), Mediane(cpu));
    }
    return 0;
}
