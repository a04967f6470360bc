// telvoris verifier-ressources [DOSSIER]: checks a resource tree and reports on it.
#pragma once

namespace telvoris {

// argv[1] is "verifier-ressources"; an optional folder follows (the tree MORVENTA/morv_res or
// a folder holding it). Exit status: 0 sound, 1 faults found or no tree, 2 usage.
int CommandeVerifierRessources(int argc, char** argv);

}  // namespace telvoris
