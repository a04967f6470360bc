// Records that let a stage which was killed or stopped be run again without losing anything.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace telvoris {

namespace fs = std::filesystem;

// The record of a stage that rewrites texts in place after copying each one to a backup folder
// (OLBRIN_TT/AVANT_COMP, ...). The record, a state file beside the backup folder
// ("#EN_COURS_" + the backup folder's name + ".txt"), lists the texts whose backup is good and
// which may have been rewritten since; it is removed when the run ends.
//
// A run started over an unfinished one first puts back, from the backup folder, every text the
// record lists: the texts are then as they stood before the unfinished run, and the new run
// gives what an uninterrupted one gives. A backup is always written and made durable before its
// text is listed, and a text is rewritten only after it is listed, so that a half-rewritten text
// never reaches the backup folder.
class Reprise {
public:
    // `etape`: the caption of the stage's menu item, named in the messages.
    Reprise(fs::path dossierTextes, std::string nomSauvegarde, std::string etape);

    const fs::path& DossierSauvegarde() const { return sauvegarde_; }
    const fs::path& Fichier() const { return fichier_; }
    // True while a run (this one, or an earlier unfinished one) has its record on disk.
    bool EnCours() const;

    // When an earlier run left its record, puts its texts back from the backup folder and
    // returns how many; nothing otherwise. Call before the stage changes anything.
    std::optional<long long> Retablir();
    // Starts the record of this run (after Retablir) and creates the backup folder if needed.
    void Commencer();
    // Writes `contenu` (the text as it stands now) as the backup of `nom` and lists it.
    void Sauvegarder(std::string_view nom, std::string_view contenu);
    // The text `nom`, last listed, was not rewritten after all (its rewriting failed, and a
    // failed rewrite leaves the text whole): it leaves the record, so that a correction the
    // person makes to it before the next run is not undone by the taking back.
    void Retirer(std::string_view nom);
    // The run ended: the record goes.
    void Terminer();

    // The grouped form, for a stage over many small texts, where a flush a file would cost more
    // than the work. The backups of a batch are written without flushes of their own (Preparer);
    // then one flush of the file system makes them durable before one durable append lists them
    // all (ListerPreparees); only then are the batch's texts rewritten, without flushes either;
    // and TerminerGroupe flushes the file system again before the record goes. The order that a
    // kill or a power cut must find is kept: a backup whole before it is listed, a text listed
    // before it changes, every text durable before the record goes.
    void Preparer(std::string_view nom, std::string_view contenu);
    void ListerPreparees();
    void TerminerGroupe();

    // The message that tells the person that an unfinished run was taken back.
    std::string MessageReprise(long long retablis) const;

private:
    fs::path textes_, sauvegarde_, fichier_;
    std::string nomSauvegarde_, etape_;
    std::string preparees_;  // the names of the batch whose backups are written, not yet listed
};

// The rewrites of a stage over texts in list order, held back and done by batches through a
// Reprise's grouped form, so that many small texts cost one flush of the disk a batch instead of
// three a text. A batch goes when it holds `textes` texts or `octets` bytes of new content. The
// caller reads no text of the list after handing it over, except through `Vider` first: a name
// listed twice is handed over only once the batch that holds it has been written.
class ReecrituresGroupees {
public:
    explicit ReecrituresGroupees(Reprise& reprise, std::size_t textes = 64, std::size_t octets = 8u << 20);
    // `avant`, the text `nom` as it stands, becomes its backup; `apres` is held for `chemin`.
    void Ajouter(std::string_view nom, std::string_view avant, fs::path chemin, std::string apres);
    // Lists the held texts in the record, then writes them.
    void Vider();
    // The text `nom` failed: the texts before it are written, and its own backup (`avant`) is
    // kept out of the record, so that a correction made to it by hand is not undone by a rerun.
    void Echec(std::string_view nom, std::string_view avant);
    // After a fault elsewhere: the held texts are written if they can be; the first fault is the
    // one reported.
    void ViderSansErreur() noexcept;
    // The last batch, then the end of the record.
    void Terminer();

private:
    Reprise& reprise_;
    std::size_t maxTextes_, maxOctets_, octets_ = 0;
    std::vector<std::pair<fs::path, std::string>> lot_;
};

