#include "core/horloge.hpp"

#include <cstdio>
#include <ctime>

#include "core/texte.hpp"

namespace telvoris {

Instant HorlogeSysteme::Maintenant() const {
    const std::time_t t = std::time(nullptr);
    std::tm tm{};
    localtime_r(&t, &tm);
    return {tm.tm_year + 1900, tm.tm_mon + 1, tm.tm_mday, tm.tm_hour, tm.tm_min, tm.tm_sec};
}

std::optional<Instant> LireInstant(std::string_view texte) {
    Instant t;
    char reste = 0;
    const std::string s(texte);
    if (std::sscanf(s.c_str(), "%d-%d-%d %d:%d:%d%c", &t.annee, &t.mois, &t.jour, &t.heure, &t.minute,
                    &t.seconde, &reste) != 6)
        return std::nullopt;
    if (t.annee < 1 || t.annee > 9999 || t.mois < 1 || t.mois > 12 || t.jour < 1 || t.jour > 31 ||
        t.heure < 0 || t.heure > 23 || t.minute < 0 || t.minute > 59 || t.seconde < 0 || t.seconde > 59)
        return std::nullopt;
    return t;
}

std::string TexteHeure(const Instant& t) {
    char b[32];
    std::snprintf(b, sizeof b, "%02d:%02d:%02d", t.heure, t.minute, t.seconde);
    return b;
}

std::string TexteDate(const Instant& t) {
    char b[32];
    std::snprintf(b, sizeof b, "%02d/%02d/%04d", t.jour, t.mois, t.annee);
    return b;
}

std::string TexteDuree(std::string_view debut, const Horloge& horloge, Copie copie) {
    const auto d = Decouper(debut, ":");
    const std::string maintenant = TexteHeure(horloge.Maintenant());
    const auto f = Decouper(maintenant, ":");
    auto champ = [](const std::vector<std::string_view>& v, std::size_t i) {
        return i < v.size() ? ValeurEntiere(v[i]) : 0LL;
    };
    long long h = champ(f, 0), m = champ(f, 1), s = champ(f, 2);
    const long long h0 = champ(d, 0), m0 = champ(d, 1), s0 = champ(d, 2);
    if (s < s0) { s += 60; m -= 1; }
    s -= s0;
    if (m < m0) { m += 60; h -= 1; }
    m -= m0;
    if (h < h0) h += 24;
    h -= h0;
    if (h == 0 && m == 0 && s == 0) s = 1;
    std::string r = copie == Copie::Statistiques ? " " : "";
    bool devant = false;
    if (h > 0) {
        r += std::to_string(h) + " heures";
        devant = true;
    }
    if (m > 0) {
        if (devant) r += ", ";
        r += std::to_string(m) + " minutes";
        devant = true;
    }
    if (s > 0) {
        if (devant) r += ", ";
        r += std::to_string(s) + " secondes";
    }
    return r;
}

std::string Horodater(const Horloge& horloge) {
    const Instant t = horloge.Maintenant();
    const std::string date = TexteDate(t);
    auto champs = Decouper(date, "/");
    if (champs.size() < 2) champs = Decouper(date, "-");
    std::string_view annee, mois, jour;
    if (champs.size() >= 3) {
        if (champs[0].size() == 2) {
            jour = champs[0], mois = champs[1], annee = champs[2];
        } else {
            annee = champs[0], mois = champs[1], jour = champs[2];
        }
    }
    const std::string texteHeure = TexteHeure(t);
    const auto heure = Decouper(texteHeure, ":");
    const std::string_view aa = annee.size() > 2 ? annee.substr(annee.size() - 2) : annee;
    return Joindre(aa, mois, jour, "_", heure[0], heure.size() > 1 ? heure[1] : std::string_view());
}

}  // namespace telvoris
