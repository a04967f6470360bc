#include "correction/correction_auto.hpp"

#include <unordered_map>
#include <unordered_set>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/reprise.hpp"
#include "core/texte.hpp"
#include "correction/commun_correction.hpp"
#include "lexicon/arbre.hpp"

namespace telvoris {

namespace {

constexpr std::string_view kFiltreTexte = "Text files (*.TXT)|*.TXT";

bool AUnChiffre(std::string_view s) {
    for (char c : s)
        if (c >= '0' && c <= '9') return true;
    return false;
}

// The forms left unresolved, by bucket in order of first occurrence, with their counts.
class NonResolus {
public:
    NonResolus() : casiers_((MAX_CLASSE_LONGUEUR + 1) * (MAX_CLASSE_INITIALE + 1)) {}
    void Ajouter(std::string_view forme) {
        const CleMot cle = ClasserItem(forme);
        auto& c = casiers_[static_cast<std::size_t>(cle.ClasseLongueur) * (MAX_CLASSE_INITIALE + 1) +
                           static_cast<std::size_t>(cle.ClasseInitiale)];
        const auto [it, nouveau] = c.index.try_emplace(std::string(forme), c.formes.size());
        if (nouveau) c.formes.push_back({std::string(forme), 0});
        ++c.formes[it->second].second;
    }
    void Ecrire(EcrivainFichier& f) const {
        for (const auto& c : casiers_)
            for (const auto& [forme, n] : c.formes) f.Ligne(Joindre(forme, "\t", std::to_string(n)));
    }

private:
    struct Casier {
        std::vector<std::pair<std::string, long long>> formes;
        std::unordered_map<std::string, std::size_t> index;
    };
    std::vector<Casier> casiers_;
};

void CorrigerLigne(std::string_view ligne, const ListesCorrection& l, CompteursCorrection& c, LigneJetons& lj,
                   std::string& mot, std::string& sortie, NonResolus& nonResolus) {
    DecouperLigne(ligne, lj);
    sortie.append(lj.suite[0]);
    for (int i = 1; i <= lj.NbJetons; ++i) {
        const std::string_view jeton = lj.jeton[i];
        const auto apres = [&] { sortie.append(lj.suite[i]); };
        if (jeton.substr(0, 3) != "<M ") {
            sortie.append(jeton);
            apres();
            continue;
        }
        ++c.mots;
        const std::string_view f = LireAttributsVue(jeton).f;
        Minusculiser(f, mot);
        const bool postclitique = mot.size() > 1 && mot[0] == '-' && DansListe(l.postclit1, std::string_view(mot).substr(1));
        if (f.size() < 3 || AUnChiffre(f) || postclitique || l.connus.Contient(mot)) {
            sortie.append(jeton);
            apres();
            continue;
        }
        ++c.inconnus;
        const auto r = l.reparations.Chercher(mot);
        if (!r) {
            ++c.nonResolus;
            sortie.append(jeton.substr(0, jeton.size() - 1));
            sortie.append(" fz=2 >");
            nonResolus.Ajouter(f);
            apres();
            continue;
        }
        ++c.resolus;
        const std::string_view R = *r;
        const std::size_t apo = R.find('\'');
        const std::size_t tiret = R.rfind('-');
        const std::size_t blanc = R.find(' ');
        if (apo == std::string_view::npos && tiret == std::string_view::npos && blanc == std::string_view::npos) {
            sortie.append(Joindre("<M f=", R, " fz=1 >"));
        } else if (blanc != std::string_view::npos) {
            sortie.append(Joindre("<M f=", R.substr(0, blanc), " fz=1> <M f=", R.substr(blanc + 1), " fz=1 >"));
        } else if (apo == std::string_view::npos) {
            if (DansListe(l.postclit1, R.substr(tiret + 1)))
                sortie.append(Joindre("<M f=", R.substr(0, tiret), " fz=1><M f=-", R.substr(tiret + 1), " fz=1 >"));
            else
                sortie.append(jeton);
        } else {
            if (DansListe(l.elides, R.substr(0, apo)))
                sortie.append(Joindre("<M f=", R.substr(0, apo + 1), " fz=1><M f=", R.substr(apo + 1), " fz=1 >"));
            else
                sortie.append(jeton);
        }
        apres();
    }
}

void ChargerAccentsCorrections(TableCorrections& table, const fs::path& racine) {
    std::string contenu;
    for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
            const fs::path fichier = FichierCasier(racine, DOSSIER_ACCENTS, l, c);
            const std::string source = TexteChemin(fichier);
            PourChaqueLigneNonVide(fichier, contenu, [&](std::string_view ligne) {
                const std::size_t tab = ligne.find('\t');
                const std::string_view droite = tab == std::string_view::npos ? std::string_view{} : ligne.substr(tab + 1);
                table.Ajouter(ligne.substr(0, tab), droite.substr(0, droite.find('\t')), source);
            });
        }
}

// The first column of each line of postclit1.txt.
std::vector<std::string> PremiereColonne(std::vector<std::string> lignes) {
    for (auto& l : lignes) l = l.substr(0, l.find('\t'));
    return lignes;
}

}  // namespace

