// Press import: the result files of a press database, downloaded in UTF-8 under ARCHIVE/<n>/<k>.txt,
// are cut into one file an article (ARTICLES/<m>.txt), then regrouped into one raw text per paper
// and day in ARCHIVE_BRUT, each article behind its metadata line.
#pragma once

#include <array>
#include <filesystem>
#include <string>

#include "core/contexte.hpp"
#include "core/dialogue.hpp"

namespace telvoris {

// The download folders ARCHIVE/1 to ARCHIVE/7, each read from 1.txt to 100.txt: fixed bounds of
// the two loops, a missing file is skipped and nothing beyond them is read.
inline constexpr int MAX_DOSSIERS_ARCHIVE = 7;
inline constexpr int MAX_FICHIERS_DOSSIER = 100;
// The regrouping reads ARTICLES/1.txt up to this number at most, or up to the first missing one.
inline constexpr long long MAX_ARTICLES_REGROUPES = 13862;

// Lines 1 to 12 of utilitaires/noms_de_mois.txt: the lower-case French name of each month.
using TableMois = std::array<std::string, 12>;
TableMois ChargerNomsDeMois(const std::filesystem::path& ressources);

// First stage: cuts every download into ARTICLES/<m>.txt, m running over the whole run from 1.
// Returns the number of articles written.
long long DecouperTelechargements(const std::filesystem::path& doss_racine, Dialogue& dialogue);

struct BilanRegroupement {
    long long articles = 0;   // articles read from ARTICLES
    long long fichiers = 0;   // day files written in ARCHIVE_BRUT
    long long anomalies = 0;  // lines of CONTROLE_PREMIERE_LIGNE.txt
};

// Second stage: regroups ARTICLES/1.txt, 2.txt, ... up to the first missing one into
// ARCHIVE_BRUT/<JOURNAL>_<aaaa>_<mm>_<jj>.txt, extending a day file that already stands, and
// writes the report CONTROLE_PREMIERE_LIGNE.txt. `attendus` only scales the progress bar.
BilanRegroupement RegrouperArticles(const std::filesystem::path& doss_racine, const TableMois& mois,
                                    long long attendus, Dialogue& dialogue);

// The menu operation "Europresse".
void ImporterEuropresse(Contexte& contexte);

}  // namespace telvoris
