#include "explore/indexation.hpp"

#include <algorithm>
#include <charconv>
#include <array>
#include <string>
#include <unordered_map>
#include <vector>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/reprise.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"
#include "explore/ecriture_fond.hpp"
#include "explore/index_commun.hpp"
#include "explore/mots_courts.hpp"

namespace telvoris {

namespace {

struct HachageTexte {
    using is_transparent = void;
    std::size_t operator()(std::string_view s) const { return std::hash<std::string_view>{}(s); }
};
using TableIds = std::unordered_map<std::string, std::uint32_t, HachageTexte, std::equal_to<>>;

// One table of the build: entries in order of first appearance within each bucket, found
// through a hash index; each entry has its count and its concatenated column.
struct TableCasiers {
    struct Entree {
        std::string cle;
        long long compte = 0;
        std::string colonne;
    };
    TableIds index;
    std::vector<Entree> entrees;
    std::array<std::vector<std::uint32_t>, NB_CASIERS> ordre;

    std::uint32_t Trouver(std::string_view cle, Casier casier, bool& nouvelle) {
        if (const auto it = index.find(cle); it != index.end()) {
            nouvelle = false;
            return it->second;
        }
        nouvelle = true;
        const auto id = static_cast<std::uint32_t>(entrees.size());
        entrees.push_back({std::string(cle), 0, {}});
        index.emplace(std::string(cle), id);
        ordre[static_cast<std::size_t>(IndiceCasier(casier))].push_back(id);
        return id;
    }
};

// What a tag contributes, worked out once at its first appearance.
struct InfoBalise {
    std::uint32_t forme = 0;
    std::int64_t lemme = -1;
    std::uint32_t debutCategories = 0;  // into the shared list of (key, passes)
    std::uint32_t nbCategories = 0;
};

// The category keys of a tag, each with the number of passes that enter it (each pass adds
// the count again).
void ClesCategories(std::string_view c, std::string_view x, std::vector<std::pair<std::string, int>>& sortie) {
    sortie.clear();
    auto entrer = [&](const std::string& cle) {
        if (cle.empty()) return;
        if (c == "V" && cle.size() == 1 && std::string_view("psmfyx").find(cle[0]) != std::string_view::npos) return;
        for (auto& [k, n] : sortie)
            if (k == cle) {
                ++n;
                return;
            }
        sortie.emplace_back(cle, 1);
    };
    const int lc = static_cast<int>(c.size());
    const int lx = static_cast<int>(x.size());
    for (int i = 0; i <= lc; ++i) {
        for (int j = 0; j <= lx; ++j) {
            for (int k = 1; k <= 2; ++k) {
                std::string candidat(c.substr(0, static_cast<std::size_t>(lc - i)));
                if (j > 3) {
                    j = lx;  // the rest of the flexion adds nothing: leave the loop after this pass
                } else if (j > 0 && (j < 2 || k < 2)) {
                    candidat.append(x.substr(static_cast<std::size_t>(j - 1), static_cast<std::size_t>(k)));
                }
                entrer(candidat);
            }
        }
    }
    if ((c == "SM" || c == "SF") && (x == "s" || x == "p")) {
        std::string cle(1, c == "SM" ? 'm' : 'f');
        cle += x;
        entrer(cle);
    }
}

// The blocks of a derived file: the lines between "<---------->" lines; the first separator
// opens block 1.
std::vector<std::vector<std::string_view>> Blocs(std::string_view contenu) {
    std::vector<std::vector<std::string_view>> blocs;
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne == kSeparateurPartitions) {
            blocs.emplace_back();
            continue;
        }
        if (blocs.empty()) blocs.emplace_back();
        blocs.back().push_back(ligne);
    }
    return blocs;
}

bool EstLigneMeta(std::string_view ligne) { return ligne.size() >= 12 && ligne.starts_with("<QORX_ATTR "); }

class Constructeur {
public:
    // `neuf`: the folder was empty, so every file is created, never written over.
    Constructeur(const std::filesystem::path& dossier, bool plier, int largeur, bool neuf)
        : dossier_(dossier), plier_(plier), largeur_(largeur), fond_(64u << 20, neuf) {}