void ChargerListesCorrection(ListesCorrection& l, const fs::path& racine) {
    ChoixConnus choix;
    choix.etrangers = choix.composants = choix.abreviations = choix.romains = true;
    ChargerConnus(l.connus, racine, choix);
    l.reparations.Vider();
    ChargerTableCorrections(l.reparations, racine);
    ChargerAccentsCorrections(l.reparations, racine);
    l.elides = ListeUtilitaire(racine, "elide.txt", "MAX_ELIDES", MAX_ELIDES);
    l.postclit1 = PremiereColonne(ListeUtilitaire(racine, "postclit1.txt", "MAX_POSTCLITIQUES", MAX_POSTCLITIQUES));
}

CompteursCorrection CorrectionAutomatique(const ListeTextes& liste, const ListesCorrection& l,
                                          std::string_view horodate, Dialogue& dialogue) {
    const fs::path tt = liste.doss_racine / "OLBRIN_TT";
    const fs::path sortieDossier = Chemin(tt, Joindre("CORR_", horodate));
    CreerDossier(sortieDossier);
    EcrivainFichier controle(liste.doss_racine / "controle_corrections.txt");
    CompteursCorrection c;
    NonResolus nonResolus;
    LigneJetons lj;
    std::string contenu, mot;
    const long long m = static_cast<long long>(liste.noms.size());
    for (long long n = 1; n <= m; ++n) {
        const std::string& nom = liste.noms[static_cast<std::size_t>(n - 1)];
        if (nom.empty()) continue;
        dialogue.Progression(Joindre("Correction. Fichier", std::to_string(n), " de ", std::to_string(m)), n, m);
        const std::string fichier = Joindre(nom, ".txt");
        LireFichier(Chemin(tt, fichier), contenu);
        EcrivainFichier sortie(Chemin(sortieDossier, fichier));
        LecteurLignes lecteur(contenu);
        std::string_view ligne;
        while (lecteur.Suivante(ligne)) {
            if (ligne.empty()) continue;
            CorrigerLigne(ligne, l, c, lj, mot, sortie.Tampon(), nonResolus);
            sortie.FinLigne();
        }
    }
    nonResolus.Ecrire(controle);
    return c;
}

void OperationCorrectionAutomatique(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const std::string horodate = Horodater(ctx.horloge);
    ListesCorrection l;
    ChargerListesCorrection(l, ctx.ressources);
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    d.Progression("Corrections."_cp, 0, 0);
    if (!DossierExiste(liste->doss_racine / "OLBRIN_TT")) throw FinProgramme(std::string("Dossier OLBRIN_TT absent"_cp));
    ExigerTextesComplets(liste->doss_racine / "OLBRIN_TT");
    const CompteursCorrection c = CorrectionAutomatique(*liste, l, horodate, d);
    d.MasquerProgression();
    d.Afficher(Joindre("Terminé !"_cp, "\r\n", std::to_string(c.mots), " mots\r\n", std::to_string(c.inconnus),
                       " inconnus\r\n", std::to_string(c.resolus), " résolus\r\n"_cp, std::to_string(c.nonResolus),
                       " non-résolus"_cp));
}

