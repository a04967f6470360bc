#include "explore/commande_requete.hpp"

#include <algorithm>
#include <cmath>
#include <optional>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"
#include "explore/concordance.hpp"
#include "explore/concordance_tsv.hpp"
#include "explore/corpus.hpp"
#include "explore/distribution.hpp"
#include "explore/ecarts_texte.hpp"
#include "explore/requete.hpp"

namespace telvoris {

std::string UsageRequete() {
    return "Usage : telvoris requete LISTE.txt [options]\n"
           "  Entrée (une seule) :\n"
           "    --forme TEXTE       une forme, une troncature (chat*, *chat, *chat*) ou une séquence (\"le chat\")\n"
           "    --formes FICHIER    une liste de formes, une par ligne\n"
           "    --lemme TEXTE       un lemme avec sa catégorie (chat_SM) ou une séquence de motifs\n"
           "                        (lemmes, formes, catégories précédées d'une marque : \"le_DA $SMs\")\n"
           "    --lemmes FICHIER    une liste de lemmes, un par ligne\n"
           "  Options :\n"
           "    --casse             tenir compte de la casse\n"
           "    --concordance --macro --micro   résultats voulus (concordance seule par défaut)\n"
           "    --empan N           co-occurrents limités à N mots (1 à 50)\n"
           "    --cote deux|gauche|droite       côtés que limite l'empan (deux par défaut)\n"
           "    --phrase            co-occurrents limités à la phrase\n"
           "    --tri droite|gauche tri de la concordance (droite par défaut)\n"
           "    --sauver            sauvegarde la concordance sous SAUVEGARDES/CONCORDANCES, les distributions\n"
           "                        (--macro) sous SAUVEGARDES/DISTRIBUTIONS (<libellé>_A_ partitions, _B_ classes)\n"
           "                        et les co-occurrents (--micro) sous SAUVEGARDES (marque_afc_datata.txt,\n"
           "                        resultat.txt)\n"
           "    --format tsv        la concordance en colonnes séparées par des tabulations, avec en-tête : texte,\n"
           "                        partition, variables de titre, position, contexte gauche, pivot, contexte droit\n"
           "  Ouverture du corpus :\n"
           "    --titre VARIABLE    variable affichée dans le titre des partitions (répétable)\n"
           "    --contraste VARIABLE  variable de mise en contraste des partitions\n"
           "    --date D-N          découpage d'une date de contraste (1er caractère, nombre de caractères)\n";
}

namespace {

// CR LF becomes LF; a lone CR stays.
std::string SansRetoursChariot(std::string_view texte) {
    std::string r;
    r.reserve(texte.size());
    std::size_t debut = 0;
    for (std::size_t cr = texte.find("\r\n"); cr != std::string_view::npos; cr = texte.find("\r\n", debut)) {
        r.append(texte, debut, cr - debut);
        debut = cr + 1;
    }
    r.append(texte, debut);
    return r;
}

}  // namespace

std::string ListeCooccurrents(EtatCorpus& etat, const Requete& r, bool lemmes) {
    return CalculerMicro(etat, r, lemmes).numerique;
}

int CommandeRequete(const std::vector<std::string>& args, Dialogue& dialogue, const Horloge& horloge, std::ostream& erreurs) {
    auto usage = [&](const std::string& message) {
        erreurs << message << "\n" << UsageRequete();
        return 2;
    };
    if (args.empty() || args[0].starts_with("--")) return usage("Il manque le fichier de liste du corpus.");
    const std::filesystem::path liste = args[0];
    ParametresRequete p;
    p.concordance = false;
    bool entree = false, triGauche = false, sauver = false, tsv = false;
    std::vector<std::string> titres;
    std::optional<std::string> contraste, date;
    for (std::size_t i = 1; i < args.size(); ++i) {
        const std::string& a = args[i];
        auto valeur = [&]() -> std::optional<std::string> {
            if (i + 1 >= args.size()) return std::nullopt;
            return args[++i];
        };
        auto saisie = [&](TypeSaisie type, bool fichier) -> bool {
            const auto v = valeur();
            if (!v || entree) return false;
            entree = true;
            p.type = type;
            p.saisie = fichier ? LireFichier(std::filesystem::path(*v)) : Utf8VersCp1252(*v);
            return true;
        };
        if (a == "--forme" || a == "--formes" || a == "--lemme" || a == "--lemmes") {
            const TypeSaisie t = a == "--forme" ? TypeSaisie::Forme
                                 : a == "--formes" ? TypeSaisie::ListeFormes
                                 : a == "--lemme" ? TypeSaisie::Lemme
                                                  : TypeSaisie::ListeLemmes;
            if (!saisie(t, a.ends_with('s'))) return usage(a + " attend une valeur, et une seule entrée est permise.");
        } else if (a == "--casse") {
            p.casse = true;
        } else if (a == "--concordance") {
            p.concordance = true;
        } else if (a == "--macro") {
            p.macro = true;
        } else if (a == "--micro") {
            p.micro = true;
        } else if (a == "--phrase") {
            p.phrase = true;
        } else if (a == "--sauver") {
            sauver = true;
        } else if (a == "--empan") {
            const auto v = valeur();
            if (!v) return usage("--empan attend un nombre.");
            p.empan = true;
            p.longueurEmpan = *v;
        } else if (a == "--cote") {
            const auto v = valeur();
            if (v == "deux") p.cote = Cote::Deux;
            else if (v == "gauche") p.cote = Cote::Gauche;
            else if (v == "droite") p.cote = Cote::Droite;
            else return usage("--cote attend deux, gauche ou droite.");
        } else if (a == "--tri") {
            const auto v = valeur();
            if (v == "gauche") triGauche = true;
            else if (v == "droite") triGauche = false;
            else return usage("--tri attend droite ou gauche.");
        } else if (a == "--format") {
            const auto v = valeur();
            if (v == "tsv") tsv = true;
            else if (v == "texte") tsv = false;
            else return usage("--format attend tsv ou texte.");
        } else if (a == "--titre" || a == "--contraste" || a == "--date") {
            const auto v = valeur();
            if (!v) return usage(a + " attend une valeur.");
            if (a == "--titre") titres.push_back(Utf8VersCp1252(*v));
            else if (a == "--contraste") contraste = Utf8VersCp1252(*v);
            else date = *v;
        } else {
            return usage("Option inconnue : " + a);
        }
    }
    if (!entree) return usage("Il manque l'entrée de la requête (--forme, --formes, --lemme ou --lemmes).");
    if (!p.concordance && !p.macro && !p.micro) p.concordance = true;
    if (tsv) p.concordance = true;

    EtatCorpus etat = OuvrirCorpus(liste);
    ChoixVariables choix;
    auto numero = [&](const std::string& nom) {
        const auto it = std::find(etat.variables.begin(), etat.variables.end(), nom);
        if (it == etat.variables.end())
            throw ErreurExecution(Joindre("Variable absente de l'index : "_cp, nom));
        return static_cast<int>(it - etat.variables.begin());
    };
    for (const auto& t : titres) choix.titres.push_back(numero(t));
    if (contraste) choix.contraste = numero(*contraste);
    // Only the distribution table shows the partitions' titles.
    choix.titresPartitions = p.macro;
    // The date cut is the answer to the prompt of the validation.
    class DialogueDate : public Dialogue {
    public:
        DialogueDate(Dialogue& d, std::optional<std::string> r) : d_(d), r_(std::move(r)) {}
        std::optional<std::string> Demander(std::string_view texte, std::string_view titre, std::string_view defaut) override {
            if (r_) return Utf8VersCp1252(*r_);
            return d_.Demander(texte, titre, defaut);
        }
        std::optional<std::filesystem::path> ChoisirFichier(std::string_view t, std::string_view f) override {
            return d_.ChoisirFichier(t, f);
        }
        void Afficher(std::string_view m) override { d_.Afficher(m); }
        void Resultat(std::string_view t) override { d_.Resultat(t); }
        void Progression(std::string_view l, long long i, long long n) override { d_.Progression(l, i, n); }
        void MasquerProgression() override { d_.MasquerProgression(); }

    private:
        Dialogue& d_;
        std::optional<std::string> r_;
    } dialogueDate(dialogue, date);
    ValiderCorpus(etat, choix, dialogueDate);

    Requete r;
    if (!LancerRequete(etat, p, r, dialogue) || r.NB_OCC() == 0) return 0;
    if (tsv) {
        if (!r.contextes) return usage("--format tsv donne la concordance, qui n'existe que jusqu'à 2500 occurrences.");
        dialogue.Resultat(ConcordanceTsv(etat, r, triGauche, TextesDesPartitions(liste, etat.NB_PARTS), titres));
        return 0;
    }
    std::string texte = Joindre(TexteInfoRequete(r), "STATISTIQUES pour la requête : "_cp, r.LIBELLE, "\r\n");
    if (r.contextes) {
        texte += "\r\n";
        for (const auto& l : LignesConcordance(r, triGauche)) texte += Joindre(l, "\r\n");
    }
    if (p.macro) {
        const long long total = r.NB_OCC();
        TexteEcarts ecarts;
        texte.reserve(texte.size() + static_cast<std::size_t>(etat.NB_PARTS) * 24);
        texte += Joindre("\r\n", "partition\toccurrences\técart réduit"_cp, "\r\n");
        AjouterLignesDistribution(texte, etat.NB_PARTS, etat.TITRE_PART, r.OCC_PAR_PART, etat.PART_CORPUS, total, ecarts);
        if (etat.NB_CLASSES > 0) {
            texte += Joindre("\r\n", etat.variableContraste, "\toccurrences\técart réduit"_cp, "\r\n");
            AjouterLignesDistribution(texte, etat.NB_CLASSES, etat.VALEUR_CLASSE, r.OCC_PAR_CLASSE, etat.PART_CLASSE, total,
                                      ecarts);
        }
    }
    // Occurrences counted without positions have no neighbours to list: the message said so.
    const bool micro = p.micro && r.NB_OCC_SANS_POSITION == 0;
    if (micro) {
        texte += Joindre("\r\n", Nombre(r.NB_COOC), " co-occurrents relevés"_cp, "\r\n");
        texte += Joindre("\r\n", "co-occurrents (formes) : écart réduit, occurrences, forme"_cp, "\r\n",
                         ListeCooccurrents(etat, r, false));
        texte += Joindre("\r\n", "co-occurrents (lemmes) : écart réduit, occurrences, lemme"_cp, "\r\n",
                         ListeCooccurrents(etat, r, true));
        // The other order of the lists, as the sort label of the view shows it.
        texte += Joindre("\r\n", "co-occurrents (formes) par ordre alphabétique : forme, occurrences, écart réduit"_cp,
                         "\r\n", CalculerMicro(etat, r, false).alphabetique);
        texte += Joindre("\r\n", "co-occurrents (lemmes) par ordre alphabétique : lemme, occurrences, écart réduit"_cp,
                         "\r\n", CalculerMicro(etat, r, true).alphabetique);
    }
    // The terminal shows plain line ends.
    std::string affiche = SansRetoursChariot(texte);
    if (affiche.ends_with('\n')) affiche.pop_back();
    dialogue.Resultat(affiche);
    if (sauver && r.contextes)
        dialogue.Afficher(Joindre("Concordance sauvegardée : "_cp, TexteChemin(SauverConcordance(etat, r, triGauche, horloge))));
    if (sauver && p.macro) {
        dialogue.Afficher(Joindre("Distribution sauvegardée : "_cp, TexteChemin(SauverDistribution(etat, r, false, horloge))));
        if (etat.NB_CLASSES > 0)
            dialogue.Afficher(Joindre("Distribution sauvegardée : "_cp, TexteChemin(SauverDistribution(etat, r, true, horloge))));
    }
    if (sauver && micro)
        for (const auto& f : EcrireFichiersMicro(etat, CalculerMicro(etat, r, false), CalculerMicro(etat, r, true),
                                                 etat.PATH_INDEX / "SAUVEGARDES"))
            dialogue.Afficher(Joindre("Co-occurrents sauvegardés : "_cp, TexteChemin(f)));
    return 0;
}

}  // namespace telvoris
