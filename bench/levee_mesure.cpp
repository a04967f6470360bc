// Times the simple-word review session on a corpus after the automatic pass: opening, the
// validation of the case shown first (the script makes it the largest one), its review, and a
// save. Built and run by bench/levee.sh.
#include <chrono>
#include <cstdio>

#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/liste_textes.hpp"
#include "pipeline/levee.hpp"

using namespace telvoris;

namespace {

class DialogueMuet : public Dialogue {
public:
    std::optional<std::string> Demander(std::string_view, std::string_view, std::string_view d) override {
        return std::string(d);
    }
    std::optional<std::filesystem::path> ChoisirFichier(std::string_view, std::string_view) override { return {}; }
    void Afficher(std::string_view) override {}
    void Resultat(std::string_view) override {}
    void Progression(std::string_view, long long, long long) override {}
    void MasquerProgression() override {}
};

double Depuis(std::chrono::steady_clock::time_point t) {
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - t).count();
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage : levee_mesure LISTE.txt\n");
        return 2;
    }
    DialogueMuet d;
    HorlogeSysteme h;
    auto t = std::chrono::steady_clock::now();
    SessionLevee s = SessionLevee::OuvrirSimples(ChargerListeTextes(argv[1]), h, d);
    const double ouverture = Depuis(t);
    t = std::chrono::steady_clock::now();
    s.TravaillerDansLOrdre();
    const double premierCas = Depuis(t);
    std::printf("ouverture : %.2f s (%lld positions, %zu cas)\n", ouverture, s.NbPositions(), s.NbCas());
    std::printf("premier cas affiché : %.3f s, %zu occurrences\n", premierCas, s.NbOccurrences());
    // Every position of the case must reach a token with the case's reading list: the running
    // positions of the automatic pass and those of the session agree.
    const std::string_view liste = ValeurAttribut(s.CleCas(), "l");
    std::size_t ecarts = 0;
    for (std::size_t i = 0; i < s.NbOccurrences(); ++i) ecarts += ValeurAttribut(s.Occurrence(i).jeton, "l") != liste;
    std::printf("occurrences dont le jeton ne porte pas la liste du cas : %zu\n", ecarts);
    t = std::chrono::steady_clock::now();
    s.CocherColonne(1);
    s.CasSuivant();
    std::printf("validation du cas et affichage du suivant : %.3f s\n", Depuis(t));
    t = std::chrono::steady_clock::now();
    s.Reviser();
    s.CasSuivant();
    std::printf("révision et réaffichage : %.3f s\n", Depuis(t));
    t = std::chrono::steady_clock::now();
    s.CocherColonne(1);
    s.CasSuivant();
    s.Sauver();
    std::printf("nouvelle validation et sauvegarde : %.3f s\n", Depuis(t));
    return 0;
}
