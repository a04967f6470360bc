// The shared text routines: line parser, attribute reader, word buckets, case normaliser,
// splitter and intake decoder.
#include <gtest/gtest.h>

#include "core/erreurs.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"
#include "support/support.hpp"

using namespace telvoris;

namespace {

std::vector<std::string> Jetons(const LigneJetons& l) {
    std::vector<std::string> r;
    for (int i = 1; i <= l.NbJetons; ++i) r.emplace_back(l.jeton[i]);
    return r;
}
std::vector<std::string> Suites(const LigneJetons& l) {
    std::vector<std::string> r;
    for (int i = 0; i <= l.NbJetons; ++i) r.emplace_back(l.suite[i]);
    return r;
}
std::string Recoller(const LigneJetons& l) {
    std::string r(l.suite[0]);
    for (int i = 1; i <= l.NbJetons; ++i) r += std::string(l.jeton[i]) + std::string(l.suite[i]);
    return r;
}
using V = std::vector<std::string>;

}  // namespace

TEST(DecouperLigne, JetonsEtSuitesRecomposentLaLigne) {
    const std::string ligne = "a <M f=x >b<BR><MN f=y > c <MC f=z ><P f=x><PC l=PT >";
    LigneJetons l;
    DecouperLigne(ligne, l);
    EXPECT_EQ(Jetons(l), (V{"<M f=x >", "<MN f=y >", "<MC f=z >", "<PC l=PT >"}));
    EXPECT_EQ(Suites(l), (V{"a ", "b<BR>", " c ", "<P f=x>", ""}));
    EXPECT_EQ(Recoller(l), ligne);

    // The exploration copy does not know "<MN ": it stays in the text around.
    DecouperLigne(ligne, l, Copie::Exploration);
    EXPECT_EQ(Jetons(l), (V{"<M f=x >", "<MC f=z >", "<PC l=PT >"}));
    EXPECT_EQ(Suites(l), (V{"a ", "b<BR><MN f=y > c ", "<P f=x>", ""}));
    EXPECT_EQ(Recoller(l), ligne);

    // Reusing the result must not leave tokens of the previous line behind.
    DecouperLigne("sans balise", l);
    EXPECT_EQ(l.NbJetons, 0);
    EXPECT_EQ(l.suite[0], "sans balise");
    DecouperLigne("", l);
    EXPECT_EQ(l.NbJetons, 0);
    EXPECT_EQ(l.suite[0], "");

    // An unclosed tag is not a token.
    const std::string ouverte = "x <M f=a >y <M f=b";
    DecouperLigne(ouverte, l);
    EXPECT_EQ(Jetons(l), (V{"<M f=a >"}));
    EXPECT_EQ(Suites(l), (V{"x ", "y <M f=b"}));
    DecouperLigne("<MOT><Mf=a>", l);
    EXPECT_EQ(l.NbJetons, 0);
    EXPECT_EQ(l.suite[0], "<MOT><Mf=a>");
}

TEST(DecouperLigne, TropDeJetonsNommeLaLimite) {
    LigneJetons l;
    EXPECT_NO_THROW(DecouperLigne("<M f=a ><M f=b >", l, Copie::Etiquetage, 2));
    EXPECT_EQ(l.NbJetons, 2);
    try {
        DecouperLigne("<M f=a ><M f=b ><M f=c >", l, Copie::Etiquetage, 2);
        FAIL() << "no bound error";
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("MAX_JETONS_LIGNE"), std::string::npos) << e.what();
    }
}

TEST(LireAttributs, ValeursEtClassesDePonctuation) {
    auto a = LireAttributs("<M f=chat l=chat_SM x=ms >");
    EXPECT_EQ(a.f, "chat");
    EXPECT_EQ(a.l, "chat_SM");
    EXPECT_EQ(a.x, "ms");
    EXPECT_EQ(LireAttributs("<M k=12 f=a >").k, 12);
    EXPECT_EQ(LireAttributs("<M k=12 f=a >").f, "a");
    // " f=" must not be found inside " fz=".
    EXPECT_EQ(LireAttributs("<M fz=1 f=x >").f, "x");

    const std::pair<const char*, const char*> classes[] = {
        {"<PC l=S3 >", "..."}, {"<PC l=PT >", "."}, {"<PC l=E >", "!"},  {"<PC l=I >", "?"},
        {"<PC l=V >", ","},    {"<PC l=DP >", ":"}, {"<PC l=PO >", "("}, {"<PC l=PF >", ")"},
        {"<PC l=PV >", ";"},   {"<PC l=S >", ""},   {"<PC l=PT>", ""}};
    for (const auto& [jeton, attendu] : classes) {
        const auto p = LireAttributs(jeton);
        EXPECT_EQ(p.f, attendu) << jeton;
        EXPECT_EQ(p.l, attendu) << jeton;
    }
}

