// The operation table and the search for the resource tree.
#include <gtest/gtest.h>

#include <set>

#include "core/texte.hpp"
#include "shell/operations.hpp"
#include "shell/ressources.hpp"
#include "support/support.hpp"

using namespace telvoris;
using namespace telvoris::test;

TEST(Operations, TableEtRecherche) {
    std::set<std::pair<std::string_view, std::string_view>> vus;
    for (const auto& op : Operations()) {
        EXPECT_TRUE(vus.insert({op.zone, op.id}).second) << op.zone << "." << op.id << " twice";
        EXPECT_NE(op.executer, nullptr) << op.id;
        EXPECT_TRUE(op.zone == "Form1" || op.zone == "Form2" || op.zone == "Form3") << op.zone;
    }
    const auto* seg = TrouverOperation("smn_seg");
    ASSERT_NE(seg, nullptr);
    EXPECT_EQ(seg->id, "smn_seg");
    EXPECT_EQ(TrouverOperation("Form2.smn_seg"), seg);
    EXPECT_EQ(TrouverOperation("Form1.smn_seg"), nullptr);
    EXPECT_EQ(TrouverOperation("smn_inexistant"), nullptr);
    EXPECT_EQ(TrouverOperation(""), nullptr);
    EXPECT_EQ(TrouverOperation("Form2."), nullptr);
}

TEST(Ressources, MessageQuandAbsentes) {
    EXPECT_EQ(MessageRessourcesAbsentes(),
              "Le dossier 'morv_res' est absent. Copiez-le sur un lecteur interne, svp. "
              "Puis relancez l'application."_cp);
}

TEST(Ressources, OptionExplicite) {
    DossierTemporaire d;
    const auto exe = d.Chemin() / "bin";
    fs::create_directories(exe / "MORVENTA" / "morv_res");
    const auto donne = d.Chemin() / "ailleurs" / "res";
    fs::create_directories(donne);
    EXPECT_EQ(LocaliserRessources(donne, exe, std::nullopt), donne);
    // A folder given but missing is not replaced by the search.
    EXPECT_EQ(LocaliserRessources(d.Chemin() / "absent", exe, std::nullopt), std::nullopt);
}

TEST(Ressources, OrdreDeRecherche) {
    const auto Trouve = [](const std::optional<fs::path>& r, const fs::path& attendu) {
        return r.has_value() && fs::equivalent(*r, attendu);
    };
    DossierTemporaire d;
    const auto bin = d.Chemin() / "prefixe" / "bin";
    const auto maison = d.Chemin() / "maison";
    fs::create_directories(bin);
    fs::create_directories(maison);

    // Nothing anywhere.
    EXPECT_EQ(LocaliserRessources(std::nullopt, bin, maison), std::nullopt);
    EXPECT_EQ(LocaliserRessources(std::nullopt, bin, std::nullopt), std::nullopt);

    // A MORVENTA folder without morv_res does not count; the home one is used.
    fs::create_directories(bin / "MORVENTA");
    fs::create_directories(maison / "morventa" / "morv_res");
    EXPECT_TRUE(Trouve(LocaliserRessources(std::nullopt, bin, maison), maison / "morventa" / "morv_res"));

    // ../share beats home.
    const auto partage = d.Chemin() / "prefixe" / "share" / "Morventa" / "morv_res";
    fs::create_directories(partage);
    EXPECT_TRUE(Trouve(LocaliserRessources(std::nullopt, bin, maison), partage));

    // Beside the executable beats everything else.
    fs::create_directories(bin / "MORVENTA" / "morv_res");
    EXPECT_TRUE(Trouve(LocaliserRessources(std::nullopt, bin, maison), bin / "MORVENTA" / "morv_res"));
}