    void Commencer() {
        for (const char* d : {"LEXINDEX", "LEXINDEX_F", "LEXINDEX_L", "LEXINDEX_C", "TEXTE_AFFICHE", "DICTIONNAIRES",
                              "METADONNEES_QORX", "TEXTE_ETIQUETE", "SAUVEGARDES", "SAUVEGARDES/CONCORDANCES",
                              "SAUVEGARDES/DISTRIBUTIONS"})
            CreerDossier(dossier_ / d);
        CreerDossier(dossier_ / kDossierCourts);
        controle_.emplace(dossier_ / "controle.txt");
        lonparts_.emplace(dossier_ / "LONPARTS_M.txt");
        // Three-character indexes carry no declaration, so that they stay as they always were;
        // the declaration of an index written over is removed with it.
        if (largeur_ != LARGEUR_CODE_COURTE)
            EcrirePetitFichier(dossier_ / kFichierLargeurCode, Joindre(Nombre(largeur_), "\r\n"));
        else
            std::filesystem::remove(dossier_ / kFichierLargeurCode);
    }

    void Texte(const std::filesystem::path& olbrin, const std::string& nom) {
        const std::string fichier = Joindre(nom, ".txt");
        LireFichier(Chemin(olbrin / "NB_PARTITIONS", fichier), tampons_[0]);
        std::vector<long long> longueurs;
        {
            LecteurLignes l(tampons_[0]);
            std::string_view ligne;
            while (l.Suivante(ligne)) longueurs.push_back(ValeurEntiere(ligne));
        }
        LireFichier(Chemin(olbrin / "TEXTE_ETIQ", fichier), tampons_[1]);
        LireFichier(Chemin(olbrin / "LEXINDEX", fichier), tampons_[2]);
        LireFichier(Chemin(olbrin / "TEXTE_NU", fichier), tampons_[3]);
        const auto etiq = Blocs(tampons_[1]);
        const auto lex = Blocs(tampons_[2]);
        const auto nu = Blocs(tampons_[3]);
        static const std::vector<std::string_view> kVide;
        auto bloc = [&](const auto& blocs, std::size_t i) -> const std::vector<std::string_view>& {
            return i < blocs.size() ? blocs[i] : kVide;
        };

        // First pass: the tags into the slices, the metadata into their variables.
        const long long partitionDebut = partition_;
        for (std::size_t i = 0; i < longueurs.size(); ++i) {
            ++partition_;
            const auto& lignes = bloc(etiq, i);
            // Lines before the metadata line were never counted by the segment indexer, so
            // they give no tokens; the metadata line itself is set aside.
            std::size_t j = 0;
            while (j < lignes.size() && !EstLigneMeta(lignes[j])) ++j;
            if (j < lignes.size()) {
                LireMeta(lignes[j]);
                for (++j; j < lignes.size(); ++j) {
                    DecouperLigne(lignes[j], jetons_, Copie::Exploration);
                    for (int t = 1; t <= jetons_.NbJetons; ++t) AjouterATranche(jetons_.jeton[static_cast<std::size_t>(t)]);
                }
            }
        }
        // Second pass: the partition indexes, with local positions made corpus positions.
        partition_ = partitionDebut;
        for (std::size_t i = 0; i < longueurs.size(); ++i) {
            ++partition_;
            for (const std::string_view ligne : bloc(lex, i)) LigneIndex(ligne);
            affiche_.clear();
            for (const std::string_view ligne : bloc(nu, i)) affiche_.append(ligne).append("\r\n");
            fond_.Ecrire(dossier_ / "TEXTE_AFFICHE" / (Nombre(partition_) + ".txt"), std::move(affiche_), 1);
            cumul_ += longueurs[i];
            lonparts_->Ligne(Nombre(cumul_));
        }
    }

    void Terminer() {
        FermerTranche();
        lonparts_->Fermer();
        EcrireMeta();
        EcrireTables();
        EcrireDictionnaires();
        controle_->Fermer();
        fond_.Terminer();
    }