TEST(ClasserItem, LongueurEtInitialeSelonLaCopie) {
    EXPECT_EQ(ClasserItem(""), (CleMot{0, 0}));
    EXPECT_EQ(ClasserItem("Été"_cp), (CleMot{3, 5}));
    EXPECT_EQ(ClasserItem("abcdefghijklmnopqrst"), (CleMot{15, 1}));
    EXPECT_EQ(ClasserItem("abcdefghijklmno").ClasseLongueur, 15);
    EXPECT_EQ(ClasserItem("abcdefghijklmn").ClasseLongueur, 14);

    struct Cas {
        std::string_view mot;
        int etiquetage, exploration, statistiques;
    };
    const Cas cas[] = {
        {"a", 1, 1, 1},          {"Abc", 1, 1, 1},         {"s", 19, 19, 19},      {"T", 20, 20, 20},
        {"u", 11, 11, 11},       {"v", 11, 11, 11},        {"w", 11, 20, 20},      {"z", 11, 20, 20},
        {"à"_cp, 1, 20, 20},     {"â"_cp, 1, 20, 20},      {"æ"_cp, 1, 20, 20},    {"À"_cp, 1, 20, 20},
        {"ç"_cp, 3, 20, 20},     {"Ç"_cp, 3, 20, 20},      {"è"_cp, 5, 20, 20},    {"ê"_cp, 5, 20, 20},
        {"î"_cp, 9, 20, 20},     {"ô"_cp, 15, 20, 20},     {"œ"_cp, 15, 20, 20},   {"Œuvre"_cp, 15, 20, 20},
        {"ü"_cp, 0, 20, 20},     {"ß"_cp, 0, 20, 20},      {"9", 0, 20, 0},        {"-x", 0, 20, 0},
        {"\x9F", 0, 20, 0},      {"{", 0, 20, 0},
    };
    for (const auto& c : cas) {
        EXPECT_EQ(ClasserItem(c.mot, Copie::Etiquetage).ClasseInitiale, c.etiquetage) << c.mot;
        EXPECT_EQ(ClasserItem(c.mot, Copie::Exploration).ClasseInitiale, c.exploration) << c.mot;
        EXPECT_EQ(ClasserItem(c.mot, Copie::Statistiques).ClasseInitiale, c.statistiques) << c.mot;
    }
}

TEST(Minusculiser, MinusculesEtAccentDuEInitial) {
    const std::pair<std::string_view, std::string_view> cas[] = {
        {"Etre", "être"_cp},   {"Etres", "êtres"_cp}, {"Elle", "elle"},     {"Elles", "élles"_cp},
        {"Etat", "état"_cp},   {"Ecrire", "écrire"_cp}, {"Echec", "échec"_cp}, {"Eau", "eau"},
        {"Eaux", "éaux"_cp},   {"Este", "este"},      {"Eole", "éole"_cp},  {"E", "e"},
        {"En", "en"},          {"Eté"_cp, "été"_cp},  {"Ex", "ex"},         {"ETAT", "etat"},
        {"Et Etat", "et etat"}, {"ÀÉÇŒ"_cp, "àéçœ"_cp}, {"", ""},           {"déjà"_cp, "déjà"_cp},
        {"ABC xyz", "abc xyz"},
    };
    for (const auto& [mot, attendu] : cas) EXPECT_EQ(Minusculiser(mot), attendu) << mot;
}

TEST(Decouper, MorceauxSeparateursEtLimite) {
    using W = std::vector<std::string_view>;
    EXPECT_EQ(Decouper("a,b", ","), (W{"a", "b"}));
    EXPECT_EQ(Decouper("a,", ","), (W{"a", ""}));
    EXPECT_EQ(Decouper(",a", ","), (W{"", "a"}));
    EXPECT_EQ(Decouper("abc", ","), (W{"abc"}));
    EXPECT_EQ(Decouper("", ","), (W{""}));
    EXPECT_EQ(Decouper("a<->b<-c<->", "<->"), (W{"a", "b<-c", ""}));
    EXPECT_EQ(DecouperSansVideFinal("a,,b,", ","), (W{"a", "", "b"}));
    EXPECT_EQ(DecouperSansVideFinal("a,b", ","), (W{"a", "b"}));

    EXPECT_NO_THROW(Decouper("a,b", ",", 2));
    try {
        Decouper("a,b,c", ",", 2);
        FAIL() << "no bound error";
    } catch (const ErreurExecution& e) {
        EXPECT_NE(std::string(e.what()).find("MAX_MORCEAUX"), std::string::npos) << e.what();
    }
}

TEST(DecoderUtf8, TablesFixesDeLaPriseEnCharge) {
    EXPECT_EQ(DecoderUtf8("a\xE2\x80\x93z"), "a\x96z");
    EXPECT_EQ(DecoderUtf8("\xE2\x84\xA2"), "\x95");
    EXPECT_EQ(DecoderUtf8("x\xC5\xA0y"), "xy");
    EXPECT_EQ(DecoderUtf8("ab\xC3"), "ab@");
    EXPECT_EQ(DecoderUtf8("\xEF\xBB\xBF" "abc"), "abc");
    EXPECT_EQ(DecoderUtf8("\xC3\xA9t\xC3\xA9"), "\xE9t\xE9");
    EXPECT_EQ(DecoderUtf8("\xC2\xA0"), "\xA0");
    EXPECT_EQ(DecoderUtf8("\xC5\x93"), "\x9C");
    EXPECT_EQ(DecoderUtf8("\xC6\x92"), "\x83");
    EXPECT_EQ(DecoderUtf8("\xCB\x86"), "\x88");
    EXPECT_EQ(DecoderUtf8("a\xC8" "b"), "ab");
    EXPECT_EQ(DecoderUtf8("Tab\t<M f=x >\r\n"), "Tab\t<M f=x >\r\n");
    EXPECT_EQ(DecoderUtf8(""), "");
}

TEST(Conversions, Cp1252EtUtf8AllerRetour) {
    std::string tous;
    for (int c = 0; c < 256; ++c) tous.push_back(static_cast<char>(c));
    EXPECT_EQ(Utf8VersCp1252(Cp1252VersUtf8(tous)), tous);
    EXPECT_EQ(Cp1252VersUtf8("\x81\x8D\x8F\x90\x9D"), "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D");
    EXPECT_EQ(Utf8VersCp1252("œ€’"), "\x9C\x80\x92");
    EXPECT_EQ(Cp1252VersUtf8("\x9C\x80\x92"), "œ€’");
    EXPECT_EQ(Utf8VersCp1252("a→b"), "a?b");
    EXPECT_EQ("Segmenté"_cp, "Segment\xE9");
}
