#include "pipeline/levee.hpp"

#include <algorithm>
#include <unordered_map>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "core/reprise.hpp"
#include "core/texte.hpp"
#include "lexicon/dictionnaire.hpp"

namespace telvoris {

namespace {

constexpr std::uint64_t kMaxLongueurMorceau = (std::uint64_t{1} << 24) - 1;
constexpr std::uint64_t kMaxArene = (std::uint64_t{1} << 40) - 1;

bool EstJetonLevee(std::string_view b, bool avecMK) {
    return b.starts_with("<M ") || b.starts_with("<MC ") || b.starts_with("<PC ") || b.starts_with("<MN ") ||
           (avecMK && b.starts_with("<MK "));
}

// The #INDEX_ms.txt of the automatic pass, whichever case its name was written in.
fs::path FichierIndexCas(const fs::path& dossierTT) {
    const fs::path ms = Chemin(dossierTT, "#INDEX_ms.txt");
    if (FichierExiste(ms)) return ms;
    const fs::path MS = Chemin(dossierTT, "#INDEX_MS.txt");
    if (FichierExiste(MS)) return MS;
    return {};
}

std::vector<std::string_view> LignesNonVides(std::string_view texte) {
    std::vector<std::string_view> r;
    LecteurLignes lecteur(texte);
    std::string_view ligne;
    while (lecteur.Suivante(ligne))
        if (!ligne.empty()) r.push_back(ligne);
    return r;
}

// The keys of a lemma are joined by "-", and a form may hold a hyphen itself: a key always
// begins with "<M ", so the joins are only the hyphens between " >" and "<M ".
std::vector<std::string_view> CouperCles(std::string_view cles) {
    std::vector<std::string_view> r;
    std::size_t debut = 0;
    while (true) {
        const std::size_t j = cles.find(">-<", debut);
        if (j == std::string_view::npos) {
            r.push_back(cles.substr(debut));
            return r;
        }
        r.push_back(cles.substr(debut, j + 1 - debut));
        debut = j + 2;
    }
}

}  // namespace

std::string_view TexteEtiquette(EtiquetteSession e) {
    switch (e) {
        case EtiquetteSession::levcon_simp: return "levcon_simp";
        case EtiquetteSession::levcon_s2: return "levcon_s2";
        case EtiquetteSession::levcon_s1x: return "levcon_s1x";
        case EtiquetteSession::levcon_s1: return "levcon_s1";
        case EtiquetteSession::levcon_comp: return "levcon_comp";
    }
    return "";
}

SessionLevee::Morceau SessionLevee::Ajouter(std::string_view texte) {
    if (texte.size() > kMaxLongueurMorceau)
        LimiteDepassee("MAX_LONGUEUR_MORCEAU", static_cast<long long>(kMaxLongueurMorceau), "octets d'un jeton ou d'un séparateur"_cp);
    if (arene_.size() + texte.size() > kMaxArene)
        LimiteDepassee("MAX_ARENE", static_cast<long long>(kMaxArene), "octets du corpus en mémoire"_cp);
    const Morceau m = FaireMorceau(arene_.size(), texte.size());
    arene_.append(texte);
    return m;
}

static fs::path JournalSauvegarde(const fs::path& dossierTT) { return dossierTT / "#SAUVEGARDE_EN_COURS.txt"; }

void SessionLevee::Charger(const ListeTextes& liste, const fs::path& dossierAvant, Dialogue& dialogue, bool avecMK) {
    noms_ = liste.noms;
    const std::size_t n = noms_.size();
    // The arena is sized beforehand; pieces are kept as offsets, so its growth never invalidates one.
    // The separator of a token is everything up to the next token of its file: its surface, the
    // line end, lines without a token, and what stands before the next line's first token. The
    // header of a file is what stands before its first token. Concatenation gives the file back.
    std::uintmax_t total = 0;
    for (const auto& nom : noms_) {
        std::error_code ec;
        const auto t = fs::file_size(Chemin(dossierTT_, Joindre(nom, ".txt")), ec);
        if (!ec) total += t;
    }
    arene_.reserve(static_cast<std::size_t>(total + total / 50 + 4096));
    debut_fichier_.assign(n, 0);
    fin_fichier_.assign(n, 0);
    entete_fichier_.assign(n, Morceau{0, 0});
    modifie_.assign(n, false);
    std::string contenu;
    for (std::size_t i = 0; i < n; ++i) {
        dialogue.Progression("Chargement du corpus"_cp, static_cast<long long>(i + 1), static_cast<long long>(n));
        const std::string nomFichier = Joindre(noms_[i], ".txt");
        LireFichier(Chemin(dossierTT_, nomFichier), contenu);
        // A session opened again within the same minute finds its dated folder: the copy made
        // first, before any case was applied, is the one to keep.
        const fs::path copie = Chemin(dossierAvant, nomFichier);
        if (!FichierExiste(copie)) EcrireFichier(copie, contenu, true);
        if (arene_.size() + contenu.size() > arene_.capacity()) arene_.reserve(arene_.size() + contenu.size() + (64 << 20));
        const std::size_t base = arene_.size();
        arene_.append(contenu);
        const std::string_view texte = std::string_view(arene_).substr(base, contenu.size());
        debut_fichier_[i] = static_cast<long long>(jetons_.size()) + 1;
        std::size_t finPrecedent = 0;  // where the text behind the last token began
        bool premier = true;
        // Tags are found line by line: a "<" whose ">" stands on a later line is text.
        std::size_t pos = 0;
        while (pos < texte.size()) {
            std::size_t fin = pos;
            while (fin < texte.size() && texte[fin] != '\r' && texte[fin] != '\n') ++fin;
            std::size_t p = pos;
            while (true) {
                const std::size_t lt = texte.find('<', p);
                if (lt == std::string_view::npos || lt >= fin) break;
                const std::size_t gt = texte.find('>', lt);
                if (gt == std::string_view::npos || gt >= fin) break;
                const std::string_view balise = texte.substr(lt, gt + 1 - lt);
                if (EstJetonLevee(balise, avecMK)) {
                    if (static_cast<long long>(jetons_.size()) >= MAX_POSITIONS_LEVEE)
                        LimiteDepassee("MAX_POSITIONS_LEVEE", MAX_POSITIONS_LEVEE, "positions du corpus en mémoire"_cp);
                    const Morceau avant = FaireMorceau(base + finPrecedent, lt - finPrecedent);
                    if (avant.longueur != lt - finPrecedent)
                        LimiteDepassee("MAX_LONGUEUR_MORCEAU", static_cast<long long>(kMaxLongueurMorceau),
                                       Joindre("octets entre deux jetons de "_cp, nomFichier));
                    if (premier) entete_fichier_[i] = avant;
                    else separateurs_.back() = avant;
                    premier = false;
                    jetons_.push_back(FaireMorceau(base + lt, balise.size()));
                    separateurs_.push_back(Morceau{0, 0});
                    finPrecedent = gt + 1;
                }
                p = gt + 1;
            }
            pos = fin;
            if (pos < texte.size() && texte[pos] == '\r') ++pos;
            if (pos < texte.size() && texte[pos] == '\n' && (pos == fin || texte[pos - 1] == '\r')) ++pos;
        }
        const Morceau reste = FaireMorceau(base + finPrecedent, texte.size() - finPrecedent);
        if (reste.longueur != texte.size() - finPrecedent)
            LimiteDepassee("MAX_LONGUEUR_MORCEAU", static_cast<long long>(kMaxLongueurMorceau),
                           Joindre("octets entre deux jetons de "_cp, nomFichier));
        if (premier) entete_fichier_[i] = reste;
        else separateurs_.back() = reste;
        fin_fichier_[i] = static_cast<long long>(jetons_.size());
    }
}

void SessionLevee::LireCas(const fs::path& fichier) {
    const std::string texte = LireFichier(fichier);
    std::unordered_map<std::string_view, std::size_t> vus;
    for (std::string_view ligne : LignesNonVides(texte)) {
        if (cles_.size() >= MAX_CAS_LEVEE)
            LimiteDepassee("MAX_CAS_LEVEE", static_cast<long long>(MAX_CAS_LEVEE), Joindre("cas de "_cp, TexteChemin(fichier)));
        const std::size_t t1 = ligne.find('\t');
        const std::size_t t2 = ligne.rfind('\t');
        if (t1 == std::string_view::npos) {
            cles_.emplace_back(ligne);
            ids_.emplace_back();
            positions_cas_.emplace_back();
        } else {
            cles_.emplace_back(ligne.substr(0, t1));
            ids_.emplace_back(t1 == t2 ? std::string_view() : ligne.substr(t1 + 1, t2 - t1 - 1));
            positions_cas_.emplace_back(ligne.substr(t2 + 1));
        }
    }
}

SessionLevee SessionLevee::OuvrirSimples(const ListeTextes& liste, const Horloge& horloge, Dialogue& dialogue) {
    SessionLevee s;
    s.etiquette_ = EtiquetteSession::levcon_simp;
    s.dossierTT_ = liste.doss_racine / "OLBRIN_TT";
    s.dossierEtat_ = s.dossierTT_;
    // A saving point cut short is finished first: its files were all written whole.
    if (DossierExiste(s.dossierTT_)) {
        ExigerTextesComplets(s.dossierTT_);
        EcritureGroupee::Achever(JournalSauvegarde(s.dossierTT_));
    }
    if (!DossierExiste(s.dossierTT_ / "AVANT_AUTOMATE_SIMPLES"))
        throw FinProgramme(std::string("Vous devez d'abord avoir passé la fonction 'automates'."_cp));
    const std::string etat = LireFichier(Chemin(s.dossierTT_, "#F_ETAT.txt"));
    s.bilan_ = LireFichier(Chemin(s.dossierTT_, "#BILAN.txt"));
    const fs::path index = FichierIndexCas(s.dossierTT_);
    if (index.empty())
        throw FinProgramme(std::string("Un fichier créé lors de la passe automatique manque (INDEX_ms.txt). "
                                       "Vérifiez et recommencez éventuellement la fonction."_cp));
    s.LireCas(index);
    s.etat_cas_.assign(s.cles_.size(), 0);
    {
        LecteurLignes lecteur(etat);
        std::string_view ligne;
        std::size_t i = 0;
        while (lecteur.Suivante(ligne) && i < s.etat_cas_.size()) s.etat_cas_[i++] = ligne == "1" ? 1 : 0;
    }
    const fs::path lemmes = Chemin(s.dossierTT_, "#INDEX_LEMMES.txt");
    if (!FichierExiste(lemmes))
        throw FinProgramme(std::string("Un fichier créé lors de la passe automatique manque (ETK2/INDEX_LEMMES.txt). "
                                       "Vérifiez et recommencez éventuellement la fonction."_cp));
    const std::string texteLemmes = LireFichier(lemmes);
    for (std::string_view ligne : LignesNonVides(texteLemmes)) {
        const std::size_t t1 = ligne.find('\t');
        const std::size_t t2 = ligne.rfind('\t');
        s.lemmes_.emplace_back(ligne.substr(0, t1));
        s.cles_lemme_.emplace_back(t1 == std::string_view::npos ? std::string_view() : ligne.substr(t2 + 1));
    }
    s.dossierAvant_ = Chemin(s.dossierTT_ / "AVANT_LEVCON", Horodater(horloge));
    CreerDossier(s.dossierAvant_);
    s.Charger(liste, s.dossierAvant_, dialogue, false);
    dialogue.MasquerProgression();
    // Nothing left open: the session ends at once.
    if (std::find(s.etat_cas_.begin(), s.etat_cas_.end(), 0) == s.etat_cas_.end()) s.Terminer();
    return s;
}

SessionLevee SessionLevee::OuvrirComposes(const ListeTextes& liste, const Horloge& horloge, Dialogue& dialogue) {
    SessionLevee s;
    s.etiquette_ = EtiquetteSession::levcon_comp;
    s.dossierTT_ = liste.doss_racine / "OLBRIN_TT";
    s.dossierEtat_ = s.dossierTT_ / "CONTROLE_COMPOSES";
    // A saving point cut short is finished first: its files were all written whole.
    if (DossierExiste(s.dossierTT_)) {
        ExigerTextesComplets(s.dossierTT_);
        EcritureGroupee::Achever(JournalSauvegarde(s.dossierTT_));
    }
    if (!DossierExiste(s.dossierEtat_))
        throw FinProgramme(Joindre(TexteChemin(s.dossierEtat_),
                                   "----Il n'existe pas de dossier de composés ambigus. Veuillez vérifier vos données."_cp));
    const fs::path fEtat = Chemin(s.dossierEtat_, "#ETAT.txt");
    if (FichierExiste(fEtat)) s.curseur_compose_ = static_cast<std::size_t>(std::max(0LL, ValeurEntiere(LireFichier(fEtat))));
    const fs::path fBilan = Chemin(s.dossierEtat_, "#BILAN.txt");
    if (FichierExiste(fBilan)) s.bilan_ = LireFichier(fBilan);
    s.dossierAvant_ = Chemin(s.dossierTT_ / "AVANT_LCA", Horodater(horloge));
    CreerDossier(s.dossierAvant_);
    s.Charger(liste, s.dossierAvant_, dialogue, true);
    dialogue.MasquerProgression();

    const fs::path index = Chemin(s.dossierEtat_, "#INDEX_MK.txt");
    if (!FichierExiste(index)) {
        // First run: the candidates of the corpus, the most frequent first.
        struct Candidat {
            std::string cle, positions;
            long long nombre = 0;
        };
        std::vector<Candidat> candidats;
        std::unordered_map<std::string_view, std::size_t> indice;
        for (long long p = 1; p <= s.NbPositions(); ++p) {
            const std::string_view j = s.Jeton(p);
            if (!j.starts_with("<MK ")) continue;
            auto [it, neuf] = indice.try_emplace(j, candidats.size());
            if (neuf) {
                if (candidats.size() >= MAX_CAS_LEVEE)
                    LimiteDepassee("MAX_CAS_LEVEE", static_cast<long long>(MAX_CAS_LEVEE), "composés ambigus du corpus"_cp);
                candidats.push_back({std::string(j), std::to_string(p), 1});
            } else {
                Candidat& c = candidats[it->second];
                c.positions += '-';
                c.positions += std::to_string(p);
                ++c.nombre;
            }
        }
        std::stable_sort(candidats.begin(), candidats.end(),
                         [](const Candidat& a, const Candidat& b) { return a.nombre > b.nombre; });
        EcrivainFichier f(index);
        for (const Candidat& c : candidats) f.Ligne(Joindre(c.cle, "\t", std::to_string(c.nombre), "\t", c.positions));
        f.Fermer();
    }
    s.LireCas(index);
    s.etat_cas_.assign(s.cles_.size(), 0);
    for (std::size_t i = 0; i < std::min(s.curseur_compose_, s.etat_cas_.size()); ++i) s.etat_cas_[i] = 1;
    if (!s.ProchainNonTraite()) s.Terminer();
    return s;
}

void SessionLevee::TravaillerDansLOrdre() {
    if (etiquette_ != EtiquetteSession::levcon_simp || terminee_) return;
    etiquette_ = EtiquetteSession::levcon_s2;
    if (!ProchainNonTraite()) Terminer();
}

void SessionLevee::ChoisirParLemmes() {
    if (etiquette_ != EtiquetteSession::levcon_simp || terminee_) return;
    etiquette_ = EtiquetteSession::levcon_s1x;
}

std::vector<std::string> SessionLevee::LemmesAffiches() const {
    std::vector<std::string> r;
    r.reserve(lemmes_.size());
    for (const std::string& l : lemmes_) {
        std::string s = l;
        if (s.size() < LARGEUR_LEMME_AFFICHE) s.append(LARGEUR_LEMME_AFFICHE - s.size(), ' ');
        r.push_back(std::move(s));
    }
    return r;
}

void SessionLevee::ValiderLemmes(const std::vector<std::size_t>& choisis) {
    if (etiquette_ != EtiquetteSession::levcon_s1x) return;
    std::unordered_map<std::string_view, std::size_t> indice;
    for (std::size_t i = 0; i < cles_.size(); ++i) indice.try_emplace(cles_[i], i);
    std::vector<std::size_t> ordre(choisis);
    std::sort(ordre.begin(), ordre.end());
    ordre.erase(std::unique(ordre.begin(), ordre.end()), ordre.end());
    std::vector<char> enFile(cles_.size(), 0), ecrit(cles_.size(), 0);
    file_cas_.clear();
    EcrivainFichier sel(Chemin(dossierTT_, "LEMSEL.txt"));
    for (std::size_t l : ordre) {
        if (l >= cles_lemme_.size()) continue;
        for (std::string_view cle : CouperCles(cles_lemme_[l])) {
            const auto it = indice.find(cle);
            if (it == indice.end()) continue;
            const std::size_t c = it->second;
            if (!ecrit[c]) sel.Ligne(Joindre(cles_[c], "\t", ids_[c], "\t", positions_cas_[c]));
            ecrit[c] = 1;
            if (etat_cas_[c] != 0 || enFile[c]) continue;
            if (file_cas_.size() >= MAX_FILE_CAS)
                LimiteDepassee("MAX_FILE_CAS", static_cast<long long>(MAX_FILE_CAS), "cas retenus par les lemmes choisis"_cp);
            enFile[c] = 1;
            file_cas_.push_back(c + 1);
        }
    }
    sel.Fermer();
    etiquette_ = EtiquetteSession::levcon_s1;
    rang_file_ = 0;
    if (!ProchainNonTraite()) Terminer();
}

bool SessionLevee::ProchainNonTraite() {
    if (etiquette_ == EtiquetteSession::levcon_s1) {
        // rang_file_ is the rank of the next queued case to look at.
        while (rang_file_ < file_cas_.size()) {
            const std::size_t c = file_cas_[rang_file_++];
            if (etat_cas_[c - 1] == 0) {
                MontrerCas(c);
                return true;
            }
        }
        return false;
    }
    for (std::size_t c = no_cas_ + 1; c <= cles_.size(); ++c)
        if (etat_cas_[c - 1] == 0) {
            MontrerCas(c);
            return true;
        }
    return false;
}

std::size_t SessionLevee::FichierDe(long long position) const {
    const auto it = std::lower_bound(fin_fichier_.begin(), fin_fichier_.end(), position);
    return static_cast<std::size_t>(it - fin_fichier_.begin());
}

std::string_view SessionLevee::Jeton(long long position) const {
    return Texte(jetons_[static_cast<std::size_t>(position - 1)]);
}

std::string_view SessionLevee::Forme(long long position) const {
    const std::string_view j = Texte(jetons_[static_cast<std::size_t>(position - 1)]);
    if (j.starts_with("<MK ")) return {};
    // Values hold no blank, so the first " f=" of the tag is its form; the tag reader is needed
    // only for a form made from the punctuation class. Contexts read tens of tags per row.
    const std::size_t f = j.find(" f=");
    if (f != std::string_view::npos) {
        const std::size_t debut = f + 3;
        const std::size_t fin = std::min(j.find(' ', debut), j.size());
        if (fin > debut) return j.substr(debut, fin - debut);
    }
    return LireAttributsVue(j).f;
}

const OccurrenceLevee& SessionLevee::Occurrence(std::size_t rang) const {
    OccurrenceLevee& o = occurrences_[ordre_[rang]];
    if (!o.contextes) RemplirContextes(o);
    // A validation may have rewritten the token since the row was filled.
    const std::string_view j = Jeton(o.position);
    if (o.jeton != j) o.jeton = std::string(j);
    return o;
}

void SessionLevee::RemplirContextes(OccurrenceLevee& o) const {
    const long long p = o.position;
    const std::size_t f = FichierDe(p);
    // The left context: forms gathered leftwards up to 64 characters or the file's start.
    std::vector<std::string_view> morceaux;
    std::size_t longueur = 0;
    for (long long q = p - 1; q >= debut_fichier_[f] && longueur < LARGEUR_CONTEXTE_LEVEE; --q) {
        const std::string_view forme = Forme(q);
        if (forme.empty()) continue;
        longueur += forme.size() + 1;
        morceaux.push_back(forme);
    }
    std::string g;
    for (auto it = morceaux.rbegin(); it != morceaux.rend(); ++it) {
        g += *it;
        g += ' ';
    }
    if (g.size() > LARGEUR_CONTEXTE_LEVEE) g.erase(0, g.size() - LARGEUR_CONTEXTE_LEVEE);
    o.gauche.assign(LARGEUR_CONTEXTE_LEVEE - g.size(), ' ');
    o.gauche += g;
    o.droite.clear();
    for (long long q = p + 1; q <= fin_fichier_[f] && o.droite.size() < LARGEUR_CONTEXTE_LEVEE; ++q) {
        const std::string_view forme = Forme(q);
        if (forme.empty()) continue;
        o.droite += ' ';
        o.droite += forme;
    }
    if (o.droite.size() > LARGEUR_CONTEXTE_LEVEE) o.droite.resize(LARGEUR_CONTEXTE_LEVEE);
    o.contextes = true;
}

void SessionLevee::CleTri(long long p, bool droite, std::string& cle) const {
    const std::size_t f = FichierDe(p);
    cle.clear();
    if (droite) {
        for (long long q = p + 1; q <= fin_fichier_[f] && cle.size() < LARGEUR_CONTEXTE_LEVEE; ++q) {
            const std::string_view forme = Forme(q);
            if (forme.empty()) continue;
            cle += ' ';
            cle += forme;
        }
        if (cle.size() > LARGEUR_CONTEXTE_LEVEE) cle.resize(LARGEUR_CONTEXTE_LEVEE);
        return;
    }
    // The left context backwards is each form from the nearest, after its blank, read from its
    // end; the padding of the context comes last.
    for (long long q = p - 1; q >= debut_fichier_[f] && cle.size() < LARGEUR_CONTEXTE_LEVEE; --q) {
        const std::string_view forme = Forme(q);
        if (forme.empty()) continue;
        cle += ' ';
        cle.append(forme.rbegin(), forme.rend());
    }
    if (cle.size() > LARGEUR_CONTEXTE_LEVEE) cle.resize(LARGEUR_CONTEXTE_LEVEE);
    cle.resize(LARGEUR_CONTEXTE_LEVEE, ' ');
}

void SessionLevee::MontrerCas(std::size_t no) {
    no_cas_ = no;
    casAffiche_ = true;
    const std::string& cle = cles_[no - 1];
    forme_cas_ = std::string(ValeurAttribut(cle, "f"));
    libelles_.clear();
    if (etiquette_ == EtiquetteSession::levcon_comp) {
        libelles_.push_back({Joindre("l=composé "_cp, forme_cas_), ""});
    } else {
        std::string_view liste = ValeurAttribut(cle, "l");
        for (std::string_view lecture : Decouper(liste, "/")) {
            if (libelles_.size() >= static_cast<std::size_t>(NB_COLONNES_LEVEE)) break;
            const Interpretation i = CouperInterpretation(lecture);
            const std::string lemme = i.lemme_code.empty() ? forme_cas_ : decoder_lemme(forme_cas_, i.lemme_code);
            libelles_.push_back({Joindre("l=", lemme, "_", i.categorie),
                                 i.flexion.empty() ? std::string() : Joindre(" x=", i.flexion)});
        }
    }
    occurrences_.clear();
    const std::string_view positions = positions_cas_[no - 1];
    for (std::size_t debut = 0; debut < positions.size();) {
        std::size_t fin = positions.find('-', debut);
        if (fin == std::string_view::npos) fin = positions.size();
        const std::string_view morceau = positions.substr(debut, fin - debut);
        debut = fin + 1;
        {
            if (morceau.empty()) continue;
            if (occurrences_.size() >= MAX_OCCURRENCES_CAS)
                LimiteDepassee("MAX_OCCURRENCES_CAS", static_cast<long long>(MAX_OCCURRENCES_CAS),
                               Joindre("occurrences du cas "_cp, cle));
            const long long p = ValeurEntiere(morceau);
            if (p < 1 || p > NbPositions() || std::to_string(p) != morceau)
                throw ErreurExecution(Joindre("Position "_cp, morceau, " hors du corpus ("_cp, std::to_string(NbPositions()),
                                              " positions) pour le cas n°"_cp, std::to_string(no), " : ", cle));
            OccurrenceLevee o;
            o.position = p;
            occurrences_.push_back(std::move(o));
        }
    }
    triDroit_ = false;
    Trier();
}

void SessionLevee::Trier() {
    const std::size_t n = occurrences_.size();
    ordre_.resize(n);
    for (std::size_t i = 0; i < n; ++i) ordre_[i] = i;
    // The keys stand side by side in one block of 64 characters each (a right context shorter
    // than 64 keeps its length apart), built without the contexts shown.
    std::string bloc(n * LARGEUR_CONTEXTE_LEVEE, ' ');
    std::vector<unsigned char> longueurs(n);
    std::string cle;
    cle.reserve(2 * LARGEUR_CONTEXTE_LEVEE);
    for (std::size_t i = 0; i < n; ++i) {
        CleTri(occurrences_[i].position, triDroit_, cle);
        cle.copy(bloc.data() + i * LARGEUR_CONTEXTE_LEVEE, cle.size());
        longueurs[i] = static_cast<unsigned char>(cle.size());
    }
    const auto Cle = [&](std::size_t i) {
        return std::string_view(bloc).substr(i * LARGEUR_CONTEXTE_LEVEE, longueurs[i]);
    };
    // The first eight bytes of a key, big-endian, settle most comparisons; the rank in the case
    // breaks ties, which gives the order of a stable sort (that of the insertion sort).
    struct Entree {
        std::uint64_t tete;
        std::size_t rang;
    };
    std::vector<Entree> entrees(n);
    for (std::size_t i = 0; i < n; ++i) {
        std::uint64_t t = 0;
        const std::string_view k = Cle(i);
        for (std::size_t b = 0; b < 8; ++b)
            t = (t << 8) | (b < k.size() ? static_cast<unsigned char>(k[b]) : 0u);
        entrees[i] = {t, i};
    }
    std::sort(entrees.begin(), entrees.end(), [&](const Entree& a, const Entree& b) {
        if (a.tete != b.tete) return a.tete < b.tete;
        const int c = Cle(a.rang).compare(Cle(b.rang));
        return c != 0 ? c < 0 : a.rang < b.rang;
    });
    for (std::size_t i = 0; i < n; ++i) ordre_[i] = entrees[i].rang;
}

void SessionLevee::ChangerTri() {
    triDroit_ = !triDroit_;
    Trier();
}

std::string_view SessionLevee::LibelleTri() const { return triDroit_ ? "TRI GAUCHE" : "TRI DROIT"; }

std::string_view SessionLevee::LibelleBouton() const {
    if (revision_) return "CAS PRECEDENT";
    return dejaValide_ ? "CAS SUIVANT" : "PROCHAIN CAS";
}

std::string SessionLevee::LigneCas() const {
    return Joindre("CAS n°"_cp, std::to_string(no_cas_), " sur ", std::to_string(cles_.size()), " : ", forme_cas_, " : ",
                   std::to_string(occurrences_.size()), " occurrence(s).");
}

void SessionLevee::Cocher(std::size_t rang, int lecture) {
    if (!casAffiche_ || rang >= ordre_.size() || lecture < 0 || lecture > NbLectures()) return;
    occurrences_[ordre_[rang]].coche = lecture;
}

void SessionLevee::CocherColonne(int lecture) {
    if (!casAffiche_ || lecture < 1 || lecture > NbLectures()) return;
    const bool toutes =
        std::all_of(occurrences_.begin(), occurrences_.end(), [&](const OccurrenceLevee& o) { return o.coche == lecture; });
    for (OccurrenceLevee& o : occurrences_) o.coche = toutes ? 0 : lecture;
}

void SessionLevee::CocherPlage(std::size_t de, std::size_t a, int lecture) {
    if (!casAffiche_ || lecture < 1 || lecture > NbLectures() || ordre_.empty()) return;
    if (de > a) std::swap(de, a);
    a = std::min(a, ordre_.size() - 1);
    if (de > a || a - de + 1 > MAX_LIGNES_PLAGE) return;
    for (std::size_t r = de; r <= a; ++r) occurrences_[ordre_[r]].coche = lecture;
}

void SessionLevee::Remplacer(long long position, std::string_view jeton) {
    jetons_[static_cast<std::size_t>(position - 1)] = Ajouter(jeton);
    modifie_[FichierDe(position)] = true;
}

void SessionLevee::AppliquerSimple(OccurrenceLevee& o, std::string& chiffres) {
    const std::string_view jeton = Jeton(o.position);
    if (jeton == "<M >") return;
    const auto i = static_cast<std::size_t>(o.position - 1);
    historique_.push_back({o.position, jetons_[i], separateurs_[i]});
    if (o.coche == 0) {
        chiffres += '0';
        return;
    }
    const LibelleLecture& l = libelles_[static_cast<std::size_t>(o.coche - 1)];
    // The first reading is written with two blanks after "<M": the files have always had it so.
    const std::string nouveau =
        Joindre(o.coche == 1 ? "<M  f=" : "<M f=", LireAttributsVue(jeton).f, " ", l.lemme, l.flexion, " >");
    Remplacer(o.position, nouveau);
    chiffres += static_cast<char>('0' + o.coche);
}

void SessionLevee::AppliquerCompose(OccurrenceLevee& o, std::string& chiffres) {
    const std::string jeton(Jeton(o.position));
    if (!jeton.starts_with("<MK ")) return;  // absorbed by an earlier compound, or not a candidate
    const std::size_t f = FichierDe(o.position);
    const long long z = ValeurEntiere(ValeurAttribut(jeton, "z"));
    // The positions covered hold the next z words of the file. Another candidate inside the run
    // holds a position without being a word; a compound already kept counts for the z words it
    // covers, and the emptied positions behind it for none.
    std::vector<long long> couverts;
    long long mots = 0;
    for (long long q = o.position + 1; q <= fin_fichier_[f] && mots < z; ++q) {
        couverts.push_back(q);
        const std::string_view j = Jeton(q);
        if (j.starts_with("<MK ") || j == "<M >") continue;
        if (j.starts_with("<MC ") && !ValeurAttribut(j, "z").empty()) mots += std::max(1LL, ValeurEntiere(ValeurAttribut(j, "z")));
        else ++mots;
    }
    const auto i = static_cast<std::size_t>(o.position - 1);
    historique_.push_back({o.position, jetons_[i], separateurs_[i]});
    for (long long q : couverts) {
        const auto k = static_cast<std::size_t>(q - 1);
        historique_.push_back({q, jetons_[k], separateurs_[k]});
    }
    if (o.coche == 1) {
        std::string separateur(Texte(separateurs_[i]));
        for (long long q : couverts) {
            const auto k = static_cast<std::size_t>(q - 1);
            separateur.append(Texte(separateurs_[k]));
            jetons_[k] = Ajouter("<M >");
            separateurs_[k] = Morceau{0, 0};
        }
        Remplacer(o.position, Joindre("<MC", std::string_view(jeton).substr(3)));
        separateurs_[i] = Ajouter(separateur);
        chiffres += '1';
    } else {
        const std::string_view j = jeton;
        std::string_view nouveau = "<M >";
        if (j.ends_with("f=du >") || j.ends_with("f=au >")) nouveau = "<M f= l=le_DÂ x=ms >"_cp;
        else if (j.ends_with("f=des >") || j.ends_with("f=aux >")) nouveau = "<M f= l=les_DÂ x=xp >"_cp;
        Remplacer(o.position, nouveau);
        chiffres += '0';
    }
}

void SessionLevee::AppliquerCoches() {
    historique_.clear();
    cas_historique_ = no_cas_;
    rang_historique_ = rang_file_;
    bilan_avant_ = bilan_.size();
    etat_cas_[no_cas_ - 1] = 1;
    std::string chiffres;
    for (OccurrenceLevee& o : occurrences_) {
        if (etiquette_ == EtiquetteSession::levcon_comp) AppliquerCompose(o, chiffres);
        else AppliquerSimple(o, chiffres);
    }
    bilan_ += cles_[no_cas_ - 1];
    bilan_ += '\t';
    bilan_ += chiffres;
    bilan_ += "\r\n";
    dejaValide_ = true;
    casAffiche_ = false;
    if (++valides_ % CAS_PAR_SAUVEGARDE == 0) Sauver();
}

bool SessionLevee::CasSuivant() {
    if (terminee_) return false;
    if (etiquette_ != EtiquetteSession::levcon_s1 && etiquette_ != EtiquetteSession::levcon_s2 &&
        etiquette_ != EtiquetteSession::levcon_comp)
        return true;
    if (revision_) {
        revision_ = false;
        rang_file_ = rang_historique_;
        MontrerCas(cas_historique_);
        return true;
    }
    if (casAffiche_) AppliquerCoches();
    if (ProchainNonTraite()) return true;
    Terminer();
    return false;
}

bool SessionLevee::Reviser() {
    if (terminee_ || revision_ || cas_historique_ == 0) return false;
    for (auto it = historique_.rbegin(); it != historique_.rend(); ++it) {
        const auto i = static_cast<std::size_t>(it->position - 1);
        jetons_[i] = it->jeton;
        separateurs_[i] = it->separateur;
        modifie_[FichierDe(it->position)] = true;
    }
    historique_.clear();
    etat_cas_[cas_historique_ - 1] = 0;
    bilan_.resize(bilan_avant_);
    revision_ = true;
    return true;
}

std::string SessionLevee::TexteFichier(std::size_t f) const {
    std::string r(Texte(entete_fichier_[f]));
    for (long long p = debut_fichier_[f]; p <= fin_fichier_[f]; ++p) {
        const auto i = static_cast<std::size_t>(p - 1);
        r.append(Texte(jetons_[i]));
        r.append(Texte(separateurs_[i]));
    }
    return r;
}

// The texts, the summary and the case states of a saving point change together or not at all.
void SessionLevee::Sauver() {
    EcritureGroupee groupe(JournalSauvegarde(dossierTT_));
    for (std::size_t f = 0; f < noms_.size(); ++f) {
        if (!modifie_[f]) continue;
        groupe.Ajouter(Chemin(dossierTT_, Joindre(noms_[f], ".txt")), TexteFichier(f));
    }
    groupe.Ajouter(Chemin(dossierEtat_, "#BILAN.txt"), bilan_);
    if (etiquette_ == EtiquetteSession::levcon_s1 || etiquette_ == EtiquetteSession::levcon_s2) {
        std::string etat;
        etat.reserve(etat_cas_.size() * 3);
        for (char e : etat_cas_) etat += e ? "1\r\n" : "0\r\n";
        groupe.Ajouter(Chemin(dossierEtat_, "#F_ETAT.txt"), etat);
    } else if (etiquette_ == EtiquetteSession::levcon_comp) {
        // The cases are walked in order: those in front of the first open one are done.
        const auto premier = std::find(etat_cas_.begin(), etat_cas_.end(), 0);
        groupe.Ajouter(Chemin(dossierEtat_, "#ETAT.txt"), Joindre(std::to_string(premier - etat_cas_.begin()), "\r\n"));
    }
    groupe.Valider();
    std::fill(modifie_.begin(), modifie_.end(), false);
}

void SessionLevee::Terminer() {
    casAffiche_ = false;
    Sauver();
    terminee_ = true;
}

}  // namespace telvoris
