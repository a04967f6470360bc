#include "pipeline/segmenteur.hpp"

#include <algorithm>
#include <array>
#include <cstring>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/parallele.hpp"
#include "core/reprise.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "pipeline/indexeur.hpp"

namespace telvoris {

namespace {

fs::path Utilitaire(const fs::path& racine, std::string_view nom) {
    return Chemin(racine, Joindre("utilitaires/", nom));
}

template <class Liste>
void Remplir(Liste& liste, const fs::path& fichier) {
    const std::string source = TexteChemin(fichier);
    std::string contenu;
    PourChaqueLigneNonVide(fichier, contenu, [&](std::string_view mot) { liste.Ajouter(mot, source); });
}

// A list that no gluing rule consults: read and bounded all the same.
void VerifierListe(const fs::path& fichier, std::string_view nomLimite, std::size_t max) {
    ListePlate liste{std::string(nomLimite), max};
    Remplir(liste, fichier);
}

}  // namespace

ListesSegmentation ChargerListesSegmentation(const fs::path& racine) {
    ListesSegmentation l;
    Remplir(l.Elides, Utilitaire(racine, "elide.txt"));
    Remplir(l.Postclitiques, Utilitaire(racine, "postclit.txt"));
    Remplir(l.Prefixes, Utilitaire(racine, "PREFIXES.txt"));
    Remplir(l.Abreviations, Utilitaire(racine, "ABREVIATIONS.txt"));
    Remplir(l.DomainesExt, Utilitaire(racine, "domaines_extensions.txt"));
    VerifierListe(Utilitaire(racine, "avant_apostrophe.txt"), "MAX_AVANT_APOSTROPHE", MAX_AVANT_APOSTROPHE);
    VerifierListe(Utilitaire(racine, "autour_apostrophe.txt"), "MAX_AUTOUR_APOSTROPHE", MAX_AUTOUR_APOSTROPHE);
    VerifierListe(Utilitaire(racine, "CORRESP_HTML.txt"), "MAX_CORRESP_HTML", MAX_CORRESP_HTML);
    ChargerCourtsFrequents(racine);
    // The general dictionary's forms: file <L><c>.txt fills bucket (L, c), L the length class,
    // c the letter of the initial class.
    std::string contenu;
    for (int longueur = 1; longueur <= MAX_CLASSE_LONGUEUR; ++longueur) {
        for (int initiale = 1; initiale <= MAX_CLASSE_INITIALE; ++initiale) {
            const fs::path fichier = FichierCasier(racine, DOSSIER_DICO, longueur, initiale);
            const std::string source = TexteChemin(fichier);
            PourChaqueLigneNonVide(fichier, contenu, [&](std::string_view ligne) {
                l.FormesDico.AjouterDansCasier({longueur, initiale}, ligne.substr(0, ligne.find(',')), source);
            });
        }
    }
    return l;
}

namespace {

inline bool EstMajuscule(int c) { return (c >= 65 && c <= 90) || (c >= 192 && c <= 223); }
inline bool EstMinuscule(int c) { return (c >= 97 && c <= 122) || c == 156 || c >= 224; }
// The scanner's character classes.
enum ClasseCar : unsigned char { CAR_SIGNE, CAR_CHIFFRE, CAR_LETTRE, CAR_BLANC, CAR_BALISE };
constexpr std::array<unsigned char, 256> kClassesCar = [] {
    std::array<unsigned char, 256> t{};
    for (int c = 0; c < 256; ++c) {
        unsigned char k = CAR_SIGNE;
        if ((c >= 48 && c <= 57) || c == 37 || c == 137 || c == 176 || c == 178 || c == 179 || c == 185 || c == 186)
            k = CAR_CHIFFRE;
        else if ((c >= 65 && c <= 90) || (c >= 97 && c <= 122) || c == 140 || c == 156 || c == 164 || c > 191)
            k = CAR_LETTRE;  // so the multiplication and division signs count as letters too
        else if (c == 32 || c == 160 || c == 9)
            k = CAR_BLANC;
        else if (c == 60)
            k = CAR_BALISE;
        t[static_cast<std::size_t>(c)] = k;
    }
    return t;
}();
// Whether a followed by b reads `mot`, without building the joined text.
inline bool Joints(std::string_view a, std::string_view b, std::string_view mot) {
    return a.size() + b.size() == mot.size() && mot.starts_with(a) && mot.substr(a.size()) == b;
}

const std::string kVide;

// The rules of the gluing pass over one line's table.
class Recolleur {
public:
    Recolleur(TableJetons& t, const ListesSegmentation& l) : t_(t), l_(l) {}
    void Executer();

private:
    int& n() { return t_.NbJetons; }
    // Reads past the last token see an empty token with an empty gap, of class MOT.
    const std::string& T(int j) const { return j <= t_.NbJetons ? t_.texte[j] : kVide; }
    const std::string& S(int j) const { return j <= t_.NbJetons ? t_.surface[j] : kVide; }
    const std::string& B(int j) const { return j <= t_.NbJetons ? t_.blanc[j] : kVide; }
    int C(int j) const { return j <= t_.NbJetons ? t_.classe[j] : MOT; }
    bool MotOuNombre(int j) const { return C(j) == NOMBRE || C(j) == MOT; }

