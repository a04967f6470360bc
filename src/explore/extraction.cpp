#include "explore/extraction.hpp"

#include <optional>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/liste_textes.hpp"
#include "core/nom_fichier.hpp"
#include "core/texte.hpp"

namespace telvoris {

namespace {

constexpr std::string_view kSeparateurBlocs = "<---------->";

bool EstLigneMetadonnees(std::string_view ligne) {
    return ligne.size() >= 12 && ligne.starts_with("<QORX_ATTR ");
}

bool EstMotOuPonctuation(std::string_view balise) {
    return balise.starts_with("<M ") || balise.starts_with("<PC ");
}

bool ContientSautDeLigne(std::string_view texte) {
    return texte.find("<BR>") != std::string_view::npos || texte.find("<br>") != std::string_view::npos;
}

long long Blancs(std::string_view texte) {
    long long n = 0;
    for (char c : texte) n += c == ' ';
    return n;
}

bool ContientUn(std::string_view texte, const std::vector<std::string>& chaines) {
    for (const auto& c : chaines)
        if (texte.find(c) != std::string_view::npos) return true;
    return false;
}

// A line of tagged text cut into tokens, with the form of each word or punctuation mark and a
// flag telling whether the token counts at all for the sentence.
class LigneFormes {
public:
    void Lire(std::string_view ligne) {
        DecouperLigne(ligne, jetons_, Copie::Exploration);
        const auto n = static_cast<std::size_t>(jetons_.NbJetons);
        formes_.resize(n + 1);
        debuts_.resize(n + 2);
        compte_.assign(n + 1, false);
        minuscules_.clear();
        for (std::size_t j = 1; j <= n; ++j) {
            compte_[j] = EstMotOuPonctuation(jetons_.jeton[j]);
            formes_[j] = compte_[j] ? LireAttributsVue(jetons_.jeton[j]).f : std::string_view();
            debuts_[j] = minuscules_.size();
            AjouterMinusculesSimples(formes_[j], minuscules_);
        }
        debuts_[n + 1] = minuscules_.size();
    }
    int N() const { return jetons_.NbJetons; }
    bool EstMot(int j) const { return jetons_.jeton[Idx(j)].starts_with("<M "); }
    bool Compte(int j) const { return compte_[Idx(j)]; }
    std::string_view Forme(int j) const { return formes_[Idx(j)]; }
    std::string_view Minuscule(int j) const {
        return std::string_view(minuscules_).substr(debuts_[Idx(j)], debuts_[Idx(j) + 1] - debuts_[Idx(j)]);
    }
    // The text between the token before j and token j.
    std::string_view Avant(int j) const { return jetons_.suite[Idx(j) - 1]; }

    // The sentence around token i, bounded by a token that `estFin` accepts or a line break. The
    // stop that ends the sentence before it is left out; the one that ends it is kept. Each form
    // takes as many blanks as stand before its tag.
    template <class Fin>
    std::string Phrase(int i, Fin&& estFin, int& fin) const {
        int debut = i;
        while (debut > 1 && !ContientSautDeLigne(Avant(debut))) {
            const int precedent = debut - 1;
            if (Compte(precedent) && estFin(Forme(precedent))) break;
            debut = precedent;
        }
        fin = i;
        if (!(Compte(i) && estFin(Forme(i)))) {
            while (fin < N() && !ContientSautDeLigne(Avant(fin + 1))) {
                ++fin;
                if (Compte(fin) && estFin(Forme(fin))) break;
            }
        }
        std::string phrase;
        for (int j = debut; j <= fin; ++j) {
            if (!Compte(j)) continue;
            phrase.append(static_cast<std::size_t>(Blancs(Avant(j))), ' ');
            phrase += Forme(j);
        }
        return phrase;
    }

private:
    static std::size_t Idx(int j) { return static_cast<std::size_t>(j); }
    LigneJetons jetons_;
    std::vector<std::string_view> formes_;
    std::string minuscules_;  // the forms in lower case, one after the other
    std::vector<std::size_t> debuts_;
    std::vector<bool> compte_;
};

bool FinDePhrase(std::string_view forme) { return forme.starts_with(".") || forme == "?" || forme == "!"; }

bool FinDePhraseExpression(std::string_view forme) {
    return !forme.empty() && std::string_view(";:!?...").find(forme) != std::string_view::npos;
}

// Walks the searched lines of a tagged text partition by partition: `chercher` fills the
// partition's extract from a line; an extract that is not empty is written after the partition's
// metadata line.
template <class Chercher>
std::string ParPartition(std::string_view texte, Chercher&& chercher) {
    std::string sortie, extrait, metadonnees;
    auto clore = [&] {
        if (extrait.empty()) return;
        if (!metadonnees.empty()) {
            sortie += metadonnees;
            sortie += "\r\n";
        }
        sortie += extrait;
        extrait.clear();
    };
    LecteurLignes lecteur(texte);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.empty()) continue;
        if (EstLigneMetadonnees(ligne)) {
            clore();
            metadonnees.assign(ligne);
            continue;
        }
        chercher(ligne, extrait);
    }
    clore();
    return sortie;
}

