#include "lexicon/verification.hpp"

#include <chrono>
#include <functional>
#include <set>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "lexicon/composes.hpp"
#include "lexicon/dictionnaire.hpp"
#include "lexicon/groupes.hpp"

namespace telvoris {

namespace {

// Checks line by line; a fault is given back as a text, "" when the line is sound.
using TestLigne = std::function<std::string(std::string_view ligne, long long numero)>;

class Verificateur {
public:
    explicit Verificateur(const fs::path& racine, RapportRessources& r) : racine_(racine), r_(r) {}

    // Reads one file; false (and a fault) when it is missing.
    bool Lire(const fs::path& fichier, std::string& contenu) {
        if (!FichierExiste(fichier)) {
            r_.problemes.push_back(Joindre("manquant : "_cp, Relatif(fichier)));
            return false;
        }
        LireFichier(fichier, contenu);
        return true;
    }

    // Tests every line of a file; gives the number of non-blank lines, or -1 when missing.
    long long Fichier(const fs::path& fichier, const TestLigne& test, bool blancsPermis = true) {
        std::string contenu;
        if (!Lire(fichier, contenu)) return -1;
        LecteurLignes lecteur(contenu);
        std::string_view ligne;
        long long n = 0;
        int fautes = 0;
        while (lecteur.Suivante(ligne)) {
            std::string faute;
            if (ligne.empty()) {
                if (!blancsPermis) faute = std::string("ligne vide"_cp);
            } else {
                ++n;
                faute = test(ligne, lecteur.Numero());
            }
            if (faute.empty()) continue;
            if (++fautes <= MAX_PROBLEMES_FICHIER)
                r_.problemes.push_back(Joindre("mal formé : "_cp, Relatif(fichier), ", ligne "_cp,
                                               std::to_string(lecteur.Numero()), " : "_cp, faute));
        }
        if (fautes > MAX_PROBLEMES_FICHIER)
            r_.problemes.push_back(Joindre("mal formé : "_cp, Relatif(fichier), " : "_cp,
                                           std::to_string(fautes - MAX_PROBLEMES_FICHIER),
                                           " autres lignes fautives"_cp));
        return n;
    }

    // A list with a bound on its number of lines.
    void Liste(std::string_view nom, long long max, const TestLigne& test = {}) {
        const fs::path f = FichierUtilitaire(racine_, nom);
        long long total = 0;
        const long long n = Fichier(f, [&](std::string_view l, long long num) -> std::string {
            ++total;
            return test ? test(l, num) : std::string();
        });
        if (n < 0) return;
        if (max > 0 && n > max)
            r_.problemes.push_back(Joindre("limite dépassée : "_cp, Relatif(f), " a "_cp, std::to_string(n),
                                           " lignes pour "_cp, std::to_string(max), " au plus"_cp));
        r_.comptes.push_back(Joindre("utilitaires/"_cp, nom, " : "_cp, std::to_string(n), " lignes"_cp));
    }

    void Compte(std::string_view dossier, int fichiers, long long lignes) {
        r_.comptes.push_back(Joindre(dossier, " : "_cp, std::to_string(fichiers), " fichiers, "_cp,
                                     std::to_string(lignes), " lignes"_cp));
    }

    std::string Relatif(const fs::path& f) const {
        std::error_code ec;
        const fs::path rel = fs::relative(f, racine_, ec);
        return TexteChemin(ec || rel.empty() ? f : rel);
    }

    const fs::path& racine_;
    RapportRessources& r_;
};

std::string Nombre(long long n) { return std::to_string(n); }

bool EstEntier(std::string_view s) {
    if (s.empty()) return false;
    for (char c : s)
        if (c < '0' || c > '9') return false;
    return true;
}

// Number of tab fields of a line.
std::size_t Champs(std::string_view l) { return Decouper(l, "\t").size(); }

TestLigne AuMoinsChamps(std::size_t n) {
    return [n](std::string_view l, long long) -> std::string {
        if (Champs(l) < n) return Joindre("il faut "_cp, Nombre(static_cast<long long>(n)), " champs séparés par une tabulation"_cp);
        return {};
    };
}

// A line of the general dictionary: folded form in the right file, readings that parse.
std::string FauteLigneDico(std::string_view ligne, CleMot casier) {
    const std::size_t virgule = ligne.find(',');
    if (virgule == std::string_view::npos) return std::string("pas de virgule entre la forme et ses lectures"_cp);
    const std::string_view forme = ligne.substr(0, virgule);
    if (forme.empty()) return std::string("forme vide"_cp);
    for (char c : forme) {
        const auto u = static_cast<unsigned char>(c);
        if ((u >= 65 && u <= 90) || (u >= 192 && u <= 223 && u != 215) || u == 140)
            return Joindre("forme non pliée en minuscules : "_cp, forme);
    }
    if (!(classe_mot(forme) == casier)) return Joindre("forme rangée dans un autre fichier que le sien : "_cp, forme);
    const auto lectures = Decouper(ligne.substr(virgule + 1), "/");
    if (lectures.size() > MAX_LECTURES)
        return Joindre(Nombre(static_cast<long long>(lectures.size())), " lectures (10 au plus) pour "_cp, forme);
    for (std::string_view lecture : lectures) {
        const Interpretation i = CouperInterpretation(lecture);
        if (lecture.find('.') == std::string_view::npos || i.categorie.empty())
            return Joindre("lecture sans catégorie : "_cp, lecture);
        std::size_t chiffres = 0;
        while (chiffres < i.lemme_code.size() && i.lemme_code[chiffres] >= '0' && i.lemme_code[chiffres] <= '9') ++chiffres;
        if (!i.lemme_code.empty() && chiffres == 0) return Joindre("code de lemme sans nombre : "_cp, lecture);
    }
    return {};
}

void VerifierSerie(Verificateur& v, std::string_view dossier, const std::function<std::string(std::string_view, int, int)>& test) {
    long long lignes = 0;
    int presents = 0;
    for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
            const fs::path f = FichierCasier(v.racine_, dossier, l, c);
            const long long n = v.Fichier(f, [&](std::string_view ligne, long long) { return test(ligne, l, c); });
            if (n < 0) continue;
            ++presents;
            lignes += n;
        }
    v.Compte(dossier, presents, lignes);
}

}  // namespace

