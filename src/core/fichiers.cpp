#include "core/fichiers.hpp"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <system_error>

#include "core/erreurs.hpp"
#include "core/texte.hpp"

#include <fcntl.h>
#include <unistd.h>

namespace telvoris {

namespace {

// The flushes to the disk can be switched off with TELVORIS_SANS_FSYNC=1, only to measure what
// they cost (bench/fsync_petits_textes.sh); a kill still leaves whole files without them, a power
// cut may not.
bool Synchroniser(int fd, bool systeme = false) {
    static const bool actif = [] {
        const char* v = std::getenv("TELVORIS_SANS_FSYNC");
        return v == nullptr || *v == '\0' || *v == '0';
    }();
    if (!actif) return true;
    return (systeme ? ::syncfs(fd) : ::fsync(fd)) == 0;
}

}  // namespace

std::string TexteChemin(const fs::path& chemin) { return Utf8VersCp1252(chemin.generic_string()); }

fs::path Chemin(const fs::path& base, std::string_view nom) {
    std::string utf8 = Cp1252VersUtf8(nom);
    for (char& c : utf8)
        if (c == '\\') c = '/';
    return base / fs::path(utf8);
}

std::string LireFichier(const fs::path& chemin) {
    std::string contenu;
    LireFichier(chemin, contenu);
    return contenu;
}

void LireFichier(const fs::path& chemin, std::string& contenu) {
    contenu.clear();
    std::error_code ec;
    if (!fs::is_regular_file(chemin, ec))
        throw ErreurExecution(Joindre("Fichier introuvable : "_cp, TexteChemin(chemin)));
    std::FILE* f = std::fopen(chemin.c_str(), "rb");
    if (!f) throw ErreurExecution(Joindre("Lecture impossible du fichier : "_cp, TexteChemin(chemin)));
    const auto taille = fs::file_size(chemin, ec);
    if (!ec) contenu.resize(static_cast<std::size_t>(taille));
    const std::size_t lus = contenu.empty() ? 0 : std::fread(contenu.data(), 1, contenu.size(), f);
    contenu.resize(lus);
    // The size may have changed since it was asked: read what remains.
    char morceau[65536];
    std::size_t n;
    while ((n = std::fread(morceau, 1, sizeof morceau, f)) > 0) contenu.append(morceau, n);
    const bool erreur = std::ferror(f) != 0;
    std::fclose(f);
    if (erreur) throw ErreurExecution(Joindre("Lecture impossible du fichier : "_cp, TexteChemin(chemin)));
}

bool DossierExiste(const fs::path& chemin) {
    std::error_code ec;
    return fs::is_directory(chemin, ec);
}

bool FichierExiste(const fs::path& chemin) {
    std::error_code ec;
    return fs::is_regular_file(chemin, ec);
}

void CreerDossier(const fs::path& chemin) {
    std::error_code ec;
    if (fs::is_directory(chemin, ec)) return;
    fs::create_directories(chemin, ec);
    if (ec || !fs::is_directory(chemin))
        throw ErreurExecution(Joindre("Impossible de créer le dossier : "_cp, TexteChemin(chemin)));
}

void CopierFichier(const fs::path& source, const fs::path& cible) {
    if (!FichierExiste(source))
        throw ErreurExecution(Joindre("Fichier introuvable : "_cp, TexteChemin(source)));
    const fs::path provisoire = CheminProvisoire(cible);
    std::error_code ec;
    fs::copy_file(source, provisoire, fs::copy_options::overwrite_existing, ec);
    if (!ec) fs::rename(provisoire, cible, ec);
    if (ec) {
        std::error_code ignore;
        fs::remove(provisoire, ignore);
        throw ErreurExecution(Joindre("Copie impossible vers le fichier : "_cp, TexteChemin(cible)));
    }
}

fs::path CheminProvisoire(const fs::path& chemin) {
    // A fixed name, so that what a killed run left behind is taken over by the next write
    // instead of piling up; the leading dot keeps it out of the way of a person browsing.
    fs::path p = chemin;
    p.replace_filename("." + chemin.filename().string() + ".tmp");
    return p;
}

bool LecteurLignes::Suivante(std::string_view& ligne) {
    const std::size_t n = texte_.size();
    if (pos_ >= n) return false;
    // The next CR and the next LF are each looked for once and kept until passed, so that a
    // file with one kind of line end is not searched again for the other on every line.
    auto prochain = [&](std::size_t& memo, char c) {
        if (memo == std::string_view::npos || memo < pos_) {
            const void* p = std::memchr(texte_.data() + pos_, c, n - pos_);
            memo = p ? static_cast<std::size_t>(static_cast<const char*>(p) - texte_.data()) : n;
        }
        return memo;
    };
    const std::size_t i = std::min(prochain(cr_, '\r'), prochain(lf_, '\n'));
    ligne = texte_.substr(pos_, i - pos_);
    std::size_t suite = i;
    if (i < n) {
        suite = i + 1;
        if (texte_[i] == '\r' && suite < n && texte_[suite] == '\n') ++suite;
    }
    pos_ = suite;
    ++numero_;
    return true;
}

EcrivainFichier::EcrivainFichier(const fs::path& chemin, bool durable)
    : chemin_(chemin), provisoire_(CheminProvisoire(chemin)), exceptions_(std::uncaught_exceptions()),
      durable_(durable) {
    fichier_ = std::fopen(provisoire_.c_str(), "wb");
    if (!fichier_)
        throw ErreurExecution(Joindre("Impossible de créer le fichier : "_cp, TexteChemin(chemin)));
    tampon_.reserve(kTailleTampon + 4096);
}

EcrivainFichier::~EcrivainFichier() {
    if (!fichier_) return;
    // Left by an exception: the old file stays whole.
    if (std::uncaught_exceptions() > exceptions_) {
        Abandonner();
        return;
    }
    try {
        Fermer();
    } catch (...) {
        // A destructor never throws; the failure was already that of the operation.
    }
}

void EcrivainFichier::Abandonner() noexcept {
    if (fichier_) std::fclose(fichier_);
    fichier_ = nullptr;
    std::error_code ec;
    fs::remove(provisoire_, ec);
}

void EcrivainFichier::Vider() {
    if (tampon_.empty()) return;
    const std::size_t n = std::fwrite(tampon_.data(), 1, tampon_.size(), fichier_);
    const bool complet = n == tampon_.size();
    tampon_.clear();
    if (!complet) throw ErreurExecution(Joindre("Écriture impossible dans le fichier : "_cp, TexteChemin(chemin_)));
}

void EcrivainFichier::EcrireBloc(std::string_view bloc) {
    if (std::fwrite(bloc.data(), 1, bloc.size(), fichier_) != bloc.size())
        throw ErreurExecution(Joindre("Écriture impossible dans le fichier : "_cp, TexteChemin(chemin_)));
}

void EcrivainFichier::Fermer() {
    if (!fichier_) return;
    const auto echec = [&] {
        Abandonner();
        throw ErreurExecution(Joindre("Écriture impossible dans le fichier : "_cp, TexteChemin(chemin_)));
    };
    try {
        Vider();
    } catch (...) {
        Abandonner();
        throw;
    }
    if (std::fflush(fichier_) != 0) echec();
    if (durable_ && !Synchroniser(fileno(fichier_))) echec();
    std::FILE* f = fichier_;
    fichier_ = nullptr;
    if (std::fclose(f) != 0) {
        std::error_code ec;
        fs::remove(provisoire_, ec);
        throw ErreurExecution(Joindre("Écriture impossible dans le fichier : "_cp, TexteChemin(chemin_)));
    }
    std::error_code ec;
    fs::rename(provisoire_, chemin_, ec);
    if (ec) {
        std::error_code ignore;
        fs::remove(provisoire_, ignore);
        throw ErreurExecution(Joindre("Écriture impossible dans le fichier : "_cp, TexteChemin(chemin_)));
    }
}

void EcrireFichier(const fs::path& chemin, std::string_view contenu, bool durable) {
    EcrivainFichier e(chemin, durable);
    e.Ecrire(contenu);
    e.Fermer();
}

void SynchroniserSysteme(const fs::path& dossier) {
    const int fd = ::open(dossier.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) throw ErreurExecution(Joindre("Dossier introuvable : "_cp, TexteChemin(dossier)));
    const bool ok = Synchroniser(fd, true);
    ::close(fd);
    if (!ok) throw ErreurExecution(Joindre("Écriture impossible dans le dossier : "_cp, TexteChemin(dossier)));
}

void AjouterLigneDurable(const fs::path& chemin, std::string_view ligne) {
    const int fd = ::open(chemin.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644);
    if (fd < 0) throw ErreurExecution(Joindre("Impossible de créer le fichier : "_cp, TexteChemin(chemin)));
    std::string texte(ligne);
    texte.append("\r\n");
    std::size_t fait = 0;
    bool ok = true;
    while (ok && fait < texte.size()) {
        const ssize_t n = ::write(fd, texte.data() + fait, texte.size() - fait);
        if (n <= 0) ok = false;
        else fait += static_cast<std::size_t>(n);
    }
    if (ok && !Synchroniser(fd)) ok = false;
    ::close(fd);
    if (!ok) throw ErreurExecution(Joindre("Écriture impossible dans le fichier : "_cp, TexteChemin(chemin)));
}

}  // namespace telvoris