    // What an index written over keeps of the old tree and this build did not make again: slices
    // and display texts past the last, variables that are gone, the person's saved results,
    // anything else. Each folder is walked once; only its entries are compared.
    void RetirerRestes() const {
        std::vector<std::filesystem::path> restes;
        auto parcourir = [&](const std::filesystem::path& dossier, const auto& garder) {
            for (const auto& f : std::filesystem::directory_iterator(dossier))
                if (!garder(Utf8VersCp1252(f.path().filename().string()), f.is_directory())) restes.push_back(f.path());
        };
        auto numerote = [](long long dernier) {
            return [dernier](const std::string& nom, bool dossier) {
                long long n = 0;
                const auto r = std::from_chars(nom.data(), nom.data() + nom.size(), n);
                return !dossier && r.ec == std::errc() && std::string_view(r.ptr) == ".txt" && n >= 1 && n <= dernier;
            };
        };
        auto parmi = [](std::vector<std::string> noms, bool dossiers) {
            return [noms = std::move(noms), dossiers](const std::string& nom, bool dossier) {
                return dossier == dossiers && std::find(noms.begin(), noms.end(), nom) != noms.end();
            };
        };
        const std::vector<std::string> dossiers = {"LEXINDEX", "LEXINDEX_F", "LEXINDEX_L", "LEXINDEX_C", "TEXTE_AFFICHE",
                                                   "DICTIONNAIRES", "METADONNEES_QORX", "TEXTE_ETIQUETE", "SAUVEGARDES",
                                                   std::string(kDossierCourts)};
        std::vector<std::string> racine = {"controle.txt", "LONPARTS_M.txt",
                                           MarqueIndexExploration(dossier_).filename().string()};
        if (largeur_ != LARGEUR_CODE_COURTE) racine.emplace_back(kFichierLargeurCode);
        const auto fichiersRacine = parmi(racine, false);
        const auto dossiersRacine = parmi(dossiers, true);
        parcourir(dossier_, [&](const std::string& n, bool d) { return fichiersRacine(n, d) || dossiersRacine(n, d); });
        std::vector<std::string> casiers;
        for (int l = 1; l <= NB_LONGUEURS; ++l)
            for (int c = 1; c <= NB_LETTRES; ++c) casiers.push_back(NomFichierCasier({c, l}));
        for (const char* d : {"LEXINDEX", "LEXINDEX_F", "LEXINDEX_L"}) parcourir(dossier_ / d, parmi(casiers, false));
        parcourir(dossier_ / "LEXINDEX_C", parmi({"CATEG.txt"}, false));
        parcourir(dossier_ / kDossierCourts, parmi(fichiersCourts_, false));
        parcourir(dossier_ / "TEXTE_ETIQUETE", numerote(tranche_));
        parcourir(dossier_ / "TEXTE_AFFICHE", numerote(partition_));
        std::vector<std::string> meta = {"index.txt"};
        for (const auto& v : variables_) meta.push_back(Joindre(v, ".txt"));
        parcourir(dossier_ / "METADONNEES_QORX", parmi(meta, false));
        std::vector<std::string> dictionnaires = {"FREQUENTIEL_FORMES.txt", "FREQUENTIEL_LEMMES.txt"};
        for (char x = 'A'; x <= 'W'; ++x) {
            dictionnaires.push_back(Joindre(std::string(1, x), "_FORMES.txt"));
            dictionnaires.push_back(Joindre(std::string(1, x), "_LEMMES.txt"));
        }
        parcourir(dossier_ / "DICTIONNAIRES", parmi(dictionnaires, false));
        parcourir(dossier_ / "SAUVEGARDES", parmi({"CONCORDANCES", "DISTRIBUTIONS"}, true));
        for (const char* d : {"SAUVEGARDES/CONCORDANCES", "SAUVEGARDES/DISTRIBUTIONS"})
            parcourir(dossier_ / d, [](const std::string&, bool) { return false; });
        for (const auto& f : restes) std::filesystem::remove_all(f);
    }

private:
    void AjouterATranche(std::string_view balise) {
        if (dansTranche_ >= TAILLE_TRANCHE) {
            FermerTranche();
            ++tranche_;
            dansTranche_ = 0;
        }
        ++dansTranche_;
        tranche_texte_.append(balise);
        trancheEcrite_ = false;
    }

    void FermerTranche() {
        if (trancheEcrite_) return;
        fond_.Ecrire(dossier_ / "TEXTE_ETIQUETE" / (Nombre(tranche_) + ".txt"), std::move(tranche_texte_), 0);
        tranche_texte_.clear();
        trancheEcrite_ = true;
    }

