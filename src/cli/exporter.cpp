#include "cli/exporter.hpp"

#include <algorithm>
#include <string_view>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"

namespace fs = std::filesystem;

namespace telvoris {

namespace {

std::vector<std::string_view> Champs(std::string_view ligne) {
    std::vector<std::string_view> champs;
    std::size_t debut = 0;
    while (true) {
        const std::size_t tab = ligne.find('\t', debut);
        champs.push_back(ligne.substr(debut, tab == std::string_view::npos ? std::string_view::npos : tab - debut));
        if (tab == std::string_view::npos) return champs;
        debut = tab + 1;
    }
}

bool Chiffre(char c) { return c >= '0' && c <= '9'; }

// A number as the files write it: sign, digits, one decimal comma or point, an exponent.
bool EstNombre(std::string_view t) {
    std::size_t i = 0;
    if (i < t.size() && (t[i] == '-' || t[i] == '+')) ++i;
    bool chiffres = false;
    while (i < t.size() && Chiffre(t[i])) ++i, chiffres = true;
    if (i < t.size() && (t[i] == ',' || t[i] == '.')) {
        ++i;
        while (i < t.size() && Chiffre(t[i])) ++i, chiffres = true;
    }
    if (!chiffres) return false;
    if (i < t.size() && (t[i] == 'E' || t[i] == 'e')) {
        ++i;
        if (i < t.size() && (t[i] == '-' || t[i] == '+')) ++i;
        if (i >= t.size() || !Chiffre(t[i])) return false;
        while (i < t.size() && Chiffre(t[i])) ++i;
    }
    return i == t.size();
}

bool EstEntier(std::string_view t) {
    if (t.starts_with('-')) t.remove_prefix(1);
    return !t.empty() && std::all_of(t.begin(), t.end(), Chiffre);
}

// A cell of a numeric column: the decimal comma becomes a point; anything else stays as it is.
std::string Nombre(std::string_view cellule) {
    std::string t(cellule);
    if (EstNombre(t)) std::replace(t.begin(), t.end(), ',', '.');
    return t;
}

class Tableau {
public:
    explicit Tableau(FormatExport f) : sep_(f == FormatExport::Csv ? ',' : '\t') {}

