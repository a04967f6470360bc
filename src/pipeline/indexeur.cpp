#include "pipeline/indexeur.hpp"

#include <array>
#include <charconv>
#include <limits>
#include <unordered_map>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"
#include "pipeline/segmenteur.hpp"

namespace telvoris {

namespace {

constexpr std::string_view kSeparateur = "<---------->";
constexpr std::array<std::string_view, 7> kDossiers = {"TEXTE_NU", "TEXTE_MIN", "LEXINDEX", "REPERE_LIGNES",
                                                        "TEXTE_ETIQ", "NB_PARTITIONS", "METADONNEES"};

// The index of the current partition: one entry per distinct tag, kept per word bucket in the
// order of first occurrence; the tag text is the key.
class IndexPartition {
public:
    void Ajouter(std::string_view balise, CleMot cle, bool sansPositions, std::string_view position) {
        auto it = entrees_.find(balise);
        if (it == entrees_.end()) {
            it = entrees_.emplace(std::string(balise), Entree{}).first;
            ordre_[Casier(cle)].push_back(&*it);
        }
        Entree& e = it->second;
        ++e.compte;
        if (!sansPositions) e.positions.append(position);
    }

    // Writes the entries, bucket by bucket, and empties them.
    void Ecrire(EcrivainFichier& sortie) {
        std::string ligne;
        for (int longueur = 1; longueur <= MAX_CLASSE_LONGUEUR; ++longueur) {
            for (int initiale = 1; initiale <= MAX_CLASSE_INITIALE; ++initiale) {
                auto& casier = ordre_[Casier({longueur, initiale})];
                for (const auto* paire : casier) {
                    const Entree& e = paire->second;
                    ligne.assign(paire->first);
                    ligne += '\t';
                    ligne += std::to_string(e.compte);
                    ligne += '\t';
                    if (e.positions.empty()) ligne += '!';
                    else ligne += e.positions;
                    sortie.Ligne(ligne);
                }
                casier.clear();
            }
        }
        entrees_.clear();
    }

private:
    struct Entree {
        long long compte = 0;
        std::string positions;
    };
    using Table = std::unordered_map<std::string, Entree, HachageTexte, std::equal_to<>>;
    static std::size_t Casier(CleMot c) {
        return static_cast<std::size_t>(c.ClasseLongueur * (MAX_CLASSE_INITIALE + 1) + c.ClasseInitiale);
    }
    Table entrees_;
    std::array<std::vector<const Table::value_type*>, (MAX_CLASSE_LONGUEUR + 1) * (MAX_CLASSE_INITIALE + 1)> ordre_;
};

// A line shows text unless every piece after a "<" ends in ">".
bool MontreDuTexte(std::string_view etiq) {
    std::size_t p = etiq.find('<');
    while (p != std::string_view::npos) {
        const std::size_t suivant = etiq.find('<', p + 1);
        const std::size_t fin = suivant == std::string_view::npos ? etiq.size() : suivant;
        if (fin == p + 1 || etiq[fin - 1] != '>') return true;
        p = suivant;
    }
    return false;
}

void AjouterNombre(std::string& s, long long v) {
    char tampon[24];
    const auto r = std::to_chars(tampon, tampon + sizeof tampon, v);
    s.append(tampon, r.ptr);
}

// The tag rebuilt from its attributes: `tete` then "f=", f, " l=" l, " x=" x, " >".
void Reconstruire(std::string& r, std::string_view tete, const AttributsJeton& a) {
    r.append(tete);
    r += "f=";
    r += a.f;
    if (!a.l.empty()) {
        r += " l=";
        r += a.l;
    }
    if (!a.x.empty()) {
        r += " x=";
        r += a.x;
    }
    r += " >";
}

std::string_view Tete(std::string_view balise) {
    const std::size_t blanc = balise.find(' ');
    return blanc == std::string_view::npos ? balise : balise.substr(0, blanc + 1);
}

class IndexeurTexte {
public:
    IndexeurTexte(const fs::path& dossierTT, const std::string& nom, const ListeCasiers& courts)
        : courts_(courts),
          nu_(Fichier(dossierTT, "TEXTE_NU", nom)),
          min_(Fichier(dossierTT, "TEXTE_MIN", nom)),
          lex_(Fichier(dossierTT, "LEXINDEX", nom)),
          reperes_(Fichier(dossierTT, "REPERE_LIGNES", nom)),
          etiqF_(Fichier(dossierTT, "TEXTE_ETIQ", nom)),
          nbParts_(Fichier(dossierTT, "NB_PARTITIONS", nom)),
          metas_(Fichier(dossierTT, "METADONNEES", nom)) {
        for (auto* f : {&nu_, &min_, &lex_, &reperes_, &etiqF_}) f->Ligne(kSeparateur);
    }

