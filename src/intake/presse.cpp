#include "intake/presse.hpp"

#include <algorithm>
#include <unordered_map>
#include <vector>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/nom_fichier.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/liste_textes.hpp"
#include "core/texte.hpp"

namespace telvoris {

namespace {

// What separates two articles of a download: a line that begins with "*/".
constexpr std::string_view kSeparateurArticles = "\r\n*/";
// The last word of the trailer that the database puts at the head of every article but the first.
constexpr std::string_view kPiedDePage = "conventions.";

std::string Nombre(long long n) { return std::to_string(n); }

// The import creates no folder: ARTICLES and ARCHIVE_BRUT have to stand.
void ExigerDossier(const fs::path& dossier) {
    if (!DossierExiste(dossier))
        throw ErreurExecution(Joindre("Dossier absent : "_cp, TexteChemin(dossier),
                                      " (l'import ne crée pas ce dossier : créez-le, puis relancez)"_cp));
}

}  // namespace

TableMois ChargerNomsDeMois(const fs::path& ressources) {
    const fs::path fichier = Chemin(ressources, "utilitaires/noms_de_mois.txt");
    const std::string contenu = LireFichier(fichier);
    TableMois mois;
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    std::size_t lus = 0;
    while (lus < mois.size() && lecteur.Suivante(ligne)) mois[lus++] = std::string(ligne);
    if (lus < mois.size())
        throw ErreurExecution(Joindre("Table des mois incomplète : "_cp, TexteChemin(fichier), " ("_cp,
                                      Nombre(static_cast<long long>(lus)), " lignes au lieu de 12)"_cp));
    return mois;
}

long long DecouperTelechargements(const fs::path& racine, Dialogue& dialogue) {
    const fs::path dossierArticles = racine / "ARTICLES";
    long long m = 0;
    std::string brut;
    for (int n = 1; n <= MAX_DOSSIERS_ARCHIVE; ++n) {
        for (int k = 1; k <= MAX_FICHIERS_DOSSIER; ++k) {
            dialogue.Progression("Découpage des téléchargements en articles."_cp,
                                 (n - 1) * MAX_FICHIERS_DOSSIER + k, MAX_DOSSIERS_ARCHIVE * MAX_FICHIERS_DOSSIER);
            const fs::path source = racine / "ARCHIVE" / Nombre(n) / (Nombre(k) + ".txt");
            if (!FichierExiste(source)) continue;
            LireFichier(source, brut);
            const std::string texte = DecoderUtf8(brut);
            std::vector<std::string_view> pieces;
            try {
                pieces = Decouper(texte, kSeparateurArticles);
            } catch (const ErreurExecution& e) {
                throw ErreurExecution(Joindre(e.what(), " : articles du fichier "_cp, TexteChemin(source)));
            }
            // The last piece is the file's tail, behind the last separator.
            for (std::size_t j = 0; j + 1 < pieces.size(); ++j) {
                ++m;
                if (m == 1) ExigerDossier(dossierArticles);
                EcrivainFichier article(dossierArticles / (Nombre(m) + ".txt"));
                std::string_view piece = pieces[j];
                if (j > 0) {
                    // Everything up to the trailer's last word goes, with the three characters
                    // behind it; without the word, the first fourteen characters go.
                    const std::size_t p = piece.find(kPiedDePage);
                    const long long i = p == std::string_view::npos ? 0 : static_cast<long long>(p) + 1;
                    const long long garde = static_cast<long long>(piece.size()) - (i + 14);
                    if (garde < 0)
                        throw ErreurExecution(Joindre("Article "_cp, Nombre(m), " du fichier "_cp, TexteChemin(source),
                                                      " : texte trop court pour en ôter le pied de page "
                                                      "(« conventions. » et ce qui le précède)"_cp));
                    piece = piece.substr(piece.size() - static_cast<std::size_t>(garde));
                }
                std::vector<std::string_view> lignes;
                try {
                    lignes = Decouper(piece, "\r\n");
                } catch (const ErreurExecution& e) {
                    throw ErreurExecution(Joindre(e.what(), " : lignes de l'article "_cp, Nombre(m), " du fichier "_cp,
                                                  TexteChemin(source)));
                }
                // Line 1 of a piece is the rest of the separator line or the download's head.
                for (std::size_t l = 1; l < lignes.size(); ++l) {
                    const std::string_view ligne = lignes[l];
                    if (ligne.empty() || ligne == "\n" || ligne == "\r" || ligne == "\t") continue;
                    article.Ligne(ligne);
                }
                article.Fermer();
            }
        }
    }
    return m;
}

namespace {

// The day files of a run, kept in memory and written once at the end (or when the run stops on
// an error): the bytes are those that rewriting each file at every article would leave, without
// reading and writing a growing file again for each of its articles.
class FichiersDuJour {
public:
    explicit FichiersDuJour(fs::path dossier) : dossier_(std::move(dossier)) {}

    std::string& Contenu(const std::string& nom) {
        fs::path chemin = Chemin(dossier_, Joindre(nom, ".txt"));
        const std::string cle = chemin.generic_string();
        if (const auto it = index_.find(cle); it != index_.end()) return fichiers_[it->second].contenu;
        if (!DossierExiste(chemin.parent_path()))
            throw ErreurExecution(Joindre("Impossible de créer le fichier : "_cp, TexteChemin(chemin)));
        // A day file left by an earlier run is extended.
        std::string ancien;
        if (FichierExiste(chemin)) LireFichier(chemin, ancien);
        index_.emplace(cle, fichiers_.size());
        fichiers_.push_back({std::move(chemin), std::move(ancien)});
        return fichiers_.back().contenu;
    }

