#include "lexicon/flechisseur.hpp"

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"

namespace telvoris {

namespace {

// The ending sets of the present and the imperfect for each value of the row's ending number
// (columns of flexions_personnelles, from 1). Values 5 and 6 carry the two patches of the
// present; they take the consonant set of the present, as 4 does, so that "dites" and "rend"
// come out of the patch.
struct JeuxTerminaisons {
    int present;
    int imparfait;
    bool tes;     // person 5 ends in "tes" (dites, faites)
    bool coupe3;  // person 3 loses its last letter (rend, prend)
};
constexpr std::array<JeuxTerminaisons, 8> kJeux = {{
    {1, 2, false, false}, {1, 1, false, false}, {2, 2, false, false}, {2, 3, false, false},
    {3, 2, false, false}, {3, 2, true, false},  {3, 2, false, true},  {4, 2, false, false},
}};
// The sets of the simple past: after a first-group present, and otherwise.
constexpr int JEU_PASSE_PREMIER = 5;
constexpr int JEU_PASSE_AUTRES = 6;
// Rows of flexions_perso_variables.
constexpr int VAR_FUTUR = 0, VAR_SUBJONCTIF = 1, VAR_SUBJ_IMPARFAIT = 2, VAR_CONDITIONNEL = 3;

[[noreturn]] void Malforme(const fs::path& fichier, long long ligne, std::string_view quoi) {
    throw ErreurExecution(Joindre("Ligne mal formée dans "_cp, TexteChemin(fichier), ", ligne ",
                                  std::to_string(ligne), " : ", quoi));
}

bool EstChiffre(char c) { return c >= '0' && c <= '9'; }

RegleCoupe LireRegle(std::string_view champ, const fs::path& fichier, long long ligne) {
    RegleCoupe r;
    if (champ.empty()) return r;
    if (!EstChiffre(champ[0])) Malforme(fichier, ligne, Joindre("règle sans nombre de caractères : "_cp, champ));
    r.coupe = champ[0] - '0';
    r.fin.assign(champ.substr(1));
    r.presente = true;
    return r;
}

std::vector<std::string_view> Champs(std::string_view ligne) {
    std::vector<std::string_view> r;
    std::size_t debut = 0;
    for (;;) {
        const auto tab = ligne.find('\t', debut);
        r.push_back(ligne.substr(debut, tab == std::string_view::npos ? std::string_view::npos : tab - debut));
        if (tab == std::string_view::npos) break;
        debut = tab + 1;
    }
    return r;
}

// Lines of a table file, blank ones kept so that a row's place is its class.
std::vector<std::string> LignesTable(const fs::path& fichier) {
    const std::string contenu = LireFichier(fichier);
    std::vector<std::string> r;
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) r.emplace_back(ligne);
    return r;
}

bool EstVoyelle(char c) {
    switch (Code(c)) {
        case 'a': case 'e': case 'i': case 'o': case 'u': case 'y':
        case 226: case 234: case 238: case 239: case 244: case 251: return true;
        default: return false;
    }
}

// A stem of the simple past that takes the endings without their "i": a final vowel, or the
// "in" of venir and tenir (vins, vînmes).
bool FinVocalique(std::string_view s) {
    if (s.ends_with("qu") || s.ends_with("gu")) return false;  // vainquis, not vainqus
    return !s.empty() && (EstVoyelle(s.back()) || s.ends_with("in"));
}

void Circonflexe(std::string& s) {
    if (s.empty()) return;
    if (s.size() >= 2 && s.ends_with("in")) {
        s[s.size() - 2] = static_cast<char>(238);
        return;
    }
    switch (s.back()) {
        case 'a': s.back() = static_cast<char>(226); break;
        case 'e': s.back() = static_cast<char>(234); break;
        case 'i': s.back() = static_cast<char>(238); break;
        case 'o': s.back() = static_cast<char>(244); break;
        case 'u': s.back() = static_cast<char>(251); break;
        default: break;
    }
}

// Stem plus ending; an ending that begins with "^" puts a circumflex on the stem's last vowel.
std::string Former(std::string radical, std::string_view fin) {
    if (!fin.empty() && fin[0] == '^') {
        Circonflexe(radical);
        fin.remove_prefix(1);
    }
    radical.append(fin);
    return radical;
}

std::string Couper(std::string_view mot, int n) {
    return std::string(mot.substr(0, mot.size() > static_cast<std::size_t>(n) ? mot.size() - n : 0));
}

void Ligne(std::vector<std::string>& v, std::string_view forme, std::string_view lemme, std::string_view code) {
    v.push_back(Joindre(forme, ",", lemme, ",", code));
}

void Manque(Flexions& s, std::string_view lemme, std::string_view code) { Ligne(s.manques, lemme, lemme, code); }

void FlechirSubstantif(const TablesFlexion& t, std::string_view lemme, std::string_view cat, int classe,
                       Flexions& s) {
    const RegleCoupe* r = classe >= 1 && classe <= static_cast<int>(t.substantifs.size())
                              ? &t.substantifs[static_cast<std::size_t>(classe - 1)] : nullptr;
    if (classe == 0 || !r || !r->presente) {
        Manque(s, lemme, Joindre(cat, "S"));
        Manque(s, lemme, Joindre(cat, "P"));
        return;
    }
    const std::string pluriel = Couper(lemme, r->coupe) + r->fin;
    if (pluriel == lemme) {
        Ligne(s.formes, lemme, lemme, Joindre(cat, "X"));
    } else {
        Ligne(s.formes, lemme, lemme, Joindre(cat, "S"));
        Ligne(s.formes, pluriel, lemme, Joindre(cat, "P"));
    }
}

void FlechirAdjectif(const TablesFlexion& t, std::string_view lemme, std::string_view cat, int classe,
                     Flexions& s) {
    const ClasseAdjectif* a = classe >= 1 && classe <= static_cast<int>(t.adjectifs.size())
                                  ? &t.adjectifs[static_cast<std::size_t>(classe - 1)] : nullptr;
    if (classe == 0 || !a || !a->feminin.presente) {
        for (std::string_view c : {"MS", "MP", "FS", "FP"}) Manque(s, lemme, Joindre(cat, c));
        return;
    }
    const std::string ms(lemme);
    std::string base(lemme);
    if (a->doublement && !base.empty()) base.push_back(base.back());
    const std::string fs = Couper(base, a->feminin.coupe) + a->feminin.fin;
    const std::string mp = Couper(lemme, a->pluriel.coupe) + a->pluriel.fin;
    const std::string fp = classe == 21 ? ms : fs + "s";
    if (ms == fs && ms == mp && ms == fp) {
        Ligne(s.formes, ms, lemme, Joindre(cat, "WX"));
    } else if (mp == ms) {
        Ligne(s.formes, ms, lemme, Joindre(cat, "MX"));
        Ligne(s.formes, fs, lemme, Joindre(cat, "FS"));
        Ligne(s.formes, fp, lemme, Joindre(cat, "FP"));
    } else if (fs == ms) {
        Ligne(s.formes, ms, lemme, Joindre(cat, "WS"));
        Ligne(s.formes, mp, lemme, Joindre(cat, "WP"));
    } else {
        Ligne(s.formes, ms, lemme, Joindre(cat, "MS"));
        Ligne(s.formes, fs, lemme, Joindre(cat, "FS"));
        Ligne(s.formes, mp, lemme, Joindre(cat, "MP"));
        Ligne(s.formes, fp, lemme, Joindre(cat, "FP"));
    }
}

void FlechirVerbe(const TablesFlexion& t, std::string_view lemme, int classe, bool defectif, Flexions& s) {
    const ClasseVerbe* v = classe >= 1 && classe <= static_cast<int>(t.verbes.size())
                               ? &t.verbes[static_cast<std::size_t>(classe - 1)] : nullptr;
    if (classe == 0 || !v || !v->presente) {
        Manque(s, lemme, "VF");
        return;
    }
    // Stems 1 to 7 (index 0 unused): the lemma less the cut, the text, then the kept characters,
    // which are the ones just before the infinitive's last two letters: "mener" keeps "n", so
    // that one row serves every consonant (mèn-, lèv-, pès-).
    std::array<std::string, NB_THEMES + 2> theme;
    for (int i = 0; i < NB_THEMES; ++i) {
        const RegleCoupe& r = v->themes[static_cast<std::size_t>(i)];
        if (!r.presente) continue;
        std::string radical = Couper(lemme, r.coupe) + r.fin;
        const auto garde = static_cast<std::size_t>(v->gardes);
        if (garde > 0 && lemme.size() >= garde + 2) radical.append(lemme.substr(lemme.size() - 2 - garde, garde));
        theme[static_cast<std::size_t>(i + 1)] = std::move(radical);
    }
    auto Theme = [&](char chiffre) -> const std::string* {
        if (!EstChiffre(chiffre) || chiffre == '0') return nullptr;
        const auto n = static_cast<std::size_t>(chiffre - '0');
        return n < theme.size() ? &theme[n] : nullptr;
    };
    auto CodeV = [](int personne, int temps) { return Joindre("V", std::to_string(personne), std::to_string(temps)); };
    const JeuxTerminaisons& jeux = kJeux[static_cast<std::size_t>(v->terminaisons)];

    if (!defectif) {
        // A tense built from a pattern row: the stem of each person's digit plus its ending.
        auto Temps = [&](int modele, auto&& terminaison) {
            std::array<std::string, 7> formes;
            const std::string& m = v->modeles[static_cast<std::size_t>(modele)];
            for (int p = 1; p <= 6; ++p) {
                const std::string* r = static_cast<std::size_t>(p - 1) < m.size() ? Theme(m[static_cast<std::size_t>(p - 1)]) : nullptr;
                if (!r || r->empty()) continue;
                formes[static_cast<std::size_t>(p)] = terminaison(*r, p);
            }
            return formes;
        };
        auto Ecrire = [&](const std::array<std::string, 7>& formes, int temps) {
            for (int p = 1; p <= 6; ++p)
                if (!formes[static_cast<std::size_t>(p)].empty())
                    Ligne(s.formes, formes[static_cast<std::size_t>(p)], lemme, CodeV(p, temps));
        };
        auto Personnelle = [&](int jeu) {
            return [&t, jeu](const std::string& r, int p) {
                return Former(r, t.personnelles[static_cast<std::size_t>(p - 1)][static_cast<std::size_t>(jeu - 1)]);
            };
        };
        // Tense 1 with its patches, the imperative taken from it, and the second forms of class 11.
        auto present = Temps(0, Personnelle(jeux.present));
        if (jeux.tes && present[5].size() >= 3) present[5].replace(present[5].size() - 3, 3, "tes");
        if (jeux.coupe3 && !present[3].empty()) present[3].pop_back();
        Ecrire(present, 1);
        if (!present[1].empty()) Ligne(s.formes, present[1], lemme, "V28");
        if (!present[4].empty()) Ligne(s.formes, present[4], lemme, "V48");
        if (!present[5].empty()) Ligne(s.formes, present[5], lemme, "V58");
        if (classe == 11) {
            const std::string& m = v->modeles[0];
            for (int p : {1, 2, 3, 6}) {
                if (static_cast<std::size_t>(p - 1) >= m.size()) continue;
                const char c = m[static_cast<std::size_t>(p - 1)];
                if (!EstChiffre(c) || c == '0' || c == '9') continue;
                const std::string* r = Theme(static_cast<char>(c + 1));
                if (!r || r->empty()) continue;
                const std::string f = Former(*r, t.personnelles[static_cast<std::size_t>(p - 1)][static_cast<std::size_t>(jeux.present - 1)]);
                Ligne(s.formes, f, lemme, CodeV(p, 1));
                if (p == 1) Ligne(s.formes, f, lemme, "V28");
            }
        }
        Ecrire(Temps(1, Personnelle(jeux.imparfait)), 2);
        // Simple past: the first group takes its own set; the others take the "i" set, whose
        // vowel is the stem's own when the stem ends in one (pus, finîmes).
        // The "ai" set is the simple past of the infinitives in -er (aller included).
        const bool premier = lemme.ends_with("er");
        Ecrire(Temps(2, [&](const std::string& r, int p) {
                   if (premier) return Former(r, t.personnelles[static_cast<std::size_t>(p - 1)][JEU_PASSE_PREMIER - 1]);
                   std::string_view fin = t.personnelles[static_cast<std::size_t>(p - 1)][JEU_PASSE_AUTRES - 1];
                   std::string radical = r;
                   if (FinVocalique(radical) && !fin.empty()) {
                       if (Code(fin[0]) == 238) Circonflexe(radical);
                       fin.remove_prefix(1);
                   }
                   return radical + std::string(fin);
               }),
               3);
        Ecrire(Temps(3, [&](const std::string& r, int p) {
                   return Former(r, t.variables[VAR_SUBJONCTIF][static_cast<std::size_t>(p - 1)]);
               }),
               5);
        // Imperfect subjunctive: the vowel of the simple past, then its endings.
        Ecrire(Temps(4, [&](const std::string& r, int p) {
                   std::string radical = r;
                   if (premier) radical += 'a';
                   else if (!FinVocalique(radical)) radical += 'i';
                   return Former(radical, t.variables[VAR_SUBJ_IMPARFAIT][static_cast<std::size_t>(p - 1)]);
               }),
               6);
        const std::string* rf = Theme(static_cast<char>('0' + v->themeFutur));
        if (rf && !rf->empty()) {
            const std::string futur = *rf + v->texteFutur;
            for (int p = 1; p <= 6; ++p)
                Ligne(s.formes, Former(futur, t.variables[VAR_FUTUR][static_cast<std::size_t>(p - 1)]), lemme, CodeV(p, 4));
            for (int p = 1; p <= 6; ++p)
                Ligne(s.formes, Former(futur, t.variables[VAR_CONDITIONNEL][static_cast<std::size_t>(p - 1)]), lemme,
                      CodeV(p, 7));
        }
    }
    if (!v->participePasse.empty()) {
        const std::string* r = Theme(v->participePasse[0]);
        if (r && !r->empty()) {
            const std::string pp = *r + v->participePasse.substr(1);
            if (!pp.empty() && pp.back() == 's') {
                Ligne(s.formes, pp, lemme, "VYMX");
            } else {
                std::string ms = pp;
                if (lemme == "devoir") Circonflexe(ms);
                Ligne(s.formes, ms, lemme, "VYMS");
                Ligne(s.formes, pp + "s", lemme, "VYMP");
            }
            Ligne(s.formes, pp + "e", lemme, "VYFS");
            Ligne(s.formes, pp + "es", lemme, "VYFP");
        }
    }
    if (!v->participePresent.empty()) {
        const std::string* r = Theme(v->participePresent[0]);
        if (r && !r->empty()) Ligne(s.formes, *r + "ant", lemme, "VX");
    }
    Ligne(s.formes, lemme, lemme, "VF");
}

}  // namespace