// The folder of an extraction under `parent`; when it exists already the person may ask for a
// new one, named with the stamp.
fs::path DossierExtraits(Contexte& ctx, const fs::path& parent, std::string_view libelle) {
    fs::path dossier = Chemin(parent, NomDeFichierSur(libelle));
    if (!DossierExiste(dossier)) return dossier;
    const auto reponse = ctx.dialogue.Demander(
        "Le dossier d'extraits existe déjà. Voulez-vous en constituer un autre -O/N- ?"_cp, "", "O");
    if (reponse.value_or("") == "O")
        dossier = Chemin(parent, Joindre(NomDeFichierSur(libelle), "_", Horodater(ctx.horloge)));
    return dossier;
}

// A dated sibling when the folder exists, with no question.
fs::path DossierDate(Contexte& ctx, const fs::path& parent, std::string_view nom) {
    fs::path dossier = Chemin(parent, NomDeFichierSur(nom));
    if (DossierExiste(dossier)) dossier = Chemin(parent, Joindre(NomDeFichierSur(nom), "_", Horodater(ctx.horloge)));
    return dossier;
}

// The mode and key prompts shared by the sentence and paragraph extractions; nullopt on an empty key.
std::optional<CleExtraction> DemanderCle(Contexte& ctx, std::string_view questionChaine) {
    const std::string mode = ctx.dialogue.Demander("Mode d'extraction (par chaîne : 'CH' / par liste : 'LI') ?"_cp,
                                                   "", "CH").value_or("");
    if (mode != "CH" && mode != "LI") throw FinProgramme(std::string("Votre choix de mode n'est pas correct. Vérifiez."_cp));
    const bool parListe = mode == "LI";
    const std::string reponse =
        ctx.dialogue.Demander(parListe ? "Forme(s) à extraire (évent.séparées par des slashes)."_cp : questionChaine, "", "")
            .value_or("");
    CleExtraction cle = LireCleExtraction(reponse, parListe);
    if (cle.items.empty()) {
        ctx.dialogue.Afficher("Aucune forme à extraire : la clé est vide."_cp);
        return std::nullopt;
    }
    return cle;
}

std::optional<ListeTextes> ChoisirCorpus(Contexte& ctx) {
    // The sentence extraction takes its list in the opening dialog of the exploration.
    const auto choix = ctx.dialogue.ChoisirFichier("Ouvrir le répertoire"_cp, "Text files (*.TXT)|*.TXT"_cp);
    if (!choix) return std::nullopt;
    return ChargerListeTextes(*choix);
}

fs::path FichierTexte(const ListeTextes& liste, std::string_view sousDossier, std::string_view nom) {
    return Chemin(liste.doss_racine / "OLBRIN_TT" / std::string(sousDossier), Joindre(nom, ".txt"));
}

void Avancer(Contexte& ctx, std::string_view libelle, std::size_t i, std::size_t n) {
    ctx.dialogue.Progression(libelle, static_cast<long long>(i) + 1, static_cast<long long>(n));
}

// Calls traiter(nom, texte) for each text of the list with its tagged text read, the bar showing;
// the list file of the new folder gets each name for which it returns true.
template <class Traiter>
void PourChaqueTexteEtiquete(Contexte& ctx, const ListeTextes& liste, const fs::path& repertoire, Traiter&& traiter) {
    EcrivainFichier noms(repertoire);
    std::string contenu;
    for (std::size_t t = 0; t < liste.noms.size(); ++t) {
        const std::string& nom = liste.noms[t];
        if (nom.empty()) continue;
        Avancer(ctx, Joindre("Extraction : "_cp, nom), t, liste.noms.size());
        LireFichier(Chemin(liste.doss_racine / "OLBRIN_TT", Joindre(nom, ".txt")), contenu);
        if (traiter(nom, std::string_view(contenu))) noms.Ligne(nom);
    }
    noms.Fermer();
    ctx.dialogue.MasquerProgression();
}

