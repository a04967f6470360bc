#include "explore/requete.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <unordered_set>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"
#include "explore/concordance.hpp"
#include "explore/mots_courts.hpp"
#include "explore/tranches.hpp"

namespace telvoris {

namespace {

std::vector<std::string_view> LignesSaisie(std::string_view texte) {
    std::vector<std::string_view> lignes;
    LecteurLignes l(texte);
    std::string_view ligne;
    while (l.Suivante(ligne))
        if (!ligne.empty()) lignes.push_back(ligne);
    return lignes;
}

std::vector<std::string_view> Mots(std::string_view texte) {
    std::vector<std::string_view> mots;
    for (const auto m : Decouper(texte, " "))
        if (!m.empty()) mots.push_back(m);
    return mots;
}

bool FinDePhrase(std::string_view f) { return f == "." || f == "!" || f == "?" || f == "\x85"; }

// The mark that opens a category item of a sequence: a sign that no word begins with.
bool EstMarque(char c) {
    const unsigned char u = Code(c);
    return u < 128 && !std::isalnum(u) && c != '\'' && c != '-' && c != '_';
}

bool EstCapitale(char c) {
    const unsigned char u = Code(c);
    return (u >= 65 && u <= 90) || (u >= 192 && u <= 222 && u != 215);
}

struct Item {
    char type = 'f';       // f: form, l: lemma, c: category
    std::string texte;     // as entered (a category without its mark)
    std::string categorie, flexion;  // c: its capitals, and the rest
};

class Moteur {
public:
    Moteur(EtatCorpus& e, const ParametresRequete& p, Requete& r, Dialogue& d)
        : e_(e), p_(p), r_(r), d_(d), tranches_(e.PATH_INDEX, e.NB_MOTS) {}

    bool Lancer() {
        if (!Valider()) return false;
        e_.AlleguerTables();
        r_ = Requete();
        r_.OCC_PAR_PART.assign(static_cast<std::size_t>(e_.NB_PARTS) + 1, 0);
        r_.OCC_PAR_CLASSE.assign(static_cast<std::size_t>(e_.NB_CLASSES) + 1, 0);
        if (!ResoudreTags()) return false;
        Positions();
        if (r_.NB_OCC() == 0) {
            if (r_.nonIndexees.empty()) d_.Afficher("Votre requête n'a aucune occurrence dans le corpus"_cp);
            return true;
        }
        if (r_.contextes) TrierConcordance(r_);
        return true;
    }

private:
    bool Refuser(std::string_view message) {
        d_.Afficher(message);
        return false;
    }

    bool Valider() {
        if (p_.empan) {
            const std::string& l = p_.longueurEmpan;
            if (l.empty()) return Refuser("Vous devez saisir un nombre dans le champ de longueur d'empan"_cp);
            if (l.size() > 2) return Refuser("0Ce champ ne peut contenir qu'un nombre de 1 à 50"_cp);
            if (l.find_first_not_of("0123456789") != std::string::npos)
                return Refuser("1Ce champ ne peut contenir qu'un nombre de 1 à 50"_cp);
            empan_ = static_cast<int>(ValeurEntiere(l));
            if (empan_ > MAX_EMPAN) return Refuser("2Ce champ ne peut contenir qu'un nombre de 1 à 50"_cp);
            gaucheLimitee_ = p_.cote != Cote::Droite;
            droiteLimitee_ = p_.cote != Cote::Gauche;
        }
        const std::string& s = p_.saisie;
        if (s.find_first_not_of(" \t\r\n") == std::string::npos) return Refuser("Vous n'avez rien saisi dans le champ coché."_cp);
        switch (p_.type) {
            case TypeSaisie::ListeFormes:
                if (s.find('*') != std::string::npos)
                    throw FinProgramme(std::string("Aucune troncature n'est admise dans le cas d'une saisie multiple"_cp));
                if (s.find('_') != std::string::npos) return Refuser("Cette liste ne doit pas contenir de lemmes"_cp);
                break;
            case TypeSaisie::Lemme:
                if (s.find('_') == std::string::npos && s.find(' ') == std::string::npos)
                    return Refuser("Vous devez saisir un lemme avec son suffixe catégoriel précédé de l'underscore"_cp);
                if (s.find('*') != std::string::npos)
                    return Refuser("Aucune troncature n'est admise pour la saisie d'un lemme"_cp);
                break;
            case TypeSaisie::ListeLemmes:
                if (s.find('*') != std::string::npos)
                    return Refuser("Aucune troncature n'est admise dans le cas d'une saisie multiple"_cp);
                break;
            case TypeSaisie::Forme: {
                const std::size_t a = s.find('*');
                if (a != std::string::npos) {
                    const std::size_t interieur = s.find('*', 1);
                    if (interieur != std::string::npos && interieur != s.size() - 1)
                        return Refuser("Il ne doit pas figurer d'astérisque ailleurs qu'en début ou en fin de saisie"_cp);
                }
                break;
            }
        }
        return true;
    }