    void LireMeta(std::string_view ligne) {
        const auto morceaux = Decouper(ligne.substr(11), "=");
        for (std::size_t m = 1; m < morceaux.size(); ++m) {
            const std::string_view avant = morceaux[m - 1];
            const std::size_t blanc = avant.rfind(' ');
            const std::string_view nom = blanc == std::string_view::npos ? avant : avant.substr(blanc + 1);
            const std::string_view morceau = morceaux[m];
            const std::size_t fin = morceau.find(' ');
            if (fin == std::string_view::npos)
                throw ErreurExecution(Joindre("Ligne de métadonnées sans blanc après la valeur de "_cp, nom,
                                              " (partition "_cp, Nombre(partition_), ") : "_cp, ligne));
            std::string_view valeur = morceau.substr(0, fin);
            if (valeur.size() > 1 && valeur.front() == '"' && valeur.back() == '"')
                valeur = valeur.substr(1, valeur.size() - 2);
            int v = -1;
            for (std::size_t n = 0; n < variables_.size(); ++n)
                if (variables_[n] == nom) v = static_cast<int>(n);
            if (v < 0 && static_cast<int>(variables_.size()) < MAX_VARIABLES) {
                variables_.emplace_back(nom);
                valeurs_.emplace_back();
                v = static_cast<int>(variables_.size()) - 1;
                controle_->Ligne(Joindre(Nombre(v + 1), "\t", nom));
            }
            if (v < 0) v = derniereVariable_;
            if (v < 0) continue;
            derniereVariable_ = v;
            auto& colonne = valeurs_[static_cast<std::size_t>(v)];
            if (static_cast<long long>(colonne.size()) < partition_) colonne.resize(static_cast<std::size_t>(partition_));
            colonne[static_cast<std::size_t>(partition_ - 1)].assign(valeur);
        }
    }

    void LigneIndex(std::string_view ligne) {
        const std::size_t t1 = ligne.find('\t');
        if (t1 == std::string_view::npos) return;
        const std::size_t t2 = ligne.find('\t', t1 + 1);
        const std::string_view balise = ligne.substr(0, t1);
        const long long compte = ValeurEntiere(ligne.substr(t1 + 1));
        const std::string_view liste = t2 == std::string_view::npos ? std::string_view() : ligne.substr(t2 + 1);
        // A short frequent word ("!") takes the list rewritten for the line before it, as readers
        // of LEXINDEX expect; its count in this partition is also kept apart, the one true record
        // of where it occurs.
        const bool sansPositions = liste == "!";
        if (!sansPositions) {
            listeReecrite_.clear();
            for (std::size_t p = 0; p + 3 <= liste.size(); p += 3)
                AjouterCodePosition(listeReecrite_, LireCodePosition(liste.data() + p) + cumul_, largeur_);
        }
        bool nouvelle;
        if (const auto it = balises_.index.find(balise); it != balises_.index.end()) {
            AjouterCompte(it->second, compte);
            if (sansPositions) courts_.Ajouter(it->second, partition_, compte);
            return;
        }
        // First appearance of the tag: its form, lemma and category keys.
        const AttributsJeton a = LireAttributs(balise);
        if (plier_) Minusculiser(a.f, formePliee_);
        else formePliee_ = a.f;
        const Casier casier = CalculerCasier(formePliee_);
        const std::uint32_t id = balises_.Trouver(balise, casier, nouvelle);
        InfoBalise info;
        info.forme = formes_.Trouver(formePliee_, casier, nouvelle);
        formes_.entrees[info.forme].colonne.append(balise);
        const std::size_t souligne = a.l.rfind('_');
        if (!a.l.empty() && souligne != std::string::npos) {
            const std::string_view lemme = std::string_view(a.l).substr(0, souligne);
            const std::uint32_t l = lemmes_.Trouver(a.l, CalculerCasier(lemme), nouvelle);
            lemmes_.entrees[l].colonne.append(balise);
            info.lemme = l;
            if (souligne != 0) {
                ClesCategories(std::string_view(a.l).substr(souligne + 1), a.x, cles_);
                info.debutCategories = static_cast<std::uint32_t>(categoriesBalises_.size());
                for (const auto& [cle, passes] : cles_) {
                    const std::uint32_t c = categories_.Trouver(cle, Casier{1, 1}, nouvelle);
                    categories_.entrees[c].colonne.append(balise);
                    categoriesBalises_.emplace_back(c, passes);
                }
                info.nbCategories = static_cast<std::uint32_t>(cles_.size());
            }
        }
        infos_.push_back(info);
        AjouterCompte(id, compte);
        if (sansPositions) courts_.Ajouter(id, partition_, compte);
    }