// The questions of the document extraction and the count.
std::optional<std::string> DemanderCleSelection(Contexte& ctx) {
    std::string cle = ctx.dialogue.Demander("Entrez la clé de sélection"_cp, "", "").value_or("");
    if (cle.empty()) {
        ctx.dialogue.Afficher("La clé de sélection est vide : rien à chercher."_cp);
        return std::nullopt;
    }
    return cle;
}

void QuantifierOccurrences(Contexte& ctx, Copie copie) {
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    const auto cle = DemanderCleSelection(ctx);
    if (!cle) return;
    const bool casse = ctx.dialogue.Demander("Respect de la casse (OUI/NON) ?"_cp, "", "NON").value_or("") != "NON";
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    const std::string cherchee = casse ? *cle : MinusculesSimples(*cle);
    const fs::path dossier = liste->doss_racine / "REPERAGES";
    CreerDossier(dossier);
    fs::path fichier = Chemin(dossier, Joindre(NomDeFichierSur(*cle), ".txt"));
    if (FichierExiste(fichier)) fichier = Chemin(dossier, Joindre(NomDeFichierSur(*cle), "_", Horodater(ctx.horloge), ".txt"));
    std::vector<long long> compteurs(static_cast<std::size_t>(MAX_ANNEE_QUANTIFICATION) + 1, 0);
    std::string contenu;
    for (std::size_t t = 0; t < liste->noms.size(); ++t) {
        const std::string& nom = liste->noms[t];
        if (nom.empty()) continue;
        Avancer(ctx, Joindre("Quantification : "_cp, nom), t, liste->noms.size());
        const long long annee = AnneeDuTexte(nom);
        if (annee < 0 || annee > MAX_ANNEE_QUANTIFICATION)
            LimiteDepassee("MAX_ANNEE_QUANTIFICATION", MAX_ANNEE_QUANTIFICATION, Joindre("année du texte "_cp, nom));
        LireFichier(FichierTexte(*liste, casse ? "TEXTE_NU" : "TEXTE_MIN", nom), contenu);
        compteurs[static_cast<std::size_t>(annee)] += CompterCle(contenu, cherchee);
    }
    ctx.dialogue.MasquerProgression();
    EcrivainFichier sortie(fichier);
    for (long long a = 1; a <= DERNIERE_ANNEE_QUANTIFIEE; ++a)
        if (compteurs[static_cast<std::size_t>(a)] > 0)
            sortie.Ligne(Joindre(std::to_string(a), "\t", std::to_string(compteurs[static_cast<std::size_t>(a)])));
    sortie.Fermer();
    ctx.dialogue.Afficher(Joindre("Terminé  en "_cp, TexteDuree(debut, ctx.horloge, copie)));
}

}  // namespace

CleExtraction LireCleExtraction(std::string_view reponse, bool parListe) {
    CleExtraction cle;
    cle.parListe = parListe;
    std::string_view voulus = reponse, exclus;
    if (!parListe) {
        if (const auto pc = reponse.find('%'); pc != std::string_view::npos) {
            voulus = reponse.substr(0, pc);
            exclus = reponse.substr(pc + 1);
        }
    }
    auto remplir = [](std::string_view texte, std::vector<std::string>& dest) {
        if (texte.empty()) return;
        for (auto item : Decouper(texte, "/", MAX_ITEMS_EXTRACTION))
            if (!item.empty()) dest.emplace_back(item);
    };
    remplir(voulus, cle.items);
    remplir(exclus, cle.exclus);
    return cle;
}

std::string LibelleExtrait(const std::vector<std::string>& items) {
    if (items.empty()) return {};
    return items.size() > 1 ? Joindre(items[0], "_ETC") : items[0];
}

std::string ExtrairePhrases(std::string_view texte, const CleExtraction& cle) {
    LigneFormes ligne;
    std::string pliee;
    return ParPartition(texte, [&](std::string_view brute, std::string& extrait) {
        // A form is text of its tag: a line whose lower case holds no item holds no hit.
        pliee.clear();
        AjouterMinusculesSimples(brute, pliee);
        if (!ContientUn(pliee, cle.items)) return;
        ligne.Lire(brute);
        for (int i = 1; i <= ligne.N(); ++i) {
            if (!ligne.EstMot(i)) continue;
            const std::string_view forme = ligne.Minuscule(i);
            bool trouve = false;
            if (cle.parListe) {
                for (const auto& item : cle.items) trouve = trouve || forme == item;
            } else {
                trouve = ContientUn(forme, cle.items) && !ContientUn(forme, cle.exclus);
            }
            if (!trouve) continue;
            int fin = i;
            extrait += ligne.Phrase(i, FinDePhrase, fin);
            extrait += "\r\n";
            // A list search goes on after the sentence; a string search with the next token, so a
            // sentence with two hits is written twice.
            if (cle.parListe) i = fin;
        }
    });
}