    // Cells are UTF-8.
    void Ligne(const std::vector<std::string>& cellules) {
        for (std::size_t i = 0; i < cellules.size(); ++i) {
            if (i) texte_ += sep_;
            Cellule(cellules[i]);
        }
        texte_ += '\n';
    }
    const std::string& Texte() const { return texte_; }

private:
    // Quoted, with doubled quotes, when it holds the separator, a quote or a line end.
    void Cellule(const std::string& c) {
        if (c.find_first_of(std::string{sep_, '"', '\r', '\n'}) == std::string::npos) {
            texte_ += c;
            return;
        }
        texte_ += '"';
        for (char x : c) {
            if (x == '"') texte_ += '"';
            texte_ += x;
        }
        texte_ += '"';
    }
    char sep_;
    std::string texte_;
};

std::string Minuscules(std::string t) {
    for (char& c : t)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return t;
}

bool PlanOuGlobe(std::string_view l, bool globe) {
    if (globe) {
        if (!l.starts_with('&')) return false;
        l.remove_prefix(1);
    }
    const std::size_t barre = l.find('/');
    return barre != std::string_view::npos && EstEntier(l.substr(0, barre)) && EstEntier(l.substr(barre + 1));
}

[[noreturn]] void Erreur(const fs::path& source, long long ligne, std::string_view quoi) {
    throw ErreurExecution(Joindre(TexteChemin(source), ", ligne "_cp, std::to_string(ligne), " : ", quoi));
}

}  // namespace

BilanExport Exporter(const fs::path& source, FormatExport format) {
    const std::string contenu = LireFichier(source);
    // The lines with their numbers in the file; blank lines carry nothing.
    std::vector<std::pair<long long, std::string_view>> lignes;
    {
        LecteurLignes lecteur(contenu);
        std::string_view l;
        while (lecteur.Suivante(l))
            if (!l.empty()) lignes.emplace_back(lecteur.Numero(), l);
    }
    if (lignes.empty()) throw ErreurExecution(Joindre(TexteChemin(source), " : fichier vide, rien à exporter"_cp));

    const std::string nom = Minuscules(source.filename().string());
    const std::string souche = Minuscules(source.stem().string());
    BilanExport bilan;
    bilan.fichier = source;
    bilan.fichier.replace_extension(format == FormatExport::Csv ? ".csv" : ".tsv");
    if (fs::absolute(bilan.fichier).lexically_normal() == fs::absolute(source).lexically_normal())
        throw ErreurExecution(Joindre(TexteChemin(source), " : la copie prendrait la place du fichier ; rien n'est écrit"_cp));

    Tableau t(format);
    auto u = [](std::string_view cp) { return Cp1252VersUtf8(cp); };
    const std::string_view premiere = lignes[0].second;
    const bool globe = PlanOuGlobe(premiere, true);
    const bool plan = !globe && PlanOuGlobe(premiere, false) && nom.find("_proj") != std::string::npos;
    static const std::vector<std::string> kSolveur = {"eigen", "corli", "corco", "conli", "conco",
                                                      "cosli", "cosco", "disli", "disco"};

    if (plan || globe) {
        // Line 1 counts the columns and rows; then the items, columns first; then the records
        // "**", "***" and "###" of the viewer, which are not items.
        std::string_view l1 = premiere.substr(globe ? 1 : 0);
        const long long colonnes = std::stoll(std::string(l1.substr(0, l1.find('/'))));
        bilan.genre = globe ? "projection sur 3 facteurs" : "projection sur 2 facteurs";
        const std::size_t largeur = globe ? 7 : 5;
        t.Ligne(globe ? std::vector<std::string>{"item", "type", "longitude", "latitude", "distance", "contribution1",
                                                 "contribution2", "contribution3"}
                      : std::vector<std::string>{"item", "type", "x", "y", "code_axe1", "code_axe2"});
        for (std::size_t i = 1; i < lignes.size(); ++i) {
            const auto [numero, l] = lignes[i];
            if (l.starts_with("**") || l.starts_with("##")) {
                ++bilan.ecartees;
                continue;
            }
            const auto c = Champs(l);
            if (c.size() != largeur)
                Erreur(source, numero, Joindre(std::to_string(c.size()), " champs au lieu de "_cp, std::to_string(largeur)));
            std::vector<std::string> r = {u(c[0]), bilan.lignes < colonnes ? "colonne" : "ligne"};
            for (std::size_t k = 1; k < c.size(); ++k) r.push_back(Nombre(c[k]));
            t.Ligne(r);
            ++bilan.lignes;
        }
    } else if (std::find(kSolveur.begin(), kSolveur.end(), souche) != kSolveur.end() || premiere.starts_with('\t')) {
        // Solver results keep their header; a matrix has an empty first cell, named here.
        const bool matrice = premiere.starts_with('\t');
        bilan.genre = matrice ? "matrice" : "résultat du solveur";
        auto entete = Champs(premiere);
        std::vector<std::string> h;
        for (std::size_t k = 0; k < entete.size(); ++k) h.push_back(k == 0 && matrice ? std::string("item") : u(entete[k]));
        t.Ligne(h);
        for (std::size_t i = 1; i < lignes.size(); ++i) {
            const auto [numero, l] = lignes[i];
            const auto c = Champs(l);
            if (c.size() != entete.size())
                Erreur(source, numero,
                       Joindre(std::to_string(c.size()), " champs alors que l'en-tête en compte "_cp, std::to_string(entete.size())));
            std::vector<std::string> r = {souche == "eigen" ? Nombre(c[0]) : u(c[0])};
            for (std::size_t k = 1; k < c.size(); ++k) r.push_back(Nombre(c[k]));
            t.Ligne(r);
            ++bilan.lignes;
        }
    } else {
        // Item, tab, count and the like: every line has the same number of fields, and all but
        // the first are numbers (the strong deviations name a row and a column first).
        const bool fortsEcarts = souche == "forts_ecarts";
        const std::size_t largeur = Champs(premiere).size();
        const std::size_t texte = fortsEcarts ? 2 : 1;
        if (largeur <= texte)
            Erreur(source, lignes[0].first,
                   "aucune tabulation : ni lexique, ni matrice, ni distribution, ni résultat du solveur, ni projection"_cp);
        bool entiers = true;
        for (const auto& [numero, l] : lignes) {
            const auto c = Champs(l);
            if (c.size() != largeur)
                Erreur(source, numero, Joindre(std::to_string(c.size()), " champs au lieu de "_cp, std::to_string(largeur)));
            for (std::size_t k = texte; k < c.size(); ++k) {
                if (!EstNombre(c[k])) Erreur(source, numero, Joindre("« "_cp, c[k], " » n'est pas un nombre"_cp));
                entiers = entiers && EstEntier(c[k]);
            }
        }
        std::vector<std::string> h;
        if (fortsEcarts) h = {"ligne", "colonne", "ecart_reduit"};
        else if (souche == "noms_propres") h = {"item", "effectif", "longueur"};
        else if (souche == "lonparts") h = {"partie", "occurrences"};
        else if (souche.starts_with("variances_")) h = {"item", "somme_ecarts_carres"};
        else if (largeur == 2) h = {"item", entiers ? "effectif" : "valeur"};
        if (h.size() != largeur) {
            h = {"item"};
            for (std::size_t k = 1; k < largeur; ++k) h.push_back("valeur" + std::to_string(k));
        }
        bilan.genre = fortsEcarts || souche == "lonparts" || souche.starts_with("variances_") ? "distribution"
                      : entiers && largeur <= 3                                             ? "lexique"
                                                                                            : "tableau";
        t.Ligne(h);
        for (const auto& [numero, l] : lignes) {
            const auto c = Champs(l);
            std::vector<std::string> r;
            for (std::size_t k = 0; k < c.size(); ++k) r.push_back(k < texte ? u(c[k]) : Nombre(c[k]));
            t.Ligne(r);
            ++bilan.lignes;
        }
    }
    EcrireFichier(bilan.fichier, t.Texte());
    return bilan;
}

std::string UsageExporter() {
    return "Usage : telvoris exporter FICHIER... [--format csv|tsv]\n"
           "  Écrit à côté de chaque FICHIER (lexique, matrice, distribution, résultat du solveur ou projection)\n"
           "  une copie FICHIER.csv (ou .tsv) en UTF-8, avec un point décimal et une ligne d'en-tête,\n"
           "  que R (read.csv) et pandas (read_csv) lisent sans option. FICHIER n'est jamais modifié.\n";
}

int CommandeExporter(const std::vector<std::string>& args, std::ostream& sortie, std::ostream& erreurs) {
    std::vector<fs::path> fichiers;
    FormatExport format = FormatExport::Csv;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--format") {
            if (i + 1 < args.size() && args[i + 1] == "csv") format = FormatExport::Csv;
            else if (i + 1 < args.size() && args[i + 1] == "tsv") format = FormatExport::Tsv;
            else {
                erreurs << "--format attend csv ou tsv\n" << UsageExporter();
                return 2;
            }
            ++i;
        } else if (args[i].starts_with("-")) {
            erreurs << "Option inconnue : " << args[i] << "\n" << UsageExporter();
            return 2;
        } else {
            fichiers.emplace_back(args[i]);
        }
    }
    if (fichiers.empty()) {
        erreurs << "Il manque le fichier à exporter.\n" << UsageExporter();
        return 2;
    }
    int statut = 0;
    for (const auto& fichier : fichiers) {
        try {
            const BilanExport b = Exporter(fichier, format);
            sortie << "Exporté (" << b.genre << ", " << b.lignes << " lignes et l'en-tête) : " << b.fichier.string() << "\n";
            if (b.ecartees > 0)
                sortie << b.ecartees
                       << " ligne(s) « ** », « *** » ou « ### » (pourcentages d'inertie, statistiques) ne sont pas des "
                          "items et ne sont pas reprises : voir eigen.txt et STATS.txt.\n";
        } catch (const ErreurExecution& e) {
            erreurs << Cp1252VersUtf8(e.what()) << "\n";
            statut = 1;
        }
    }
    return statut;
}

}  // namespace telvoris
