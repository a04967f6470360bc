#include "pipeline/contexte_regles.hpp"

#include <algorithm>
#include <array>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "lexicon/dictionnaire.hpp"

namespace telvoris {

namespace {

constexpr std::string_view kDiese = "#";
constexpr std::string_view kPoint = "\xA5";    // the full stop of the legacy short tag
constexpr std::string_view kDebut = "\xA4";    // left padding of the lemma column
constexpr std::string_view kEtoile = "*";      // right padding
constexpr int kMarge = 5;

inline bool EstCapitale(std::string_view t) {
    if (t.empty()) return false;
    const int c = Code(t[0]);
    return (c >= 65 && c <= 90) || (c >= 192 && c <= 223);
}

inline bool Contient(std::string_view t, std::string_view m) { return t.find(m) != std::string_view::npos; }

// A piece of a text by 0-based position, empty outside it.
inline std::string_view Milieu(std::string_view t, long long i, std::size_t n) {
    if (i < 0 || static_cast<std::size_t>(i) >= t.size()) return {};
    return t.substr(static_cast<std::size_t>(i), n);
}

bool CommencePar(std::string_view t, std::initializer_list<std::string_view> debuts) {
    for (auto d : debuts)
        if (t.starts_with(d)) return true;
    return false;
}

constexpr std::size_t kCasiers = (MAX_CLASSE_INITIALE + 1) * (MAX_CLASSE_LONGUEUR + 1);
std::size_t IndiceCasier(CleMot c) {
    return static_cast<std::size_t>(c.ClasseLongueur) * (MAX_CLASSE_INITIALE + 1) + static_cast<std::size_t>(c.ClasseInitiale);
}

// The lemma, "_" and category of a reading for a form; an empty lemma code gives the form.
std::string LemmeCategorie(std::string_view forme, std::string_view lecture) {
    const Interpretation i = CouperInterpretation(lecture);
    std::string r = i.lemme_code.empty() ? std::string(forme) : decoder_lemme(forme, i.lemme_code);
    r += '_';
    r.append(i.categorie);
    return r;
}

// Whether a person code of a post-clitic fits a signature.
bool ConvientPostclitique(std::string_view code, std::string_view s) {
    if (code == "1") return CommencePar(s, {"V1", "V7", "V9"});
    if (code == "2") return CommencePar(s, {"V2", "V7"});
    if (code == "3") return CommencePar(s, {"V3", "V9"});
    if (code == "6") return s.starts_with("V6");
    // The tests on V7n and V9l never meet a two-character signature of a finite verb.
    if (code == "245") return CommencePar(s, {"V5", "V4"});
    return false;
}

bool ConvientVerbe(std::string_view valeur, std::string_view s) {
    if (valeur == "1") return CommencePar(s, {"V1", "V7", "V8", "V9"});
    if (valeur == "2") return CommencePar(s, {"V2", "V7"});
    if (valeur == "3" || valeur == "3F") return CommencePar(s, {"V3", "V8", "V9"});
    if (valeur == "4") return s.starts_with("V4");
    if (valeur == "5") return s.starts_with("V5");
    if (valeur == "6" || valeur == "6F") return s.starts_with("V6");
    if (valeur == "346") return CommencePar(s, {"V3", "V9", "V6", "V4"});
    if (valeur == "356") return CommencePar(s, {"V3", "V9", "V6", "V5"});
    if (valeur == "3456") return CommencePar(s, {"V3", "V9", "V6", "V5", "V4"});
    if (valeur == "368X") return CommencePar(s, {"V3", "V9", "V6", "Vx", "Vf"});
    if (valeur == "36FX") return CommencePar(s, {"V6", "Vf", "V3", "Vx"});
    if (valeur == "F") return s.starts_with("Vf");
    if (valeur == "FX") return CommencePar(s, {"Vf", "Vx"});
    if (valeur == "U") return s.size() >= 2 && s[0] == 'V' && std::string_view("013456789").find(s[1]) != std::string_view::npos;
    if (valeur == "Y") return s.starts_with("Vy");
    if (valeur == "UNI") return s.starts_with("V");
    if (valeur == "UFX")
        return s.size() >= 2 && s[0] == 'V' && ((s[1] >= '0' && s[1] <= '9') || s[1] == 'f' || s[1] == 'x');
    // "X" compares one character with "Vx" and keeps nothing; an unknown value keeps nothing.
    return false;
}

// The noun filter: signatures kept as they are, and those kept with their ending rewritten.
struct RegleNom {
    std::vector<std::string_view> tels;
    std::vector<std::string_view> reecrits;
    std::string_view fin;  // the new ending, over as many characters
    std::vector<std::string_view> reecrits2;
    std::string_view fin2;
};

const RegleNom* RegleDeNom(std::string_view v) {
    static const std::array<RegleNom, 8> kRegles = {{
        {{"SWs", "SMs", "Rms", "Jms"}, {"Jxs", "Rxs"}, "ms", {"SMx"}, "s"},
        {{"SWp", "SMp", "Rmp", "Jmp"}, {"Jxp", "Rxp"}, "mp", {"SMx"}, "p"},
        {{"SWs", "SFs", "Rfs", "Jfs"}, {"Jxs", "Rxs"}, "fs", {"SFx"}, "s"},
        {{"SFp", "SWp", "Rfp", "Jfp", "Rxp", "Jxp"}, {}, "", {"SFx"}, "p"},
        {{"SWs", "SMs", "SFs", "Rms", "Rfs", "Jms", "Jfs", "Jxs", "Rxs"},
         {},
         "",
         {"Rmx", "SMx", "SFx", "Rfx", "Jmx", "Jfx", "Jxx", "Rxx"},
         "s"},
        {{"SWp", "SMp", "Rmp", "SFp", "Rfp", "Jmp", "Jfp", "Jxp", "Rxp"},
         {},
         "",
         {"Rmx", "SMx", "SFx", "Rfx", "Jmx", "Jfx", "Jxx", "Rxx"},
         "p"},
    }};
    if (v == "1") return &kRegles[0];
    if (v == "2") return &kRegles[1];
    if (v == "3") return &kRegles[2];
    if (v == "4") return &kRegles[3];
    if (v == "5" || v == "6") return &kRegles[4];
    if (v == "7") return &kRegles[5];
    return nullptr;
}

void RemplacerFin(std::string& t, std::string_view fin) {
    if (t.size() >= fin.size()) t.replace(t.size() - fin.size(), fin.size(), fin);
}

}  // namespace

std::string SignatureLecture(std::string_view l) {
    const std::size_t point = l.find('.');
    const long long p = point == std::string_view::npos ? -1 : static_cast<long long>(point);
    const std::string_view c = Milieu(l, p + 1, 1);
    std::string s;
    if (c == "V") {
        s = Joindre("V", Milieu(l, p + 3, 1));
        if (s == "Vy") s = Joindre("V", Milieu(l, p + 3, 3));
    } else if (c == "S") {
        s = Joindre(Milieu(l, p + 1, 2), Milieu(l, p + 4, 1));
    } else if (c == "J" || c == "R") {
        s = Joindre(c, Milieu(l, p + 3, 2));
    } else {
        s.assign(c);
    }
    return s;
}

void ChargerListesContexte(ListesContexte& l, const std::filesystem::path& racine) {
    ChargerGroupesContexte(l.groupes, racine);
    l.postclitiques = ChargerPostclitiquesDesamb(racine);
    l.classes.clear();
    for (auto& v : ChargerCategoriesVerbes(racine)) l.classes.try_emplace(std::move(v.verbe), v.classe);
}

PasseContexte::PasseContexte(const ListesContexte& listes) : listes_(listes), cas_(kCasiers) {}

void PasseContexte::TraiterLigne(std::string_view texte, std::string& sortie) {
    DecouperLigne(texte, ligne_);
    const int n = ligne_.NbJetons;
    const auto taille = static_cast<std::size_t>(n + 2 * kMarge + 1);
    tag_.assign(taille, {});
    suite_.assign(taille, {});
    forme_.assign(taille, {});
    lemmes_.assign(taille, {});
    flexion_.assign(taille, {});
    textes_.clear();
    for (int k = 1; k <= kMarge; ++k) {
        forme_[static_cast<std::size_t>(k)] = kDiese;
        lemmes_[static_cast<std::size_t>(k)] = kDebut;
        forme_[static_cast<std::size_t>(n + kMarge + k)] = kEtoile;
        lemmes_[static_cast<std::size_t>(n + kMarge + k)] = kEtoile;
    }
    for (int i = 1; i <= n; ++i) {
        const auto k = static_cast<std::size_t>(i + kMarge);
        const std::string_view t = ligne_.jeton[static_cast<std::size_t>(i)];
        tag_[k] = t;
        suite_[k] = ligne_.suite[static_cast<std::size_t>(i)];
        if (t == "<PC l=PT>") {
            forme_[k] = kPoint;
            lemmes_[k] = kPoint;
        } else if (t.starts_with("<PC ")) {
            forme_[k] = kDiese;
            lemmes_[k] = kDiese;
        } else if (t.starts_with("<MC ")) {
            const AttributsVue a = LireAttributsVue(t);
            forme_[k] = kDiese;
            lemmes_[k] = a.l;
            flexion_[k] = a.x;
        } else {
            const AttributsVue a = LireAttributsVue(t);
            forme_[k] = a.f;
            lemmes_[k] = a.l;
            flexion_[k] = a.x;
        }
    }
    for (int k = 1; k <= n + kMarge; ++k) {
        if (k > kMarge) ++compteurs_.no_token;
        const std::string_view e = lemmes_[static_cast<std::size_t>(k)];
        const std::size_t point = e.find('.');
        const std::size_t barre = e.find('/');
        if (point == std::string_view::npos || barre == std::string_view::npos || barre < point) continue;
        TraiterMot(k, n);
    }
    sortie.append(ligne_.suite[0]);
    for (int k = kMarge + 1; k <= n + kMarge; ++k) {
        sortie.append(tag_[static_cast<std::size_t>(k)]);
        sortie.append(suite_[static_cast<std::size_t>(k)]);
    }
}

void PasseContexte::TraiterMot(int k, int n) {
    const auto ku = static_cast<std::size_t>(k);
    const std::string_view f = forme_[ku];
    const std::string_view e = lemmes_[ku];
    ++compteurs_.nb_soumis;

    // The readings.
    const auto morceaux = Decouper(e, "/");
    if (morceaux.size() > MAX_LECTURES)
        LimiteDepassee("MAX_LECTURES", static_cast<long long>(MAX_LECTURES),
                       Joindre("lectures pour la forme « "_cp, f, " » ("_cp, e, ")"));
    lectures_.resize(morceaux.size());
    bool vy = false;
    for (std::size_t i = 0; i < morceaux.size(); ++i) {
        Lecture& l = lectures_[i];
        l.lecture.assign(morceaux[i]);
        l.signature = SignatureLecture(l.lecture);
        l.lemme_cat = LemmeCategorie(f, l.lecture);
        const std::string_view flexion = CouperInterpretation(l.lecture).flexion;
        l.balise = flexion.empty() ? Joindre("<M f=", f, " l=", l.lemme_cat, " >")
                                   : Joindre("<M f=", f, " l=", l.lemme_cat, " x=", flexion, " > \"");
        if (l.signature.starts_with("Vy")) vy = true;
    }
    retenues_.clear();
    nbRetenues_ = 0;

    // Post-clitic behind the word.
    std::string_view code;
    bool avecCode = false;
    const std::string_view suivante = forme_[ku + 1];
    if (suivante.starts_with("-")) {
        if (suivante == "-t") {
            if (k + 2 <= n + kMarge) {
                code = forme_[ku + 2] == "-en" ? "2" : "3";
                avecCode = true;
            }
        } else {
            for (const auto& p : listes_.postclitiques)
                if (p.forme == suivante) {
                    code = p.code;
                    avecCode = true;
                    break;
                }
        }
    }

    Minusculiser(f, pliee_);
    const std::string w = pliee_;
    auto Ecrit = [&](std::string texte, std::string_view nouveauLemme) {
        tag_[ku] = textes_.emplace_back(std::move(texte));
        lemmes_[ku] = nouveauLemme.empty() ? std::string_view{} : std::string_view(textes_.emplace_back(nouveauLemme));
        nbRetenues_ = 100;
        ++compteurs_.nb_identifications;
    };
    auto Balise = [&](const Lecture& l) {
        tag_[ku] = textes_.emplace_back(l.balise);
        nbRetenues_ = 100;
    };
    const std::string K = std::to_string(LireAttributsVue(tag_[ku]).k);
    auto A = [&](std::size_t i) {
        const std::string_view l = lemmes_[i];
        return Contient(l, "_P") || Contient(l, "_O") || Contient(l, "_V") || Contient(l, ".V") || Contient(l, "_A") ||
               Contient(l, ".A") || forme_[i].starts_with("-");
    };
    auto Ne = [&](std::size_t i) {
        const std::string_view t = forme_[i];
        return t == "ne" || t == "n'" || t == "Ne" || t == "N'";
    };

    // Word rules.
    if (Contient(e, ".N")) {
        if (!EstCapitale(f)) {
            std::erase_if(lectures_, [](const Lecture& l) { return Contient(l.lecture, ".N"); });
            // A rule that settles the word counts its identification.
            if (lectures_.size() == 1) {
                Balise(lectures_[0]);
                ++compteurs_.nb_identifications;
            }
        } else {
            Ecrit(Joindre("<M f=", f, " l=", w, "_N >"), Joindre(w, "_N >"));
        }
    }
    if (nbRetenues_ == 0) {
        const std::size_t nb = lectures_.size();
        if (w == "pas") {
            if (Ne(ku - 1) || (Ne(ku - 2) && A(ku - 1)) || (Ne(ku - 3) && A(ku - 1) && A(ku - 2)) ||
                (Ne(ku - 4) && A(ku - 1) && A(ku - 2) && A(ku - 3)))
                Ecrit(Joindre("<M k=", K, " f=", f, " l=", w, "_A >"), Joindre(w, "_A >"));
        } else if (w == "est") {
            const std::string_view avant = forme_[ku - 1];
            if (avant == "en" || avant == "," || avant == "et" || Contient(tag_[ku - 1], "_P") ||
                (Contient(tag_[ku - 2], "_P") && avant == "l'") ||
                (EstCapitale(avant) && avant != "Sud" && avant != "Nord"))
                Ecrit(Joindre("<M k=", K, " f=", f, " l=", "être_V x=3a >"_cp), "être_V >"_cp);
        } else if (w == "soit") {
            if (forme_[ku - 1] == "que") {
                const std::string avant2 = Minusculiser(forme_[ku - 2]);
                if (avant2 == "quel" || avant2 == "quelle" || avant2 == "quels" || avant2 == "quelles" ||
                    Minusculiser(forme_[ku - 3]) == "quelque")
                    Ecrit(Joindre("<M k=", K, " f=", f, " l=", "être_V x=3e>"_cp), "être_V"_cp);
            }
        } else if (w == "être"_cp) {
            if (Contient(tag_[ku - 1], "_A") || Contient(tag_[ku - 1], "_P") || forme_[ku - 1].empty())
                Ecrit(Joindre("<M k=", K, " f=", f, " l=", "être_V x=f >"_cp), "être_V >"_cp);
        } else if (w == "étaient"_cp) {
            const std::string_view l1 = lemmes_[ku + 1];
            if (Contient(flexion_[ku + 1], "y") || Contient(l1, ":y") || Contient(l1, "J") || Contient(l1, "R"))
                Ecrit(Joindre("<M k=", K, " f=", f, " l=", "être_V x=6b >"_cp), "être_V >"_cp);
        } else {
            if (vy && nb == 2) {
                const bool v0 = lectures_[0].signature.starts_with("V"), v1 = lectures_[1].signature.starts_with("V");
                const bool s0 = lectures_[0].signature.starts_with("S"), s1 = lectures_[1].signature.starts_with("S");
                const std::string_view avant = lemmes_[ku - 1];
                if (((v0 && s1) || (s0 && v1)) && (Contient(avant, "avoir") || Contient(avant, "être"_cp) ||
                                                   Contient(avant, "_S") || Contient(avant, "_A"))) {
                    Balise(v0 ? lectures_[0] : lectures_[1]);
                    ++compteurs_.nb_identifications;
                }
            }
            if (nbRetenues_ == 0 && Contient(e, ".S") && nb == 2) {
                const Lecture& l = lectures_[0].signature.starts_with("S") ? lectures_[1] : lectures_[0];
                if (!Contient(l.balise, "_S") &&
                    (Contient(lemmes_[ku - 1], "_S") || (Contient(lemmes_[ku + 1], "_S") && k < n + kMarge))) {
                    Balise(l);
                    ++compteurs_.nb_identifications;
                }
            }
        }
    }

    // A post-clitic overrides the rules: the last reading that fits its code is the one kept.
    if (avecCode) {
        for (std::size_t i = 0; i < lectures_.size(); ++i)
            if (ConvientPostclitique(code, lectures_[i].signature)) {
                retenues_.assign(1, static_cast<int>(i));
                nbRetenues_ = 1;
            }
    }

    // Left context.
    if (nbRetenues_ == 0 && !avecCode) {
        std::string contexte;
        for (int j = 1; j <= 5 && k > j; ++j) {
            const auto i = ku - static_cast<std::size_t>(j);
            const std::string mot = Minusculiser(forme_[i]);
            if (mot.empty()) break;
            if (listes_.groupes.EstMotDeGroupe(mot)) {
                contexte.insert(0, Joindre(mot, " "));
                continue;
            }
            if (mot == kDiese) break;
            const std::string_view l = lemmes_[i];
            const std::size_t souligne = l.rfind('_');
            if (Contient(l, "/") || souligne == std::string_view::npos) break;
            const std::string_view cat = l.substr(souligne + 1);
            std::string_view item;
            if (cat.starts_with("BX") || cat.starts_with("BI")) item = cat.substr(0, 2);
            else if (cat.starts_with("B")) item = "B";
            else if (cat.starts_with("CS")) item = "CS";
            else if (cat.starts_with("D")) item = l.ends_with("S") ? "DS" : l.ends_with("P") ? "DP" : "D";
            else if (cat == "P" && (l.ends_with("S") || l.ends_with("P"))) item = "PP";
            else break;
            contexte.insert(0, Joindre(item, " "));
        }
        if (!contexte.empty()) {
            contexte.pop_back();
            Filtrer(contexte);
        }
    }

    // Apply.
    if (nbRetenues_ == 1) {
        const Lecture& l = lectures_[static_cast<std::size_t>(retenues_[0])];
        const std::string_view flexion = CouperInterpretation(l.lecture).flexion;
        std::string& t = textes_.emplace_back(Joindre("<M f=", f, " l=", l.lemme_cat));
        if (!flexion.empty()) t.append(Joindre(" x=", flexion));
        t.append(" >");
        tag_[ku] = t;
        lemmes_[ku] = textes_.emplace_back(l.lemme_cat);
        ++compteurs_.nb_identifications;
    } else if (nbRetenues_ >= 2 && nbRetenues_ <= 99) {
        std::string liste;
        for (int i = 0; i < nbRetenues_; ++i) {
            if (i) liste += '/';
            liste += lectures_[static_cast<std::size_t>(retenues_[static_cast<std::size_t>(i)])].lecture;
        }
        tag_[ku] = textes_.emplace_back(Joindre("<M f=", f, " l=", liste, " >"));
        if (static_cast<std::size_t>(nbRetenues_) < lectures_.size()) ++compteurs_.nb_simplifications;
        EntrerCas(w, liste);
    }
    if (nbRetenues_ == 0) EntrerCas(w, e);
}

void PasseContexte::Filtrer(const std::string& contexte) {
    // The longest tail of the context that is a group.
    const GroupeContexte* groupe = nullptr;
    for (std::size_t debut = 0;;) {
        groupe = listes_.groupes.Chercher(std::string_view(contexte).substr(debut));
        if (groupe) break;
        const std::size_t blanc = contexte.find(' ', debut);
        if (blanc == std::string::npos) break;
        debut = blanc + 1;
    }
    // Closed-class readings.
    const bool aOuDe = contexte == "à"_cp || contexte == "de";
    for (std::size_t i = 0; i < lectures_.size(); ++i) {
        const std::string& s = lectures_[i].signature;
        if (CommencePar(s, {"S", "R", "J", "V"})) continue;
        if (aOuDe || s.starts_with("B")) retenues_.push_back(static_cast<int>(i));
    }
    nbRetenues_ = static_cast<int>(retenues_.size());
    if (!groupe) return;
    if (groupe->type == 2 || groupe->type == 3) RetenirNoms(groupe->valeur_nom);
    if (groupe->type == 1 || groupe->type == 3) RetenirVerbes(groupe->valeur_verbe, groupe->valeur_classe);
    nbRetenues_ = static_cast<int>(retenues_.size());
}

void PasseContexte::RetenirNoms(std::string_view valeur) {
    const RegleNom* r = RegleDeNom(valeur);
    for (std::size_t i = 0; i < lectures_.size(); ++i) {
        Lecture& l = lectures_[i];
        const std::string_view s = l.signature;
        if (valeur == "8") {
            if (CommencePar(s, {"S", "R", "J"})) retenues_.push_back(static_cast<int>(i));
            continue;
        }
        if (!r) continue;
        auto dans = [&](const std::vector<std::string_view>& v) { return std::find(v.begin(), v.end(), s) != v.end(); };
        if (dans(r->tels)) {
            retenues_.push_back(static_cast<int>(i));
        } else if (dans(r->reecrits)) {
            RemplacerFin(l.lecture, r->fin);
            RemplacerFin(l.signature, r->fin);
            retenues_.push_back(static_cast<int>(i));
        } else if (dans(r->reecrits2)) {
            RemplacerFin(l.lecture, r->fin2);
            RemplacerFin(l.signature, r->fin2);
            retenues_.push_back(static_cast<int>(i));
        }
    }
}

void PasseContexte::RetenirVerbes(std::string_view valeurVerbe, std::string_view valeurClasse) {
    // The gate: raised by each verb reading, lowered when the verb's class goes against the group.
    bool porte = false;
    for (const Lecture& l : lectures_) {
        if (!l.signature.starts_with("V")) continue;
        porte = true;
        const auto it = listes_.classes.find(l.lemme_cat);
        if (it == listes_.classes.end()) continue;
        const int c = it->second;
        if ((valeurClasse == "1" && (c == 2 || c == 3 || c == 7)) || (valeurClasse == "2" && (c == 1 || c == 3 || c == 6)) ||
            (valeurClasse == "3" && (c == 1 || c == 2 || (c == 5 && !Contient(l.signature, "x")))))
            porte = false;
    }
    if (!porte) return;
    for (std::size_t i = 0; i < lectures_.size(); ++i)
        if (ConvientVerbe(valeurVerbe, lectures_[i].signature)) retenues_.push_back(static_cast<int>(i));
}

void PasseContexte::EntrerCas(std::string_view forme, std::string_view liste) {
    std::uint32_t id;
    if (const auto it = idListes_.find(liste); it != idListes_.end()) {
        id = it->second;
    } else {
        if (listesCas_.size() >= MAX_LISTES_CAS)
            LimiteDepassee("MAX_LISTES_CAS", static_cast<long long>(MAX_LISTES_CAS),
                           Joindre("listes de lectures distinctes dans l'index des cas, en entrant « "_cp, liste, " »"_cp));
        listesCas_.emplace_back(liste);
        id = static_cast<std::uint32_t>(listesCas_.size());
        idListes_.emplace(std::string(liste), id);
    }
    cle_ = Joindre("<M f=", forme, " l=", liste, " >");
    const std::string position = std::to_string(compteurs_.no_token);
    if (const auto it = indexCas_.find(cle_); it != indexCas_.end()) {
        Cas& c = cas_[it->second.first][it->second.second];
        c.positions += '-';
        c.positions += position;
        ++c.occurrences;
        return;
    }
    const std::size_t b = IndiceCasier(ClasserItem(forme));
    auto& casier = cas_[b];
    if (casier.size() >= MAX_CAS_CASIER)
        LimiteDepassee("MAX_CAS_CASIER", static_cast<long long>(MAX_CAS_CASIER),
                       Joindre("cas dans le casier de la forme « "_cp, forme, " » de l'index des cas"_cp));
    casier.push_back({cle_, id, 1, position});
    indexCas_.emplace(cle_, std::make_pair(static_cast<std::uint32_t>(b), static_cast<std::uint32_t>(casier.size() - 1)));
}

void PasseContexte::EcrireIndex(const std::filesystem::path& dossierTT) const {
    // The cases in the walk of the buckets, then grouped by list id.
    std::vector<const Cas*> ordre;
    for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c)
            for (const Cas& x : cas_[IndiceCasier({l, c})]) ordre.push_back(&x);
    std::stable_sort(ordre.begin(), ordre.end(), [](const Cas* a, const Cas* b) { return a->liste < b->liste; });

