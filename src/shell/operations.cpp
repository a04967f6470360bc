#include "shell/operations.hpp"

#include <array>

#include "core/texte.hpp"
#include "explore/corpus.hpp"
#include "explore/indexation.hpp"
#include "intake/echantillons.hpp"
#include "intake/export_xml.hpp"
#include "intake/fichier_unique.hpp"
#include "intake/presse.hpp"
#include "lexicon/dico_composes.hpp"
#include "lexicon/flechisseur.hpp"
#include "lexicon/integration.hpp"
#include "lexicon/maintenance.hpp"
#include "pipeline/automate.hpp"
#include "pipeline/indexeur.hpp"
#include "pipeline/levee.hpp"
#include "pipeline/marquage_composes.hpp"
#include "pipeline/segmenteur.hpp"
#include "stats/afc_lancement.hpp"
#include "stats/lexiques.hpp"
#include "stats/macro_distribution.hpp"
#include "stats/micro_distribution.hpp"
#include "stats/projection.hpp"

namespace telvoris {

namespace {

const std::array kOperations = {
    Operation{"smn_seg", "Form2", "&Etablissement"_cp, "&Segmentation"_cp, &OperationSegmentation},
    Operation{"smn_cmp", "Form2", "&Etablissement"_cp, "Composés"_cp, &OperationComposes},
    Operation{"smn_aup", "Form2", "&Etablissement"_cp, "Passe automatique"_cp, &OperationPasseAutomatique},
    Operation{"smn_idx", "Form2", "&Etablissement"_cp, "Réindexer"_cp, &OperationReindexation},
    Operation{"smn_lev", "Form2", "&Etablissement"_cp, "Levée simples ambigus"_cp, &OperationLeveeSimples},
    Operation{"smn_lca", "Form2", "&Etablissement"_cp, "Levée composés ambigus"_cp, &OperationLeveeComposes},
    Operation{"smn_idx", "Form1", "&Fichier"_cp, "Indexer"_cp, &OperationIndexExploration},
    Operation{"smn_op", "Form1", "&Fichier"_cp, "&Ouvrir"_cp, &OperationOuvrirCorpus},
    Operation{"smn_lx", "Form3", "&Relevés"_cp, "Lexique"_cp, &OperationLexique},
    Operation{"smn_tgl", "Form3", "&Relevés"_cp, "Grand lexique"_cp, &OperationGrandLexique},
    Operation{"smn_lexm", "Form3", "&Relevés"_cp, "Lexiques_multiples"_cp, &OperationLexiquesMultiples},
    Operation{"smn_trin", "Form3", "&Relevés"_cp, "Tri noms propres"_cp, &OperationTriNomsPropres},
    Operation{"smn_mic", "Form3", "&Relevés"_cp, "Micro-distribution"_cp, &OperationMicroDistribution},
    Operation{"smn_mac", "Form3", "&Relevés"_cp, "Macro-distribution"_cp, &OperationMacroDistribution},
    Operation{"smn_tpd", "Form3", "&Relevés"_cp, "longueur de partitions"_cp, &OperationLongueurPartitions},
    Operation{"smn_afc", "Form3", "&Analyses"_cp, "AFC"_cp, &OperationAfc},
    Operation{"smn_p2", "Form3", "&Analyses"_cp, "Projection 2 Facteurs"_cp, &OperationProjection2},
    Operation{"smn_p3", "Form3", "&Analyses"_cp, "Projection 3 Facteurs"_cp, &OperationProjection3},
    Operation{"smn_eur", "Form2", "&Gestion base"_cp, "Europresse"_cp, &ImporterEuropresse},
    Operation{"smn_acr", "Form2", "&Gestion base"_cp, "Type : fichier unique à séparateurs"_cp, &ImporterFichierUnique},
    Operation{"smn_xmltxm", "Form2", "&Système de fichiers"_cp, "Conversion XML-TXM"_cp, &ExporterXml},
    Operation{"smn_repech", "Form2", "&Système de fichiers"_cp, "Répertoire-échantillon"_cp, &OperationRepertoireEchantillon},
    Operation{"smn_echant", "Form2", "&Système de fichiers"_cp, "Extraire un sous-corpus"_cp, &OperationExtraireSousCorpus},
    Operation{"smn_ctr2", "Form2", "&Gestion base"_cp, "Contrôle doublons"_cp, &OperationControleDoublons},
    Operation{"smn_filtred", "Form2", "&Gestion base"_cp, "filtrage des redites"_cp, &OperationFiltrageRedites},
    Operation{"smn_flx", "Form2", "&Dictionnaires"_cp, "Fléchisseur"_cp, &OperationFlechisseur,
              "Fléchit une liste de lemmes « lemme,CATEGORIE<TAB>classe » (classe suivie de _D pour un verbe défectif) "
              "avec les tables de utilitaires/codes_flexionnels ; écrit à côté de la liste <nom>_FLEX.txt "
              "(« forme,lemme,CODE ») et <nom>_FLEXMA.txt (lemmes que les tables ne traitent pas)."
              "\n? Localiser la liste [fichier] (réponses : un fichier .txt)"},
    Operation{"smn_ifs", "Form2", "&Dictionnaires"_cp, "Intégration"_cp, &OperationIntegrationFormes,
              "Intègre un fichier d'apports « forme,lemme,CODE » dans dico/olbrin : copie d'abord les 300 fichiers "
              "dans dico/olbrin_<horodate>, fusionne les lectures (personnes, temps, genre, nombre, noms et adjectifs), "
              "réécrit les fichiers touchés et écrit une ligne par apport dans dico/apports_remarques_<horodate>.txt."
              "\n? Localiser le fichier d'apports [fichier] (réponses : un fichier .txt)"},
    Operation{"smn_ilc", "Form2", "&Dictionnaires"_cp, "Intégration de lignes"_cp, &OperationIntegrationLignes,
              "Intègre des lignes de dictionnaire toutes faites « forme,lecture/lecture » dans dico/olbrin, avec la même "
              "fusion que l'intégration des apports : sauvegarde dans dico/olbrin_<horodate> d'abord, rapport dans "
              "dico/apports_remarques_<horodate>.txt."
              "\n? Localiser le fichier de lignes de dictionnaire [fichier] (réponses : un fichier .txt)"},
    Operation{"smn_dcf", "Form2", "&Dictionnaires"_cp, "Dictionnaire de formes du corpus"_cp, &OperationDictionnaireCorpus,
              "Construit, à côté d'un fichier d'apports « forme,lemme,CODE », un dictionnaire de formes qui ne contient "
              "que ces apports : dossier DICO_CORPUS (300 fichiers <L><c>.txt) et son rapport apports_remarques_<horodate>.txt ; "
              "dico/olbrin n'est pas touché."
              "\n? Localiser le fichier d'apports [fichier] (réponses : un fichier .txt)"},
    Operation{"smn_fusdic", "Form2", "&Dictionnaires"_cp, "Fusion de dictionnaires"_cp, &OperationFusionDictionnaires,
              "Fusionne les lignes de dico/olbrin_2 dans celles de dico/olbrin et écrit le résultat dans dico/olbrin_fus "
              "(300 fichiers) ; dico/olbrin n'est pas modifié. Rapport dans dico/apports_remarques_<horodate>.txt."
              "\nAucune question."},
    Operation{"smn_spl", "Form2", "&Dictionnaires"_cp, "Suppression de lemmes"_cp, &OperationSuppressionLemmes,
              "Retire de chaque ligne de dico/olbrin les lectures dont le « lemme_CATEGORIE » figure dans la liste de retraits ; "
              "copie d'abord les 300 fichiers dans dico/olbrin_<horodate>. Une ligne sans lecture restante disparaît. "
              "Formes écrites dans dico/SUPPRESSIONS_FAITES.txt et dico/SIMPLIFICATIONS_FAITES.txt."
              "\n? Localiser le fichier de retraits [fichier] (réponses : un fichier .txt)"},
    Operation{"smn_spd", "Form2", "&Dictionnaires"_cp, "Suppression lignes de dict."_cp, &OperationSuppressionLignes,
              "Retire de dico/olbrin les lignes entières identiques à celles de la liste de retraits ; copie d'abord les "
              "300 fichiers dans dico/olbrin_<horodate>. Lignes retirées dans dico/SUPPRESSIONS_2.txt."
              "\n? Localiser le fichier de retraits [fichier] (réponses : un fichier .txt)"},
    Operation{"smn_std", "Form2", "&Dictionnaires"_cp, "Statistiques du dictionnaire"_cp, &OperationStatistiquesDico,
              "Compte les formes, les formes ambiguës, les lemmes et les lemmes des catégories A, J, N, R, SF, SM, V de "
              "dico/olbrin ; écrit dico/STATISTIQUES_DICO_<horodate>.txt."
              "\nAucune question."},
    Operation{"smn_extracat", "Form2", "&Dictionnaires"_cp, "Extraire une catégorie"_cp, &OperationExtraireCategorie,
              "Copie dans dico/EXTRAIT_<c>.txt (c : première lettre de la catégorie) les lignes du dictionnaire qui "
              "contiennent « . » suivi de la catégorie, et sur « O » celles des composés (amb puis namb)."
              "\n? Inclure les composés ? [défaut : O] (réponses : O, N)"
              "\n? Catégorie ? [défaut : ] (réponses : un code de catégorie, SM, V...)"},
    Operation{"smn_exlf", "Form2", "&Dictionnaires"_cp, "Extraction lemmes + formes"_cp, &OperationExtractionLemmesFormes,
              "Liste, pour le seul fichier dico/olbrin/6a.txt, chaque « lemme_CATEGORIE » avec ses formes jointes par « / » ; "
              "écrit dico/EXTRAIT_<horodate>.txt."
              "\nAucune question."},
    Operation{"smn_mcid", "Form2", "&Dictionnaires"_cp, "Identification"_cp, &OperationIdentificationComposes,
              "Session de validation des séquences candidates d'une liste (5 000 au plus) : pour chaque cas, un choix "
              "(SFS, SFP, SMS, SMP, N PROPRE, ADVERBE, EXPRESS, DIVERS, PASSER) ou les formes fléchies à valider ; "
              "tous les 10 cas, confirmation, puis les propositions vont dans dico/comp/AJOUTS.txt, le rang dans "
              "AJOUTS_ETAT.txt et le dernier refus dans ANTIDICO.txt."
              "\n? Localiser la liste [fichier] (réponses : un fichier .txt)"
              "\n? Vous avez déjà un fichier d'ajouts. Voulez-vous reprendre ce fichier (O/N) ? [défaut : O] (réponses : O, N ; posée seulement si AJOUTS.txt existe)"
              "\n? Choix [défaut : Q] (réponses : 1 à 9, V, Q ; une fois par cas)"
              "\n? Catégorie ? [défaut : ] (après 8 DIVERS)"
              "\n? Option (SM, SF, R ou J) ? [défaut : ] (après V)"
              "\n? Formes fléchies, dans l'ordre, séparées par « ; » ? [défaut : ] (après V)"
              "\n? Corrigez éventuellement la saisie de 10 cas et confirmez par 'OUI'. [défaut : OUI] (réponses : OUI, autre)"},
    Operation{"smn_icp", "Form2", "&Dictionnaires"_cp, "Intégration"_cp, &OperationIntegrationComposes,
              "Intègre un fichier de propositions « clé,lecture<TAB>classe » (1 amb, 2 namb) dans dico/comp/amb et "
              "dico/comp/namb, après copie de chaque fichier dans dico/comp/svg ; réécrit utilitaires/COMPOSANTS.txt "
              "et crée dico/comp/apports_rejetés.txt (vide)."
              "\n? Fichier de séquences nouvelles [fichier] (réponses : un fichier .txt)"},
    Operation{"smn_cdc", "Form2", "&Dictionnaires"_cp, "Dictionnaire du corpus"_cp, &OperationDictionnaireCorpusComposes,
              "Range un fichier de propositions de composés dans un dictionnaire à part, DICOMP_CORPUS/amb et "
              "DICOMP_CORPUS/namb à côté du fichier (fichiers <W><c>.txt, W de 2 à 8)."
              "\n? Fichier de séquences nouvelles [fichier] (réponses : un fichier .txt)"},
    Operation{"smn_pcan", "Form2", "&Dictionnaires"_cp, "Passer de comp amb à nomb"_cp, &OperationPasserAmbNamb,
              "Retire des fichiers dico/comp/amb les lignes listées dans dico/comp/AMBIGUS.txt et les écrit dans "
              "dico/comp/CONTROLE.txt ; elles ne sont pas ajoutées à namb (cela demande une intégration)."
              "\nAucune question."},
    Operation{"smn_supcomp", "Form2", "&Dictionnaires"_cp, "Suppression de lignes"_cp, &OperationSuppressionComposes,
              "Supprime d'une classe de composés (amb ou namb) les lignes identiques à celles d'un fichier, après copie "
              "des fichiers de la classe dans dico/comp/svg/<classe>."
              "\n? Ambigus ('amb') ou non-ambigus ('namb') ? [défaut : amb] (réponses : amb, namb)"
              "\n? Fichier [fichier] (réponses : un fichier .txt)"},
    Operation{"smn_cps", "Form2", "&Dictionnaires"_cp, "Composants"_cp, &OperationComposants,
              "Réécrit utilitaires/COMPOSANTS.txt : les mots des clés des composés (amb et namb) que le dictionnaire "
              "général ne connaît pas."
              "\nAucune question."},
};

}  // namespace

std::span<const Operation> Operations() { return kOperations; }

const Operation* TrouverOperation(std::string_view nom) {
    std::string_view zone;
    if (const auto point = nom.find('.'); point != std::string_view::npos) {
        zone = nom.substr(0, point);
        nom = nom.substr(point + 1);
    }
    const Operation* trouvee = nullptr;
    for (const auto& op : kOperations) {
        if (op.id != nom) continue;
        if (!zone.empty()) {
            if (op.zone == zone) return &op;
            continue;
        }
        if (!trouvee || op.zone == "Form2") trouvee = &op;
    }
    return trouvee;
}

}  // namespace telvoris
