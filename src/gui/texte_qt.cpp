#include "gui/texte_qt.hpp"

#include <QStringList>

#include "core/texte.hpp"

namespace telvoris::gui {

QString VersQt(std::string_view cp1252) {
    const std::string utf8 = Cp1252VersUtf8(cp1252);
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string DepuisQt(const QString& texte) {
    const QByteArray utf8 = texte.toUtf8();
    return Utf8VersCp1252(std::string_view(utf8.constData(), static_cast<std::size_t>(utf8.size())));
}

QString FiltreQt(std::string_view filtre) {
    // The separator is "|" or its CP1252 look-alike "¢" (byte 162).
    std::string f(filtre);
    for (char& c : f)
        if (static_cast<unsigned char>(c) == 162) c = '|';
    const QStringList parts = VersQt(f).split(QLatin1Char('|'));
    QStringList filtres;
    for (qsizetype i = 0; i < parts.size(); i += 2) {
        QString nom = parts[i].trimmed();
        const QString motifs = i + 1 < parts.size() ? parts[i + 1] : QString();
        QStringList tous;
        for (const QString& m : motifs.split(QLatin1Char(';'), Qt::SkipEmptyParts)) {
            for (const QString& v : {m.trimmed(), m.trimmed().toUpper(), m.trimmed().toLower()})
                if (!v.isEmpty() && !tous.contains(v)) tous << v;
        }
        if (tous.isEmpty()) tous << QStringLiteral("*");
        // The description's own "(...)" would be read as patterns: replace it with the full list.
        if (const qsizetype p = nom.indexOf(QLatin1Char('(')); p >= 0) nom = nom.left(p).trimmed();
        if (nom.isEmpty()) nom = QStringLiteral("Fichiers");
        filtres << QStringLiteral("%1 (%2)").arg(nom, tous.join(QLatin1Char(' ')));
    }
    return filtres.join(QStringLiteral(";;"));
}

}  // namespace telvoris::gui
