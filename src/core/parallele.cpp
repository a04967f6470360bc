#include "core/parallele.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>
#include <unordered_set>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"

namespace telvoris {

unsigned FilsParDefaut() {
    const unsigned n = std::thread::hardware_concurrency();
    return n == 0 ? 1u : n;
}

unsigned FilsEffectifs(unsigned demande) { return demande == 0 ? FilsParDefaut() : demande; }

bool NomsEnDouble(const std::vector<std::string>& noms) {
    std::unordered_set<std::string_view> vus;
    vus.reserve(noms.size());
    for (const auto& nom : noms)
        if (!vus.insert(nom).second) return true;
    return false;
}

unsigned FilsSansDoublon(unsigned demande, const std::vector<std::string>& noms) {
    return NomsEnDouble(noms) ? 1 : FilsEffectifs(demande);
}

FichierEnAttente::FichierEnAttente(fs::path chemin, std::string_view contenu, std::size_t place)
    : chemin_(std::move(chemin)), provisoire_(CheminProvisoire(chemin_)) {
    if (place != 0) {
        std::string nom(1, '.');
        nom += chemin_.filename().string();
        nom += '.';
        nom += std::to_string(place);
        nom += ".tmp";
        provisoire_.replace_filename(nom);
    }
    const int fd = ::open(provisoire_.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
    if (fd < 0) {
        provisoire_.clear();
        throw ErreurExecution(Joindre("Impossible de créer le fichier : "_cp, TexteChemin(chemin_)));
    }
    // One write for the whole file, unless the system takes it in pieces.
    std::size_t fait = 0;
    bool ok = true;
    while (ok && fait < contenu.size()) {
        const ssize_t n = ::write(fd, contenu.data() + fait, contenu.size() - fait);
        if (n > 0) fait += static_cast<std::size_t>(n);
        else if (!(n < 0 && errno == EINTR)) ok = false;
    }
    if (::close(fd) != 0) ok = false;
    if (!ok) {
        Abandonner();
        throw ErreurExecution(Joindre("Écriture impossible dans le fichier : "_cp, TexteChemin(chemin_)));
    }
}

FichierEnAttente::FichierEnAttente(FichierEnAttente&& autre) noexcept
    : chemin_(std::move(autre.chemin_)), provisoire_(std::move(autre.provisoire_)) {
    autre.provisoire_.clear();
}

FichierEnAttente& FichierEnAttente::operator=(FichierEnAttente&& autre) noexcept {
    if (this != &autre) {
        Abandonner();
        chemin_ = std::move(autre.chemin_);
        provisoire_ = std::move(autre.provisoire_);
        autre.provisoire_.clear();
    }
    return *this;
}

FichierEnAttente::~FichierEnAttente() { Abandonner(); }

void FichierEnAttente::Abandonner() noexcept {
    if (provisoire_.empty()) return;
    std::error_code ec;
    fs::remove(provisoire_, ec);
    provisoire_.clear();
}

void FichierEnAttente::Publier() {
    if (provisoire_.empty()) return;
    std::error_code ec;
    fs::rename(provisoire_, chemin_, ec);
    if (ec) {
        Abandonner();
        throw ErreurExecution(Joindre("Écriture impossible dans le fichier : "_cp, TexteChemin(chemin_)));
    }
    provisoire_.clear();
}

}  // namespace telvoris