    struct LemmeCas {
        std::string lemme;
        long long occurrences = 0;
        std::string cles;
    };
    std::vector<std::vector<LemmeCas>> lemmes(kCasiers);
    std::unordered_map<std::string, std::pair<std::uint32_t, std::uint32_t>, HachageTexte, std::equal_to<>> indexLemmes;

    EcrivainFichier index(Chemin(dossierTT, "#INDEX_ms.txt"));
    EcrivainFichier etat(Chemin(dossierTT, "#F_ETAT.txt"));
    for (const Cas* x : ordre) {
        index.Ligne(Joindre(x->cle, "\t", std::to_string(x->liste), "\t", x->positions));
        etat.Ligne("0");
        // "<M f=" form " l=" list " >"
        const std::size_t debutListe = x->cle.find(" l=");
        const std::string_view forme = std::string_view(x->cle).substr(5, debutListe - 5);
        const std::string_view liste =
            std::string_view(x->cle).substr(debutListe + 3, x->cle.size() - debutListe - 3 - 2);
        for (std::string_view lecture : Decouper(liste, "/")) {
            std::string lc = LemmeCategorie(forme, lecture);
            if (const auto it = indexLemmes.find(lc); it != indexLemmes.end()) {
                LemmeCas& e = lemmes[it->second.first][it->second.second];
                e.occurrences += x->occurrences;
                e.cles += '-';
                e.cles += x->cle;
                continue;
            }
            const std::size_t b = IndiceCasier(ClasserItem(lc));
            if (lemmes[b].size() >= MAX_LEMMES_CAS_CASIER)
                LimiteDepassee("MAX_LEMMES_CAS_CASIER", static_cast<long long>(MAX_LEMMES_CAS_CASIER),
                               Joindre("lemmes dans le casier de « "_cp, lc, " » de l'index des lemmes"_cp));
            lemmes[b].push_back({lc, x->occurrences, x->cle});
            indexLemmes.emplace(std::move(lc), std::make_pair(static_cast<std::uint32_t>(b),
                                                              static_cast<std::uint32_t>(lemmes[b].size() - 1)));
        }
    }
    index.Fermer();
    etat.Fermer();

    std::vector<const LemmeCas*> parLemme;
    for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c)
            for (const LemmeCas& x : lemmes[IndiceCasier({l, c})]) parLemme.push_back(&x);
    std::stable_sort(parLemme.begin(), parLemme.end(), [](const LemmeCas* a, const LemmeCas* b) {
        return std::min(a->occurrences, MAX_OCCURRENCES_TRI) > std::min(b->occurrences, MAX_OCCURRENCES_TRI);
    });
    EcrivainFichier fl(Chemin(dossierTT, "#INDEX_LEMMES.txt"));
    for (const LemmeCas* x : parLemme) fl.Ligne(Joindre(x->lemme, "\t", std::to_string(x->occurrences), "\t", x->cles));
    fl.Fermer();
    EcrireFichier(Chemin(dossierTT, "#BILAN.txt"), "");
}

}  // namespace telvoris