    void AjouterCompte(std::uint32_t id, long long compte) {
        auto& b = balises_.entrees[id];
        b.compte += compte;
        b.colonne.append(listeReecrite_);
        const InfoBalise& info = infos_[id];
        formes_.entrees[info.forme].compte += compte;
        if (info.lemme >= 0) lemmes_.entrees[static_cast<std::size_t>(info.lemme)].compte += compte;
        for (std::uint32_t c = 0; c < info.nbCategories; ++c) {
            const auto& [cat, passes] = categoriesBalises_[info.debutCategories + c];
            categories_.entrees[cat].compte += compte * passes;
        }
    }

    void EcrireMeta() {
        EcrivainFichier index(dossier_ / "METADONNEES_QORX" / "index.txt");
        for (std::size_t v = 0; v < variables_.size(); ++v) {
            index.Ligne(variables_[v]);
            EcrivainFichier f(Chemin(dossier_ / "METADONNEES_QORX", Joindre(variables_[v], ".txt")));
            const auto& colonne = valeurs_[v];
            for (long long p = 1; p <= partition_; ++p)
                f.Ligne(p <= static_cast<long long>(colonne.size()) ? std::string_view(colonne[static_cast<std::size_t>(p - 1)])
                                                                    : std::string_view());
            f.Fermer();
        }
        index.Fermer();
    }

    // Each bucket file is made whole in memory, then written by a writer thread.
    void EcrireTable(const TableCasiers& table, const std::filesystem::path& dossier, int voie) {
        for (int l = 1; l <= NB_LONGUEURS; ++l)
            for (int c = 1; c <= NB_LETTRES; ++c) {
                const Casier casier{c, l};
                const auto& ids = table.ordre[static_cast<std::size_t>(IndiceCasier(casier))];
                std::size_t taille = 0;
                for (const std::uint32_t id : ids)
                    taille += table.entrees[id].cle.size() + table.entrees[id].colonne.size() + 26;
                std::string contenu;
                contenu.reserve(taille);
                for (const std::uint32_t id : ids) {
                    const auto& e = table.entrees[id];
                    contenu += e.cle;
                    contenu += '\t';
                    contenu += Nombre(e.compte);
                    contenu += '\t';
                    contenu += e.colonne;
                    contenu += "\r\n";
                }
                fond_.Ecrire(dossier / NomFichierCasier(casier), std::move(contenu), voie);
            }
    }

    // LEXINDEX_COURTS: the per-partition counts of the tags whose segment list was "!", in the
    // order of LEXINDEX. Only buckets that have some are written.
    void EcrireCourts() {
        long long total = 0;
        std::string colonne;
        for (int l = 1; l <= NB_LONGUEURS; ++l)
            for (int c = 1; c <= NB_LETTRES; ++c) {
                const Casier casier{c, l};
                std::string contenu;
                for (const std::uint32_t id : balises_.ordre[static_cast<std::size_t>(IndiceCasier(casier))]) {
                    if (!courts_.Colonne(id, total, colonne)) continue;
                    contenu += balises_.entrees[id].cle;
                    contenu += '\t';
                    contenu += Nombre(total);
                    contenu += '\t';
                    contenu += colonne;
                    contenu += "\r\n";
                }
                if (contenu.empty()) continue;
                fichiersCourts_.push_back(NomFichierCasier(casier));
                fond_.Ecrire(dossier_ / kDossierCourts / fichiersCourts_.back(), std::move(contenu), 1);
            }
    }

    void EcrireTables() {
        EcrireTable(balises_, dossier_ / "LEXINDEX", 0);
        EcrireCourts();
        EcrireTable(formes_, dossier_ / "LEXINDEX_F", 1);
        EcrireTable(lemmes_, dossier_ / "LEXINDEX_L", 0);
        EcrivainFichier f(dossier_ / "LEXINDEX_C" / "CATEG.txt");
        for (const auto& e : categories_.entrees) f.Ligne(Joindre(e.cle, "\t", Nombre(e.compte), "\t", e.colonne));
        f.Fermer();
    }