    void Ligne(std::string_view ligne);
    void Terminer();

private:
    static fs::path Fichier(const fs::path& dossierTT, std::string_view dossier, const std::string& nom) {
        return Chemin(dossierTT, Joindre(dossier, "/", nom, ".txt"));
    }
    void NouvellePartition();

    const ListeCasiers& courts_;
    EcrivainFichier nu_, min_, lex_, reperes_, etiqF_, nbParts_, metas_;
    IndexPartition index_;
    bool metaVue_ = false;
    long long nbOccurrences_ = 0;
    long long curseur_ = 1;
    long long numeroBloc_ = 1;
    int dansBloc_ = 0;
    LigneJetons lj_;
    std::string etiq_, nu_texte_, jeton_, forme_;
};

void IndexeurTexte::NouvellePartition() {
    std::string n;
    AjouterNombre(n, nbOccurrences_);
    nbParts_.Ligne(n);
    nbOccurrences_ = 0;
    curseur_ = 1;
    index_.Ecrire(lex_);
    for (auto* f : {&lex_, &nu_, &min_, &reperes_, &etiqF_}) f->Ligne(kSeparateur);
    numeroBloc_ = 1;
    dansBloc_ = 0;
}

void IndexeurTexte::Ligne(std::string_view ligne) {
    if (EstLigneMetadonnees(ligne)) {
        metas_.Ligne(ligne);
        if (metaVue_) NouvellePartition();
        metaVue_ = true;
        etiqF_.Ligne(ligne);
        return;
    }
    if (!metaVue_) {
        // Text before the first metadata line belongs to no partition.
        etiqF_.Ligne(ligne);
        return;
    }
    // The partition bounds positions, not the line: no token limit here.
    DecouperLigne(ligne, lj_, Copie::Etiquetage, std::numeric_limits<long long>::max());
    etiq_.assign(lj_.suite[0]);
    nu_texte_.clear();
    for (int i = 1; i <= lj_.NbJetons; ++i) {
        std::string_view balise = lj_.jeton[i];
        const AttributsJeton a = LireAttributs(balise);
        if (a.avecK) {
            // An offset from an earlier indexing is rebuilt away.
            jeton_.clear();
            Reconstruire(jeton_, Tete(balise), a);
            balise = jeton_;
        }
        const std::string_view suite = lj_.suite[i];
        etiq_.append(Tete(balise));
        etiq_ += "k=";
        AjouterNombre(etiq_, curseur_);
        etiq_ += ' ';
        Reconstruire(etiq_, "", a);
        etiq_.append(suite);

        curseur_ += static_cast<long long>(a.f.size());
        nu_texte_ += a.f;
        bool blanc = false, saut = false;
        for (std::size_t p = 0; p < suite.size(); ++p) {
            if (suite[p] == ' ') blanc = true;
            else if (suite[p] == '<' && (suite.substr(p, 4) == "<br>" || suite.substr(p, 4) == "<BR>")) saut = true;
        }
        if (blanc) {
            curseur_ += 1;
            nu_texte_ += ' ';
        }
        const bool mot = balise.starts_with("<M ") || balise.starts_with("<MC ");
        if (mot || balise.starts_with("<PC ")) {
            if (++dansBloc_ > TAILLE_BLOC) {
                if (++numeroBloc_ > MAX_BLOCS)
                    LimiteDepassee("MAX_BLOCS", MAX_BLOCS, "blocs de 220 jetons dans une partition");
                dansBloc_ = 1;
            }
            ++nbOccurrences_;
        }
        if (mot) {
            Minusculiser(a.f, forme_);
            const CleMot cle = ClasserItem(forme_);
            // Words of initial class 0 (digits, signs, other accented letters) are never written
            // to the index: they are not kept.
            if (cle.ClasseInitiale != 0)
                index_.Ajouter(balise, cle, courts_.Contient(forme_, cle), CodePosition(numeroBloc_, dansBloc_));
        }
        if (saut && !(a.f.size() > 0 && a.f.back() == '-')) {
            // A line break in the source separates words, unless it cuts one at a hyphen.
            nu_texte_ += ' ';
            curseur_ += 1;
        }
    }
    if (!MontreDuTexte(etiq_)) return;
    etiqF_.Ligne(etiq_);
    curseur_ += 2;
    nu_.Ligne(nu_texte_);
    Minusculiser(nu_texte_, forme_);
    min_.Ligne(forme_);
    jeton_.clear();
    AjouterNombre(jeton_, nbOccurrences_);
    reperes_.Ligne(jeton_);
}

void IndexeurTexte::Terminer() {
    std::string n;
    AjouterNombre(n, nbOccurrences_);
    nbParts_.Ecrire(n);
    index_.Ecrire(lex_);
    for (auto* f : {&nu_, &min_, &lex_, &reperes_, &etiqF_, &nbParts_, &metas_}) f->Fermer();
}

}  // namespace

std::string CodePosition(long long bloc, int dansBloc) {
    const long long haut = bloc / TAILLE_BLOC + 1;
    const long long bas = bloc - TAILLE_BLOC * (haut - 1);
    std::string r(3, '\0');
    r[0] = static_cast<char>(haut + 33);
    r[1] = static_cast<char>(bas + 33);
    r[2] = static_cast<char>(dansBloc + 33);
    return r;
}

void Indexer(const ListeTextes& liste, const ListeCasiers& courts, Dialogue& dialogue) {
    dialogue.Progression("Indexation."_cp, 0, 0);
    const fs::path dossierTT = liste.doss_racine / "OLBRIN_TT";
    if (!DossierExiste(dossierTT)) throw FinProgramme(std::string("Ressources non constituées. Vérifiez"_cp));
    for (auto dossier : kDossiers) CreerDossier(dossierTT / dossier);
    const auto total = static_cast<long long>(liste.noms.size());
    std::string contenu;
    for (long long n = 0; n < total; ++n) {
        const std::string& nom = liste.noms[static_cast<std::size_t>(n)];
        // The label says "Segmentation" here too, as it always has.
        dialogue.Progression(Joindre("Segmentation. Fichier"_cp, std::to_string(n + 1), " de "_cp, std::to_string(total)),
                             n + 1, total);
        IndexeurTexte indexeur(dossierTT, nom, courts);
        const fs::path source = Chemin(dossierTT, Joindre(nom, ".txt"));
        LireFichier(source, contenu);
        LecteurLignes lecteur(contenu);
        std::string_view ligne;
        try {
            while (lecteur.Suivante(ligne))
                if (!ligne.empty()) indexeur.Ligne(ligne);
        } catch (const ErreurExecution& e) {
            throw ErreurExecution(Joindre(e.what(), " ("_cp, TexteChemin(source), ", ligne "_cp,
                                          std::to_string(lecteur.Numero()), ")"));
        }
        indexeur.Terminer();
    }
}

void OperationReindexation(Contexte& ctx) {
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    Indexer(*liste, ChargerCourtsFrequents(ctx.ressources), ctx.dialogue);
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher(Joindre("Réindexé en "_cp, TexteDuree(debut, ctx.horloge)));
}

}  // namespace telvoris
