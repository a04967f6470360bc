// Maps without a window: a flat or globe map file drawn as the viewer shows it, written to SVG.
#pragma once

namespace telvoris {

// telvoris carte FICHIER --svg SORTIE [options]. Status 0 done, 1 execution error, 2 usage.
int CommandeCarte(int argc, char** argv);

}  // namespace telvoris
