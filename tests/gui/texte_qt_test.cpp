// The CP1252 crossing, the file dialog's filter and the progress bar.
#include <gtest/gtest.h>

#include <QDir>
#include <QRegularExpression>

#include "core/texte.hpp"
#include "gui/barre.hpp"
#include "gui/fenetres.hpp"
#include "gui/texte_qt.hpp"
#include "support/support.hpp"

namespace telvoris {
namespace {

using gui::DepuisQt;
using gui::FiltreQt;
using gui::VersQt;

TEST(TexteQt, AllerRetourCp1252) {
    // Every byte survives the round trip, the C1 gaps of the code page included.
    std::string tous;
    for (int c = 1; c < 256; ++c) tous += static_cast<char>(c);
    EXPECT_EQ(DepuisQt(VersQt(tous)), tous);
    // The characters a French text needs, as Qt sees them and back.
    const std::string_view cp = "é œ € ’ « » Œ ç à …"_cp;
    EXPECT_EQ(VersQt(cp), QString::fromUtf8("é œ € ’ « » Œ ç à …"));
    EXPECT_EQ(VersQt(cp).size(), 19);
    EXPECT_EQ(DepuisQt(QString::fromUtf8("é œ € ’ « » Œ ç à …")), std::string(cp));
    // Typed characters the code page lacks become "?", never two bytes.
    EXPECT_EQ(DepuisQt(QString::fromUtf8("a→b 中")), "a?b ?");
    EXPECT_EQ(DepuisQt(QString()), "");
}

TEST(TexteQt, FiltreDuDialogueDeFichiers) {
    EXPECT_EQ(FiltreQt("Text files (*.TXT)|*.TXT"), "Text files (*.TXT *.txt)");
    // The other spelling of the separator, the CP1252 byte 162.
    EXPECT_EQ(FiltreQt("Text files (*.TXT)¢*.TXT"_cp), "Text files (*.TXT *.txt)");
    EXPECT_EQ(FiltreQt("Textes|*.txt|Tous|*.*"), "Textes (*.txt *.TXT);;Tous (*.*)");
    EXPECT_EQ(FiltreQt("Listes|*.lst;*.TXT"), "Listes (*.lst *.LST *.TXT *.txt)");
    EXPECT_EQ(FiltreQt(""), "Fichiers (*)");
    // The filter matches both cases of the extension on a case-sensitive disk.
    test::DossierTemporaire d;
    for (const char* n : {"a.txt", "B.TXT", "c.Txt", "d.csv"}) test::Ecrire(d.Chemin() / n, "x");
    const QString f = FiltreQt("Text files (*.TXT)|*.TXT");
    const QRegularExpression motifs(QStringLiteral("\\((.*)\\)"));
    const QStringList filtres = motifs.match(f).captured(1).split(QLatin1Char(' '));
    QDir dir(QString::fromStdString(d.Chemin().string()));
    dir.setFilter(QDir::Files | QDir::CaseSensitive);
    dir.setSorting(QDir::Name);
    EXPECT_EQ(dir.entryList(filtres), (QStringList{"B.TXT", "a.txt"}));
}

TEST(TexteQt, BarreDeProgression) {
    gui::BarreProgression b;
    EXPECT_EQ(b.LargeurUnites(), 0);
    b.Regler(1, 4);
    EXPECT_EQ(b.LargeurUnites(), 1684);  // round(6732 / 4) + 1
    b.Regler(4, 4);
    EXPECT_EQ(b.LargeurUnites(), 6733);
    b.Regler(1, 3);
    EXPECT_EQ(b.LargeurUnites(), 2245);  // round(2244) + 1
    b.Regler(5, 0);
    EXPECT_EQ(b.LargeurUnites(), 0);
    // 6,732 units of 15 twips a pixel, with the border.
    EXPECT_EQ(b.sizeHint(), QSize(451, 19));
    // The drawn bar is of colour RGB(0, 0, 200), from the left edge, in proportion.
    b.resize(b.sizeHint());
    b.Regler(1, 2);
    const QImage img = b.grab().toImage();
    EXPECT_EQ(img.pixelColor(2, 9), QColor(0, 0, 200));
    EXPECT_EQ(img.pixelColor(220, 9), QColor(0, 0, 200));
    EXPECT_EQ(img.pixelColor(230, 9), QColor(Qt::white));
}

}  // namespace
}  // namespace telvoris