    // A day file that cannot be written does not keep the others from being written; the
    // failures are named together at the end.
    long long Ecrire() {
        std::string echecs;
        long long ecrits = 0;
        for (auto& f : fichiers_) {
            try {
                EcrireFichier(f.chemin, f.contenu);
                ++ecrits;
            } catch (const ErreurExecution& e) {
                if (!echecs.empty()) echecs += "\r\n";
                echecs += e.what();
            }
            std::string().swap(f.contenu);
        }
        fichiers_.clear();
        index_.clear();
        if (!echecs.empty())
            throw ErreurExecution(Joindre(Nombre(ecrits), " fichiers du jour écrits ; ceux-ci ne l'ont pas été :\r\n"_cp,
                                          echecs));
        return ecrits;
    }

private:
    struct Fichier {
        fs::path chemin;
        std::string contenu;
    };
    fs::path dossier_;
    std::vector<Fichier> fichiers_;
    std::unordered_map<std::string, std::size_t> index_;
};

}  // namespace

BilanRegroupement RegrouperArticles(const fs::path& racine, const TableMois& mois, long long attendus,
                                    Dialogue& dialogue) {
    BilanRegroupement bilan;
    const fs::path dossierBrut = racine / "ARCHIVE_BRUT";
    EcrivainFichier rapport(racine / "CONTROLE_PREMIERE_LIGNE.txt");
    FichiersDuJour jours(dossierBrut);
    auto signaler = [&](long long a, std::string_view probleme) {
        rapport.Ligne(Joindre(Nombre(a), "\t", probleme));
        ++bilan.anomalies;
    };
    // The paper's name is not cleared between articles: an article without one takes the last.
    std::string journal;
    std::string contenu, date, corps;
    try {
        for (long long a = 1; a <= MAX_ARTICLES_REGROUPES; ++a) {
            const fs::path fichier = racine / "ARTICLES" / (Nombre(a) + ".txt");
            // The first missing article file is the normal end of the run.
            if (!FichierExiste(fichier)) break;
            dialogue.Progression("Regroupement des articles par journal et par jour."_cp, a,
                                 std::max(attendus, a));
            LireFichier(fichier, contenu);
            LecteurLignes lecteur(contenu);
            std::string_view ligne;
            if (!lecteur.Suivante(ligne))
                throw ErreurExecution(Joindre("Article "_cp, Nombre(a), " : fichier vide, ligne du journal absente : "_cp,
                                              TexteChemin(fichier)));
            const std::string_view tete = ligne.substr(0, ligne.find(','));
            if (!tete.empty()) {
                journal.assign(tete);
                for (char& c : journal)
                    if (c == ' ') c = '_';
            } else {
                signaler(a, "pb_ligne");
            }

            if (!lecteur.Suivante(ligne))
                throw ErreurExecution(Joindre("Article "_cp, Nombre(a), " : ligne de date absente : "_cp,
                                              TexteChemin(fichier)));
            const auto parties = Decouper(ligne, ",");
            if (parties.size() < 2)
                throw ErreurExecution(Joindre("Article "_cp, Nombre(a), " : ligne de date sans virgule (« "_cp, ligne,
                                              " ») : "_cp, TexteChemin(fichier)));
            // Piece 1 is the empty text before the blank that follows the comma.
            const auto mots = Decouper(parties[1], " ");
            if (mots.size() < 4)
                throw ErreurExecution(Joindre("Article "_cp, Nombre(a),
                                              " : ligne de date incomplète, jour, mois et année attendus après la "
                                              "virgule (« "_cp,
                                              ligne, " ») : "_cp, TexteChemin(fichier)));
            date.assign(mots[3]);
            bool trouve = false;
            for (std::size_t i = 0; i < mois.size(); ++i) {
                if (mots[2] != mois[i]) continue;
                date += i + 1 < 10 ? "_0" : "_";
                date += Nombre(static_cast<long long>(i + 1));
                trouve = true;
                break;
            }
            if (!trouve) signaler(a, "pb_date");
            date += mots[1].size() == 2 ? "_" : "_0";
            date += mots[1];

            corps.clear();
            while (lecteur.Suivante(ligne)) {
                corps += ligne;
                corps += "\r\n";
            }
            // The name comes from the download: it may hold "/" or "..", and must stay a file
            // of ARCHIVE_BRUT. The metadata line keeps the paper's name as it is.
            std::string& jour = jours.Contenu(NomDeFichierSur(Joindre(journal, "_", date)));
            if (!jour.empty()) jour += "\r\n";
            jour += "<QORX_ATTR JOURNAL=";
            jour += journal;
            jour += " DATE=";
            jour += date;
            jour += " >\r\n";
            jour += corps;
            ++bilan.articles;
        }
    } catch (...) {
        // What was regrouped before the fault stays on disk, and so does the report.
        try {
            jours.Ecrire();
        } catch (...) {
        }
        try {
            rapport.Fermer();
        } catch (...) {
        }
        throw;
    }
    rapport.Fermer();
    bilan.fichiers = jours.Ecrire();
    return bilan;
}

void ImporterEuropresse(Contexte& ctx) {
    const TableMois mois = ChargerNomsDeMois(ctx.ressources);
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    const fs::path& racine = liste->doss_racine;
    const long long articles = DecouperTelechargements(racine, ctx.dialogue);
    RegrouperArticles(racine, mois, articles, ctx.dialogue);
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher(Joindre(TexteChemin(racine), "  Terminé"_cp));
}

}  // namespace telvoris
