// The record of an operation that rewrites dictionary files in place (dico/olbrin, the compound
// classes) once each folder has its whole copy in a backup folder.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/texte.hpp"

namespace telvoris {

namespace fs = std::filesystem;

// The record is a state file beside the rewritten folders: its first line names the operation,
// each further line a backup folder and the folder it holds, relative to the record's folder. It
// is written only once every backup is whole, before the first file is rewritten, and removed
// when the run ends. Every operation that rewrites the same folders shares the record, so any of
// them, started over an unfinished run, first puts the dictionary back as the backup holds it:
// its run then gives the dictionary of a run that was never cut short.
class RepriseDictionnaire {
public:
    // `etape`: the caption of the operation (CP1252), named in the messages.
    RepriseDictionnaire(fs::path fichier, std::string etape);

    const fs::path& Fichier() const { return fichier_; }
    bool EnCours() const;
    // When an earlier run left its record, copies every file of each backup folder it names back
    // into its folder, removes the record and returns how many; nothing otherwise. Call before
    // anything is changed.
    std::optional<long long> Retablir();
    // Starts the record of this run: each pair is (rewritten folder, its whole backup).
    void Commencer(const std::vector<std::pair<fs::path, fs::path>>& dossiers);
    // The run ended: the record goes.
    void Terminer();
    // The message telling the person that an unfinished run was taken back.
    std::string MessageReprise(long long retablis) const;

private:
    fs::path fichier_;
    std::string etape_;
    std::string sauvegardes_;  // the backup folders named by the record last taken back
    std::string etapeInachevee_;
};

// The label of the bar while dictionary files are rewritten, one step a file.
inline constexpr std::string_view LIBELLE_ECRITURE_DICO = "Écriture du dictionnaire"_cp;

// The records of the two dictionaries.
fs::path RepriseOlbrin(const fs::path& racine);
fs::path RepriseComposes(const fs::path& racine);

// Refuses a dictionary that a rewrite left half-made (its record on disk), with a message that
// names the operation to run again (a checked precondition: FinProgramme).
void ExigerDictionnaireComplet(const fs::path& enregistrement);

}  // namespace telvoris
