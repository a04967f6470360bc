#include "solver/matrice.hpp"

#include <cstdio>
#include <cstring>
#include <memory>

#include "solver/nombres.hpp"

namespace axisolve {

namespace {

// Lines of a text held in memory or of a file read by blocks; a line ends at CR LF, CR or LF.
class LecteurLignes {
public:
    explicit LecteurLignes(std::string_view texte) : donnees_(texte.data()), fin_(texte.size()), complet_(true) {}
    LecteurLignes(const std::string& chemin, std::FILE* f) : chemin_(chemin), fichier_(f), tampon_(1 << 22) {
        donnees_ = tampon_.data();
    }
    ~LecteurLignes() {
        if (fichier_) std::fclose(fichier_);
    }
    LecteurLignes(const LecteurLignes&) = delete;
    LecteurLignes& operator=(const LecteurLignes&) = delete;

    bool Suivante(std::string_view& ligne) {
        while (true) {
            // The next LF and the next CR are remembered, so that a file whose lines all end the
            // other way is not searched again for each line.
            if (lf_ < debut_ || lf_ == 0) lf_ = Chercher('\n');
            if (cr_ < debut_ || cr_ == 0) cr_ = Chercher('\r');
            const std::size_t borne = std::min(lf_, cr_);
            if (borne < fin_ && (borne == lf_ || borne + 1 < fin_ || complet_)) {
                ligne = std::string_view(donnees_ + debut_, borne - debut_);
                debut_ = borne + 1;
                if (borne == cr_ && debut_ < fin_ && donnees_[debut_] == '\n') ++debut_;
                return true;
            }
            if (complet_) {
                if (debut_ >= fin_) return false;
                ligne = std::string_view(donnees_ + debut_, fin_ - debut_);
                debut_ = fin_;
                return true;
            }
            Remplir();
        }
    }

private:
    std::size_t Chercher(char c) const {
        const void* p = std::memchr(donnees_ + debut_, c, fin_ - debut_);
        return p ? static_cast<std::size_t>(static_cast<const char*>(p) - donnees_) : fin_ + Loin;
    }

    // Keeps the unread part at the front, grows the buffer for a line longer than it, reads on.
    void Remplir() {
        const std::size_t reste = fin_ - debut_;
        if (debut_ > 0) std::memmove(tampon_.data(), tampon_.data() + debut_, reste);
        if (reste == tampon_.size()) tampon_.resize(tampon_.size() * 2);
        donnees_ = tampon_.data();
        debut_ = 0;
        fin_ = reste;
        const std::size_t lus = std::fread(tampon_.data() + fin_, 1, tampon_.size() - fin_, fichier_);
        if (lus == 0) {
            if (std::ferror(fichier_)) throw ErreurSolveur("Lecture impossible : " + chemin_);
            complet_ = true;
        }
        fin_ += lus;
        lf_ = cr_ = 0;  // searched again in what was read
    }