std::string ExtraireParagraphes(std::string_view texte, const CleExtraction& cle) {
    std::string sortie;
    if (cle.items.empty()) return sortie;
    LecteurLignes lecteur(texte);
    std::string_view ligne;
    while (lecteur.Suivante(ligne)) {
        if (ligne.find(cle.items[0]) == std::string_view::npos || ContientUn(ligne, cle.exclus)) continue;
        sortie += ligne;
        sortie += "\r\n";
    }
    return sortie;
}

std::string ExtraireExpressions(std::string_view texte, long long& occurrences) {
    static constexpr std::array<std::string_view, 2> kTetes = {"un", "une"};
    static constexpr std::array<std::string_view, 2> kExpressions = {"un de ces", "une de ces"};
    constexpr int kMots = 3;
    std::string sortie;
    LigneFormes ligne;
    LecteurLignes lecteur(texte);
    std::string_view brute;
    std::string suite, pliee;
    while (lecteur.Suivante(brute)) {
        if (brute.empty() || EstLigneMetadonnees(brute)) continue;
        pliee.clear();
        AjouterMinusculesSimples(brute, pliee);
        // Every expression ends in "ces", which stands in the line's tags when it is there.
        if (pliee.find("ces") == std::string::npos) continue;
        ligne.Lire(brute);
        for (int i = 1; i <= ligne.N(); ++i) {
            if (!ligne.Compte(i)) continue;
            for (std::size_t e = 0; e < kTetes.size(); ++e) {
                if (ligne.Minuscule(i) != kTetes[e]) continue;
                suite = ligne.Minuscule(i);
                int pris = 1;
                for (int j = i + 1; j <= ligne.N() && pris < kMots; ++j) {
                    if (!ligne.Compte(j)) continue;
                    suite += ' ';
                    suite += ligne.Minuscule(j);
                    ++pris;
                }
                if (pris < kMots || suite != kExpressions[e]) continue;
                int fin = i;
                sortie += ligne.Phrase(i, FinDePhraseExpression, fin);
                sortie += "\r\n";
                ++occurrences;
            }
        }
    }
    return sortie;
}

std::string ExtraireDocuments(std::string_view blocs, std::string_view etiquete, std::string_view cle) {
    const auto parties = Decouper(blocs, kSeparateurBlocs);
    if (parties.size() > MAX_BLOCS_EXTRACTION)
        LimiteDepassee("MAX_BLOCS_EXTRACTION", static_cast<long long>(MAX_BLOCS_EXTRACTION), "blocs d'un texte");
    std::vector<std::size_t> marques;
    // The first block stands before the first partition and is not searched.
    for (std::size_t k = 1; k < parties.size(); ++k)
        if (parties[k].find(cle) != std::string_view::npos) marques.push_back(k);
    std::string sortie;
    if (marques.empty()) return sortie;
    const auto documents = Decouper(etiquete, "<QORX");
    for (std::size_t k : marques) {
        if (k >= documents.size()) break;
        sortie += "<QORX";
        sortie += documents[k];
    }
    return sortie;
}

long long CompterCle(std::string_view texte, std::string_view cle) {
    if (cle.empty()) return 0;
    long long n = 0;
    for (std::size_t p = texte.find(cle); p != std::string_view::npos; p = texte.find(cle, p + cle.size())) ++n;
    return n;
}

long long AnneeDuTexte(std::string_view nom) { return ValeurEntiere(nom.substr(0, nom.find('_'))); }

void OperationExtrairePhrases(Contexte& ctx) {
    const auto cle = DemanderCle(
        ctx, "Chaîne(s) à extraire(évent.séparées par des slashes), puis après un signe '%', chaînes exclues."_cp);
    if (!cle) return;
    const auto liste = ChoisirCorpus(ctx);
    if (!liste) return;
    const fs::path dossier = DossierExtraits(ctx, liste->doss_racine / "EXTRAITS", LibelleExtrait(cle->items));
    CreerDossier(dossier / "ARCHIVE_BRUT");
    PourChaqueTexteEtiquete(ctx, *liste, dossier / "REPERTOIRE.Txt", [&](std::string_view nom, std::string_view texte) {
        const std::string extrait = ExtrairePhrases(texte, *cle);
        EcrireFichier(Chemin(dossier / "ARCHIVE_BRUT", Joindre(nom, ".txt")), extrait);
        return !extrait.empty();
    });
    ctx.dialogue.Afficher("Terminé"_cp);
}