RapportRessources VerifierRessources(const fs::path& racine) {
    RapportRessources r;
    Verificateur v(racine, r);
    long long lignesDico = 0;
    bool dicoComplet = true;

    // The general dictionary: 300 files, bounded buckets.
    {
        int presents = 0;
        for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
            for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
                const fs::path f = FichierCasier(racine, DOSSIER_DICO, l, c);
                long long lignesFichier = 0;
                const long long n = v.Fichier(f, [&](std::string_view ligne, long long) {
                    ++lignesFichier;
                    return FauteLigneDico(ligne, {l, c});
                });
                if (n < 0) {
                    dicoComplet = false;
                    continue;
                }
                ++presents;
                lignesDico += n;
                if (static_cast<std::size_t>(lignesFichier) > MAX_FORMES_CASIER)
                    r.problemes.push_back(Joindre("limite dépassée : "_cp, v.Relatif(f), " a "_cp, Nombre(lignesFichier),
                                                  " lignes pour 10000 au plus"_cp));
            }
        v.Compte(DOSSIER_DICO, presents, lignesDico);
    }
    VerifierSerie(v, DOSSIER_ACCENTS, [](std::string_view, int, int) { return std::string(); });
    VerifierSerie(v, DOSSIER_RESCOR, [](std::string_view l, int, int) {
        return l.find('\t') == std::string_view::npos ? std::string("pas de tabulation entre la forme fautive et la bonne"_cp) : std::string();
    });
    VerifierSerie(v, DOSSIER_INCOR, [](std::string_view, int, int) { return std::string(); });
    VerifierSerie(v, "dico/FILTRAGE", [](std::string_view l, int, int) {
        const auto champs = Decouper(l, "\t");
        return champs.size() < 2 || !EstEntier(champs[1]) ? std::string("il faut une forme, une tabulation et une fréquence"_cp)
                                                          : std::string();
    });

    // Compounds: W words, filed by their first word.
    for (std::string_view dossier : {DOSSIER_COMPOSES_NAMB, DOSSIER_COMPOSES_AMB}) {
        long long lignes = 0;
        int presents = 0;
        for (int w = MIN_MOTS_COMPOSE; w <= MAX_MOTS_COMPOSE; ++w)
            for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
                const fs::path f = FichierCasier(racine, dossier, w, c);
                const long long n = v.Fichier(f, [&](std::string_view l, long long) -> std::string {
                    const std::size_t virgule = l.find(',');
                    if (virgule == std::string_view::npos) return std::string("pas de virgule après la clé"_cp);
                    const std::string_view cle = l.substr(0, virgule);
                    const auto mots = Decouper(cle, " ");
                    if (static_cast<int>(mots.size()) != w)
                        return Joindre(Nombre(static_cast<long long>(mots.size())), " mots dans un fichier de "_cp,
                                       Nombre(w), " : "_cp, cle);
                    if (classe_mot(mots[0]).ClasseInitiale != c) return Joindre("premier mot hors de son fichier : "_cp, cle);
                    if (CouperInterpretation(l.substr(virgule + 1)).categorie.empty())
                        return Joindre("composé sans catégorie : "_cp, cle);
                    return {};
                });
                if (n < 0) continue;
                ++presents;
                lignes += n;
            }
        v.Compte(dossier, presents, lignes);
    }

    // Foreign forms: each word in the file of its own class.
    {
        long long lignes = 0;
        int presents = 0;
        for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
            for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
                const fs::path f = Chemin(racine, Joindre(DOSSIER_ETRANGERS, "/", NomFichierEtrangers(l, c)));
                const long long n = v.Fichier(f, [&](std::string_view mot, long long) -> std::string {
                    if (!(classe_mot(mot) == CleMot{l, c})) return Joindre("mot rangé hors de son fichier : "_cp, mot);
                    return {};
                });
                if (n < 0) continue;
                ++presents;
                lignes += n;
            }
        v.Compte(DOSSIER_ETRANGERS, presents, lignes);
    }

    // The lists of utilitaires and their bounds.
    v.Liste("elide.txt", 100);
    v.Liste("postclit.txt", 60);
    v.Liste("postclit1.txt", 60);
    v.Liste("postclit2.txt", 100);
    v.Liste("PREFIXES.txt", static_cast<long long>(MAX_PREFIXES));
    v.Liste("ABREVIATIONS.txt", 0);
    v.Liste("domaines_extensions.txt", 0);
    v.Liste("courts_frequents.txt", 0);
    v.Liste("avant_apostrophe.txt", 100);
    v.Liste("autour_apostrophe.txt", 1000);
    v.Liste("CORRESP_HTML.txt", 500, AuMoinsChamps(2));
    v.Liste("COMPOSANTS.txt", 0);
    v.Liste("romains.txt", 0);
    v.Liste("nombres.txt", static_cast<long long>(MAX_NOMBRES));
    v.Liste("preverb.txt", 0, AuMoinsChamps(3));
    v.Liste("prenom.txt", 0, AuMoinsChamps(2));
    v.Liste("prevernom.txt", 0, AuMoinsChamps(4));
    v.Liste("POSTCLIT_DESAMB.txt", static_cast<long long>(MAX_POSTCLITIQUES_DESAMB), [](std::string_view l, long long) -> std::string {
        const auto champs = Decouper(l, "\t");
        static const std::set<std::string_view> codes = {"1", "2", "3", "6", "245"};
        if (champs.size() < 2 || !codes.count(champs[1])) return std::string("code de personne attendu : 1, 2, 3, 6 ou 245"_cp);
        return {};
    });
    v.Liste("CATEGORIES_DE_VERBES_.txt", static_cast<long long>(MAX_VERBES_CATEGORIES) + 1,
            [](std::string_view l, long long numero) -> std::string {
                if (numero == 1) return {};
                const auto champs = Decouper(l, "\t");
                if (champs.size() < 2 || !champs[0].ends_with("_V")) return std::string("il faut « lemme_V » puis les marques x"_cp);
                return {};
            });
    v.Liste("graphies-17.txt", 100, AuMoinsChamps(2));
    for (std::string_view nom : {"DIACRITIQUES.txt", "DIACRITIQUES_LIGHT.txt"})
        v.Liste(nom, 100, [](std::string_view l, long long) -> std::string {
            const auto champs = Decouper(l, "\t");
            if (champs.size() < 2 || !EstEntier(champs[0]) || !EstEntier(champs[1]))
                return std::string("il faut un code de caractère, une tabulation et un numéro de classe"_cp);
            return {};
        });
    v.Liste("substi_car.txt", 500, AuMoinsChamps(2));
    v.Liste("MATRICE_CAR.txt", 0);
    v.Liste("noms_de_mois.txt", 12);
    v.Liste("calend.txt", 0);
    v.Liste("dates.txt", 0);
    v.Liste("OUTILS.txt", 0);
    v.Liste("outils_1.txt", 0);
    v.Liste("outils_2.txt", 0);
    v.Liste("outils_3.txt", 0);
    v.Liste("CORR_CYRILLIQUE_192-255.txt", 0);
    v.Liste("codes_flexionnels/flexion_adj.txt", 50);
    v.Liste("codes_flexionnels/flexion_subst.txt", 50);
    v.Liste("codes_flexionnels/flexions_personnelles.txt", 6, AuMoinsChamps(6));
    v.Liste("codes_flexionnels/flexions_perso_variables.txt", 4);
    v.Liste("codes_flexionnels/flexions_code.txt", 101);
    v.Liste("codes_flexionnels/trad_adj.txt", 27);
    v.Liste("codes_flexionnels/trad_vrb.txt", 74);

    // The loaders themselves, on what is there: the bounds they check are the tree's contract.
    auto essayer = [&](std::string_view quoi, const std::function<void()>& f) {
        try {
            f();
        } catch (const ErreurExecution& e) {
            r.problemes.push_back(Joindre(quoi, " : "_cp, e.what()));
        }
    };
    if (dicoComplet) {
        essayer("chargement du dictionnaire"_cp, [&] {
            TableFormes table;
            const auto debut = std::chrono::steady_clock::now();
            ChargerDico(table, racine, true);
            r.secondesChargement = std::chrono::duration<double>(std::chrono::steady_clock::now() - debut).count();
            r.formesChargees = static_cast<long long>(table.Taille());
        });
    }
    if (FichierExiste(FichierUtilitaire(racine, "ABREVIATIONS.txt")))
        essayer("chargement des abréviations"_cp, [&] {
            TableMots t = NouvelleTableAbreviations();
            ChargerTableAbreviations(t, racine);
        });
    if (FichierExiste(FichierUtilitaire(racine, "preverb.txt")) && FichierExiste(FichierUtilitaire(racine, "prenom.txt")) &&
        FichierExiste(FichierUtilitaire(racine, "prevernom.txt")))
        essayer("chargement des groupes de mots"_cp, [&] {
            GroupesContexte g;
            ChargerGroupesContexte(g, racine);
        });
    return r;
}

}  // namespace telvoris