// The record of a stage that rewrites every file of a folder after copying the whole folder to a
// dated sibling (the correction stores, rescor/rescor after rescor/rescor_<stamp>). The record, a
// state file beside the folder ("#EN_COURS_" + the folder's name + ".txt"), is written once the
// copy is whole and names it; it is removed when the run ends. A run started over an unfinished
// one first puts every file back from that copy (or, when the folder was made by the unfinished
// run, removes what it wrote), so that it neither reads a half-rewritten folder nor takes it for
// the state to copy.
class RepriseDossier {
public:
    // `etape`: the caption of the stage's menu item, named in the messages.
    RepriseDossier(fs::path dossier, std::string etape);

    const fs::path& Fichier() const { return fichier_; }
    bool EnCours() const;

    // When an earlier run left its record, puts back the files `noms` of the folder from the copy
    // it names and returns that copy's name ("" when the folder was new, and is now removed).
    std::optional<std::string> Retablir(const std::vector<std::string>& noms);
    // Starts the record once the copy `copie` (a sibling's name; "" for a folder made by this run)
    // is whole, before the first file of the folder changes.
    void Commencer(std::string_view copie);
    void Terminer();

    std::string MessageReprise(std::string_view copie) const;

private:
    fs::path dossier_, fichier_;
    std::string etape_;
};

// The marks of the builds of the tagged tree, in OLBRIN_TT: the segmentation of the texts, and
// the derived files of the segment indexer.
fs::path MarqueSegmentation(const fs::path& dossierTT);
fs::path MarqueReindexation(const fs::path& dossierTT);

// Refuses tagged texts that a build or a rewriting stage left half-made, with a message that
// says what to run again (a checked precondition: FinProgramme). `sauf`: the record of the
// calling stage itself, which its own run takes back instead.
void ExigerTextesComplets(const fs::path& dossierTT, const fs::path& sauf = {});
// The same, and the derived files of the segment indexer too.
void ExigerIndexationComplete(const fs::path& dossierTT);

// The mark of the exploration index's build, in the index folder, and the refusal of an index
// that holds it.
fs::path MarqueIndexExploration(const fs::path& dossierIndex);
void ExigerIndexExplorationComplet(const fs::path& dossierIndex);

// A mark that a build is under way in a folder: written before the build changes anything,
// removed when it ends. A reader that finds it refuses the folder's content, which a killed or
// stopped build left half-made.
class MarqueChantier {
public:
    MarqueChantier(fs::path fichier, std::string_view etape);
    ~MarqueChantier() = default;
    // The build ended: the mark goes.
    void Achever();
    // The stage named in a mark left on disk, if there is one.
    static std::optional<std::string> Inacheve(const fs::path& fichier);

private:
    fs::path fichier_;
};

// A group of files that must all change together (the texts and state files of a saving point
// of a review session). Each file is first written whole beside its target; then a journal that
// lists them is made durable; then each takes its name; then the journal goes. A journal found on
// disk was left by a save whose files are all whole: Achever() finishes it, so that the texts and
// the state files never stand at two different saving points.
class EcritureGroupee {
public:
    explicit EcritureGroupee(fs::path journal);
    void Ajouter(const fs::path& chemin, std::string_view contenu);
    void Valider();
    // The temporary beside `cible` that holds its new bytes until the group is committed.
    static fs::path Provisoire(const fs::path& cible);
    // Finishes the save that a journal left on disk describes; true if there was one.
    static bool Achever(const fs::path& journal);

private:
    fs::path journal_;
    std::vector<fs::path> cibles_;
};

}  // namespace telvoris
