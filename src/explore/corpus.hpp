// The opened corpus of the exploration work area: its partitions, their titles and contrast
// classes, and the index tables, read from <corpus>_QORX_INDEX.
#pragma once

#include <array>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/contexte.hpp"
#include "explore/index_commun.hpp"

namespace telvoris {

inline constexpr int MAX_CLASSES = 1000;
// The tag tables of LEXINDEX hold position lists: past this many bytes kept, they are dropped
// between two queries and read again when needed.
inline constexpr std::size_t MAX_OCTETS_TABLES_BALISES = 256u << 20;

// One file of LEXINDEX, LEXINDEX_F, LEXINDEX_L or CATEG.txt: key, count, third column.
struct TableIndex {
    struct Ligne {
        std::string cle;
        long long compte = 0;
        std::string colonne;
    };
    std::vector<Ligne> lignes;
    std::unordered_map<std::string_view, std::size_t> index;  // first line of each key
    std::size_t octets = 0;  // the size of the file read
    const Ligne* Trouver(std::string_view cle) const;
};

enum class DossierIndexe { Balises, Formes, Lemmes };

// ETAT_CORPUS. Vectors indexed by partition or class run from 1; slot 0 stays unused.
struct EtatCorpus {
    std::filesystem::path PATH_INDEX;
    int LARGEUR_CODE = LARGEUR_CODE_COURTE;  // characters of a position code in this index
    std::vector<std::string> variables;  // METADONNEES_QORX/index.txt, in order
    std::string exempleDate;             // first value of a variable "date", "Date" or "DATE"

    long long NB_PARTS = 0;
    long long NB_MOTS = 0;
    std::vector<long long> CUMUL_MOTS, LONG_PART;
    std::vector<double> PART_CORPUS;
    std::vector<std::string> TITRE_PART, TITRE_COURT;
    std::vector<int> CLASSE_PART;

    int NB_CLASSES = 0;
    std::string variableContraste;
    std::vector<std::string> VALEUR_CLASSE;
    std::vector<long long> LONG_CLASSE;
    std::vector<double> PART_CLASSE;
    std::vector<std::vector<long long>> PARTITIONS_CLASSE;
    int DATE_DEBUT = 0, DATE_LONG = 0;
    std::string texteContraste;              // the caption of the contrast variable and a line end
    std::vector<std::string> titresCourts;   // the navigator's list: each value unlike the one before

    // The partition of a corpus position (1 up): the first p with CUMUL_MOTS(p) >= position.
    long long PartitionDe(long long position) const;
    // The same, for positions taken in ascending order: `precedente` is the partition of the
    // position before, from which the search goes on.
    long long PartitionDepuis(long long position, long long precedente) const;

    // The tables of the index, each file read once when first needed.
    const TableIndex& Table(DossierIndexe dossier, Casier casier);
    const TableIndex& Categories();
    // Drops the kept tag tables when they hold more than MAX_OCTETS_TABLES_BALISES; no line
    // obtained from Table() may be in use.
    void AlleguerTables();

private:
    std::unordered_map<int, std::unique_ptr<TableIndex>> tables_;
    std::size_t octetsBalises_ = 0;
    std::unique_ptr<TableIndex> categories_;
};

// Reads a table file of the index.
std::unique_ptr<TableIndex> LireTableIndex(const std::filesystem::path& fichier);

// smn_op: finds the index of a list file and reads its variable names. A missing folder of the
// index ends the program with its message.
EtatCorpus OuvrirCorpus(const std::filesystem::path& liste);

// The instruction text shown above the variables.
std::string TexteInstructionsVariables();

// The choices of the variables frame: the variables (by number from 0) shown in the titles, and
// the one that groups the partitions for contrast.
struct ChoixVariables {
    std::vector<int> titres;
    std::optional<int> contraste;
    // False: TITRE_PART, TITRE_COURT and the navigator's list stay empty. A query from the
    // terminal that shows no distribution has no use for them, and a large corpus has hundreds
    // of thousands of partitions.
    bool titresPartitions = true;
};

// NIVEAU_VAL_NEW: partitions, titles, contrast classes (the date cut is asked through the
// dialogue when the contrast variable is a date), short titles.
void ValiderCorpus(EtatCorpus& etat, const ChoixVariables& choix, Dialogue& dialogue);

// Reads the answer to the date cut prompt ("1-4") into DATE_DEBUT and DATE_LONG; a wrong answer
// ends the program with its message.
void LireDecoupageDate(std::string_view reponse, int& debut, int& longueur);

// The menu operation "&Ouvrir": the variables are asked as prompts, then the corpus is validated
// and described.
void OperationOuvrirCorpus(Contexte& contexte);

}  // namespace telvoris
