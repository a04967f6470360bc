// The one crossing between the library's CP1252 texts and Qt's strings.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace telvoris::gui {

// CP1252 bytes to a QString (every byte has its character: é, œ, €, ’, « »).
QString VersQt(std::string_view cp1252);
// A QString to CP1252 bytes; a character CP1252 lacks becomes "?".
std::string DepuisQt(const QString& texte);

// The legacy file filter ("Text files (*.TXT)|*.TXT", or with "¢" between the parts) as a Qt name
// filter whose patterns match either case: "Text files (*.TXT *.txt)". Several pairs give several
// filters joined by ";;".
QString FiltreQt(std::string_view filtre);

}  // namespace telvoris::gui
