#include "explore/ecarts_texte.hpp"

#include <charconv>
#include <cstring>

#include "core/nombres.hpp"
#include "explore/requete.hpp"

namespace telvoris {

namespace {

std::uint64_t Bits(double z) {
    std::uint64_t b;
    std::memcpy(&b, &z, sizeof b);
    return b;
}

}  // namespace

const std::string& TexteEcarts::Arrondi(double z) {
    auto [it, nouveau] = arrondis_.try_emplace(Bits(z));
    if (nouveau) it->second = FormaterDouble(Round(z, 2));
    return it->second;
}

const std::string& TexteEcarts::Exact(double z) {
    auto [it, nouveau] = exacts_.try_emplace(Bits(z));
    if (nouveau) it->second = FormaterDouble(z);
    return it->second;
}

void AjouterEntier(std::string& texte, long long v) {
    char tampon[24];
    const auto fin = std::to_chars(tampon, tampon + sizeof tampon, v).ptr;
    texte.append(tampon, fin);
}

void AjouterLignesDistribution(std::string& texte, long long n, const std::vector<std::string>& noms,
                               const std::vector<long long>& comptes, const std::vector<double>& parts, long long total,
                               TexteEcarts& ecarts) {
    for (long long k = 1; k <= n; ++k) {
        const auto i = static_cast<std::size_t>(k);
        const long long compte = i < comptes.size() ? comptes[i] : 0;
        if (i < noms.size()) texte += noms[i];
        texte += '\t';
        AjouterEntier(texte, compte);
        texte += '\t';
        texte += ecarts.Arrondi(EcartReduit(total, i < parts.size() ? parts[i] : 0.0, compte));
        texte += "\r\n";
    }
}

}  // namespace telvoris
