// Times the map views on a map file of thousands of labels: load and paint of the flat map and of
// the globe, a 90° rotation redrawn, and the hover lists; writes a PNG of each map. Built by the
// target bench_carte and run by bench/carte.sh.
#include <QApplication>
#include <QPixmap>
#include <algorithm>
#include <chrono>
#include <vector>
#include <cstdio>
#include <ctime>

#include "gui/vue_carte_commun.hpp"
#include "stats/carte_globe.hpp"
#include "stats/carte_plan.hpp"
#include "stats/carte_scene.hpp"

using namespace telvoris;

namespace {

double Depuis(std::chrono::steady_clock::time_point t) {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - t).count();
}

// Processor time of the process, in ms: on a shared machine it tells the work from the waiting.
double Processeur() {
    timespec ts;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &ts);
    return static_cast<double>(ts.tv_sec) * 1000 + static_cast<double>(ts.tv_nsec) / 1e6;
}

// A view of a usual window's size, painted once: what the person sees after a load.
void Peindre(gui::VueScene& vue) {
    vue.resize(1280, 800);
    vue.show();
    QApplication::processEvents();
    const QPixmap p = vue.grab();
    (void)p;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    if (argc < 4) {
        std::fprintf(stderr, "usage : carte_mesure PLAN GLOBE DOSSIER_PNG\n");
        return 2;
    }
    const std::filesystem::path plan = argv[1], globe = argv[2], sortie = argv[3];

    double c0 = Processeur();
    auto t = std::chrono::steady_clock::now();
    auto cp = carte::CartePlan::Lire(plan, carte::ParametresPlan{}, std::nullopt, gui::MesureQt);
    const double lecture = Depuis(t);
    gui::VueScene vuePlan;
    gui::RemplirScene(*vuePlan.Scene(), carte::ScenePlan(cp));
    const double scene = Depuis(t) - lecture;
    Peindre(vuePlan);
    const double chargePlan = Depuis(t);
    const double cpuPlan = Processeur() - c0;
    std::printf("  (lecture %.0f ms, scène %.0f ms, peinture %.0f ms)\n", lecture, scene, chargePlan - lecture - scene);

    c0 = Processeur();
    t = std::chrono::steady_clock::now();
    auto cg = carte::CarteGlobe::Lire(globe, carte::ParametresGlobe{}, std::nullopt, gui::MesureQt);
    gui::VueScene vueGlobe;
    std::vector<gui::EtiquetteItem*> etiquettes;
    gui::RemplirScene(*vueGlobe.Scene(), carte::SceneGlobe(cg), &etiquettes);
    Peindre(vueGlobe);
    const double chargeGlobe = Depuis(t);
    const double cpuGlobe = Processeur() - c0;

    c0 = Processeur();
    t = std::chrono::steady_clock::now();
    cg.Tourner();
    gui::MettreAJourScene(carte::SceneGlobe(cg), etiquettes);
    const double cpuMaj = Processeur() - c0;
    Peindre(vueGlobe);
    std::printf("  (rotation : modèle et scène %.0f ms de processeur)\n", cpuMaj);
    const double rotation = Depuis(t);
    const double cpuRotation = Processeur() - c0;
    for (int i = 0; i < 3; ++i) cg.Tourner();

    // Every label hovered once; the slowest list counts.
    double pire = 0, total = 0;
    std::size_t listes = 0;
    std::vector<double> durees;
    for (std::size_t i = 0; i < cg.Etiquettes().size(); ++i) {
        t = std::chrono::steady_clock::now();
        const auto l = cg.Survol(i);
        const double ms = Depuis(t);
        pire = std::max(pire, ms);
        durees.push_back(ms);
        total += ms;
        if (!l.indices.empty()) ++listes;
    }
    t = std::chrono::steady_clock::now();
    const auto detail = cg.DetailAutour(0);
    const double msDetail = Depuis(t);

    gui::RemplirScene(*vueGlobe.Scene(), carte::SceneGlobe(cg));
    gui::EcrirePng(*vuePlan.Scene(), sortie / "carte_plan.png");
    gui::EcrirePng(*vueGlobe.Scene(), sortie / "carte_globe.png");
    gui::VueScene vueDetail;
    gui::RemplirScene(*vueDetail.Scene(), carte::SceneDetail(cg, detail));
    gui::EcrirePng(*vueDetail.Scene(), sortie / "carte_detail.png");

    std::printf("carte plane, %zu étiquettes : chargement et affichage %.0f ms (%.0f ms de processeur)\n",
                cp.Etiquettes().size(), chargePlan, cpuPlan);
    std::printf("planisphère, %zu étiquettes : chargement et affichage %.0f ms (%.0f ms de processeur)\n",
                cg.Etiquettes().size(), chargeGlobe, cpuGlobe);
    std::printf("rotation de 90° redessinée : %.0f ms (%.0f ms de processeur)\n", rotation, cpuRotation);
    std::sort(durees.begin(), durees.end());
    const double p99 = durees.empty() ? 0 : durees[durees.size() * 99 / 100];
    std::printf("listes de survol : %.3f ms en moyenne, %.3f ms au 99e centile, %.3f ms au pire (%zu étiquettes ont des voisines)\n",
                total / static_cast<double>(std::max<std::size_t>(1, cg.Etiquettes().size())), p99, pire, listes);
    std::printf("vue de détail : %.2f ms, %zu étiquettes\n", msDetail, detail.etiquettes.size());
    return 0;
}