TablesFlexion ChargerTablesFlexion(const fs::path& racine) {
    TablesFlexion t;
    const fs::path dossier = Chemin(racine, DOSSIER_CODES_FLEXIONNELS);
    {
        const fs::path f = dossier / "flexion_adj.txt";
        const auto lignes = LignesTable(f);
        if (lignes.size() > MAX_CLASSES_ADJ) LimiteDepassee("MAX_CLASSES_ADJ", MAX_CLASSES_ADJ, Joindre("classes dans "_cp, TexteChemin(f)));
        for (std::size_t i = 0; i < lignes.size(); ++i) {
            ClasseAdjectif a;
            if (!lignes[i].empty()) {
                const auto c = Champs(lignes[i]);
                if (c.size() != 2) Malforme(f, static_cast<long long>(i + 1), "deux champs attendus (féminin, pluriel)"_cp);
                a.feminin = LireRegle(c[0], f, static_cast<long long>(i + 1));
                a.pluriel = LireRegle(c[1], f, static_cast<long long>(i + 1));
                if (!a.feminin.presente || !a.pluriel.presente) Malforme(f, static_cast<long long>(i + 1), "règle vide"_cp);
                if (a.feminin.fin.starts_with('#')) {
                    a.feminin.fin.erase(0, 1);
                    a.doublement = true;
                }
                if (a.pluriel.fin.starts_with('#')) {
                    a.pluriel.fin.erase(0, 1);
                    a.doublement = true;
                }
            }
            t.adjectifs.push_back(std::move(a));
        }
    }
    {
        const fs::path f = dossier / "flexion_subst.txt";
        const auto lignes = LignesTable(f);
        if (lignes.size() > MAX_CLASSES_SUBST) LimiteDepassee("MAX_CLASSES_SUBST", MAX_CLASSES_SUBST, Joindre("classes dans "_cp, TexteChemin(f)));
        for (std::size_t i = 0; i < lignes.size(); ++i) t.substantifs.push_back(LireRegle(lignes[i], f, static_cast<long long>(i + 1)));
    }
    {
        const fs::path f = dossier / "flexions_personnelles.txt";
        const auto lignes = LignesTable(f);
        if (lignes.size() < 6) Malforme(f, static_cast<long long>(lignes.size() + 1), "six lignes attendues, une par personne"_cp);
        for (std::size_t p = 0; p < 6; ++p) {
            const auto c = Champs(lignes[p]);
            if (c.size() != 6) Malforme(f, static_cast<long long>(p + 1), "six terminaisons attendues"_cp);
            for (std::size_t j = 0; j < 6; ++j) t.personnelles[p][j] = std::string(c[j]);
        }
    }
    {
        const fs::path f = dossier / "flexions_perso_variables.txt";
        const auto lignes = LignesTable(f);
        if (lignes.size() < 4) Malforme(f, static_cast<long long>(lignes.size() + 1), "quatre lignes attendues"_cp);
        for (std::size_t r = 0; r < 4; ++r) {
            const auto c = Champs(lignes[r]);
            if (c.size() != 6) Malforme(f, static_cast<long long>(r + 1), "six terminaisons attendues"_cp);
            for (std::size_t j = 0; j < 6; ++j) t.variables[r][j] = std::string(c[j]);
        }
    }
    {
        const fs::path f = dossier / "flexions_code.txt";
        const auto lignes = LignesTable(f);
        if (lignes.size() > MAX_CLASSES_VERBE + 1)
            LimiteDepassee("MAX_CLASSES_VERBE", MAX_CLASSES_VERBE, Joindre("classes dans "_cp, TexteChemin(f)));
        for (std::size_t i = 1; i < lignes.size(); ++i) {
            ClasseVerbe v;
            const long long n = static_cast<long long>(i + 1);
            if (!lignes[i].empty()) {
                const auto c = Champs(lignes[i]);
                if (c.size() < 16) Malforme(f, n, "seize champs attendus"_cp);
                v.presente = true;
                for (int k = 0; k < NB_THEMES; ++k) {
                    std::string_view regle = c[static_cast<std::size_t>(k + 1)];
                    int garde = 0;
                    if (regle.ends_with("++")) { garde = 2; regle.remove_suffix(2); }
                    else if (regle.ends_with("+")) { garde = 1; regle.remove_suffix(1); }
                    else if (regle.ends_with("=")) { garde = 3; regle.remove_suffix(1); }
                    if (k == 0) v.gardes = garde;
                    v.themes[static_cast<std::size_t>(k)] = LireRegle(regle, f, n);
                }
                if (!v.themes[0].presente) Malforme(f, n, "premier thème vide"_cp);
                const std::string_view futur = c[8];
                if (!futur.empty()) {
                    if (!EstChiffre(futur[0])) Malforme(f, n, Joindre("futur sans numéro de thème : "_cp, futur));
                    v.themeFutur = futur[0] - '0';
                    v.texteFutur.assign(futur.substr(1));
                }
                for (std::size_t k = 0; k < 5; ++k) v.modeles[k].assign(c[9 + k]);
                const std::string_view term = c[14];
                if (term.size() != 1 || term[0] < '0' || term[0] > '7')
                    Malforme(f, n, Joindre("numéro de terminaisons hors de 0 à 7 : "_cp, term));
                v.terminaisons = term[0] - '0';
                v.participePasse.assign(c[15]);
                if (c.size() > 16) v.participePresent.assign(c[16]);
            }
            t.verbes.push_back(std::move(v));
        }
    }
    return t;
}