    struct EntreeDico {
        std::string cle;
        const std::string* texte;
        long long compte;
    };

    // The entries of a table by initial (1 to 26) of their folded key, each list in key order,
    // equal keys in bucket order.
    static std::array<std::vector<EntreeDico>, 27> Trier(const TableCasiers& table) {
        std::array<std::vector<EntreeDico>, 27> listes;
        for (int l = 1; l <= NB_LONGUEURS; ++l)
            for (int c = 1; c <= NB_LETTRES; ++c)
                for (const std::uint32_t id : table.ordre[static_cast<std::size_t>(IndiceCasier({c, l}))]) {
                    const auto& e = table.entrees[id];
                    std::string cle = SansAccent(e.cle);
                    const int rang = RangLettre(cle);
                    if (rang == 0) continue;  // no dictionary shows it
                    listes[static_cast<std::size_t>(rang)].push_back({std::move(cle), &e.cle, e.compte});
                }
        for (auto& liste : listes)
            std::stable_sort(liste.begin(), liste.end(),
                             [](const EntreeDico& a, const EntreeDico& b) { return a.cle < b.cle; });
        return listes;
    }

    void EcrireDictionnaires() {
        const std::filesystem::path dico = dossier_ / "DICTIONNAIRES";
        std::vector<std::string> horsLimite;  // kept from the forms into the lemmas
        std::vector<std::string> creneaux(static_cast<std::size_t>(MAX_FREQUENCE) + 1);
        auto passer = [&](const std::vector<EntreeDico>& liste, EcrivainFichier& lettre, bool plafonner) {
            for (const auto& e : liste) {
                const std::string ligne = Joindre(Nombre(e.compte), "\t", *e.texte);
                if (e.compte > MAX_FREQUENCE) horsLimite.push_back(ligne);
                else if (e.compte >= 1) creneaux[static_cast<std::size_t>(e.compte)].append(ligne).append("\r\n");
                lettre.Ligne(plafonner && e.compte > MAX_FREQUENCE ? Joindre(Nombre(MAX_FREQUENCE), "\t", *e.texte)
                                                                   : ligne);
            }
        };
        auto frequentiel = [&](const std::string& nom) {
            EcrivainFichier f(dico / nom);
            for (const auto& l : horsLimite) f.Ligne(l);
            for (long long n = MAX_FREQUENCE; n >= 1; --n) {
                auto& c = creneaux[static_cast<std::size_t>(n)];
                f.Ecrire(c);
                c.clear();
            }
            f.Fermer();
        };
        auto nomLettre = [](int initiale, const char* suffixe) {
            return Joindre(std::string(1, static_cast<char>('A' + initiale - 1)), suffixe);
        };
        {
            const auto listes = Trier(formes_);
            for (int i = 1; i <= 22; ++i) {
                EcrivainFichier f(dico / nomLettre(i, "_FORMES.txt"));
                passer(listes[static_cast<std::size_t>(i)], f, false);
            }
            EcrivainFichier w(dico / "W_FORMES.txt");
            for (int i = 23; i <= 26; ++i) passer(listes[static_cast<std::size_t>(i)], w, false);
            w.Fermer();
            frequentiel("FREQUENTIEL_FORMES.txt");
        }
        {
            const auto listes = Trier(lemmes_);
            // The lemma letter files run to W, and W is then made again for W to Z: the lemmas
            // in W pass twice through the frequency slots.
            for (int i = 1; i <= 23; ++i) {
                EcrivainFichier f(dico / nomLettre(i, "_LEMMES.txt"));
                passer(listes[static_cast<std::size_t>(i)], f, true);
            }
            EcrivainFichier w(dico / "W_LEMMES.txt");
            for (int i = 23; i <= 26; ++i) passer(listes[static_cast<std::size_t>(i)], w, true);
            w.Fermer();
            frequentiel("FREQUENTIEL_LEMMES.txt");
        }
    }

