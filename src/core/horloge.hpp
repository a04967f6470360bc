// The clock, injectable so that stamps and durations are reproducible, and the time texts.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/jetons.hpp"

namespace telvoris {

struct Instant {
    int annee = 2000, mois = 1, jour = 1, heure = 0, minute = 0, seconde = 0;
};

class Horloge {
public:
    virtual ~Horloge() = default;
    virtual Instant Maintenant() const = 0;
};

class HorlogeSysteme : public Horloge {
public:
    Instant Maintenant() const override;
};

class HorlogeFixe : public Horloge {
public:
    explicit HorlogeFixe(Instant t) : t_(t) {}
    Instant Maintenant() const override { return t_; }
    void Regler(Instant t) { t_ = t; }

private:
    Instant t_;
};

// "AAAA-MM-JJ HH:MM:SS", as the command line takes it; nullopt when malformed.
std::optional<Instant> LireInstant(std::string_view texte);

// The clock as text: the time "HH:MM:SS" and the date "JJ/MM/AAAA".
std::string TexteHeure(const Instant& t);
std::string TexteDate(const Instant& t);

// Elapsed time since `debut` ("HH:MM:SS"), as "2 heures, 5 minutes, 3 secondes"; a run across
// midnight counts on; no time at all reads "1 secondes". The statistics copy starts with a blank.
std::string TexteDuree(std::string_view debut, const Horloge& horloge, Copie copie = Copie::Etiquetage);

// The stamp "aammjj_hhmm" that names output files.
std::string Horodater(const Horloge& horloge);

}  // namespace telvoris