// ---------------------------------------------------------------- word for word

void ListeMotAMot::Charger(const fs::path& fichier) {
    table_.Vider();
    const std::string contenu = LireFichier(fichier);
    const std::string source = TexteChemin(fichier);
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    std::string mot;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        const std::size_t tab = ligne.find('\t');
        if (tab == std::string_view::npos) LigneSansTabulation(ligne, fichier, lecteur.Numero());
        Minusculiser(ligne.substr(0, tab), mot);
        const std::string_view correction = ligne.substr(tab + 1);
        table_.Ajouter(mot, correction.substr(0, correction.find('\t')), source);
    }
}

std::string AppliquerCasse(std::string_view correction, std::string_view source) {
    std::string r(correction);
    const auto majuscule = [](char& ch) {
        const unsigned char c = Code(ch);
        // Only small letters change: a sign keeps its code.
        if (c == 156) ch = static_cast<char>(140);
        else if ((c >= 97 && c <= 122) || (c >= 224 && c != 247 && c != 255)) ch = static_cast<char>(c - 32);
    };
    switch (TypeCasse(source)) {
        case 1:
            if (!r.empty()) majuscule(r[0]);
            break;
        case 2:
            for (char& ch : r) majuscule(ch);
            break;
        default:
            break;
    }
    return r;
}

namespace {

// A batch of texts whose backups are made durable together: small enough to hold in memory, large
// enough that the flushes of the file system cost little beside the work.
constexpr std::size_t kTextesParLot = 64;
constexpr std::size_t kOctetsParLot = 8u << 20;

long long CorrigerMotAMot(const std::string& contenu, const TableCorrections& table, LigneJetons& lj, std::string& mot,
                          std::string& s) {
    long long corrections = 0;
    s.clear();
    LecteurLignes lecteur(contenu);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        DecouperLigne(ligne, lj);
        s.append(lj.suite[0]);
        for (int i = 1; i <= lj.NbJetons; ++i) {
            const std::string_view jeton = lj.jeton[i];
            const std::string_view f = ValeurAttribut(jeton, "f");
            Minusculiser(f, mot);
            const auto r = f.empty() ? std::nullopt : table.Chercher(mot);
            if (!r) {
                s.append(jeton);
            } else {
                ++corrections;
                const std::string correction = AppliquerCasse(*r, f);
                const auto mots = Decouper(correction, " ");
                if (mots.size() == 1) {
                    // f's value is replaced; the rest of the tag follows the old form.
                    const std::size_t debutF = static_cast<std::size_t>(f.data() - jeton.data());
                    s.append(jeton.substr(0, debutF));
                    s.append(Joindre(correction, " fx=", f));
                    s.append(jeton.substr(debutF + f.size()));
                } else {
                    s.append(Joindre("<cw fx=", f, " >"));
                    for (std::string_view w : mots) s.append(Joindre("<w f=", w, " >"));
                    s.append("</cw>");
                }
            }
            s.append(lj.suite[i]);
        }
        s.append("\r\n");
    }
    return corrections;
}

}  // namespace

