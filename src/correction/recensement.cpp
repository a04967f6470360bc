#include "correction/recensement.hpp"

#include <unordered_set>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"

namespace telvoris {

namespace {

constexpr std::string_view kFiltreTexte = "Text files (*.TXT)|*.TXT";

// Letters tried by the nearest-word search: a to z, and the accented small letters.
bool EssaiPlusProche(int c) {
    static constexpr std::string_view kAccents = "àâéèêîôç"_cp;
    return (c >= 97 && c <= 122) || kAccents.find(static_cast<char>(c)) != std::string_view::npos || c == 156;
}

bool EstVoyelleRecensement(char c) {
    static constexpr std::string_view kVoyelles = "aeiouyhéêîôâ"_cp;
    return kVoyelles.find(c) != std::string_view::npos;
}

// Letters that a lost or inserted character may be: a to z and the codes 192 to 255.
template <class F>
void PourChaqueLettre(F&& f) {
    for (int c = 97; c <= 122; ++c) f(static_cast<char>(c));
    for (int c = 192; c <= 255; ++c) f(static_cast<char>(c));
}

// Multipliers by the length of the word: below 7, below 9, from 9 on.
long long Echelle(std::size_t n, long long freq, long long court, long long moyen2, long long long_) {
    // moyen2 is twice the middle multiplier, so that 1.5 stays exact before the cut to an integer.
    if (n < 7) return freq * court;
    if (n < 9) return freq * moyen2 / 2;
    return freq * long_;
}

class Collecteur {
public:
    Collecteur(std::string_view w, std::vector<Candidat>& c) : w_(w), c_(c) {}
    void Ajouter(std::string cand, long long score) {
        if (c_.size() >= MAX_CANDIDATS)
            LimiteDepassee("MAX_CANDIDATS", MAX_CANDIDATS, Joindre("candidats pour le mot « "_cp, w_, " »"_cp));
        c_.push_back({std::move(cand), score});
    }

private:
    std::string_view w_;
    std::vector<Candidat>& c_;
};

}  // namespace

void MatriceCaracteres::CompleterPremieresLettres() {
    for (int a = 97; a <= 105; ++a)
        for (int b = 97; b <= 105; ++b)
            if (poids_[static_cast<std::size_t>(a) * 256u + static_cast<std::size_t>(b)] == 0)
                poids_[static_cast<std::size_t>(a) * 256u + static_cast<std::size_t>(b)] = 1;
}

void MatriceCaracteres::Charger(const fs::path& fichier) {
    poids_.fill(0);
    const std::string contenu = LireFichier(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    std::vector<std::string_view> colonnes;
    bool entete = true;
    while (lecteur.Suivante(ligne)) {
        const auto champs = Decouper(ligne, "\t");
        if (entete) {
            entete = false;
            colonnes.assign(champs.begin() + (champs.empty() ? 0 : 1), champs.end());
            continue;
        }
        if (ligne.empty()) continue;
        if (champs[0].empty())
            throw ErreurExecution(Joindre("Caractère de ligne absent ("_cp, Endroit(fichier, lecteur.Numero()), ")"));
        const unsigned char a = Code(champs[0][0]);
        for (std::size_t j = 1; j < champs.size(); ++j) {
            if (champs[j].empty()) continue;
            if (j - 1 >= colonnes.size() || colonnes[j - 1].empty())
                throw ErreurExecution(Joindre("Poids hors des colonnes de l'en-tête ("_cp,
                                              Endroit(fichier, lecteur.Numero()), ")"));
            Definir(a, Code(colonnes[j - 1][0]), LireEntier(champs[j], fichier, lecteur.Numero()));
        }
    }
    CompleterPremieresLettres();
}

void ChargerTablesRecensement(TablesRecensement& t, const fs::path& racine) {
    t.frequences = FormesFrequences();
    t.frequences.Charger(racine);
    t.substitutions.clear();
    const fs::path fichier = FichierUtilitaire(racine, "substi_car.txt");
    const std::string contenu = LireFichier(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        const std::size_t tab = ligne.find('\t');
        if (tab == std::string_view::npos) LigneSansTabulation(ligne, fichier, lecteur.Numero());
        if (t.substitutions.size() >= MAX_SUBSTITUTIONS)
            LimiteDepassee("MAX_SUBSTITUTIONS", MAX_SUBSTITUTIONS, Joindre("lignes dans "_cp, TexteChemin(fichier)));
        if (tab == 0)
            throw ErreurExecution(Joindre("Substitution sans chaîne de départ ("_cp, Endroit(fichier, lecteur.Numero()), ")"));
        const std::string_view vers = ligne.substr(tab + 1);
        t.substitutions.emplace_back(ligne.substr(0, tab), vers.substr(0, vers.find('\t')));
    }
    t.matrice.Charger(FichierUtilitaire(racine, "MATRICE_CAR.txt"));
}

Candidat PlusProche(std::string_view w, const TablesRecensement& t) {
    Candidat meilleur{"", -1};
    if (w.empty()) return meilleur;
    std::string cand(w);
    for (std::size_t p = 0; p < w.size(); ++p) {
        const unsigned char origine = Code(w[p]);
        for (int c = 97; c <= 251; ++c) {
            if (!EssaiPlusProche(c)) continue;
            if (p > 0 && c == 122) continue;  // "z" is tried only in front
            cand[p] = static_cast<char>(c);
            if (const auto f = t.frequences.Frequence(cand)) {
                const long long score = *f * t.matrice.Poids(static_cast<unsigned char>(c), origine);
                if (score > meilleur.score) meilleur = {cand, score};
            }
        }
        cand[p] = w[p];
    }
    return meilleur;
}

std::vector<Candidat> Candidats(std::string_view w, const TablesRecensement& t) {
    std::vector<Candidat> c;
    Collecteur col(w, c);
    const std::size_t n = w.size();
    const auto connu = [&](const std::string& s) { return t.frequences.Frequence(s); };
    // 1. A misread elision.
    if (n >= 2 && std::string_view("vutpf").find(w[0]) != std::string_view::npos && EstVoyelleRecensement(w[1])) {
        std::string cand = Joindre("l'", w.substr(1));
        if (const auto f = connu(cand)) col.Ajouter(std::move(cand), *f * 2);
    }
    // 2. A missing hyphen.
    for (std::size_t k = 1; k < n; ++k) {
        std::string cand = Joindre(w.substr(0, k), "-", w.substr(k));
        if (const auto f = connu(cand)) col.Ajouter(std::move(cand), *f * 3);
    }
    // 3. A character confusion, one occurrence at a time.
    for (const auto& [de, vers] : t.substitutions) {
        for (std::size_t p = w.find(de); p != std::string_view::npos; p = w.find(de, p + 1)) {
            std::string cand = Joindre(w.substr(0, p), vers, w.substr(p + de.size()));
            if (const auto f = connu(cand)) col.Ajouter(std::move(cand), *f * 3);
        }
    }
    // 4. The nearest word.
    if (Candidat p = PlusProche(w, t); !p.mot.empty()) col.Ajouter(std::move(p.mot), p.score);
    // 5 and 6. A spurious sign; the frequency column they would read is empty, so they score 0.
    std::size_t signe = w.find('-');
    if (signe == std::string_view::npos) signe = w.find('\'');
    if (signe != std::string_view::npos) {
        std::string cand = Joindre(w.substr(0, signe), w.substr(signe + 1));
        if (connu(cand)) col.Ajouter(std::move(cand), 0);
        const std::string g(w.substr(0, signe)), d(w.substr(signe + 1));
        if (connu(g) && connu(d)) col.Ajouter(Joindre(g, " ", d), 0);
    }
    // 7. A lost last letter; 8. a lost first letter.
    PourChaqueLettre([&](char l) {
        std::string cand = Joindre(w, std::string_view(&l, 1));
        if (const auto f = connu(cand)) col.Ajouter(std::move(cand), Echelle(n, *f, 2, 6, 4));
    });
    PourChaqueLettre([&](char l) {
        std::string cand = Joindre(std::string_view(&l, 1), w);
        if (const auto f = connu(cand)) col.Ajouter(std::move(cand), Echelle(n, *f, 2, 6, 4));
    });
    // 9. A lost inner letter.
    for (std::size_t k = 1; k < n; ++k)
        PourChaqueLettre([&](char l) {
            std::string cand = Joindre(w.substr(0, k), std::string_view(&l, 1), w.substr(k));
            if (const auto f = connu(cand)) col.Ajouter(std::move(cand), Echelle(n, *f, 1, 3, 2));
        });
    // 10. An extra letter: thin letters slip in more often and weigh more.
    for (std::size_t k = 1; k < n; ++k) {
        std::string cand = Joindre(w.substr(0, k), w.substr(k + 1));
        if (const auto f = connu(cand)) {
            const bool fine = std::string_view("ijltkqy").find(w[k]) != std::string_view::npos;
            col.Ajouter(std::move(cand), fine ? Echelle(n, *f, 2, 6, 4) : Echelle(n, *f, 1, 3, 2));
        }
    }
    return c;
}

std::optional<Candidat> Meilleur(const std::vector<Candidat>& c) {
    std::optional<Candidat> m;
    for (const Candidat& x : c)
        if (!m || x.score > m->score) m = x;
    return m;
}

BilanRecensement Recenser(const fs::path& racineCorpus, long long seuil, const TablesRecensement& t,
                          Dialogue& dialogue) {
    EcrivainFichier suggestions(racineCorpus / "CORR_SUGGESTIONS.txt");
    EcrivainFichier rejets(racineCorpus / "CORR_REJETS.txt");
    const fs::path inconnus = racineCorpus / "INCONNUS.txt";
    const std::string contenu = LireFichier(inconnus);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    BilanRecensement b;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        const std::size_t tab = ligne.find('\t');
        if (tab == std::string_view::npos) LigneSansTabulation(ligne, inconnus, lecteur.Numero());
        const std::string_view w = ligne.substr(0, tab);
        const long long compte = LireEntier(ligne.substr(tab + 1), inconnus, lecteur.Numero());
        if (w.size() <= LONGUEUR_MIN_RECENSEMENT || compte < seuil) continue;
        ++b.problemes;
        if (b.problemes % 100 == 0) dialogue.Progression("Recensement fautes corrigibles"_cp, lecteur.Numero(), 0);
        const auto m = Meilleur(Candidats(w, t));
        if (m) {
            ++b.suggestions;
            suggestions.Ligne(Joindre(w, "\t", m->mot));
        } else {
            rejets.Ligne(w);
        }
    }
    return b;
}

void OperationRecensementFautes(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    const auto seuil = DemanderEntier(d, "Seuil de fréquence ?"_cp, "", "1");
    if (!seuil) return;
    d.Progression("Recensement fautes corrigibles. Chargement des tables"_cp, 0, 0);
    TablesRecensement t;
    ChargerTablesRecensement(t, ctx.ressources);
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    const BilanRecensement b = Recenser(liste->doss_racine, *seuil, t, d);
    d.MasquerProgression();
    d.Afficher(Joindre("Terminé en "_cp, TexteDuree(debut, ctx.horloge), " (", std::to_string(b.suggestions),
                       " suggestions sur ", std::to_string(b.problemes), " problèmes."_cp));
}

// ---------------------------------------------------------------- accent variants

void ClassesDiacritiques::Charger(const fs::path& fichier) {
    classe_.fill(0);
    membres_.assign(1, {});
    const std::string contenu = LireFichier(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    std::size_t n = 0;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        if (++n > MAX_DIACRITIQUES)
            LimiteDepassee("MAX_DIACRITIQUES", MAX_DIACRITIQUES, Joindre("lignes dans "_cp, TexteChemin(fichier)));
        const std::size_t tab = ligne.find('\t');
        if (tab == std::string_view::npos) LigneSansTabulation(ligne, fichier, lecteur.Numero());
        const long long code = LireEntier(ligne.substr(0, tab), fichier, lecteur.Numero());
        const long long classe = LireEntier(ligne.substr(tab + 1), fichier, lecteur.Numero());
        if (code < 1 || code > 255 || classe < 1 || classe > static_cast<long long>(MAX_DIACRITIQUES))
            throw ErreurExecution(Joindre("Code ou classe hors limites ("_cp, Endroit(fichier, lecteur.Numero()), ")"));
        if (membres_.size() <= static_cast<std::size_t>(classe)) membres_.resize(static_cast<std::size_t>(classe) + 1);
        classe_[static_cast<std::size_t>(code)] = static_cast<int>(classe);
        membres_[static_cast<std::size_t>(classe)].push_back(static_cast<unsigned char>(code));
    }
}

std::vector<std::string> ClassesDiacritiques::Variantes(std::string_view mot, bool& tronque) const {
    std::vector<std::string> liste;
    std::unordered_set<std::string> vus{std::string(mot)};
    tronque = false;
    const auto etendre = [&](const std::string& base) {
        for (std::size_t p = 0; p < base.size(); ++p) {
            const int k = classe_[Code(base[p])];
            if (k == 0) continue;
            for (unsigned char autre : membres_[static_cast<std::size_t>(k)]) {
                if (autre == Code(base[p])) continue;
                std::string v = base;
                v[p] = static_cast<char>(autre);
                if (!vus.insert(v).second) continue;
                if (liste.size() >= MAX_VARIANTES) {
                    tronque = true;
                    return;
                }
                liste.push_back(std::move(v));
            }
        }
    };
    etendre(std::string(mot));
    std::size_t debutTour = 0;
    for (int tour = 0; tour < TOURS_VARIANTES && !tronque; ++tour) {
        const std::size_t finTour = liste.size();
        if (debutTour == finTour) break;
        for (std::size_t i = debutTour; i < finTour && !tronque; ++i) etendre(std::string(liste[i]));
        debutTour = finTour;
    }
    return liste;
}

BilanVariantes VariantesAccents(const fs::path& liste, const fs::path& dossierSortie, const ClassesDiacritiques& classes,
                                const TableFormes& dico) {
    EcrivainFichier simples(dossierSortie / "VOY_SIMPLES.txt");
    EcrivainFichier multiples(dossierSortie / "VOY_MULTIPLES.txt");
    const std::string contenu = LireFichier(liste);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    BilanVariantes b;
    while (lecteur.Suivante(ligne)) {
        const std::string_view mot = ligne.substr(0, ligne.find('\t'));
        if (mot.size() < 4 || mot.size() > 14) continue;
        bool tronque = false;
        std::vector<std::string> connues;
        for (std::string& v : classes.Variantes(mot, tronque))
            if (dico.Contient(v)) connues.push_back(std::move(v));
        if (tronque) ++b.tronques;
        if (connues.size() == 1) {
            simples.Ligne(Joindre(mot, "\t", connues[0]));
            ++b.simples;
        } else if (connues.size() > 1) {
            std::string& s = multiples.Tampon();
            s.append(mot);
            for (const std::string& v : connues) s.append(Joindre("\t", v));
            multiples.FinLigne();
            ++b.multiples;
        }
    }
    return b;
}

void OperationVariantesAccents(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto version = d.Demander("Version lourde ou légère (lou/leg) ?"_cp, "", "lou");
    if (!version) return;
    ClassesDiacritiques classes;
    classes.Charger(FichierUtilitaire(ctx.ressources, *version == "lou" ? "DIACRITIQUES.txt" : "DIACRITIQUES_LIGHT.txt"));
    d.Progression("Variantes d'accents. Chargement du dictionnaire"_cp, 0, 0);
    TableFormes dico;
    ChargerConnus(dico, ctx.ressources, ChoixConnus{});
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    const auto fichier = d.ChoisirFichier("Localiser la liste des inconnus/fautifs"_cp, kFiltreTexte);
    if (!fichier) return;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    const BilanVariantes b = VariantesAccents(*fichier, liste->doss_racine, classes, dico);
    d.MasquerProgression();
    std::string message = Joindre("Terminé en "_cp, TexteDuree(debut, ctx.horloge));
    if (b.tronques > 0)
        message += Joindre(" (", std::to_string(b.tronques), " mot(s) aux variantes trop nombreuses : recherche limitée à "_cp,
                           std::to_string(MAX_VARIANTES), ")");
    d.Afficher(message);
}

// ---------------------------------------------------------------- old spellings

std::vector<std::pair<std::string, std::string>> ChargerGraphies(const fs::path& racine) {
    const fs::path fichier = FichierUtilitaire(racine, "graphies-17.txt");
    std::vector<std::pair<std::string, std::string>> g;
    const std::string contenu = LireFichier(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        const std::size_t tab = ligne.find('\t');
        if (tab == std::string_view::npos) LigneSansTabulation(ligne, fichier, lecteur.Numero());
        if (tab == 0)
            throw ErreurExecution(Joindre("Graphie ancienne vide ("_cp, Endroit(fichier, lecteur.Numero()), ")"));
        if (g.size() >= MAX_GRAPHIES)
            LimiteDepassee("MAX_GRAPHIES", MAX_GRAPHIES, Joindre("lignes dans "_cp, TexteChemin(fichier)));
        const std::string_view moderne = ligne.substr(tab + 1);
        g.emplace_back(ligne.substr(0, tab), moderne.substr(0, moderne.find('\t')));
    }
    return g;
}

std::string ModerniserFinale(std::string_view mot) {
    static constexpr std::pair<std::string_view, std::string_view> kFinales[] = {
        {"oient", "aient"}, {"oit", "ait"}, {"y", "i"}, {"ens", "ents"}, {"ans", "ants"}, {"ois", "ais"}, {"oist", "oît"_cp}};
    for (const auto& [ancienne, moderne] : kFinales)
        if (mot.size() >= ancienne.size() && mot.substr(mot.size() - ancienne.size()) == ancienne)
            return Joindre(mot.substr(0, mot.size() - ancienne.size()), moderne);
    return std::string(mot);
}

long long GraphiesAnciennes(const fs::path& liste, const std::vector<std::pair<std::string, std::string>>& graphies,
                            const TableFormes& dico) {
    // The words of the list by bucket, in the order of the buckets.
    std::vector<std::vector<std::string>> casiers((MAX_CLASSE_LONGUEUR + 1) * (MAX_CLASSE_INITIALE + 1));
    {
        const std::string contenu = LireFichier(liste);
        LecteurLignes lecteur(contenu);
        std::string_view ligne;
        while (lecteur.Suivante(ligne)) {
            const std::string_view mot = ligne.substr(0, ligne.find('\t'));
            if (mot.empty()) continue;
            const CleMot k = classe_mot(mot);
            casiers[static_cast<std::size_t>(k.ClasseLongueur) * (MAX_CLASSE_INITIALE + 1) +
                    static_cast<std::size_t>(k.ClasseInitiale)]
                .emplace_back(mot);
        }
    }
    std::string nom = liste.filename().string();
    if (const std::size_t point = nom.rfind('.'); point != std::string::npos) nom.resize(point);
    EcrivainFichier sortie(liste.parent_path() / (nom + "_SOLUTIONS.txt"));
    long long lignes = 0;
    const auto essayer = [&](std::string_view source, std::string_view mot, const std::string& ancienne,
                             const std::string& moderne) {
        const std::size_t p = mot.find(ancienne);
        if (p == std::string_view::npos) return;
        const std::string cand = Joindre(mot.substr(0, p), moderne, mot.substr(p + ancienne.size()));
        if (dico.Contient(cand)) {
            sortie.Ligne(Joindre(source, "\t", cand));
            ++lignes;
        }
    };
    for (const auto& [ancienne, moderne] : graphies)
        for (const auto& casier : casiers)
            for (const std::string& mot : casier) {
                essayer(mot, mot, ancienne, moderne);
                const std::string finale = ModerniserFinale(mot);
                if (finale != mot) essayer(mot, finale, ancienne, moderne);
            }
    return lignes;
}

void OperationGraphies17(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    d.Progression("Graphies 17ème. Chargement du dictionnaire"_cp, 0, 0);
    TableFormes dico;
    ChargerConnus(dico, ctx.ressources, ChoixConnus{});
    const auto graphies = ChargerGraphies(ctx.ressources);
    const auto fichier = d.ChoisirFichier("Localiser la liste"_cp, kFiltreTexte);
    if (!fichier) return;
    GraphiesAnciennes(*fichier, graphies, dico);
    d.MasquerProgression();
    d.Afficher("Terminé"_cp);
}

}  // namespace telvoris
