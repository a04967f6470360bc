// The command `telvoris requete`: exploration of an indexed corpus from the terminal.
#pragma once

namespace telvoris {

// argv[1] is "requete". Returns the exit status.
int LancerCommandeRequete(int argc, char** argv);

}  // namespace telvoris