    enum Colonnes { TEXTE = 1, BLANC = 2, CLASSE = 4, TOUTES = 7 };
    // Removes the real tokens among slots p..p+k-1, shifting the given columns of the tail down.
    void Retirer(int p, int k, int colonnes = TOUTES);
    // Joins the text of slots p..p+k-1 into p, then removes the others.
    void Fusionner(int p, int k, int colonnes = TOUTES);
    // Opens slot p by shifting every column of the tail up.
    void Inserer(int p);

    void Ordinal(int& i);
    void AdresseWeb(int& i);
    void Tiret(int& i);
    void Apostrophe(int& i);
    void Point(int& i);

    TableJetons& t_;
    const ListesSegmentation& l_;
};

void Recolleur::Retirer(int p, int k, int colonnes) {
    const int reels = std::max(0, std::min(k, n() - p + 1));
    if (reels == 0) return;
    for (int j = p; j + reels <= n(); ++j) {
        if (colonnes & TEXTE) {
            std::swap(t_.texte[j], t_.texte[j + reels]);
            std::swap(t_.surface[j], t_.surface[j + reels]);
        }
        if (colonnes & BLANC) std::swap(t_.blanc[j], t_.blanc[j + reels]);
        if (colonnes & CLASSE) t_.classe[j] = t_.classe[j + reels];
    }
    n() -= reels;
}

void Recolleur::Fusionner(int p, int k, int colonnes) {
    for (int j = p + 1; j < p + k; ++j) {
        t_.texte[p] += T(j);
        t_.surface[p] += S(j);
    }
    Retirer(p + 1, k - 1, colonnes);
}

void Recolleur::Inserer(int p) {
    if (n() + 1 > MAX_JETONS_LIGNE) LimiteDepassee("MAX_JETONS_LIGNE", MAX_JETONS_LIGNE, "jetons sur une ligne");
    const auto taille = static_cast<std::size_t>(n() + 2);
    if (t_.texte.size() < taille) {
        t_.texte.resize(taille);
        t_.surface.resize(taille);
        t_.blanc.resize(taille);
        t_.classe.resize(taille, MOT);
    }
    const bool auDela = p > n();
    for (int j = n() + 1; j > p; --j) {
        t_.texte[j] = t_.texte[j - 1];
        t_.surface[j] = t_.surface[j - 1];
        t_.blanc[j] = t_.blanc[j - 1];
        t_.classe[j] = t_.classe[j - 1];
    }
    if (auDela) {
        t_.blanc[p].clear();
        t_.classe[p] = MOT;
    }
    ++n();
}

void Recolleur::Ordinal(int& i) {
    if (i >= 2 && B(i).empty() && C(i - 1) == NOMBRE) {
        Fusionner(i - 1, 2);
        t_.classe[i - 1] = NOMBRE;
        i -= 1;
    }
}

void Recolleur::AdresseWeb(int& i) {
    // Backward: glue what stands against it on the left, up to 20 tokens. When the address opens
    // the line, the joined token lands in slot 0, which is not written out: the address is lost.
    int k = 0;
    while (k != i && k != 20 && B(i - k).empty()) {
        ++k;
        t_.texte[i] = t_.texte[i - k] + t_.texte[i];
        t_.surface[i] = t_.surface[i - k] + t_.surface[i];
    }
    if (k > 0) {
        // The joined token takes the place of its first piece, whose gap it keeps.
        const int p = i - k;
        std::swap(t_.texte[p], t_.texte[i]);
        std::swap(t_.surface[p], t_.surface[i]);
        t_.classe[p] = t_.classe[i];
        Retirer(p + 1, k);
        i = p;
    }
    // Forward: glue what follows without a gap, never the last token, at most 24 tokens.
    int c = 1;
    while (c != n() - i && c != 25 && B(i + c).empty()) {
        t_.texte[i] += T(i + c);
        t_.surface[i] += S(i + c);
        t_.classe[i] = MOT;
        ++c;
    }
    if (c > 1) Retirer(i + 1, c - 1);
    // A final sign goes back out as a token of its own, in a slot opened behind; that slot keeps
    // the gap and class that stood in it.
    std::string& texte = t_.texte[i];
    if (!texte.empty() && std::string_view(".:?!;,").find(texte.back()) != std::string_view::npos) {
        const char signe = texte.back();
        texte.pop_back();
        if (!t_.surface[i].empty()) t_.surface[i].pop_back();
        Inserer(i + 1);
        t_.texte[i + 1].assign(1, signe);
        t_.surface[i + 1].assign(1, signe);
    }
}

void Recolleur::Tiret(int& i) {
    if (!Joints(T(i - 1), T(i + 1), "rendezvous")) {
        if (l_.Postclitiques.Contient(T(i + 1))) {
            // The hyphen goes to the right-hand word: "-il".
            Fusionner(i, 2);
            return;
        }
        const std::string& suivant = T(i + 1);
        if ((suivant == "t" || suivant == "l" || suivant == "m") && T(i + 2) == "'" && T(i + 3) == "en") {
            // "va-t'en": "-t" and "'en".
            Fusionner(i, 2);
            Fusionner(i + 1, 2);
            return;
        }
    }
    if (!MotOuNombre(i - 1) || !MotOuNombre(i + 1)) return;
    if (l_.Prefixes.Contient(T(i - 1)) && !l_.FormesDico.Contient(T(i - 1) + T(i) + T(i + 1)) &&
        l_.FormesDico.Contient(T(i + 1))) {
        // The prefix stands apart with its hyphen, and loses the white space before it.
        t_.texte[i - 1] += '-';
        t_.surface[i - 1] += t_.surface[i];
        t_.classe[i - 1] = MOT;
        t_.blanc[i - 1].clear();
        Retirer(i, 1);
        i -= 1;
        return;
    }
    Fusionner(i - 1, 3);
    t_.classe[i - 1] = MOT;
    i -= 1;
}

void Recolleur::Apostrophe(int& i) {
    if (l_.Elides.Contient(Minusculiser(T(i - 1)))) {
        Fusionner(i - 1, 2);
        t_.classe[i - 1] = MOT;
        i -= 1;
        return;
    }
    if (l_.FormesDico.Contient(Minusculiser(T(i - 1) + T(i) + T(i + 1)))) {
        // This merge does not carry classes along: the whole tail becomes MOT.
        Fusionner(i - 1, 3, TEXTE | BLANC);
        for (int j = i; j <= n(); ++j) t_.classe[j] = MOT;
        i -= 1;
    }
}

void Recolleur::Point(int& i) {
    // Decimal.
    if (B(i).empty() && B(i + 1).empty() && C(i - 1) == NOMBRE && C(i + 1) == NOMBRE) {
        Fusionner(i - 1, 3);
        t_.classe[i - 1] = NOMBRE;
        i -= 1;
        return;
    }
    // A stop at the end of a line stays a full stop.
    if (i == n()) return;
    // Suspension dots written as a run of full stops.
    int fin = i + 1;
    while (fin <= n() && t_.texte[fin] == "." && t_.blanc[fin].empty()) ++fin;
    if (fin - i >= 2) {
        Fusionner(i, fin - i);
        t_.classe[i] = SIGNE;
        return;
    }
    // Initials.
    if (i >= 2 && i < n() && B(i).empty() && B(i + 1).empty() && !T(i - 1).empty() && !T(i + 1).empty() &&
        EstMajuscule(Code(T(i - 1).back())) && EstMajuscule(Code(T(i + 1).front()))) {
        if ((C(i - 1) == SIGLE || T(i - 1).size() == 1) && T(i + 1).size() == 1) {
            Fusionner(i - 1, 3);
            t_.classe[i - 1] = SIGLE;
            i -= 1;
            return;
        }
        if (T(i - 1) == "M" || T(i - 1) == "MM") {
            Fusionner(i - 1, 2);
            t_.classe[i - 1] = MOT;
            i -= 1;
            return;
        }
    }
    // Closing an acronym.
    if (C(i - 1) == SIGLE) {
        Fusionner(i - 1, 2);
        t_.classe[i - 1] = MOT;
        i -= 1;
        return;
    }
    // A single capital takes the dot; the tail's classes stay where they were.
    if (i >= 2 && B(i).empty() && T(i - 1).size() == 1 && EstMajuscule(Code(T(i - 1)[0]))) {
        Fusionner(i - 1, 2, TEXTE | BLANC);
        i -= 1;
        return;
    }
    // A listed abbreviation before a small letter takes the dot.
    if (i >= 2 && i < n() && !B(i + 1).empty() && !T(i + 1).empty() && EstMinuscule(Code(T(i + 1)[0])) &&
        l_.Abreviations.Contient(Minusculiser(T(i - 1)))) {
        Fusionner(i - 1, 2, TEXTE | BLANC);
        t_.classe[i - 1] = MOT;
        i -= 1;
        return;
    }
    // Web suffix ".fr": only texts shift, so each later token takes the gap and class of the
    // slot it moves into.
    if (i >= 2 && i < n() && B(i + 1).empty() && !T(i + 1).empty() && EstMinuscule(Code(T(i + 1)[0])) &&
        l_.DomainesExt.Contient(T(i + 1))) {
        Fusionner(i, 2, TEXTE);
    }
}

bool EstSuffixeOrdinal(const std::string& t) {
    if (t.empty() || t.size() > 5) return false;
    switch (Code(t[0])) {
        case 'e': case 232: case 'r': case 'i': case 't': case 'n':  // 232: è
            break;
        default:
            return false;
    }
    static const std::array<std::string_view, 19> suffixes = {
        "e", "eme", "ème"_cp, "emes", "èmes"_cp, "er", "re", "res", "ère"_cp, "ers",
        "ères"_cp, "ième"_cp, "ieme", "iemes", "ièmes"_cp, "eres", "th", "rd", "nd"};
    return std::find(suffixes.begin(), suffixes.end(), std::string_view(t)) != suffixes.end();
}

void Recolleur::Executer() {
    for (int i = 1; i <= n(); ++i) {
        const std::string& t = t_.texte[i];
        if (t.empty()) continue;
        if (t.size() == 1) {
            switch (Code(t[0])) {
                case 'e':
                    Ordinal(i);
                    break;
                case '@':
                    AdresseWeb(i);
                    break;
                case 45: case 30: case 150: case 151: case 172: case 173:
                    if (B(i).empty() && B(i + 1).empty()) Tiret(i);
                    break;
                case 39: case 146: case 145: case 96:
                    if (i >= 2 && B(i).empty() && B(i + 1).empty()) Apostrophe(i);
                    break;
                case 44: case 58: case 130:
                    if (B(i).empty() && B(i + 1).empty() && C(i - 1) == NOMBRE && C(i + 1) == NOMBRE && i >= 2 &&
                        i < n()) {
                        Fusionner(i - 1, 3);
                        t_.classe[i - 1] = NOMBRE;
                        i -= 1;
                    }
                    break;
                case 43: case 47: case 42:
                    // White space around an operator is not looked at, and disappears.
                    if (C(i - 1) == NOMBRE && C(i + 1) == NOMBRE && i >= 2 && i < n()) {
                        Fusionner(i - 1, 3);
                        t_.classe[i - 1] = NOMBRE;
                        i -= 1;
                    }
                    break;
                case '.':
                    Point(i);
                    break;
                default:
                    break;
            }
        } else if (EstSuffixeOrdinal(t)) {
            Ordinal(i);
        } else if (t == "www" || t == "http") {
            AdresseWeb(i);
        }
    }
}

// First pass: cuts the line into raw tokens at every change of character class. A word or
// number grows only with the character right behind it, so it is a run of the line, copied
// once it ends.
void Scanner(std::string_view ligne, TableJetons& t) {
    t.NbJetons = 0;
    if (t.texte.empty()) {
        t.texte.resize(64);
        t.surface.resize(64);
        t.blanc.resize(64);
        t.classe.resize(64, MOT);
    }
    t.texte[0].clear();
    t.surface[0].clear();
    t.blanc[0].clear();
    // Slot 0 is no token: the rules that look left of the first token find nothing to glue to.
    t.classe[0] = BALISE;
    char etat = '\0';
    std::string lacune;        // the blanks and tabs met since the last token
    std::size_t debut = 0;     // start of the word or number being read
    bool enCours = false;
    // Most lines hold no masculine ordinal sign: one search of the line spares one a word.
    const bool avecBA = !ligne.empty() && std::memchr(ligne.data(), '\xBA', ligne.size()) != nullptr;
    auto fermer = [&](std::size_t fin) {
        if (!enCours) return;
        enCours = false;
        std::string& texte = t.texte[t.NbJetons];
        texte.assign(ligne.data() + debut, fin - debut);
        if (avecBA && std::memchr(texte.data(), '\xBA', texte.size()))
            for (char& c : texte)
                if (Code(c) == 186) c = static_cast<char>(176);
        t.surface[t.NbJetons] = texte;
    };
    auto ouvrir = [&](int classe, bool avecLacune) {
        if (t.NbJetons >= MAX_JETONS_LIGNE)
            LimiteDepassee("MAX_JETONS_LIGNE", MAX_JETONS_LIGNE, "jetons sur une ligne");
        const int j = ++t.NbJetons;
        if (static_cast<std::size_t>(j + 1) >= t.texte.size()) {
            const std::size_t taille = t.texte.size() * 2;
            t.texte.resize(taille);
            t.surface.resize(taille);
            t.blanc.resize(taille);
            t.classe.resize(taille, MOT);
        }
        if (avecLacune) t.blanc[j] = lacune;
        else t.blanc[j].clear();
        lacune.clear();
        t.classe[j] = classe;
        return j;
    };
    const std::size_t taille = ligne.size();
    for (std::size_t p = 0; p < taille; ++p) {
        const int c = Code(ligne[p]);
        switch (kClassesCar[static_cast<std::size_t>(c)]) {
            case CAR_BALISE: {
                fermer(p);
                // Markup takes no gap: the buffer is thrown away.
                const int j = ouvrir(BALISE, false);
                std::size_t fin = ligne.find('>', p);
                fin = fin == std::string_view::npos ? taille : fin + 1;
                t.texte[j].assign(ligne.substr(p, fin - p));
                t.surface[j].clear();
                p = fin - 1;
                etat = 'p';
                break;
            }
            case CAR_CHIFFRE:
                // "n°12" grows from a word into a number; "m²" is two tokens.
                if (!(etat == 'n' || (etat == 'l' && (c == 176 || c == 186)))) {
                    fermer(p);
                    ouvrir(NOMBRE, true);
                    debut = p;
                    enCours = true;
                }
                etat = 'n';
                break;
            case CAR_LETTRE:
                if (etat != 'l') {
                    fermer(p);
                    ouvrir(MOT, true);
                    debut = p;
                    enCours = true;
                }
                etat = 'l';
                // The rest of the word's letters change nothing: passed in one go.
                while (p + 1 < taille && kClassesCar[static_cast<unsigned char>(ligne[p + 1])] == CAR_LETTRE) ++p;
                break;
            case CAR_BLANC:
                fermer(p);
                lacune += c == 9 ? '\t' : ' ';
                etat = 'e';
                break;
            default: {
                // A sign is one character; commas of codes 130 and 184 are read as 44.
                fermer(p);
                const int j = ouvrir(SIGNE, true);
                t.texte[j].assign(1, (c == 130 || c == 184) ? ',' : static_cast<char>(c));
                t.surface[j] = t.texte[j];
                etat = 'p';
                break;
            }
        }
    }
    fermer(taille);
}

bool ALettreOuChiffre(const std::string& t) {
    for (char ch : t) {
        const int c = Code(ch);
        if ((c >= 48 && c <= 57) || (c >= 65 && c <= 90) || (c >= 97 && c <= 122) || c == 140 || c == 156 || c > 191)
            return true;
    }
    return false;
}

// The tag of a token without letter or digit: a punctuation class, or a word when none fits.
// A sign of one character is told by its code alone; longer ones are quotes or dots, or words.
void BaliseSigne(const std::string& jeton, std::string& balise) {
    auto pc = [&](std::string_view classe, bool blancFinal) {
        balise += "<PC f=";
        balise += jeton;
        balise += " l=";
        balise += classe;
        balise += blancFinal ? " > " : " >";
    };
    if (jeton.size() == 1) {
        switch (Code(jeton[0])) {
            case 30: case 45: case 95: case 150: case 151: case 172: case 173: case 175:
                return pc("T", true);
            case 34: case 39: case 132: case 139: case 155: case 171: case 187: case 145: case 146: case 96:
                return pc("Q", true);
            case '.': balise.append("<PC f=. l=PT >"); return;
            case 133: return pc("S", true);
            case '!': return pc("E", true);
            case '?': return pc("I", true);
            case '(': balise.append("<PC f=( l=PO >"); return;
            case ')': balise.append("<PC f=) l=PF >"); return;
            case '{': balise.append("<PC f={ l=AO >"); return;
            case '}': balise.append("<PC f=} l=AF >"); return;
            case '[': balise.append("<PC f=[ l=CO >"); return;
            case ']': balise.append("<PC f=] l=CF >"); return;
            case 191: return pc("Is", false);
            case 161: return pc("Es", false);
            case 44: case 130: case 184: return pc("V", true);
            case ':': balise.append("<PC f=: l=DP >"); return;
            case ';': balise.append("<PC f=; l=PV >"); return;
            default: break;
        }
    } else if (jeton == "''") {
        return pc("Q", true);
    } else if (jeton.starts_with("..")) {
        return pc("S", true);
    }
    balise += "<M f=";
    balise += jeton;
    balise += " >";
}

// Appends the tag of a word: in f, the first dash of the first kind present becomes "-", or else the
// first apostrophe of the first kind present becomes "'".
void BaliseMot(const std::string& jeton, std::string& balise) {
    // The codes that f normalises, by priority: dashes first, then apostrophes and quotes.
    static constexpr std::array<int, 12> kCodes = {30, 150, 151, 172, 173, 175, 96, 145, 146, 147, 148, 180};
    static const std::array<signed char, 256> kRang = [] {
        std::array<signed char, 256> r{};
        r.fill(-1);
        for (std::size_t i = 0; i < kCodes.size(); ++i) r[static_cast<std::size_t>(kCodes[i])] = static_cast<signed char>(i);
        return r;
    }();
    std::size_t premier[kCodes.size()];
    bool present = false;
    for (std::size_t p = jeton.size(); p-- > 0;) {
        const int rang = kRang[Code(jeton[p])];
        if (rang >= 0) {
            if (!present) std::fill(std::begin(premier), std::end(premier), std::string::npos);
            premier[rang] = p;
            present = true;
        }
    }
    balise += "<M f=";
    const std::size_t debut = balise.size();
    balise += jeton;
    if (present) {
        for (std::size_t i = 0; i < kCodes.size(); ++i) {
            if (premier[i] != std::string::npos) {
                balise[debut + premier[i]] = i < 6 ? '-' : '\'';
                break;
            }
        }
    }
    balise += " >";
}

}  // namespace

void SegmenterLigne(std::string_view ligne, const ListesSegmentation& listes, TableJetons& t, std::string& sortie) {
    Scanner(ligne, t);
    Recolleur(t, listes).Executer();
    // Third pass: the tags.
    for (int i = 1; i <= t.NbJetons; ++i) {
        const std::string& texte = t.texte[i];
        sortie += t.blanc[i];
        if (!texte.empty() && texte[0] == '<') {
            if (i + 1 <= t.NbJetons) t.blanc[i + 1].clear();
            sortie += texte;
        } else if (ALettreOuChiffre(texte)) {
            BaliseMot(texte, sortie);
        } else {
            BaliseSigne(texte, sortie);
        }
        sortie += t.surface[i];
    }
}

namespace {

// Before the passes: a line holding "é" as two bytes is read as UTF-8, and the ligatures (with
// the division sign, read as one) are written out in two letters.
// The line to segment: `brute` itself when nothing changes, or else built in `ligne`.
std::string_view Preparer(std::string_view brute, std::string& ligne) {
    bool utf8 = false, ligatures = false;
    for (std::size_t p = 0; p < brute.size(); ++p) {
        const int c = Code(brute[p]);
        if (c < 128) continue;
        if (c == 195 && p + 1 < brute.size() && Code(brute[p + 1]) == 169) utf8 = true;
        else if (c == 140 || c == 156 || c == 247) ligatures = true;
    }
    std::string decodee;
    if (utf8) {
        decodee = DecoderUtf8(brute);
        brute = decodee;
        ligatures = brute.find_first_of("\x8C\x9C\xF7") != std::string_view::npos;
    }
    if (!ligatures) {
        if (!utf8) return brute;
        ligne.assign(brute);
        return ligne;
    }
    ligne.clear();
    for (char ch : brute) {
        const int c = Code(ch);
        if (c == 140) ligne += "OE";
        else if (c == 156 || c == 247) ligne += "oe";
        else ligne += ch;
    }
    return ligne;
}

}  // namespace

void Segmenter(const ListeTextes& liste, const ListesSegmentation& listes, Dialogue& dialogue, unsigned fils) {
    const fs::path dossierTT = liste.doss_racine / "OLBRIN_TT";
    CreerDossier(dossierTT);
    // Until the last text is segmented, the tagged texts are marked as half-made.
    MarqueChantier marque(MarqueSegmentation(dossierTT), "&Segmentation"_cp);
    fils = FilsEffectifs(fils);
    // What each thread reuses from text to text.
    struct Atelier {
        TableJetons table;
        std::string ligne, contenu, sortie;
    };
    std::vector<Atelier> ateliers(fils);
    const auto total = static_cast<long long>(liste.noms.size());
    TraiterDansLOrdre<FichierEnAttente>(
        liste.noms.size(), fils,
        [&](std::size_t n) {
            dialogue.Progression(Joindre("Segmentation. Fichier"_cp, std::to_string(n + 1), " de "_cp,
                                         std::to_string(total)),
                                 static_cast<long long>(n) + 1, total);
        },
        [&](std::size_t n, unsigned ouvrier) {
            Atelier& a = ateliers[ouvrier];
            const fs::path source = Chemin(liste.doss_racine, Joindre("ARCHIVE_BRUT/", liste.noms[n], ".txt"));
            LireFichier(source, a.contenu);
            // Kept from text to text, so that its pages are not asked of the system again.
            std::string& sortie = a.sortie;
            sortie.clear();
            sortie.reserve(a.contenu.size() * 4);
            LecteurLignes lecteur(a.contenu);
            std::string_view brute;
            try {
                while (lecteur.Suivante(brute)) {
                    if (EstLigneMetadonnees(brute)) {
                        sortie.append(brute);
                    } else {
                        SegmenterLigne(Preparer(brute, a.ligne), listes, a.table, sortie);
                    }
                    sortie.append("\r\n");
                }
            } catch (const ErreurExecution& e) {
                // The text is not written at all: its old tagged file, if any, stays.
                throw ErreurExecution(Joindre(e.what(), " ("_cp, TexteChemin(source), ", ligne "_cp,
                                              std::to_string(lecteur.Numero()), ")"));
            }
            return FichierEnAttente(Chemin(dossierTT, Joindre(liste.noms[n], ".txt")), sortie, PlaceEnCours(n, fils));
        },
        [&](std::size_t, FichierEnAttente& fichier) { fichier.Publier(); });
    marque.Achever();
}

void OperationSegmentation(Contexte& ctx) {
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    ctx.dialogue.Progression("Segmentation."_cp, 0, 0);
    const ListesSegmentation listes = ChargerListesSegmentation(ctx.ressources);
    Segmenter(*liste, listes, ctx.dialogue, ctx.fils);
    Indexer(*liste, ChargerCourtsFrequents(ctx.ressources), ctx.dialogue, ctx.fils);
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher(Joindre("Segmenté et indexé en "_cp, TexteDuree(debut, ctx.horloge)));
}

}  // namespace telvoris