void Flechir(const TablesFlexion& tables, std::string_view lemme, std::string_view categorie, int classe,
             bool defectif, Flexions& sortie) {
    if (categorie == "R" || categorie == "J") {
        if (classe > MAX_CLASSES_ADJ) LimiteDepassee("MAX_CLASSES_ADJ", MAX_CLASSES_ADJ, Joindre("classes d'adjectifs ("_cp, lemme, ")"));
        FlechirAdjectif(tables, lemme, categorie, classe, sortie);
    } else if (categorie == "V") {
        if (classe > MAX_CLASSES_VERBE) LimiteDepassee("MAX_CLASSES_VERBE", MAX_CLASSES_VERBE, Joindre("classes de verbes ("_cp, lemme, ")"));
        FlechirVerbe(tables, lemme, classe, defectif, sortie);
    } else if (categorie.starts_with('S')) {
        if (classe > MAX_CLASSES_SUBST) LimiteDepassee("MAX_CLASSES_SUBST", MAX_CLASSES_SUBST, Joindre("classes de substantifs ("_cp, lemme, ")"));
        FlechirSubstantif(tables, lemme, categorie, classe, sortie);
    } else {
        Ligne(sortie.formes, lemme, lemme, categorie);
    }
}

long long FlechirListe(const TablesFlexion& tables, const fs::path& liste) {
    const std::string contenu = LireFichier(liste);
    const std::string nom = Utf8VersCp1252(liste.filename().string());
    const std::string base = nom.size() > 4 ? nom.substr(0, nom.size() - 4) : nom;
    const fs::path dossier = liste.parent_path();
    EcrivainFichier flex(Chemin(dossier, Joindre(base, "_FLEX.txt")));
    EcrivainFichier manques(Chemin(dossier, Joindre(base, "_FLEXMA.txt")));
    std::size_t nbManques = 0;
    long long lus = 0;
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    Flexions f;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        const auto virgule = ligne.find(',');
        if (virgule == std::string_view::npos || virgule == 0)
            Malforme(liste, lecteur.Numero(), Joindre("« lemme,CATEGORIE<TAB>classe » attendu : "_cp, ligne));
        const std::string_view lemme = ligne.substr(0, virgule);
        std::string_view reste = ligne.substr(virgule + 1);
        std::string_view categorie = reste, classeTexte;
        if (const auto tab = reste.find('\t'); tab != std::string_view::npos) {
            categorie = reste.substr(0, tab);
            classeTexte = reste.substr(tab + 1);
        }
        bool defectif = false;
        if (classeTexte.ends_with("_D")) {
            defectif = true;
            classeTexte.remove_suffix(2);
        }
        int classe = 0;
        if (!classeTexte.empty()) {
            if (classeTexte.size() > 4) Malforme(liste, lecteur.Numero(), Joindre("classe illisible : "_cp, classeTexte));
            for (char c : classeTexte) {
                if (!EstChiffre(c)) Malforme(liste, lecteur.Numero(), Joindre("classe illisible : "_cp, classeTexte));
                classe = classe * 10 + (c - '0');
            }
        }
        ++lus;
        f.formes.clear();
        f.manques.clear();
        Flechir(tables, lemme, categorie, classe, defectif, f);
        for (const auto& l : f.formes) flex.Ligne(l);
        for (const auto& l : f.manques) {
            if (++nbManques > MAX_LIGNES_FLEXMA)
                LimiteDepassee("MAX_LIGNES_FLEXMA", MAX_LIGNES_FLEXMA, "lignes de lemmes non traités"_cp);
            manques.Ligne(l);
        }
    }
    flex.Fermer();
    manques.Fermer();
    return lus;
}

void OperationFlechisseur(Contexte& ctx) {
    const auto liste = ctx.dialogue.ChoisirFichier("Localiser la liste", "Text files (*.TXT)|*.TXT");
    if (!liste) return;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    ctx.dialogue.Progression("Flexion des lemmes"_cp, 0, 0);
    const TablesFlexion tables = ChargerTablesFlexion(ctx.ressources);
    const long long n = FlechirListe(tables, *liste);
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher(Joindre("Terminé en "_cp, TexteDuree(debut, ctx.horloge), " : ", std::to_string(n),
                                  " lemmes fléchis."_cp));
}

}  // namespace telvoris