    std::string Plier(std::string_view forme) const { return p_.casse ? std::string(forme) : Minusculiser(forme); }

    void AjouterTag(std::string_view tag) {
        if (!vus_.insert(std::string(tag)).second) return;
        r_.TAGS.emplace_back(tag);
    }

    // Each tag of a tags column; `forme`, when given, keeps only the tags of that exact form.
    void AjouterColonne(std::string_view colonne, const std::string* forme = nullptr) {
        std::size_t debut = 0;
        while (debut < colonne.size()) {
            const std::size_t fin = colonne.find('>', debut);
            const std::string_view tag = colonne.substr(debut, fin == std::string_view::npos ? fin : fin - debut + 1);
            debut = fin == std::string_view::npos ? colonne.size() : fin + 1;
            if (forme && LireAttributs(tag).f != *forme) continue;
            AjouterTag(tag);
        }
    }

    const TableIndex::Ligne* LigneForme(std::string_view cle) {
        return e_.Table(DossierIndexe::Formes, CalculerCasier(cle)).Trouver(cle);
    }

    // A single form: its line in LEXINDEX_F. With the case respected, only the tags of that
    // exact form; they are looked for under the form as written and under its folded key, so
    // that the index may have been built either way.
    void Forme(std::string_view entree) {
        if (!p_.casse) {
            if (const auto* l = LigneForme(Minusculiser(entree))) AjouterColonne(l->colonne);
            return;
        }
        const std::string exacte(entree);
        if (const auto* l = LigneForme(exacte)) AjouterColonne(l->colonne, &exacte);
        const std::string pliee = Minusculiser(entree);
        if (pliee != exacte)
            if (const auto* l = LigneForme(pliee)) AjouterColonne(l->colonne, &exacte);
    }

    void Troncature(std::string_view s) {
        if (s.size() <= 2) return;  // too short to be searched
        const bool gauche = s.front() == '*';
        const bool droite = s.back() == '*';
        std::string_view radical = s.substr(gauche ? 1 : 0);
        if (droite && !radical.empty()) radical.remove_suffix(1);
        const std::string r = Plier(radical);
        auto retenir = [&](const TableIndex& t) {
            for (const auto& l : t.lignes) {
                const std::string_view cle = l.cle;
                const bool ok = !gauche ? cle.starts_with(r) : (droite ? cle.find(r) != std::string_view::npos : cle.ends_with(r));
                if (ok) AjouterColonne(l.colonne);
            }
        };
        if (!gauche) {
            const int lettre = CalculerCasier(r).lettre;
            for (int L = 1; L <= NB_LONGUEURS; ++L) retenir(e_.Table(DossierIndexe::Formes, {lettre, L}));
        } else {
            for (int L = 1; L <= NB_LONGUEURS; ++L)
                for (int c = 1; c <= NB_LETTRES; ++c) retenir(e_.Table(DossierIndexe::Formes, {c, L}));
        }
    }

