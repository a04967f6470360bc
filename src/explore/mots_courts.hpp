// The counts of the short frequent words in the exploration index. The segment indexer keeps no
// positions for them ("!"), and the builder carries the list of the line before into their
// LEXINDEX line, a file that readers expect as it is. Their count in each partition is known to
// the builder all the same: it writes it beside LEXINDEX, in LEXINDEX_COURTS, one file a bucket as
// LEXINDEX, so that a query on these words alone gives their exact count and distributions (but
// no concordance and no co-occurrents, which need positions). An index without that folder
// (built before it existed) knows no such count.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/dialogue.hpp"
#include "explore/corpus.hpp"
#include "explore/requete.hpp"

namespace telvoris {

inline constexpr std::string_view kDossierCourts = "LEXINDEX_COURTS";

// The builder's record: for each tag (by its number in the build), its count in each partition
// where its segment list was "!". Kept as variable-length integers, since a press corpus gives
// tens of millions of (partition, count) pairs.
class RelevesCourts {
public:
    // Partitions come in rising order; a partition given twice in a row adds up; a count below 1
    // is left out.
    void Ajouter(std::uint32_t balise, long long partition, long long compte);
    // The total and the column "partition:count" pairs joined by blanks; false when the tag
    // never had "!".
    bool Colonne(std::uint32_t balise, long long& total, std::string& colonne) const;
    bool Vide() const { return releves_.empty(); }

private:
    struct Releve {
        long long total = 0;
        long long partition = 0, compte = 0;  // the pair still open
        long long precedente = 0;             // the last partition written to `octets`
        std::string octets;                   // partition deltas and counts
    };
    std::unordered_map<std::uint32_t, Releve> releves_;
};

// One line of LEXINDEX_COURTS read back.
struct ComptesSansPositions {
    long long total = 0;
    std::vector<std::pair<long long, long long>> parties;  // (partition, count), rising
};

// The counts that an index keeps for a tag of the bucket `casier`; false when there are none.
// A line that does not parse is an execution error naming its file.
bool LireComptesSansPositions(const std::filesystem::path& index, Casier casier, std::string_view balise,
                              ComptesSansPositions& comptes);

// True when the index has kept the counts of its short frequent words.
bool IndexCompteMotsCourts(const std::filesystem::path& index);

// When every tag of a one-word query has its whole count in LEXINDEX_COURTS (`lignes`: the
// LEXINDEX line of each tag of r.TAGS, or nullptr), fills the distributions of `r` from those
// counts, tells the person why no concordance and no co-occurrents are shown, and returns true.
// Otherwise changes nothing and returns false.
bool CompterSansPositions(const EtatCorpus& etat, const std::vector<const TableIndex::Ligne*>& lignes, Requete& r,
                          Dialogue& dialogue);

// The message for forms whose occurrences could not be located: on an index that counts them,
// it says that they are counted only by a query on them alone.
std::string MessagePositionsAbsentes(const EtatCorpus& etat, const std::vector<std::string>& formes);

}  // namespace telvoris
