// Whole-file reads and writes, line splitting and paths built from CP1252 names.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace telvoris {

namespace fs = std::filesystem;

// The CP1252 text of a path, for messages.
std::string TexteChemin(const fs::path& chemin);

// `base` / `nom`, where `nom` is a CP1252 name (possibly with "/" or "\" inside): names on disk are UTF-8.
fs::path Chemin(const fs::path& base, std::string_view nom);

// Reads a whole file. A missing or unreadable file is an execution error naming it.
std::string LireFichier(const fs::path& chemin);
// The same into a buffer that the caller reuses from file to file.
void LireFichier(const fs::path& chemin, std::string& contenu);

bool DossierExiste(const fs::path& chemin);
bool FichierExiste(const fs::path& chemin);
// Creates the folder (and its parents) when missing; failure is an execution error naming it.
void CreerDossier(const fs::path& chemin);
// Copies a file byte for byte, replacing the target as a whole (see EcrivainFichier).
void CopierFichier(const fs::path& source, const fs::path& cible);

// The temporary file beside `chemin` that a replacement is written to before it takes the name.
fs::path CheminProvisoire(const fs::path& chemin);

// Cuts a text into lines: a line ends at CR LF, at CR, or at a lone LF. A last line without an
// end is a line; a text that ends with a line end has no empty line after it.
class LecteurLignes {
public:
    explicit LecteurLignes(std::string_view texte) : texte_(texte) {}
    bool Suivante(std::string_view& ligne);
    // Number of the line last returned, from 1.
    long long Numero() const { return numero_; }

private:
    std::string_view texte_;
    std::size_t pos_ = 0;
    std::size_t cr_ = std::string_view::npos;
    std::size_t lf_ = std::string_view::npos;
    long long numero_ = 0;
};

// A text file created anew and written through a large buffer. Lines end in CR LF.
// The bytes go to a temporary file in the same folder, which takes the file's name only when it
// is closed whole: a kill, a full disk or an error in the middle leaves the old file as it was,
// never a cut one. Closing happens in Fermer() or in the destructor; a destructor reached by an
// exception drops the temporary instead. `durable` also flushes the bytes to the disk before
// the rename, for the files whose loss would cost the person work (the tagged texts, their backups).
class EcrivainFichier {
public:
    explicit EcrivainFichier(const fs::path& chemin, bool durable = false);
    ~EcrivainFichier();
    EcrivainFichier(const EcrivainFichier&) = delete;
    EcrivainFichier& operator=(const EcrivainFichier&) = delete;

    void Ecrire(std::string_view texte) {
        // A large block goes straight to the file instead of through the buffer.
        if (tampon_.empty() && texte.size() >= kTailleTampon) return EcrireBloc(texte);
        tampon_.append(texte);
        if (tampon_.size() >= kTailleTampon) Vider();
    }
    void Ligne(std::string_view texte) {
        tampon_.append(texte);
        tampon_.append("\r\n");
        if (tampon_.size() >= kTailleTampon) Vider();
    }
    // A line may also be built in place: append its text to Tampon(), then call FinLigne().
    // Nothing is flushed in between, so the caller may still cut back what it appended.
    std::string& Tampon() { return tampon_; }
    void FinLigne() {
        tampon_.append("\r\n");
        if (tampon_.size() >= kTailleTampon) Vider();
    }
    void Fermer();

private:
    // Small enough to stay in cache and be reused, so that writing does not fault in fresh pages.
    static constexpr std::size_t kTailleTampon = 64 * 1024;
    void Vider();
    void EcrireBloc(std::string_view bloc);
    void Abandonner() noexcept;
    fs::path chemin_;
    fs::path provisoire_;
    std::FILE* fichier_ = nullptr;
    int exceptions_ = 0;
    bool durable_ = false;
    std::string tampon_;
};

// Calls f(ligne) for each non-empty line of a whole file, read into `tampon` (which the caller
// reuses from file to file).
template <class F>
void PourChaqueLigneNonVide(const fs::path& fichier, std::string& tampon, F&& f) {
    LireFichier(fichier, tampon);
    LecteurLignes lecteur(tampon);
    std::string_view ligne;
    while (lecteur.Suivante(ligne))
        if (!ligne.empty()) f(ligne);
}

// Writes a whole file in one go, replacing the old one as a whole.
void EcrireFichier(const fs::path& chemin, std::string_view contenu, bool durable = false);

// Makes every write to the file system that holds `dossier` durable, in one call: the barrier
// of the stages that group their flushes over many small files.
void SynchroniserSysteme(const fs::path& dossier);

// Appends a line (with CR LF) to a file and makes it durable before returning: the journal of a
// stage, whose lines must survive whatever comes after them.
void AjouterLigneDurable(const fs::path& chemin, std::string_view ligne);

}  // namespace telvoris
