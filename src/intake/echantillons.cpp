#include "intake/echantillons.hpp"

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"

namespace telvoris {

void EcrireEchantillon(const ListeTextes& liste, long long pas) {
    // The file's name is spelt so.
    EcrivainFichier sortie(liste.doss_racine / ("REPETOIRE_ECHANTILLON_" + std::to_string(pas) + ".txt"));
    for (std::size_t i = 0; i < liste.noms.size(); ++i)
        if ((static_cast<long long>(i) + 1) % pas == 0) sortie.Ligne(liste.noms[i]);
    sortie.Fermer();
}

long long ExtraireSousCorpus(const ListeTextes& liste, std::string_view dossier, std::string_view cle,
                             const fs::path& cible) {
    long long copies = 0;
    const fs::path source = Chemin(liste.doss_racine, dossier);
    for (const auto& nom : liste.noms) {
        if (nom.find(cle) == std::string::npos) continue;
        const std::string fichier = Joindre(nom, ".txt");
        CopierFichier(Chemin(source, fichier), Chemin(cible, fichier));
        ++copies;
    }
    return copies;
}

bool AnneauDoublons::EstDoublon(std::string_view corps) {
    ++n_;
    // The key: 100 characters from the body's third, past the line end of the metadata line.
    const std::string_view cle = corps.size() > 2 ? corps.substr(2, 100) : std::string_view();
    const long long n = n_;
    const long long taille = static_cast<long long>(TAILLE_ANNEAU_CLES);
    if (n <= taille) places_[static_cast<std::size_t>(n - 1)].assign(cle);
    bool doublon = false;
    for (long long p = 1; p <= taille && !doublon; ++p)
        doublon = p != n && places_[static_cast<std::size_t>(p - 1)] == cle;
    if (n > taille) {
        // The oldest key leaves; this one takes the last place.
        std::string sortante = std::move(places_[0]);
        for (std::size_t p = 0; p + 1 < TAILLE_ANNEAU_CLES; ++p) places_[p].swap(places_[p + 1]);
        sortante.assign(cle);
        places_[TAILLE_ANNEAU_CLES - 1] = std::move(sortante);
    }
    return doublon;
}

BilanDoublons ControlerDoublons(const ListeTextes& liste, Dialogue& dialogue) {
    const fs::path& racine = liste.doss_racine;
    CreerDossier(racine / "ARCHIVE_BRUT_NEW");
    CreerDossier(racine / "ARCHIVE_BRUT_REJETS");
    BilanDoublons bilan;
    AnneauDoublons anneau;
    std::string contenu, gardes, rejetes;
    const long long total = static_cast<long long>(liste.noms.size());
    for (long long t = 0; t < total; ++t) {
        const std::string& nom = liste.noms[static_cast<std::size_t>(t)];
        dialogue.Progression(Joindre("Contrôle des doublons : "_cp, nom), t + 1, total);
        LireFichier(Chemin(racine / "ARCHIVE_BRUT", Joindre(nom, ".txt")), contenu);
        gardes.clear();
        rejetes.clear();
        const auto morceaux = Decouper(contenu, "<QORX");
        for (std::size_t i = 1; i < morceaux.size(); ++i) {
            const std::string_view morceau = morceaux[i];
            const std::size_t chevron = morceau.find('>');
            // A piece without a closed head, or a notice too short to be an article, is not counted.
            const bool rejete = chevron == std::string_view::npos || morceau.size() - chevron - 1 < 101 ||
                                anneau.EstDoublon(morceau.substr(chevron + 1));
            std::string& tampon = rejete ? rejetes : gardes;
            tampon += "<QORX";
            tampon += morceau;
            tampon += "\r\n";
            ++(rejete ? bilan.rejetes : bilan.gardes);
        }
        const std::string fichier = Joindre(nom, ".txt");
        if (!rejetes.empty()) EcrireFichier(Chemin(racine / "ARCHIVE_BRUT_REJETS", fichier), rejetes);
        if (!gardes.empty()) EcrireFichier(Chemin(racine / "ARCHIVE_BRUT_NEW", fichier), gardes);
    }
    return bilan;
}

bool TableCorps::Ajouter(const std::string& corps) {
    auto& cellule = cases_[static_cast<std::size_t>(ClasserItem(corps).ClasseInitiale)];
    if (cellule.contains(corps)) return false;
    if (cellule.size() >= MAX_CORPS_CASE)
        LimiteDepassee("MAX_CORPS_CASE", MAX_CORPS_CASE, "textes d'articles de même initiale déjà rencontrés"_cp);
    cellule.insert(corps);
    return true;
}

long long FiltrerRedites(const ListeTextes& liste, Dialogue& dialogue) {
    const fs::path& racine = liste.doss_racine;
    CreerDossier(racine / "ARCHIVE_BRUT_FILTRE");
    EcrivainFichier repertoire(racine / "REPERTOIRE_NEW.txt");
    TableCorps table;
    long long ecrits = 0;
    std::string contenu, tampon, tete, corps;
    const long long total = static_cast<long long>(liste.noms.size());
    for (long long t = 0; t < total; ++t) {
        const std::string& nom = liste.noms[static_cast<std::size_t>(t)];
        dialogue.Progression(Joindre("Filtrage des redites : "_cp, nom), t + 1, total);
        LireFichier(Chemin(racine / "ARCHIVE_BRUT", Joindre(nom, ".txt")), contenu);
        tampon.clear();
        tete.clear();
        corps.clear();
        LecteurLignes lecteur(contenu);
        std::string_view ligne;
        while (lecteur.Suivante(ligne)) {
            if (ligne.empty()) continue;
            if (!ligne.starts_with("<QORX")) {
                corps += ligne;
                corps += "\r\n";
                continue;
            }
            if (!corps.empty() && table.Ajouter(corps)) {
                tampon += tete;
                tampon += "\r\n";
                tampon += corps;
            }
            tete.assign(ligne);
            corps.clear();
        }
        // The article still open at the end of the file is not looked at: it is left out.
        if (!tampon.empty()) {
            repertoire.Ligne(nom);
            EcrireFichier(Chemin(racine / "ARCHIVE_BRUT_FILTRE", Joindre(nom, ".txt")), tampon);
            ++ecrits;
        }
    }
    repertoire.Fermer();
    return ecrits;
}

void OperationRepertoireEchantillon(Contexte& ctx) {
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    const auto reponse = ctx.dialogue.Demander("Tous les combien ?", "", "");
    if (!reponse) return;
    const long long pas = ValeurEntiere(*reponse);
    if (pas <= 0)
        throw ErreurExecution(Joindre("Réponse non valable à « Tous les combien ? » : « "_cp, *reponse,
                                      " » (un nombre entier positif est attendu)"_cp));
    EcrireEchantillon(*liste, pas);
    ctx.dialogue.Afficher("Terminé"_cp);
}

void OperationExtraireSousCorpus(Contexte& ctx) {
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    const fs::path cible = Chemin(liste->doss_racine, Joindre("EXTRAIT_", Horodater(ctx.horloge)));
    CreerDossier(cible);
    const std::string dossier = ctx.dialogue.Demander("ARCHIVE_BRUT ou OLBRIN_TT ?", "TYPE ?", "ARCHIVE_BRUT")
                                    .value_or(std::string());
    const std::string cle = ctx.dialogue.Demander("Partie du nom servant de clé ?"_cp, "CLE ?", "").value_or(std::string());
    ctx.dialogue.Progression("Extraction du sous-corpus."_cp, 0, 0);
    ExtraireSousCorpus(*liste, dossier, cle, cible);
    // This operation closes without a message.
    ctx.dialogue.MasquerProgression();
}

void OperationControleDoublons(Contexte& ctx) {
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    ControlerDoublons(*liste, ctx.dialogue);
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher("Terminé"_cp);
}

void OperationFiltrageRedites(Contexte& ctx) {
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    FiltrerRedites(*liste, ctx.dialogue);
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher("Terminé"_cp);
}

}  // namespace telvoris
