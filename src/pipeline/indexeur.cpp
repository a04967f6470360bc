#include "pipeline/indexeur.hpp"

#include <array>
#include <limits>
#include <memory>
#include <vector>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/parallele.hpp"
#include "core/reprise.hpp"
#include "core/texte.hpp"
#include "pipeline/segments_communs.hpp"

namespace telvoris {

namespace {

constexpr std::string_view kSeparateur = "<---------->";
constexpr std::array<std::string_view, 7> kDossiers = {"TEXTE_NU", "TEXTE_MIN", "LEXINDEX", "REPERE_LIGNES",
                                                        "TEXTE_ETIQ", "NB_PARTITIONS", "METADONNEES"};

void AjouterNombre(std::string& s, long long v) {
    char tampon[24];
    char* fin = tampon + sizeof tampon;
    char* p = fin;
    unsigned long long u = v < 0 ? 0ULL - static_cast<unsigned long long>(v) : static_cast<unsigned long long>(v);
    do {
        *--p = static_cast<char>('0' + u % 10);
        u /= 10;
    } while (u != 0);
    if (v < 0) *--p = '-';
    s.append(p, static_cast<std::size_t>(fin - p));
}

// Appends the three characters of CodePosition(bloc, dansBloc).
inline void AjouterPosition(std::string& s, long long bloc, int dansBloc) {
    const long long haut = bloc / TAILLE_BLOC + 1;
    const long long bas = bloc - TAILLE_BLOC * (haut - 1);
    const char code[3] = {static_cast<char>(haut + 33), static_cast<char>(bas + 33), static_cast<char>(dansBloc + 33)};
    s.append(code, 3);
}

// One derived file of a text, built in memory on the thread that indexes the text and written
// whole by the calling thread when the text's turn comes.
class FichierDerive {
public:
    // Starts the file of another text; the buffer keeps its capacity from text to text.
    void Commencer(fs::path chemin) {
        chemin_ = std::move(chemin);
        texte_.clear();
    }
    void Ecrire(std::string_view texte) { texte_.append(texte); }
    void Ligne(std::string_view texte) {
        texte_.append(texte);
        texte_.append("\r\n");
    }
    std::string& Tampon() { return texte_; }
    void FinLigne() { texte_.append("\r\n"); }
    // Written whole under its provisional name, on the thread that built it.
    FichierEnAttente Preparer(std::size_t place) const { return FichierEnAttente(chemin_, texte_, place); }
    void Prevoir(std::size_t taille) { texte_.reserve(taille); }

private:
    fs::path chemin_;
    std::string texte_;
};

// The index of the current partition: one entry per distinct tag, kept per word bucket in the
// order of first occurrence; the tag text is the key.
class IndexPartition {
public:
    // Counts one occurrence of a word's tag. A tag new to the partition is looked up once: what
    // the word is (bucket, kept without positions, not kept at all) is worked out then, by
    // `classer`, and remembered with it, so that its later occurrences cost one lookup.
    template <class Classer>
    void Compter(std::string_view balise, long long bloc, int dansBloc, Classer&& classer) {
        bool nouveau;
        const std::uint32_t i = entrees_.Inserer(balise, nouveau);
        if (nouveau) {
            if (comptes_.size() <= i) {
                comptes_.push_back(0);
                positions_.emplace_back();
                sansPositions_.push_back(false);
                ecartes_.push_back(false);
            }
            comptes_[i] = 0;
            positions_[i].clear();
            CleMot cle{0, 0};
            bool sansPositions = false;
            // Words of initial class 0 (digits, signs, other accented letters) stay in the table
            // only to be recognised: they are in no bucket, so never written.
            ecartes_[i] = !classer(cle, sansPositions);
            sansPositions_[i] = sansPositions;
            if (!ecartes_[i]) ordre_[Casier(cle)].push_back(i);
        }
        if (ecartes_[i]) return;
        ++comptes_[i];
        if (!sansPositions_[i]) AjouterPosition(positions_[i], bloc, dansBloc);
    }
    // Forgets a partition left unfinished.
    void Vider() {
        for (auto& casier : ordre_) casier.clear();
        entrees_.Vider();
    }

