#include "stats/commun.hpp"

#include <charconv>
#include <cstdlib>

#include "core/erreurs.hpp"

namespace telvoris::stats {

std::optional<std::string_view> Champ(std::string_view ligne, int n) {
    std::size_t debut = 0;
    for (int i = 1; i < n; ++i) {
        const std::size_t tab = ligne.find('\t', debut);
        if (tab == std::string_view::npos) return std::nullopt;
        debut = tab + 1;
    }
    const std::size_t fin = ligne.find('\t', debut);
    return ligne.substr(debut, fin == std::string_view::npos ? std::string_view::npos : fin - debut);
}

void EchecConversion(std::string_view texte, std::string_view ou) {
    throw ErreurExecution(Joindre("Conversion impossible : « "_cp, texte, " » n'est pas un nombre ("_cp, ou, ")"));
}

namespace {

std::string_view SansBlancs(std::string_view t) {
    while (!t.empty() && (t.front() == ' ' || t.front() == '\t')) t.remove_prefix(1);
    while (!t.empty() && (t.back() == ' ' || t.back() == '\t')) t.remove_suffix(1);
    return t;
}

}  // namespace

bool EssayerEntier(std::string_view texte, long long& valeur) {
    std::string_view t = SansBlancs(texte);
    bool negatif = false;
    if (!t.empty() && (t[0] == '-' || t[0] == '+')) {
        negatif = t[0] == '-';
        t.remove_prefix(1);
    }
    long long v = 0;
    const auto r = std::from_chars(t.data(), t.data() + t.size(), v);
    if (t.empty() || r.ec != std::errc() || r.ptr != t.data() + t.size()) return false;
    valeur = negatif ? -v : v;
    return true;
}

long long LireEntier(std::string_view texte, std::string_view ou) {
    long long v;
    if (!EssayerEntier(texte, v)) EchecConversion(texte, ou);
    return v;
}

bool EstNombre(std::string_view texte) {
    std::string_view t = SansBlancs(texte);
    if (!t.empty() && (t[0] == '-' || t[0] == '+')) t.remove_prefix(1);
    bool chiffre = false, separateur = false;
    for (char c : t) {
        if (c >= '0' && c <= '9') chiffre = true;
        else if ((c == ',' || c == '.') && !separateur) separateur = true;
        else return false;
    }
    return chiffre;
}

double LireNombre(std::string_view texte, std::string_view ou) {
    if (!EstNombre(texte)) EchecConversion(texte, ou);
    std::string t(SansBlancs(texte));
    for (char& c : t)
        if (c == ',') c = '.';
    return std::strtod(t.c_str(), nullptr);
}

double DemanderNombre(Dialogue& dialogue, std::string_view texte, std::string_view titre, std::string_view defaut) {
    const auto r = dialogue.Demander(texte, titre, defaut);
    return LireNombre(r.value_or(std::string()), Joindre("réponse à « "_cp, texte, " »"_cp));
}

void ItemDuJeton(const AttributsJeton& a, int niveau, bool composer, std::string& item) {
    switch (niveau) {
        case 0:
            Minusculiser(a.f, item);
            break;
        case 1:
            item.assign(a.f);
            break;
        case 2:
            if (composer && a.l.find('/') != std::string::npos) {
                Minusculiser(a.f, item);
                item += '|';
                item += a.l;
            } else {
                item.assign(a.l);
            }
            break;
        default: {
            const int c = a.f.empty() ? 0 : Code(a.f[0]);
            if ((c >= 65 && c <= 90) || (c >= 192 && c <= 223)) item.assign(a.f);
            else item.clear();
            break;
        }
    }
}

std::filesystem::path ExigerOlbrinTT(const std::filesystem::path& doss_racine) {
    const auto tt = doss_racine / "OLBRIN_TT";
    if (!DossierExiste(tt))
        throw FinProgramme(Joindre("Le sous-dossier "_cp, TexteChemin(tt), " n'existe pas. Recommencez."_cp));
    return tt;
}

EcrivainMatrice::EcrivainMatrice(const std::filesystem::path& chemin, const std::vector<std::string>& colonnes)
    : sortie_(chemin) {
    for (const auto& c : colonnes) {
        ligne_ += '\t';
        ligne_ += c;
    }
    sortie_.Ligne(ligne_);
}

void EcrivainMatrice::Cellule(long long valeur) {
    char tampon[24];
    const auto r = std::to_chars(tampon, tampon + sizeof tampon, valeur);
    ligne_ += '\t';
    ligne_.append(tampon, static_cast<std::size_t>(r.ptr - tampon));
}

std::vector<std::string> LireItemsFichier(const std::filesystem::path& fichier, std::size_t max, bool nombreExige,
                                          std::string_view quoi) {
    std::vector<std::string> items;
    const std::string contenu = LireFichier(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        const auto ou = [&] {
            return Joindre(TexteChemin(fichier), ", ligne "_cp, std::to_string(lecteur.Numero()));
        };
        if (items.size() >= max) LimiteDepassee("MAX_ITEMS", static_cast<long long>(max), Joindre(quoi, " dans "_cp, ou()));
        const std::size_t tab = ligne.find('\t');
        if (tab == std::string_view::npos)
            throw ErreurExecution(Joindre("Ligne sans tabulation : « "_cp, ligne, " » ("_cp, ou(), ")"));
        if (nombreExige) {
            const std::string_view nombre = *Champ(ligne, 2);
            if (!EstNombre(nombre)) EchecConversion(nombre, ou());
        }
        items.emplace_back(ligne.substr(0, tab));
    }
    return items;
}

}  // namespace telvoris::stats