long long CorrectionMotAMot(const ListeTextes& liste, const TableCorrections& table, Dialogue& dialogue) {
    const fs::path tt = liste.doss_racine / "OLBRIN_TT";
    // Each text is backed up and listed in the in-progress record before it is rewritten, so that
    // a run started again over a killed one first puts the listed texts back, and never copies a
    // rewritten text over its backup. The texts go by batches, one flush of the disk a batch.
    Reprise reprise(tt, std::string(DOSSIER_AVANT_CORMAM), std::string("Correction mot à mot sur liste"_cp));
    ExigerTextesComplets(tt, reprise.Fichier());
    if (const auto retablis = reprise.Retablir()) dialogue.Afficher(reprise.MessageReprise(*retablis));
    reprise.Commencer();
    long long corrections = 0;
    LigneJetons lj;
    std::string mot, s;
    std::unordered_set<std::string> vus;
    struct Texte {
        long long n;
        fs::path cible;
        std::string contenu;
    };
    std::vector<Texte> lot;
    std::size_t octets = 0;
    const long long m = static_cast<long long>(liste.noms.size());
    const auto traiterLot = [&] {
        reprise.ListerPreparees();
        for (Texte& t : lot) {
            dialogue.Progression(Joindre("Correction mot à mot. Fichier "_cp, std::to_string(t.n), " de ", std::to_string(m)),
                                 t.n, m);
            corrections += CorrigerMotAMot(t.contenu, table, lj, mot, s);
            EcrireFichier(t.cible, s);
        }
        lot.clear();
        octets = 0;
    };
    for (long long n = 1; n <= m; ++n) {
        const std::string& nom = liste.noms[static_cast<std::size_t>(n - 1)];
        if (nom.empty()) continue;
        Texte t{n, Chemin(tt, Joindre(nom, ".txt")), {}};
        // A name listed twice is corrected again from its backup, as the first time, so that its
        // backup keeps the text as it stood before the run.
        if (vus.insert(nom).second) {
            LireFichier(t.cible, t.contenu);
            reprise.Preparer(nom, t.contenu);
        } else {
            LireFichier(Chemin(reprise.DossierSauvegarde(), Joindre(nom, ".txt")), t.contenu);
        }
        octets += t.contenu.size();
        lot.push_back(std::move(t));
        if (lot.size() >= kTextesParLot || octets >= kOctetsParLot) traiterLot();
    }
    traiterLot();
    reprise.TerminerGroupe();
    return corrections;
}

void OperationCorrectionMotAMot(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto fichier = d.ChoisirFichier("Charger la liste"_cp, kFiltreTexte);
    if (!fichier) return;
    ListeMotAMot l;
    l.Charger(*fichier);
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    if (!DossierExiste(liste->doss_racine / "OLBRIN_TT"))
        throw FinProgramme(std::string("Ressources non constituées. Vérifiez"_cp));
    const long long n = CorrectionMotAMot(*liste, l.Table(), d);
    d.MasquerProgression();
    d.Afficher(Joindre("Terminé. "_cp, std::to_string(n), " corrections."_cp));
}

// ---------------------------------------------------------------- stores

namespace {

// Only these length classes of a store are read back; the shorter ones come out empty.
constexpr int kPremiereClasseChargee = 3;

struct EntreeStock {
    std::string fautive, correcte;
    long long compte = 1;
};

}  // namespace