    // The pivot of a sequence: the item with the smallest count in the index.
    bool Sequence(const std::vector<std::string_view>& mots, bool motifs) {
        items_.clear();
        long long minimum = 1000000;
        const TableIndex::Ligne* pivot = nullptr;
        for (std::size_t k = 0; k < mots.size(); ++k) {
            Item it;
            const std::string_view m = mots[k];
            const TableIndex::Ligne* ligne = nullptr;
            if (motifs && m.find('_') != std::string_view::npos) {
                it.type = 'l';
                it.texte.assign(m);
                ligne = e_.Table(DossierIndexe::Lemmes, CalculerCasier(m.substr(0, m.rfind('_')))).Trouver(m);
            } else if (motifs && EstMarque(m[0]) && m.size() > 1) {
                it.type = 'c';
                it.texte.assign(m.substr(1));
                for (const char c : it.texte) (EstCapitale(c) ? it.categorie : it.flexion).push_back(c);
                ligne = e_.Categories().Trouver(it.texte);
            } else {
                it.texte.assign(m);
                ligne = LigneForme(Plier(m));
                // With the case respected, an index of folded forms holds the item under its folded key.
                if (!ligne && p_.casse) ligne = LigneForme(Minusculiser(m));
            }
            if (ligne && ligne->compte < minimum) {
                minimum = ligne->compte;
                pivot = ligne;
                r_.PIVOT = static_cast<int>(k) + 1;
            }
            items_.push_back(std::move(it));
        }
        r_.LONG_SEQ = static_cast<int>(items_.size());
        if (!pivot) {
            if (motifs) return Refuser("Saisie incorrecte ou items absents du corpus"_cp);
            return true;
        }
        AjouterColonne(pivot->colonne);
        return true;
    }

    bool ResoudreTags() {
        const std::string& s = p_.saisie;
        switch (p_.type) {
            case TypeSaisie::ListeFormes: {
                const auto lignes = LignesSaisie(s);
                r_.LIBELLE = Joindre(lignes.empty() ? std::string_view() : lignes[0], "_LISTE");
                for (const auto l : lignes) Forme(l);
                return true;
            }
            case TypeSaisie::ListeLemmes: {
                const auto lignes = LignesSaisie(s);
                r_.LIBELLE = Joindre(lignes.empty() ? std::string_view() : lignes[0], "_LISTE");
                for (const auto l : lignes) {
                    const std::size_t u = l.find('_');
                    if (u == std::string_view::npos) continue;
                    if (const auto* ligne = e_.Table(DossierIndexe::Lemmes, CalculerCasier(l.substr(0, u))).Trouver(l))
                        AjouterColonne(ligne->colonne);
                }
                return true;
            }
            case TypeSaisie::Lemme:
                r_.LIBELLE = s;
                if (s.find(' ') != std::string::npos) return Sequence(Mots(s), true);
                if (const auto* ligne =
                        e_.Table(DossierIndexe::Lemmes, CalculerCasier(std::string_view(s).substr(0, s.rfind('_')))).Trouver(s))
                    AjouterColonne(ligne->colonne);
                return true;
            case TypeSaisie::Forme:
                r_.LIBELLE = s;
                if (s.front() == '*' || s.back() == '*') Troncature(s);
                else if (s.find(' ') != std::string::npos) return Sequence(Mots(s), false);
                else Forme(s);
                return true;
        }
        return true;
    }

    // The line of a tag in LEXINDEX: in the bucket of its folded form, else of its form as written.
    const TableIndex::Ligne* LigneBalise(std::string_view tag) {
        const std::string f = LireAttributs(tag).f;
        const std::string pliee = Minusculiser(f);
        if (const auto* l = e_.Table(DossierIndexe::Balises, CalculerCasier(pliee)).Trouver(tag)) return l;
        if (pliee != f) return e_.Table(DossierIndexe::Balises, CalculerCasier(f)).Trouver(tag);
        return nullptr;
    }

    bool Accepter(long long premier, std::string& formes) {
        formes.clear();
        for (int k = 0; k < r_.LONG_SEQ; ++k) {
            const std::string_view tag = tranches_.Balise(premier + k);
            if (tag.empty()) return false;
            const AttributsJeton a = LireAttributs(tag);
            if (k > 0) formes += ' ';
            formes += a.f;
            if (r_.LONG_SEQ == 1) return true;
            const Item& it = items_[static_cast<std::size_t>(k)];
            bool ok;
            if (it.type == 'l') {
                ok = tag.find(Joindre("l=", it.texte, " ")) != std::string_view::npos;
            } else if (it.type == 'c') {
                ok = tag.find(Joindre("_", it.categorie, " ")) != std::string_view::npos &&
                     (it.flexion.empty() || a.x.find(it.flexion) != std::string::npos);
            } else if (p_.casse) {
                ok = tag.find(Joindre("f=", it.texte, " ")) != std::string_view::npos;
            } else {
                ok = Minusculiser(a.f) == Minusculiser(it.texte);
            }
            if (!ok) return false;
        }
        if (p_.casse && p_.type == TypeSaisie::Forme) {
            std::string entree;
            for (const auto& it : items_) entree += (entree.empty() ? "" : " ") + it.texte;
            if (formes != entree) return false;
        }
        return true;
    }

