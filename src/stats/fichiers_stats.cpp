#include "stats/fichiers_stats.hpp"

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "stats/commun.hpp"

namespace telvoris::stats {

namespace {

std::string Ou(const std::filesystem::path& fichier, long long ligne) {
    return Joindre(TexteChemin(fichier), ", ligne "_cp, std::to_string(ligne));
}

}  // namespace

LignesLexique LireLexique(const std::filesystem::path& fichier) {
    LignesLexique lignes;
    const std::string contenu = LireFichier(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        const std::size_t tab = ligne.find('\t');
        if (tab == std::string_view::npos)
            throw ErreurExecution(Joindre("Ligne de lexique sans tabulation : « "_cp, ligne, " » ("_cp,
                                          Ou(fichier, lecteur.Numero()), ")"));
        const std::string_view compte = *Champ(ligne, 2);
        const long long n = LireEntierOu(compte, [&] { return Ou(fichier, lecteur.Numero()); });
        lignes.emplace_back(std::string(ligne.substr(0, tab)), n);
    }
    return lignes;
}

Matrice LireMatrice(const std::filesystem::path& fichier, std::size_t maxLignes, std::size_t maxColonnes) {
    Matrice m;
    const std::string contenu = LireFichier(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    bool entete = true;
    while (lecteur.Suivante(ligne)) {
        if (entete) {
            entete = false;
            const auto champs = Decouper(ligne, "\t");
            for (std::size_t i = 1; i < champs.size(); ++i) m.colonnes.emplace_back(champs[i]);
            if (m.colonnes.size() > maxColonnes)
                LimiteDepassee("MAX_COLONNES", static_cast<long long>(maxColonnes),
                               Joindre("colonnes dans "_cp, TexteChemin(fichier)));
            continue;
        }
        if (ligne.empty()) continue;
        if (m.lignes.size() >= maxLignes)
            LimiteDepassee("MAX_LIGNES", static_cast<long long>(maxLignes), Joindre("lignes dans "_cp, TexteChemin(fichier)));
        const auto champs = Decouper(ligne, "\t");
        if (champs.size() != m.colonnes.size() + 1)
            throw ErreurExecution(Joindre("Ligne de matrice de "_cp, std::to_string(champs.size() - 1), " cellules pour "_cp,
                                          std::to_string(m.colonnes.size()), " colonnes ("_cp,
                                          Ou(fichier, lecteur.Numero()), ")"));
        m.lignes.emplace_back(champs[0]);
        std::vector<double> rangee(m.colonnes.size());
        for (std::size_t c = 0; c < rangee.size(); ++c) rangee[c] = LireNombre(champs[c + 1], Ou(fichier, lecteur.Numero()));
        m.cellules.push_back(std::move(rangee));
    }
    return m;
}

std::filesystem::path SansExtension(const std::filesystem::path& fichier) {
    const auto s = fichier.native();
    return s.size() >= 4 ? std::filesystem::path(s.substr(0, s.size() - 4)) : fichier;
}

std::string NomSansExtension(const std::filesystem::path& fichier) {
    std::string nom = Utf8VersCp1252(fichier.filename().string());
    if (nom.size() >= 4) nom.resize(nom.size() - 4);
    return nom;
}

std::filesystem::path ACote(const std::filesystem::path& fichier, std::string_view suite) {
    return Chemin(fichier.parent_path(), Joindre(NomSansExtension(fichier), suite));
}

std::optional<std::filesystem::path> DemanderFichier(Dialogue& dialogue, std::string_view titre) {
    auto f = dialogue.ChoisirFichier(titre, FILTRE_TXT_STATS);
    if (!f || f->empty()) return std::nullopt;
    return f;
}

long long DemanderEntier(Dialogue& dialogue, std::string_view texte, std::string_view titre, std::string_view defaut) {
    const std::string r = dialogue.Demander(texte, titre, defaut).value_or(std::string());
    return LireEntier(r, Joindre("réponse à « "_cp, texte, " »"_cp));
}

std::string Reponse(Dialogue& dialogue, std::string_view texte, std::string_view titre, std::string_view defaut) {
    return dialogue.Demander(texte, titre, defaut).value_or(std::string());
}

double Diviser(double a, double b, std::string_view quoi) {
    if (b == 0) throw ErreurExecution(Joindre("Division par zéro : "_cp, quoi));
    return a / b;
}

}  // namespace telvoris::stats