    // Writes the entries, bucket by bucket, and empties them.
    void Ecrire(FichierDerive& sortie) {
        std::string& ligne = sortie.Tampon();
        for (int longueur = 1; longueur <= MAX_CLASSE_LONGUEUR; ++longueur) {
            for (int initiale = 1; initiale <= MAX_CLASSE_INITIALE; ++initiale) {
                auto& casier = ordre_[Casier({longueur, initiale})];
                for (const std::uint32_t i : casier) {
                    ligne.append(entrees_.Texte(i));
                    ligne += '\t';
                    AjouterNombre(ligne, comptes_[i]);
                    ligne += '\t';
                    if (positions_[i].empty()) ligne += '!';
                    else ligne += positions_[i];
                    ligne.append("\r\n");
                }
                casier.clear();
            }
        }
        entrees_.Vider();
    }

private:
    static std::size_t Casier(CleMot c) {
        return static_cast<std::size_t>(c.ClasseLongueur * (MAX_CLASSE_INITIALE + 1) + c.ClasseInitiale);
    }
    IndexTextes entrees_;
    std::vector<long long> comptes_;
    std::vector<std::string> positions_;
    std::vector<bool> sansPositions_;
    std::vector<bool> ecartes_;
    std::array<std::vector<std::uint32_t>, (MAX_CLASSE_LONGUEUR + 1) * (MAX_CLASSE_INITIALE + 1)> ordre_;
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


// The tag rebuilt from its attributes: `tete` then "f=", f, " l=" l, " x=" x, " >".
void Reconstruire(std::string& r, std::string_view tete, const AttributsVue& a) {
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

// The tail of `balise` after its head when it is already what Reconstruire writes (the values
// standing in the tag itself, in order, with nothing else): it is then copied in one piece.
// Empty when it is not.
std::string_view DejaReconstruit(std::string_view balise, std::size_t tete, const AttributsVue& a) {
    if (balise.size() < tete + 4) return {};
    const char* const debut = balise.data() + tete;
    const char* const fin = balise.data() + balise.size();
    if (debut[0] != 'f' || debut[1] != '=' || a.f.data() != debut + 2) return {};
    const char* q = debut + 2 + a.f.size();
    const std::string_view valeurs[2] = {a.l, a.x};
    const char noms[2] = {'l', 'x'};
    for (int n = 0; n < 2; ++n) {
        const std::string_view v = valeurs[n];
        if (v.empty()) continue;
        if (fin - q < 3 || v.data() != q + 3 || q[0] != ' ' || q[1] != noms[n] || q[2] != '=') return {};
        q += 3 + v.size();
    }
    if (fin - q != 2 || q[0] != ' ' || q[1] != '>') return {};
    return std::string_view(debut, static_cast<std::size_t>(fin - debut));
}

std::string_view Tete(std::string_view balise) {
    // Token tags name themselves in two or three letters: their blank is looked for by hand.
    if (balise.size() > 3 && balise[2] == ' ' && balise[1] != ' ' && balise[0] != ' ') return balise.substr(0, 3);
    if (balise.size() > 4 && balise[3] == ' ' && balise[1] != ' ' && balise[0] != ' ') return balise.substr(0, 4);
    const std::size_t blanc = balise.find(' ');
    return blanc == std::string_view::npos ? balise : balise.substr(0, blanc + 1);
}

class IndexeurTexte {
public:
    explicit IndexeurTexte(const ListeCasiers& courts) : courts_(courts) {}

    // Starts another text; what a text left unfinished is forgotten, the buffers are kept.
    void Commencer(const fs::path& dossierTT, const std::string& nom) {
        nu_.Commencer(Fichier(dossierTT, "TEXTE_NU", nom));
        min_.Commencer(Fichier(dossierTT, "TEXTE_MIN", nom));
        lex_.Commencer(Fichier(dossierTT, "LEXINDEX", nom));
        reperes_.Commencer(Fichier(dossierTT, "REPERE_LIGNES", nom));
        etiqF_.Commencer(Fichier(dossierTT, "TEXTE_ETIQ", nom));
        nbParts_.Commencer(Fichier(dossierTT, "NB_PARTITIONS", nom));
        metas_.Commencer(Fichier(dossierTT, "METADONNEES", nom));
        index_.Vider();
        metaVue_ = false;
        nbOccurrences_ = 0;
        curseur_ = 1;
        numeroBloc_ = 1;
        dansBloc_ = 0;
        for (auto* f : {&nu_, &min_, &lex_, &reperes_, &etiqF_}) f->Ligne(kSeparateur);
    }

    void Ligne(std::string_view ligne);
    // Room for the files of a tagged text of `taille` bytes, so that they grow without copies
    // (their sizes relative to the tagged text, measured on press corpora, with a margin).
    void Prevoir(std::size_t taille) {
        etiqF_.Prevoir(taille + taille / 2);
        nu_.Prevoir(taille / 3);
        min_.Prevoir(taille / 3);
        lex_.Prevoir(taille * 2 / 3);
        reperes_.Prevoir(taille / 20);
    }
    // Closes the last partition; the files are then ready to be written.
    void Terminer();
    // The seven files, in the order they are put in place.
    std::vector<FichierEnAttente> Preparer(std::size_t place) const {
        std::vector<FichierEnAttente> fichiers;
        fichiers.reserve(7);
        for (auto* f : {&nu_, &min_, &lex_, &reperes_, &etiqF_, &nbParts_, &metas_}) fichiers.push_back(f->Preparer(place));
        return fichiers;
    }

private:
    static fs::path Fichier(const fs::path& dossierTT, std::string_view dossier, const std::string& nom) {
        return Chemin(dossierTT, Joindre(dossier, "/", nom, ".txt"));
    }
    void NouvellePartition();

    const ListeCasiers& courts_;
    FichierDerive nu_, min_, lex_, reperes_, etiqF_, nbParts_, metas_;
    IndexPartition index_;
    bool metaVue_ = false;
    long long nbOccurrences_ = 0;
    long long curseur_ = 1;
    long long numeroBloc_ = 1;
    int dansBloc_ = 0;
    LigneJetons lj_;
    std::string jeton_, forme_;
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
    // The tagged line and the bare text are built in place in their files' buffers, and cut
    // back if the line shows no text.
    std::string& etiq = etiqF_.Tampon();
    std::string& nu = nu_.Tampon();
    const std::size_t debutEtiq = etiq.size(), debutNu = nu.size();
    etiq.append(lj_.suite[0]);
    for (int i = 1; i <= lj_.NbJetons; ++i) {
        std::string_view balise = lj_.jeton[i];
        const AttributsVue a = LireAttributsVue(balise);
        if (a.avecK) {
            // An offset from an earlier indexing is rebuilt away.
            jeton_.clear();
            Reconstruire(jeton_, Tete(balise), a);
            balise = jeton_;
        }
        const std::string_view suite = lj_.suite[i];
        const std::string_view tete = Tete(balise);
        etiq.append(tete);
        etiq += "k=";
        AjouterNombre(etiq, curseur_);
        etiq += ' ';
        const std::string_view tel = DejaReconstruit(balise, tete.size(), a);
        if (!tel.empty()) etiq.append(tel);
        else Reconstruire(etiq, "", a);
        etiq.append(suite);

        curseur_ += static_cast<long long>(a.f.size());
        nu += a.f;
        bool blanc = false, saut = false;
        for (std::size_t p = 0; p < suite.size(); ++p) {
            if (suite[p] == ' ') blanc = true;
            else if (suite[p] == '<' && (suite.substr(p, 4) == "<br>" || suite.substr(p, 4) == "<BR>")) saut = true;
        }
        if (blanc) {
            curseur_ += 1;
            nu += ' ';
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
        if (mot)
            index_.Compter(balise, numeroBloc_, dansBloc_, [&](CleMot& cle, bool& sansPositions) {
                Minusculiser(a.f, forme_);
                cle = ClasserItem(forme_);
                if (cle.ClasseInitiale == 0) return false;
                sansPositions = courts_.Contient(forme_, cle);
                return true;
            });
        if (saut && !(a.f.size() > 0 && a.f.back() == '-')) {
            // A line break in the source separates words, unless it cuts one at a hyphen.
            nu += ' ';
            curseur_ += 1;
        }
    }
    if (!MontreDuTexte(std::string_view(etiq).substr(debutEtiq))) {
        etiq.resize(debutEtiq);
        nu.resize(debutNu);
        return;
    }
    etiqF_.FinLigne();
    curseur_ += 2;
    AjouterMinuscules(std::string_view(nu).substr(debutNu), min_.Tampon());
    nu_.FinLigne();
    min_.FinLigne();
    AjouterNombre(reperes_.Tampon(), nbOccurrences_);
    reperes_.FinLigne();
}

void IndexeurTexte::Terminer() {
    std::string n;
    AjouterNombre(n, nbOccurrences_);
    nbParts_.Ecrire(n);
    index_.Ecrire(lex_);
}

}  // namespace

std::string CodePosition(long long bloc, int dansBloc) {
    std::string r;
    AjouterPosition(r, bloc, dansBloc);
    return r;
}

void Indexer(const ListeTextes& liste, const ListeCasiers& courts, Dialogue& dialogue, unsigned fils) {
    dialogue.Progression("Indexation."_cp, 0, 0);
    const fs::path dossierTT = liste.doss_racine / "OLBRIN_TT";
    if (!DossierExiste(dossierTT)) throw FinProgramme(std::string("Ressources non constituées. Vérifiez"_cp));
    ExigerTextesComplets(dossierTT);
    for (auto dossier : kDossiers) CreerDossier(dossierTT / dossier);
    // Until the last text is done, the derived files are marked as half-made.
    MarqueChantier marque(MarqueReindexation(dossierTT), "Réindexer"_cp);
    fils = FilsEffectifs(fils);
    // What each thread reuses from text to text.
    struct Atelier {
        std::string contenu;
        std::unique_ptr<IndexeurTexte> indexeur;
    };
    std::vector<Atelier> ateliers(fils);
    const auto total = static_cast<long long>(liste.noms.size());
    TraiterDansLOrdre<std::vector<FichierEnAttente>>(
        liste.noms.size(), fils,
        [&](std::size_t n) {
            // The label says "Segmentation" here too, as it always has.
            dialogue.Progression(Joindre("Segmentation. Fichier"_cp, std::to_string(n + 1), " de "_cp,
                                         std::to_string(total)),
                                 static_cast<long long>(n) + 1, total);
        },
        [&](std::size_t n, unsigned ouvrier) {
            const std::string& nom = liste.noms[n];
            Atelier& a = ateliers[ouvrier];
            if (!a.indexeur) a.indexeur = std::make_unique<IndexeurTexte>(courts);
            IndexeurTexte* indexeur = a.indexeur.get();
            indexeur->Commencer(dossierTT, nom);
            const fs::path source = Chemin(dossierTT, Joindre(nom, ".txt"));
            std::string& contenu = a.contenu;
            LireFichier(source, contenu);
            indexeur->Prevoir(contenu.size());
            LecteurLignes lecteur(contenu);
            std::string_view ligne;
            try {
                while (lecteur.Suivante(ligne))
                    if (!ligne.empty()) indexeur->Ligne(ligne);
            } catch (const ErreurExecution& e) {
                // None of the text's files is written: those of an earlier indexing stay.
                throw ErreurExecution(Joindre(e.what(), " ("_cp, TexteChemin(source), ", ligne "_cp,
                                              std::to_string(lecteur.Numero()), ")"));
            }
            indexeur->Terminer();
            return indexeur->Preparer(PlaceEnCours(n, fils));
        },
        [&](std::size_t, std::vector<FichierEnAttente>& fichiers) {
            for (auto& f : fichiers) f.Publier();
        });
    marque.Achever();
}

void OperationReindexation(Contexte& ctx) {
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    Indexer(*liste, ChargerCourtsFrequents(ctx.ressources), ctx.dialogue, ctx.fils);
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher(Joindre("Réindexé en "_cp, TexteDuree(debut, ctx.horloge)));
}

}  // namespace telvoris