    std::filesystem::path dossier_;
    bool plier_;
    int largeur_;
    EcritureDeFond fond_;
    std::optional<EcrivainFichier> controle_, lonparts_;
    std::array<std::string, 4> tampons_;
    LigneJetons jetons_;
    long long partition_ = 0, cumul_ = 0, tranche_ = 1, dansTranche_ = 0;
    std::string tranche_texte_;
    bool trancheEcrite_ = false;
    std::vector<std::string> variables_;
    std::vector<std::vector<std::string>> valeurs_;
    int derniereVariable_ = -1;
    std::string listeReecrite_, formePliee_, affiche_;
    TableCasiers balises_, formes_, lemmes_, categories_;
    std::vector<InfoBalise> infos_;
    RelevesCourts courts_;
    std::vector<std::string> fichiersCourts_;
    std::vector<std::pair<std::uint32_t, int>> categoriesBalises_;
    std::vector<std::pair<std::string, int>> cles_;
};

}  // namespace

std::filesystem::path DossierIndex(const ListeTextes& liste) {
    return Chemin(liste.doss_racine, Joindre(liste.nom, "_QORX_INDEX"));
}

long long CompterJetonsCorpus(const ListeTextes& liste) {
    const auto olbrin = liste.doss_racine / "OLBRIN_TT" / "NB_PARTITIONS";
    std::string contenu;
    long long total = 0;
    for (const auto& nom : liste.noms) {
        LireFichier(Chemin(olbrin, Joindre(nom, ".txt")), contenu);
        LecteurLignes l(contenu);
        std::string_view ligne;
        while (l.Suivante(ligne)) total += ValeurEntiere(ligne);
    }
    return total;
}

void ConstruireIndex(const ListeTextes& liste, const std::filesystem::path& dossier, bool plier, Dialogue& dialogue,
                     int largeur) {
    const auto olbrin = liste.doss_racine / "OLBRIN_TT";
    const bool neuf = std::filesystem::is_empty(dossier);
    // The index is marked as half-made until its last file is written: the opening refuses it.
    MarqueChantier marque(MarqueIndexExploration(dossier), "Indexer");
    // The width of the position codes is fixed before any list is written: the token count
    // of the whole corpus decides it.
    if (largeur == 0) largeur = LargeurCodePour(CompterJetonsCorpus(liste));
    if (largeur != LARGEUR_CODE_COURTE && largeur != LARGEUR_CODE_LONGUE)
        throw ErreurExecution(Joindre("Largeur des codes de position impossible : "_cp, Nombre(largeur)));
    Constructeur c(dossier, plier, largeur, neuf);
    c.Commencer();
    const long long n = static_cast<long long>(liste.noms.size());
    for (long long i = 0; i < n; ++i) {
        dialogue.Progression(Joindre("Indexation. Fichier "_cp, Nombre(i + 1), " de "_cp, Nombre(n)), i + 1, n);
        c.Texte(olbrin, liste.noms[static_cast<std::size_t>(i)]);
    }
    c.Terminer();
    c.RetirerRestes();
    marque.Achever();
}


void OperationIndexExploration(Contexte& ctx) {
    const auto reponse = ctx.dialogue.Demander("Discriminer les majuscules (O/N) ? Exemple API, Phnong, etc ?"_cp,
                                               "INDEXATION"_cp, "N");
    const bool plier = reponse && *reponse == "N";
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    const auto dossier = DossierIndex(*liste);
    // Half-made derived files are refused before an existing index is destroyed.
    if (DossierExiste(liste->doss_racine / "OLBRIN_TT")) ExigerIndexationComplete(liste->doss_racine / "OLBRIN_TT");
    if (DossierExiste(dossier)) {
        const auto r = ctx.dialogue.Demander(
            "Il existe déjà un dossier d'indexation au nom de ce corpus. Si vous souhaitez créer un nouvel index, l'existant sera détruit."_cp,
            "INDEXATION EXISTANTE !"_cp, "N");
        if (!r || *r != "O") throw FinProgramme(std::string("Indexation abandonnée : l'index existant est conservé."_cp));
        // The old tree is written over in place: its files are rewritten, and the builder then
        // removes those the new index does not have. Until then the mark refuses the index.
    }
    CreerDossier(dossier);
    ConstruireIndex(*liste, dossier, plier, ctx.dialogue);
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher(Joindre("Indexation terminée en "_cp, TexteDuree(debut, ctx.horloge, Copie::Exploration)));
}

}  // namespace telvoris
