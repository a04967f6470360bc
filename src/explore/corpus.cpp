#include "explore/corpus.hpp"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <fstream>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/reprise.hpp"
#include "core/jetons.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"

namespace telvoris {

namespace {

std::vector<std::string> LignesFichier(const std::filesystem::path& f) {
    const std::string contenu = LireFichier(f);
    std::vector<std::string> lignes;
    LecteurLignes l(contenu);
    std::string_view ligne;
    while (l.Suivante(ligne)) lignes.emplace_back(ligne);
    return lignes;
}

// A file mapped read-only, for the one-line-per-partition files of large corpora: its bytes are
// parsed where the system keeps them, without a copy the size of the file.
class FichierProjete {
public:
    explicit FichierProjete(const std::filesystem::path& f) {
        const int fd = ::open(f.c_str(), O_RDONLY | O_CLOEXEC);
        struct stat st {};
        if (fd >= 0 && ::fstat(fd, &st) == 0 && st.st_size > 0) {
            void* p = ::mmap(nullptr, static_cast<std::size_t>(st.st_size), PROT_READ, MAP_PRIVATE | MAP_POPULATE, fd, 0);
            if (p != MAP_FAILED) {
                adresse_ = p;
                taille_ = static_cast<std::size_t>(st.st_size);
            }
        }
        if (fd >= 0) ::close(fd);
        // An empty file, or one that cannot be mapped, is read the ordinary way, which also
        // gives the usual error for a missing one.
        if (!adresse_) copie_ = LireFichier(f);
    }
    ~FichierProjete() {
        if (adresse_) ::munmap(adresse_, taille_);
    }
    FichierProjete(const FichierProjete&) = delete;
    FichierProjete& operator=(const FichierProjete&) = delete;
    std::string_view Texte() const {
        return adresse_ ? std::string_view(static_cast<const char*>(adresse_), taille_) : std::string_view(copie_);
    }

private:
    void* adresse_ = nullptr;
    std::size_t taille_ = 0;
    std::string copie_;
};

// The first line of a file, read by blocks until its end: a variable's file has one line per
// partition, hundreds of thousands on a large corpus. A file that cannot be opened is the
// error that reading it whole gives.
std::string PremiereLigne(const std::filesystem::path& f) {
    std::ifstream in(f, std::ios::binary);
    if (!in) return LireFichier(f);
    std::string debut;
    char tampon[4096];
    while (in) {
        in.read(tampon, sizeof tampon);
        debut.append(tampon, static_cast<std::size_t>(in.gcount()));
        if (debut.find_first_of("\r\n") != std::string::npos) break;
    }
    return std::string(debut.substr(0, debut.find_first_of("\r\n")));
}

// The decimal text of v, without going through a temporary string.
void Decimal(std::string& s, long long v) {
    char tampon[24];
    s.append(tampon, std::to_chars(tampon, tampon + sizeof tampon, v).ptr);
}

bool EstDate(std::string_view nom) { return nom == "DATE" || nom == "Date" || nom == "date"; }
bool EstTitre(std::string_view nom) { return nom == "TITRE" || nom == "Titre" || nom == "titre"; }

}  // namespace

const TableIndex::Ligne* TableIndex::Trouver(std::string_view cle) const {
    const auto it = index.find(cle);
    return it == index.end() ? nullptr : &lignes[it->second];
}

std::unique_ptr<TableIndex> LireTableIndex(const std::filesystem::path& fichier) {
    auto t = std::make_unique<TableIndex>();
    const std::string contenu = LireFichier(fichier);
    t->octets = contenu.size();
    LecteurLignes l(contenu);
    std::string_view ligne;
    while (l.Suivante(ligne)) {
        if (ligne.empty()) continue;
        const std::size_t t1 = ligne.find('\t');
        const std::size_t t2 = t1 == std::string_view::npos ? t1 : ligne.find('\t', t1 + 1);
        TableIndex::Ligne e;
        e.cle.assign(ligne.substr(0, t1));
        if (t1 != std::string_view::npos) e.compte = ValeurEntiere(ligne.substr(t1 + 1));
        if (t2 != std::string_view::npos) e.colonne.assign(ligne.substr(t2 + 1));
        t->lignes.push_back(std::move(e));
    }
    for (std::size_t i = 0; i < t->lignes.size(); ++i) t->index.emplace(t->lignes[i].cle, i);
    return t;
}

long long EtatCorpus::PartitionDe(long long position) const {
    if (CUMUL_MOTS.size() < 2) return 0;
    const auto it = std::lower_bound(CUMUL_MOTS.begin() + 1, CUMUL_MOTS.end(), position);
    if (it == CUMUL_MOTS.end()) return NB_PARTS;
    return static_cast<long long>(it - CUMUL_MOTS.begin());
}

long long EtatCorpus::PartitionDepuis(long long position, long long p) const {
    if (p < 1 || p > NB_PARTS || position <= CUMUL_MOTS[static_cast<std::size_t>(p - 1)]) return PartitionDe(position);
    // A few steps forward cover words seen in every partition; further, a binary search on the rest.
    for (int pas = 0; pas < 8 && p < NB_PARTS && CUMUL_MOTS[static_cast<std::size_t>(p)] < position; ++pas) ++p;
    if (CUMUL_MOTS[static_cast<std::size_t>(p)] >= position) return p;
    const auto it = std::lower_bound(CUMUL_MOTS.begin() + p + 1, CUMUL_MOTS.end(), position);
    if (it == CUMUL_MOTS.end()) return NB_PARTS;
    return static_cast<long long>(it - CUMUL_MOTS.begin());
}

const TableIndex& EtatCorpus::Table(DossierIndexe dossier, Casier casier) {
    const int cle = static_cast<int>(dossier) * NB_CASIERS + IndiceCasier(casier);
    auto& t = tables_[cle];
    if (!t) {
        static const char* const kNoms[] = {"LEXINDEX", "LEXINDEX_F", "LEXINDEX_L"};
        if (casier.lettre < 1 || casier.longueur < 1) t = std::make_unique<TableIndex>();
        else t = LireTableIndex(PATH_INDEX / kNoms[static_cast<int>(dossier)] / NomFichierCasier(casier));
        if (dossier == DossierIndexe::Balises) octetsBalises_ += t->octets;
    }
    return *t;
}

void EtatCorpus::AlleguerTables() {
    if (octetsBalises_ <= MAX_OCTETS_TABLES_BALISES) return;
    std::erase_if(tables_, [](const auto& t) { return t.first < NB_CASIERS; });
    octetsBalises_ = 0;
}

const TableIndex& EtatCorpus::Categories() {
    if (!categories_) categories_ = LireTableIndex(PATH_INDEX / "LEXINDEX_C" / "CATEG.txt");
    return *categories_;
}

EtatCorpus OuvrirCorpus(const std::filesystem::path& liste) {
    EtatCorpus e;
    e.PATH_INDEX = CheminIndex(std::filesystem::absolute(liste).lexically_normal());
    bool complet = DossierExiste(e.PATH_INDEX);
    for (const char* d : {"LEXINDEX", "LEXINDEX_F", "LEXINDEX_L", "LEXINDEX_C", "TEXTE_AFFICHE", "DICTIONNAIRES",
                          "METADONNEES_QORX", "TEXTE_ETIQUETE", "SAUVEGARDES"})
        complet = complet && DossierExiste(e.PATH_INDEX / d);
    if (!complet)
        throw FinProgramme(std::string("Un dossier d'indexation manque dans 'OLBRIN_TT'. Rédindexez et recommencez."_cp));
    ExigerIndexExplorationComplet(e.PATH_INDEX);
    e.LARGEUR_CODE = LireLargeurCode(e.PATH_INDEX);
    const auto index = e.PATH_INDEX / "METADONNEES_QORX" / "index.txt";
    if (FichierExiste(index)) {
        for (auto& nom : LignesFichier(index)) {
            if (nom.empty()) continue;
            if (EstDate(nom)) e.exempleDate = PremiereLigne(Chemin(e.PATH_INDEX / "METADONNEES_QORX", Joindre(nom, ".txt")));
            e.variables.push_back(std::move(nom));
        }
    }
    return e;
}

std::string TexteInstructionsVariables() {
    return Joindre("  Cochez à gauche les variables que vous souhaitez voir affichées"_cp, "\r\n",
                   "dans la barre de titre de navigation pour chaque section."_cp, "\r\n",
                   "  Sélectionnez à droite"_cp, "une seule variable à retenir"_cp, "\r\n",
                   "pour la mise en contraste de partitions."_cp);
}

void LireDecoupageDate(std::string_view r, int& debut, int& longueur) {
    if (r.find_first_not_of("0123456789-") != std::string_view::npos)
        throw FinProgramme(std::string("Vous ne devez saisir que des chiffres. Recommencez"_cp));
    if (r.find('-') == std::string_view::npos)
        throw FinProgramme(std::string("Vous devez séparer les deux rubriques de votre réponse par un tiret. Recommencez"_cp));
    const auto morceaux = Decouper(r, "-");
    const long long d = std::min(ValeurEntiere(morceaux[0]), 1000000LL);
    const long long n = std::min(ValeurEntiere(morceaux[1]), 1000000LL);
    if (n == 0)
        throw FinProgramme(std::string("Le nombre de caractères pertinents ne peut être égal à zéro. Recommencez"_cp));
    if (d < 1)
        throw ErreurExecution(std::string("Découpage de la date impossible : le premier caractère doit être au moins 1"_cp));
    debut = static_cast<int>(d);
    longueur = static_cast<int>(n);
}

void ValiderCorpus(EtatCorpus& e, const ChoixVariables& choix, Dialogue& dialogue) {
    // Partitions and their shares.
    {
        // Parsed in place: one line per partition, hundreds of thousands on a large corpus.
        const FichierProjete fichier(e.PATH_INDEX / "LONPARTS_M.txt");
        const std::string_view contenu = fichier.Texte();
        e.CUMUL_MOTS.assign(1, 0);
        e.CUMUL_MOTS.reserve(static_cast<std::size_t>(std::count(contenu.begin(), contenu.end(), '\n')) + 2);
        // Lines end at CR LF, CR or LF, as everywhere; a line of plain digits, which is what
        // the builder writes, is read on the spot, anything else as any number is.
        const char* c = contenu.data();
        const char* const fin = c + contenu.size();
        while (c < fin) {
            const char* const debut = c;
            long long v = 0;
            while (c < fin && *c >= '0' && *c <= '9' && c - debut < 18) v = v * 10 + (*c++ - '0');
            const char* const finChiffres = c;
            while (c < fin && *c != '\r' && *c != '\n') ++c;
            e.CUMUL_MOTS.push_back(c > debut && finChiffres == c
                                       ? v
                                       : ValeurEntiere(std::string_view(debut, static_cast<std::size_t>(c - debut))));
            if (c < fin) c += (*c == '\r' && c + 1 < fin && c[1] == '\n') ? 2 : 1;
        }
    }
    e.NB_PARTS = static_cast<long long>(e.CUMUL_MOTS.size()) - 1;
    const auto n = static_cast<std::size_t>(e.NB_PARTS) + 1;
    e.LONG_PART.assign(n, 0);
    e.PART_CORPUS.assign(n, 0.0);
    for (std::size_t p = 1; p < n; ++p) e.LONG_PART[p] = e.CUMUL_MOTS[p] - e.CUMUL_MOTS[p - 1];
    e.NB_MOTS = e.NB_PARTS > 0 ? e.CUMUL_MOTS[n - 1] : 0;
    for (std::size_t p = 1; p < n; ++p)
        e.PART_CORPUS[p] = e.NB_MOTS > 0 ? static_cast<double>(e.LONG_PART[p]) / static_cast<double>(e.NB_MOTS) : 0.0;

    auto valeurs = [&](int v) {
        auto lignes = LignesFichier(Chemin(e.PATH_INDEX / "METADONNEES_QORX", Joindre(e.variables[static_cast<std::size_t>(v)], ".txt")));
        lignes.resize(n - 1);
        return lignes;
    };
    auto verifier = [&](int v) {
        if (v < 0 || v >= static_cast<int>(e.variables.size()))
            throw ErreurExecution(Joindre("Variable inconnue : n° "_cp, Nombre(v)));
    };

    // Titles: a title variable goes in front, the others behind, each as "name=value ||| ".
    e.TITRE_PART.assign(choix.titresPartitions ? n : 0, std::string());
    std::vector<int> titres = choix.titres;
    std::sort(titres.begin(), titres.end());
    titres.erase(std::unique(titres.begin(), titres.end()), titres.end());
    for (const int v : titres) {
        verifier(v);
        if (!choix.titresPartitions) continue;
        const std::string& nom = e.variables[static_cast<std::size_t>(v)];
        const auto vals = valeurs(v);
        for (std::size_t p = 1; p < n; ++p) {
            const std::string& val = vals[p - 1];
            std::string morceau = Joindre(nom, "=", val.empty() ? std::string_view("?") : std::string_view(val), " ||| ");
            if (EstTitre(nom)) e.TITRE_PART[p] = morceau + e.TITRE_PART[p];
            else e.TITRE_PART[p] += morceau;
        }
    }
    for (std::size_t p = 1; p < e.TITRE_PART.size(); ++p) {
        std::string& t = e.TITRE_PART[p];
        std::string titre;
        titre.reserve(t.size() + 12);
        Decimal(titre, static_cast<long long>(p));
        titre += ". ";
        titre += t;
        titre.resize(titre.size() - (titre.ends_with("||| ") ? 5 : 1));
        t = std::move(titre);
    }

    // Contrast classes.
    e.NB_CLASSES = 0;
    e.VALEUR_CLASSE.assign(1, std::string());
    e.LONG_CLASSE.assign(1, 0);
    e.PARTITIONS_CLASSE.assign(1, {});
    e.CLASSE_PART.assign(n, 0);
    e.texteContraste.clear();
    e.variableContraste.clear();
    e.DATE_DEBUT = e.DATE_LONG = 0;
    if (choix.contraste) {
        const int v = *choix.contraste;
        verifier(v);
        const std::string& nom = e.variables[static_cast<std::size_t>(v)];
        e.variableContraste = nom;
        bool coupe = false;
        if (EstDate(nom)) {
            const auto r = dialogue.Demander(
                Joindre("Quelle partie de la date est-elle à prendre en compte ? Le format de date est : "_cp, e.exempleDate,
                        ". Inscrivez le n° du 1er caractère  "_cp,
                        "pertinent, un tiret puis le nombre de caractères à retenir."_cp),
                "DATE", "1-4");
            LireDecoupageDate(r.value_or(""), e.DATE_DEBUT, e.DATE_LONG);
            coupe = true;
        }
        const auto vals = valeurs(v);
        std::unordered_map<std::string, int> classes;
        for (std::size_t p = 1; p < n; ++p) {
            std::string val = vals[p - 1];
            if (coupe) {
                const auto d = static_cast<std::size_t>(e.DATE_DEBUT - 1);
                val = d < val.size() ? val.substr(d, static_cast<std::size_t>(e.DATE_LONG)) : std::string();
            }
            auto [it, nouvelle] = classes.emplace(val, e.NB_CLASSES + 1);
            if (nouvelle) {
                if (e.NB_CLASSES >= MAX_CLASSES) LimiteDepassee("MAX_CLASSES", MAX_CLASSES, "classes de contraste");
                ++e.NB_CLASSES;
                e.VALEUR_CLASSE.push_back(val);
                e.LONG_CLASSE.push_back(0);
                e.PARTITIONS_CLASSE.emplace_back();
            }
            e.LONG_CLASSE[static_cast<std::size_t>(it->second)] += e.LONG_PART[p];
            e.PARTITIONS_CLASSE[static_cast<std::size_t>(it->second)].push_back(static_cast<long long>(p));
            e.CLASSE_PART[p] = it->second;
        }
        if (nom == "DATE") {
            // Only the upper-case name sorts its classes, by value as plain text.
            std::vector<int> ordre(static_cast<std::size_t>(e.NB_CLASSES));
            for (int c = 0; c < e.NB_CLASSES; ++c) ordre[static_cast<std::size_t>(c)] = c + 1;
            std::stable_sort(ordre.begin(), ordre.end(), [&](int a, int b) {
                return e.VALEUR_CLASSE[static_cast<std::size_t>(a)] < e.VALEUR_CLASSE[static_cast<std::size_t>(b)];
            });
            std::vector<int> rang(static_cast<std::size_t>(e.NB_CLASSES) + 1);
            auto valeursTriees = e.VALEUR_CLASSE;
            auto longueurs = e.LONG_CLASSE;
            auto partitions = e.PARTITIONS_CLASSE;
            for (int r = 1; r <= e.NB_CLASSES; ++r) {
                const auto ancien = static_cast<std::size_t>(ordre[static_cast<std::size_t>(r - 1)]);
                rang[ancien] = r;
                valeursTriees[static_cast<std::size_t>(r)] = e.VALEUR_CLASSE[ancien];
                longueurs[static_cast<std::size_t>(r)] = e.LONG_CLASSE[ancien];
                partitions[static_cast<std::size_t>(r)] = e.PARTITIONS_CLASSE[ancien];
            }
            e.VALEUR_CLASSE = std::move(valeursTriees);
            e.LONG_CLASSE = std::move(longueurs);
            e.PARTITIONS_CLASSE = std::move(partitions);
            for (std::size_t p = 1; p < n; ++p) e.CLASSE_PART[p] = rang[static_cast<std::size_t>(e.CLASSE_PART[p])];
        }
        e.texteContraste = Joindre(nom, "\r\n");
    }
    e.PART_CLASSE.assign(static_cast<std::size_t>(e.NB_CLASSES) + 1, 0.0);
    for (int c = 1; c <= e.NB_CLASSES; ++c)
        e.PART_CLASSE[static_cast<std::size_t>(c)] =
            e.NB_MOTS > 0 ? static_cast<double>(e.LONG_CLASSE[static_cast<std::size_t>(c)]) / static_cast<double>(e.NB_MOTS) : 0.0;

    // Short titles for the navigator.
    e.TITRE_COURT.assign(choix.titresPartitions ? n : 0, std::string());
    e.titresCourts.clear();
    if (!choix.titresPartitions) return;
    const auto court = e.PATH_INDEX / "METADONNEES_QORX" / "TITRE_COURT.txt";
    std::vector<std::string> courts;
    const bool avecCourts = FichierExiste(court);
    if (avecCourts) courts = LignesFichier(court);
    e.titresCourts.reserve(avecCourts ? 0 : n);
    for (std::size_t p = 1; p < n; ++p) {
        if (avecCourts) e.TITRE_COURT[p] = p - 1 < courts.size() ? courts[p - 1] : std::string();
        else Decimal(e.TITRE_COURT[p], static_cast<long long>(p));
        if (p == 1 || e.TITRE_COURT[p] != e.TITRE_COURT[p - 1]) e.titresCourts.push_back(e.TITRE_COURT[p]);
    }
}

void OperationOuvrirCorpus(Contexte& ctx) {
    const auto choix = ctx.dialogue.ChoisirFichier("Ouvrir le répertoire"_cp, "Text files (*.TXT)|*.TXT"_cp);
    if (!choix || choix->empty()) return;
    EtatCorpus etat = OuvrirCorpus(*choix);
    ctx.dialogue.Afficher(TexteInstructionsVariables());
    ChoixVariables c;
    for (std::size_t v = 0; v < etat.variables.size(); ++v) {
        const auto r = ctx.dialogue.Demander(Joindre(etat.variables[v], " : afficher dans la barre de titre (O/N) ?"_cp),
                                             "choix et affichage des méta-données"_cp, "N");
        if (r && *r == "O") c.titres.push_back(static_cast<int>(v));
    }
    const auto r = ctx.dialogue.Demander("Variable retenue pour la mise en contraste de partitions (vide : aucun critère) ?"_cp,
                                         "choix et affichage des méta-données"_cp, "");
    if (r && !r->empty()) {
        const auto it = std::find(etat.variables.begin(), etat.variables.end(), *r);
        if (it == etat.variables.end()) throw ErreurExecution(Joindre("Variable inconnue : "_cp, *r));
        c.contraste = static_cast<int>(it - etat.variables.begin());
    }
    ValiderCorpus(etat, c, ctx.dialogue);
    std::string texte = Joindre(Nombre(etat.NB_PARTS), " partitions, "_cp, Nombre(etat.NB_MOTS), " occurrences."_cp);
    if (c.contraste) {
        texte += Joindre("\r\n", etat.texteContraste);
        for (int k = 1; k <= etat.NB_CLASSES; ++k)
            texte += Joindre(etat.VALEUR_CLASSE[static_cast<std::size_t>(k)], "\t",
                             Nombre(etat.LONG_CLASSE[static_cast<std::size_t>(k)]), "\r\n");
    }
    ctx.dialogue.Resultat(texte);
}

}  // namespace telvoris