void OperationExtraireParagraphes(Contexte& ctx) {
    const auto cle =
        DemanderCle(ctx, "Séquence à extraire, puis après un signe '%', chaînes exclues."_cp);
    if (!cle) return;
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    const std::string debut = TexteHeure(ctx.horloge.Maintenant());
    const fs::path dossier = DossierExtraits(ctx, liste->doss_racine / "EXTRAITS_2", LibelleExtrait(cle->items));
    CreerDossier(dossier / "OLBRIN_TT");
    PourChaqueTexteEtiquete(ctx, *liste, dossier / "REPERTOIRE.Txt", [&](std::string_view nom, std::string_view texte) {
        const std::string extrait = ExtraireParagraphes(texte, *cle);
        if (extrait.empty()) return false;
        EcrireFichier(Chemin(dossier / "OLBRIN_TT", Joindre(nom, ".txt")), extrait);
        return true;
    });
    ctx.dialogue.Afficher(Joindre("Terminé en "_cp, TexteDuree(debut, ctx.horloge, Copie::Exploration)));
}

void OperationExtraireDocuments(Contexte& ctx) {
    const auto cle = DemanderCleSelection(ctx);
    if (!cle) return;
    const bool casse = ctx.dialogue.Demander("Respect de la casse (OUI/NON) ?"_cp, "", "NON").value_or("") != "NON";
    const std::string filtre =
        ctx.dialogue.Demander("Si nécessaire entrez un type de filtre (JOURNAL ou DATE)"_cp, "", "NON").value_or("");
    std::string valeurFiltre;
    if (!filtre.empty())
        valeurFiltre = ctx.dialogue
                           .Demander("Spécifiez une année, ou une plage d'années (format 2000-20004), ou un titre de journal"_cp,
                                     "", "")
                           .value_or("");
    const bool filtrer = filtre == "JOURNAL" || filtre == "DATE";
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    const fs::path dossier = DossierDate(ctx, liste->doss_racine / "EXTRAITS_DOCS", *cle);
    CreerDossier(dossier / "OLBRIN_TT");
    EcrivainFichier repertoire(dossier / "REPERTOIRE.txt");
    const std::string cherchee = casse ? *cle : MinusculesSimples(*cle);
    std::string blocs, etiquete;
    for (std::size_t t = 0; t < liste->noms.size(); ++t) {
        const std::string& nom = liste->noms[t];
        if (nom.empty()) continue;
        if (filtrer && nom.find(valeurFiltre) == std::string::npos) continue;
        Avancer(ctx, Joindre("Extraction : "_cp, nom), t, liste->noms.size());
        LireFichier(FichierTexte(*liste, casse ? "TEXTE_NU" : "TEXTE_MIN", nom), blocs);
        if (blocs.find(cherchee) == std::string::npos) continue;
        LireFichier(Chemin(liste->doss_racine / "OLBRIN_TT", Joindre(nom, ".txt")), etiquete);
        const std::string documents = ExtraireDocuments(blocs, etiquete, cherchee);
        if (documents.empty()) continue;
        EcrireFichier(Chemin(dossier / "OLBRIN_TT", Joindre(nom, ".txt")), documents);
        repertoire.Ligne(nom);
    }
    repertoire.Fermer();
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher("Terminé"_cp);
}

void OperationExtraireExpressions(Contexte& ctx) {
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    const fs::path dossier = DossierExtraits(ctx, liste->doss_racine / "EXTRAITS", LibelleExtrait({"un de ces", "une de ces"}));
    CreerDossier(dossier / "ARCHIVE_BRUT");
    long long occurrences = 0;
    PourChaqueTexteEtiquete(ctx, *liste, dossier / "REPERTOIRE.Txt", [&](std::string_view nom, std::string_view texte) {
        const std::string extrait = ExtraireExpressions(texte, occurrences);
        if (extrait.empty()) return false;
        EcrireFichier(Chemin(dossier / "ARCHIVE_BRUT", Joindre(nom, ".txt")), extrait);
        return true;
    });
    ctx.dialogue.Afficher(Joindre("Terminé. "_cp, std::to_string(occurrences), " occurrences"));
}

void OperationQuantifierOccurrences(Contexte& ctx) { QuantifierOccurrences(ctx, Copie::Exploration); }

void OperationQuantifierOccurrencesStatistiques(Contexte& ctx) { QuantifierOccurrences(ctx, Copie::Statistiques); }

}  // namespace telvoris