BilanIntegration IntegrerDansStock(const fs::path& racine, std::string_view dossierStock, std::string_view horodate,
                                   const fs::path* nouvelles, std::string_view etape, Dialogue& dialogue) {
    const fs::path stock = Chemin(racine, dossierStock);
    const std::size_t barre = dossierStock.rfind('/');
    const std::string nomStock(dossierStock.substr(barre + 1));
    std::vector<std::vector<EntreeStock>> casiers((MAX_CLASSE_LONGUEUR + 1) * (MAX_CLASSE_INITIALE + 1));
    std::vector<std::unordered_map<std::string, std::size_t>> index(casiers.size());
    const auto indice = [](CleMot k) {
        return static_cast<std::size_t>(k.ClasseLongueur) * (MAX_CLASSE_INITIALE + 1) +
               static_cast<std::size_t>(k.ClasseInitiale);
    };
    const auto ajouter = [&](CleMot cle, std::string_view fautive, std::string_view correcte, bool fusionner,
                             std::string_view source) {
        const std::size_t i = indice(cle);
        if (fusionner) {
            const auto it = index[i].find(std::string(fautive));
            if (it != index[i].end()) {
                EntreeStock& e = casiers[i][it->second];
                ++e.compte;
                e.correcte.append(correcte);
                return;
            }
        }
        if (casiers[i].size() >= MAX_CORRECTIONS_CASIER)
            LimiteDepassee("MAX_CORRECTIONS_CASIER", MAX_CORRECTIONS_CASIER, Joindre("paires dans une case, en lisant "_cp, source));
        index[i].try_emplace(std::string(fautive), casiers[i].size());
        casiers[i].push_back({std::string(fautive), std::string(correcte), 1});
    };

    std::vector<std::string> fichiers;
    for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) fichiers.push_back(NomFichierCasier(l, c));
    // A run killed while it rewrote the store left it half old, half new: it is put back from the
    // copy that run made before anything else reads it.
    RepriseDossier reprise(stock, std::string(etape));
    std::optional<std::string> retablie = reprise.Retablir(fichiers);
    if (retablie) dialogue.Afficher(reprise.MessageReprise(*retablie));
    std::string copieFaite;
    if (DossierExiste(stock)) {
        copieFaite = Joindre(nomStock, "_", horodate);
        const fs::path copie = Chemin(stock.parent_path(), copieFaite);
        CreerDossier(copie);
        for (const std::string& nom : fichiers) CopierFichier(Chemin(stock, nom), Chemin(copie, nom));
        std::string contenu;
        for (int l = kPremiereClasseChargee; l <= MAX_CLASSE_LONGUEUR; ++l)
            for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
                const fs::path fichier = FichierCasier(racine, dossierStock, l, c);
                const std::string source = TexteChemin(fichier);
                PourChaqueLigneNonVide(fichier, contenu, [&](std::string_view ligne) {
                    const std::size_t tab = ligne.find('\t');
                    const std::string_view droite = tab == std::string_view::npos ? std::string_view{} : ligne.substr(tab + 1);
                    ajouter({l, c}, ligne.substr(0, tab), droite, false, source);
                });
            }
    } else {
        CreerDossier(stock);
    }
    BilanIntegration bilan;
    // Cancelled at the file dialog: the dated copy stays, the store is not rewritten.
    if (!nouvelles) {
        if (retablie) reprise.Terminer();
        return bilan;
    }
    {
        const std::string contenu = LireFichier(*nouvelles);
        const std::string source = TexteChemin(*nouvelles);
        LecteurLignes lecteur(contenu);
        std::string_view ligne;
        std::string mot;
        while (lecteur.Suivante(ligne)) {
            if (ligne.empty()) continue;
            const std::size_t tab = ligne.find('\t');
            if (tab == std::string_view::npos) LigneSansTabulation(ligne, *nouvelles, lecteur.Numero());
            Minusculiser(ligne.substr(0, tab), mot);
            const std::string_view droite = ligne.substr(tab + 1);
            const CleMot cle = classe_mot(mot);
            ++bilan.paires;
            if (cle.ClasseInitiale < 1 || cle.ClasseLongueur < 1) ++bilan.nonRangees;
            ajouter(cle, mot, droite.substr(0, droite.find('\t')), true, source);
        }
    }
    reprise.Commencer(copieFaite);
    for (int l = 1; l <= MAX_CLASSE_LONGUEUR; ++l)
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
            std::string texte;
            for (const EntreeStock& e : casiers[indice({l, c})]) texte += Joindre(e.fautive, "\t", e.correcte, "\r\n");
            EcrireFichier(FichierCasier(racine, dossierStock, l, c), texte, true);
        }
    reprise.Terminer();
    return bilan;
}

namespace {

void Integrer(Contexte& ctx, std::string_view dossier, std::string_view titre, std::string_view etape) {
    const std::string horodate = Horodater(ctx.horloge);
    const auto fichier = ctx.dialogue.ChoisirFichier(titre, kFiltreTexte);
    // The dated copy is made even when the file dialog is cancelled.
    const BilanIntegration b = IntegrerDansStock(ctx.ressources, dossier, horodate, fichier ? &*fichier : nullptr, etape, ctx.dialogue);
    if (!fichier) return;
    auto message = Joindre("Terminé"_cp);
    if (b.nonRangees > 0)
        message += Joindre(" (", std::to_string(b.nonRangees),
                           " paire(s) dont la faute ne commence pas par une lettre n'ont pas de fichier : non rangées)"_cp);
    ctx.dialogue.Afficher(message);
}

}  // namespace

void OperationIntegrationRescor(Contexte& ctx) {
    Integrer(ctx, DOSSIER_RESCOR, "Localiser le fichier des corrections récentes"_cp, "Intégration d'éléments à \"rescor\""_cp);
}

void OperationIntegrationIncor(Contexte& ctx) {
    Integrer(ctx, DOSSIER_INCOR, "Localiser le fichier des in-corrections récentes"_cp, "Intégration à \"incor\""_cp);
}

}  // namespace telvoris