    // Appends an occurrence and what it adds to the distributions.
    Occurrence& Ajouter(long long premier, long long partition) {
        Occurrence& o = r_.occ.emplace_back();
        o.pos = premier;
        o.partition = partition;
        const auto p = static_cast<std::size_t>(partition);
        if (p < r_.OCC_PAR_PART.size()) ++r_.OCC_PAR_PART[p];
        if (p < e_.CLASSE_PART.size() && e_.CLASSE_PART[p] > 0) ++r_.OCC_PAR_CLASSE[static_cast<std::size_t>(e_.CLASSE_PART[p])];
        return o;
    }

    void Positions() {
        std::vector<const TableIndex::Ligne*> lignes;
        for (const auto& tag : r_.TAGS) {
            const auto* l = LigneBalise(tag);
            lignes.push_back(l);
            if (l) r_.NB_ATTENDU += l->compte;
        }
        if (p_.concordance && r_.NB_ATTENDU > SEUIL_CONCORDANCE)
            d_.Afficher(Joindre("Votre requête recense "_cp, Nombre(r_.NB_ATTENDU),
                                " occurrences. C'est trop pour afficher une concordance."_cp));
        r_.contextes = p_.concordance && r_.NB_ATTENDU <= SEUIL_CONCORDANCE;
        if (CompterSansPositions(e_, lignes, r_, d_)) return;
        // A single word whose occurrences need neither context nor offset is counted from its
        // positions alone, without reading the slices where it stands.
        const bool index_seul =
            r_.LONG_SEQ == 1 && !r_.contextes && !p_.micro && r_.NB_ATTENDU >= SEUIL_DETAIL_OCCURRENCES;
        const int largeur = e_.LARGEUR_CODE;
        // Room for every occurrence at once: growing tag by tag would copy the ones already found.
        if (index_seul) r_.occ.reserve(static_cast<std::size_t>(r_.NB_ATTENDU));
        std::string formes;
        std::vector<std::size_t> series{0};  // where each tag's occurrences begin, in position order each
        for (std::size_t t = 0; t < r_.TAGS.size(); ++t) {
            long long trouvees = 0;
            const auto* l = lignes[t];
            long long ailleurs = 0;  // positions that hold another tag
            if (l && l->colonne != "!") {
                const std::string_view liste = l->colonne;
                const std::size_t n = liste.size() / static_cast<std::size_t>(largeur);
                if (index_seul && n > 0) {
                    // A short frequent word keeps no positions of its own: the builder gave its
                    // line the list of the line before, so its first position already tells.
                    if (!MemeBalise(tranches_.Balise(LireCodePosition(liste.data(), largeur)), r_.TAGS[t])) {
                        ailleurs = static_cast<long long>(n);
                    } else {
                        const std::string f = LireAttributs(r_.TAGS[t]).f;
                        long long partition = 0;
                        for (std::size_t i = 0; i < n; ++i) {
                            const long long q = LireCodePosition(liste.data() + i * static_cast<std::size_t>(largeur), largeur);
                            partition = e_.PartitionDepuis(q, partition);
                            Occurrence& o = Ajouter(q, partition);
                            o.forme = f;
                            o.longueur = static_cast<long long>(f.size());
                        }
                        trouvees = static_cast<long long>(n);
                    }
                } else {
                    for (std::size_t i = 0; i < n; ++i) {
                        const long long q = LireCodePosition(liste.data() + i * static_cast<std::size_t>(largeur), largeur);
                        // Positions carried over from another line (short frequent words) hold other tags.
                        if (!MemeBalise(tranches_.Balise(q), r_.TAGS[t])) {
                            ++ailleurs;
                            continue;
                        }
                        const long long premier = q - (r_.PIVOT - 1);
                        if (!Accepter(premier, formes)) continue;
                        Occurrence& o = Ajouter(premier, e_.PartitionDe(premier));
                        o.k = LireAttributs(tranches_.Balise(premier)).k;
                        o.forme = formes;
                        o.longueur = static_cast<long long>(formes.size());
                        if (r_.contextes || p_.micro) Contextes(r_.occ.size() - 1);
                        ++trouvees;
                    }
                }
            }
            series.push_back(r_.occ.size());
            if (l && l->compte > 0 && trouvees == 0 && (ailleurs > 0 || l->colonne == "!" || l->colonne.empty())) {
                const std::string f = LireAttributs(r_.TAGS[t]).f;
                if (std::find(r_.nonIndexees.begin(), r_.nonIndexees.end(), f) == r_.nonIndexees.end())
                    r_.nonIndexees.push_back(f);
            }
            r_.rapport += Joindre(LireAttributs(r_.TAGS[t]).f, "\t", Nombre(trouvees), "\r\n");
        }
        if (!r_.nonIndexees.empty()) d_.Afficher(MessagePositionsAbsentes(e_, r_.nonIndexees));
        OrdonnerParPosition(series);
    }

