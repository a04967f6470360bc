#include "shell/ressources.hpp"

#include <algorithm>
#include <system_error>

#include "core/texte.hpp"

namespace telvoris {

namespace fs = std::filesystem;

std::string MessageRessourcesAbsentes() {
    return std::string(
        "Le dossier 'morv_res' est absent. Copiez-le sur un lecteur interne, svp. Puis relancez l'application."_cp);
}

namespace {

std::vector<fs::path> SousDossiersTries(const fs::path& dossier) {
    std::vector<fs::path> r;
    std::error_code ec;
    if (!fs::is_directory(dossier, ec)) return r;
    for (fs::directory_iterator it(dossier, ec), fin; !ec && it != fin; it.increment(ec)) {
        std::error_code ec2;
        if (it->is_directory(ec2)) r.push_back(it->path());
    }
    std::sort(r.begin(), r.end());
    return r;
}

bool EgalSansCasse(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) == std::tolower(static_cast<unsigned char>(y));
           });
}

// <base>/MORVENTA/morv_res, the first component compared without case.
std::optional<fs::path> ArbreDans(const fs::path& base) {
    for (const auto& d : SousDossiersTries(base)) {
        if (!EgalSansCasse(d.filename().string(), "MORVENTA")) continue;
        std::error_code ec;
        if (fs::is_directory(d / "morv_res", ec)) return d / "morv_res";
    }
    return std::nullopt;
}

}  // namespace

std::vector<fs::path> LieuxRessources(const fs::path& dossierExecutable, const std::optional<fs::path>& maison) {
    std::vector<fs::path> lieux = {dossierExecutable, dossierExecutable / ".." / "share"};
    if (maison) lieux.push_back(*maison);
    lieux.emplace_back("/usr/local/share");
    lieux.emplace_back("/usr/share");
    for (const auto& media : SousDossiersTries("/media"))
        for (const auto& volume : SousDossiersTries(media)) lieux.push_back(volume);
    for (const auto& volume : SousDossiersTries("/mnt")) lieux.push_back(volume);
    return lieux;
}

std::optional<fs::path> LocaliserRessources(const std::optional<fs::path>& option, const fs::path& dossierExecutable,
                                            const std::optional<fs::path>& maison) {
    std::error_code ec;
    if (option) {
        if (fs::is_directory(*option, ec)) return fs::absolute(*option, ec).lexically_normal();
        return std::nullopt;
    }
    for (const auto& lieu : LieuxRessources(dossierExecutable, maison))
        if (auto arbre = ArbreDans(lieu)) return fs::absolute(*arbre, ec).lexically_normal();
    return std::nullopt;
}

}  // namespace telvoris