    static constexpr std::size_t Loin = static_cast<std::size_t>(1) << 62;
    std::string chemin_;
    std::FILE* fichier_ = nullptr;
    std::vector<char> tampon_;
    const char* donnees_ = nullptr;
    std::size_t debut_ = 0, fin_ = 0;
    std::size_t lf_ = 0, cr_ = 0;
    bool complet_ = false;
};

std::string Nombre(long long n) { return std::to_string(n); }

// Where a cell stands: rows are numbered as in the messages of the AFC run (the first row under
// the header is row 1), with the file's own line number beside it.
std::string OuDansMatrice(long long ligneFichier, std::size_t colonne, const std::string& src) {
    std::string r = "Ligne " + Nombre(ligneFichier - 1);
    if (colonne > 0) r += ", colonne " + Nombre(static_cast<long long>(colonne));
    return r + " de la matrice (ligne " + Nombre(ligneFichier) + " du fichier " + src + ")";
}

// Column names from line 1.
void LireEnTete(LecteurLignes& l, const std::string& src, Matrice& m) {
    std::string_view ligne;
    if (!l.Suivante(ligne) || ligne.empty()) throw ErreurSolveur("Matrice vide ou sans ligne d'en-tête : " + src);
    const std::size_t tab = ligne.find('\t');
    if (tab == std::string_view::npos)
        throw ErreurSolveur("La ligne d'en-tête de " + src + " ne porte aucun nom de colonne (aucune tabulation).");
    std::string_view reste = ligne.substr(tab + 1);
    while (true) {
        const std::size_t t = reste.find('\t');
        m.colonnes.emplace_back(reste.substr(0, t));
        if (t == std::string_view::npos) break;
        reste.remove_prefix(t + 1);
    }
}

// Rows under the header, up to the last line that is not empty.
std::size_t CompterLignes(LecteurLignes& l) {
    std::string_view ligne;
    std::size_t lues = 0, utiles = 0;
    while (l.Suivante(ligne)) {
        ++lues;
        if (!ligne.empty()) utiles = lues;
    }
    return utiles;
}

void LireLignes(LecteurLignes& l, const std::string& src, std::size_t n, Matrice& m) {
    const std::size_t p = m.colonnes.size();
    m.n.resize(static_cast<Eigen::Index>(n), static_cast<Eigen::Index>(p));
    m.lignes.reserve(n);
    std::string_view ligne;
    long long numero = 1;
    for (std::size_t i = 0; i < n; ++i) {
        if (!l.Suivante(ligne)) throw ErreurSolveur("Le fichier " + src + " a changé pendant sa lecture.");
        ++numero;
        double* cellules = m.n.row(static_cast<Eigen::Index>(i)).data();
        const char* tab = static_cast<const char*>(std::memchr(ligne.data(), '\t', ligne.size()));
        const char* finLigne = ligne.data() + ligne.size();
        m.lignes.emplace_back(ligne.data(), tab ? tab : finLigne);
        std::size_t lues = 0;
        if (tab) {
            const char* debut = tab + 1;
            while (true) {
                const char* t = static_cast<const char*>(std::memchr(debut, '\t', static_cast<std::size_t>(finLigne - debut)));
                const char* finCellule = t ? t : finLigne;
                ++lues;
                if (lues <= p) {
                    const std::string_view cellule(debut, static_cast<std::size_t>(finCellule - debut));
                    double v;
                    bool negatif;
                    if (!LireCellule(cellule, v, negatif))
                        throw ErreurSolveur(OuDansMatrice(numero, lues, src) + " : « " + std::string(cellule) +
                                            " » n'est pas un nombre.");
                    if (negatif)
                        throw ErreurSolveur(OuDansMatrice(numero, lues, src) + " : valeur négative « " +
                                            std::string(cellule) + " ».");
                    cellules[lues - 1] = v;
                }
                if (!t) break;
                debut = t + 1;
            }
        }
        if (lues != p)
            throw ErreurSolveur(OuDansMatrice(numero, 0, src) + " : " + Nombre(static_cast<long long>(lues)) +
                                " cellules pour " + Nombre(static_cast<long long>(p)) + " colonnes.");
    }
}

std::FILE* Ouvrir(const std::string& chemin) {
    std::FILE* f = std::fopen(chemin.c_str(), "rb");
    if (!f) throw ErreurSolveur("Fichier introuvable ou illisible : " + chemin);
    return f;
}

}  // namespace

Matrice LireMatrice(std::string_view texte, std::string_view source) {
    const std::string src(source);
    Matrice m;
    std::size_t n;
    {
        LecteurLignes l(texte);
        LireEnTete(l, src, m);
        n = CompterLignes(l);
    }
    LecteurLignes l(texte);
    std::string_view entete;
    l.Suivante(entete);
    LireLignes(l, src, n, m);
    return m;
}

Matrice LireFichierMatrice(const std::string& chemin) {
    Matrice m;
    std::size_t n;
    {
        LecteurLignes l(chemin, Ouvrir(chemin));
        LireEnTete(l, chemin, m);
        n = CompterLignes(l);
    }
    LecteurLignes l(chemin, Ouvrir(chemin));
    std::string_view entete;
    l.Suivante(entete);
    LireLignes(l, chemin, n, m);
    return m;
}

}  // namespace axisolve