    // ORDRE_POS: the occurrences by ascending position, equal positions in finding order. Each
    // tag's occurrences come in position order, so the series are merged rather than sorted.
    void OrdonnerParPosition(std::vector<std::size_t>& series) {
        auto& ordre = r_.ORDRE_POS;
        ordre.resize(r_.occ.size());
        for (std::size_t i = 0; i < ordre.size(); ++i) ordre[i] = i;
        const auto avant = [&](std::size_t a, std::size_t b) { return r_.occ[a].pos < r_.occ[b].pos; };
        for (std::size_t s = 0; s + 1 < series.size(); ++s)
            if (!std::is_sorted(ordre.begin() + static_cast<std::ptrdiff_t>(series[s]),
                                ordre.begin() + static_cast<std::ptrdiff_t>(series[s + 1]), avant))
                std::stable_sort(ordre.begin() + static_cast<std::ptrdiff_t>(series[s]),
                                 ordre.begin() + static_cast<std::ptrdiff_t>(series[s + 1]), avant);
        while (series.size() > 2) {
            std::vector<std::size_t> fusion{0};
            for (std::size_t s = 0; s + 2 < series.size(); s += 2) {
                std::inplace_merge(ordre.begin() + static_cast<std::ptrdiff_t>(series[s]),
                                   ordre.begin() + static_cast<std::ptrdiff_t>(series[s + 1]),
                                   ordre.begin() + static_cast<std::ptrdiff_t>(series[s + 2]), avant);
                fusion.push_back(series[s + 2]);
            }
            if (series.size() % 2 == 0) fusion.push_back(series.back());
            series = std::move(fusion);
        }
    }

    void EntrerCooc(std::array<std::vector<EntreeCooc>, NB_CASIERS>& table, const std::string& cle, long long partition,
                    long long k, std::size_t numero, const std::string* forme) {
        const auto numeroCasier = static_cast<std::size_t>(IndiceCasier(CalculerCasier(cle)));
        auto& casier = table[numeroCasier];
        // Buckets grow without bound: the place of each key is kept beside them.
        auto& places = &table == &r_.COOC_FORMES ? placesFormes_ : placesLemmes_;
        const auto [it, nouvelle] = places.try_emplace(cle, casier.size());
        if (nouvelle) casier.push_back({cle, 0, {}, {}, {}});
        EntreeCooc* e = &casier[it->second];
        ++e->compte;
        // Appended in place: these lists grow to tens of thousands of entries for common words.
        e->parties += '/';
        AjouterNombre(e->parties, partition);
        e->parties += '-';
        AjouterNombre(e->parties, k);
        e->occurrences += '/';
        AjouterNombre(e->occurrences, static_cast<long long>(numero));
        if (forme) {
            e->longueurs += '/';
            AjouterNombre(e->longueurs, static_cast<long long>(forme->size()));
        }
    }

    static void AjouterNombre(std::string& s, long long v) {
        char tampon[24];
        const auto fin = std::to_chars(tampon, tampon + sizeof tampon, v).ptr;
        s.append(tampon, fin);
    }

    void Cooccurrent(const AttributsJeton& a, long long partition, std::size_t numero) {
        ++r_.NB_COOC;
        EntrerCooc(r_.COOC_FORMES, Minusculiser(a.f), partition, a.k, numero, nullptr);
        const std::string& l = a.l;
        if (!l.empty() && l.find('/') == std::string::npos && l != "¤¤¤"_cp && l.find('_') != std::string::npos)
            EntrerCooc(r_.COOC_LEMMES, l, partition, a.k, numero, &a.f);
    }

