// The segmenter: raw text of ARCHIVE_BRUT to tagged text of OLBRIN_TT, one <M ...> or <PC ...>
// tag a token, the source's words, white space and markup kept in place around the tags.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/contexte.hpp"
#include "core/liste_textes.hpp"
#include "lexicon/dictionnaire.hpp"
#include "pipeline/listes.hpp"
#include "pipeline/segments_communs.hpp"

namespace telvoris {

inline constexpr std::size_t MAX_ELIDES = 100;
inline constexpr std::size_t MAX_POSTCLITIQUES = 60;
inline constexpr std::size_t MAX_DOMAINES_CLASSE = 100;
inline constexpr std::size_t MAX_AVANT_APOSTROPHE = 100;
inline constexpr std::size_t MAX_AUTOUR_APOSTROPHE = 1000;
inline constexpr std::size_t MAX_CORRESP_HTML = 500;

// The word lists the gluing rules ask, loaded once for a run.
struct ListesSegmentation {
    ListePlate Elides{"MAX_ELIDES", MAX_ELIDES};
    ListePlate Postclitiques{"MAX_POSTCLITIQUES", MAX_POSTCLITIQUES};
    ListePlate Prefixes{"MAX_PREFIXES", MAX_PREFIXES};
    ListeCasiers Abreviations{"MAX_ABREVIATIONS_CASIER", MAX_ABREVIATIONS_CASIER};
    ListeCasiers DomainesExt{"MAX_DOMAINES_CLASSE", MAX_DOMAINES_CLASSE, ListeCasiers::Cle::InitialeSeule};
    ListeCasiers FormesDico{"MAX_FORMES_CASIER", MAX_FORMES_CASIER};
};

// Loads the lists from the resource tree whose root is `racine`. The files that no rule
// consults are read too, so that a missing or oversized one is reported as for the others.
ListesSegmentation ChargerListesSegmentation(const std::filesystem::path& racine);

enum ClasseJeton { NOMBRE = 0, MOT = 1, SIGNE = 2, SIGLE = 3, BALISE = 4 };

// The tokens of the line being segmented, in four parallel columns; slot 0 exists but is never
// written out. Reused from line to line so that its strings keep their capacity.
struct TableJetons {
    int NbJetons = 0;
    std::vector<std::string> texte;
    std::vector<std::string> surface;
    std::vector<std::string> blanc;
    std::vector<int> classe;
};

// Segments one line of running text (metadata lines are not given here): its tagged form is
// appended to `sortie`.
void SegmenterLigne(std::string_view ligne, const ListesSegmentation& listes, TableJetons& table,
                    std::string& sortie);

// Segments each text of the list: ARCHIVE_BRUT/<name>.txt to OLBRIN_TT/<name>.txt, on `fils`
// threads (0: every core), with the same files and messages as one thread gives.
void Segmenter(const ListeTextes& liste, const ListesSegmentation& listes, Dialogue& dialogue, unsigned fils = 1);

// The menu operation "&Segmentation": segments, then indexes, the chosen list.
void OperationSegmentation(Contexte& contexte);

}  // namespace telvoris