    // The left and right contexts of an occurrence, and its co-occurrents.
    void Contextes(std::size_t i) {
        Occurrence& o = r_.occ[i];
        if (o.partition < 1 || o.partition > e_.NB_PARTS) return;
        const auto p = static_cast<std::size_t>(o.partition);
        const long long debut = e_.CUMUL_MOTS[p - 1] + 1, fin = e_.CUMUL_MOTS[p];
        const bool construire = r_.contextes;
        const bool micro = p_.micro;
        std::string gauche, droite;
        {
            const bool sansLimite = !micro || (!gaucheLimitee_ && !p_.phrase);
            bool limite = false, finPhrase = false;
            long long compte = 0;
            for (long long t = o.pos - 1; t >= debut; --t) {
                ++compte;
                const std::string_view tag = tranches_.Balise(t);
                const AttributsJeton a = LireAttributs(tag);
                const bool ponctuation = tag.starts_with("<PC ");
                if (micro && !ponctuation) {
                    if ((!gaucheLimitee_ || compte <= empan_) && (!p_.phrase || !finPhrase)) {
                        Cooccurrent(a, o.partition, i + 1);
                    } else {
                        limite = true;
                        if (!construire) break;
                    }
                }
                if (ponctuation && FinDePhrase(a.f)) finPhrase = true;
                if (construire) {
                    gauche.insert(0, Joindre(a.f, " "));
                    if (gauche.size() > LARGEUR_GAUCHE && (limite || sansLimite)) break;
                }
            }
        }
        {
            const bool sansLimite = !micro || (!droiteLimitee_ && !p_.phrase);
            bool limite = false, finPhrase = false;
            const long long finSequence = o.pos + r_.LONG_SEQ - 1;
            for (long long t = o.pos; t <= fin && t < o.pos + MAX_JETONS_DROITE; ++t) {
                const long long compte = t - o.pos;
                const std::string_view tag = tranches_.Balise(t);
                const AttributsJeton a = LireAttributs(tag);
                const bool ponctuation = tag.starts_with("<PC ");
                if (micro && !ponctuation && t > finSequence) {
                    if ((!droiteLimitee_ || compte <= empan_ + r_.LONG_SEQ - 1) && (!p_.phrase || !finPhrase)) {
                        Cooccurrent(a, o.partition, i + 1);
                    } else {
                        limite = true;
                        if (!construire) break;
                    }
                }
                if (ponctuation && FinDePhrase(a.f)) finPhrase = true;
                if (construire) {
                    droite += a.f;
                    droite += ' ';
                    if (droite.size() >= LARGEUR_DROITE && (limite || sansLimite)) break;
                }
            }
        }
        if (construire) {
            if (gauche.size() > LARGEUR_GAUCHE) gauche.erase(0, gauche.size() - LARGEUR_GAUCHE);
            else gauche.insert(0, LARGEUR_GAUCHE - gauche.size(), ' ');
            droite.resize(LARGEUR_DROITE, ' ');
            o.gauche = std::move(gauche);
            o.droite = std::move(droite);
        }
    }

    EtatCorpus& e_;
    const ParametresRequete& p_;
    Requete& r_;
    Dialogue& d_;
    Tranches tranches_;
    int empan_ = 0;
    bool gaucheLimitee_ = false, droiteLimitee_ = false;
    std::vector<Item> items_;
    std::unordered_set<std::string> vus_;
    std::unordered_map<std::string, std::size_t> placesFormes_, placesLemmes_;
};

}  // namespace

bool LancerRequete(EtatCorpus& etat, const ParametresRequete& parametres, Requete& requete, Dialogue& dialogue) {
    return Moteur(etat, parametres, requete, dialogue).Lancer();
}

std::string MessageNonIndexees(const std::vector<std::string>& formes) {
    std::string liste;
    for (const auto& f : formes) liste += Joindre(liste.empty() ? "" : ", ", "« "_cp, f, " »"_cp);
    return Joindre(formes.size() > 1 ? "Les occurrences des formes "_cp : "Les occurrences de la forme "_cp, liste,
                   " ne sont pas indexées : ce sont des mots courts et fréquents, dont l'index ne garde pas "
                   "les positions. Elles ne peuvent être ni comptées ni montrées."_cp);
}

double EcartReduit(long long total, double part, long long occurrences) {
    const double e = static_cast<double>(total) * part;
    if (e <= 0) return 0.0;
    const double s = std::sqrt(e * (1.0 - part));
    if (s <= 0) return 0.0;
    return (static_cast<double>(occurrences) - e) / s;
}

}  // namespace telvoris
