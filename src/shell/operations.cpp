#include "shell/operations.hpp"

#include <array>

#include "core/texte.hpp"
#include "correction/correction_auto.hpp"
#include "correction/identification.hpp"
#include "correction/mots_colles.hpp"
#include "correction/recensement.hpp"
#include "correction/reperage.hpp"
#include "explore/corpus.hpp"
#include "explore/indexation.hpp"
#include "intake/echantillons.hpp"
#include "intake/export_xml.hpp"
#include "intake/fichier_unique.hpp"
#include "intake/presse.hpp"
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
    Operation{"smn_rcf", "Form2", "&Vérifications"_cp, "Repérage inconnus"_cp, &OperationReperageInconnus,
              "Compare un lexique du corpus (forme, tabulation, effectif ; majuscules distinguées, effectifs décroissants) "
              "aux dictionnaires et range les formes inconnues dans le dossier MANQUANTS du corpus : LISTE_FC.txt (sans "
              "majuscule initiale) et LISTE_NP.txt (avec), ETAT_FC.txt et ETAT_NP.txt à \"0\", MNQVUS_TRX_FC.txt et "
              "MNQVUS_TRX_NP.txt vides, et pour chaque item au plus dix lignes de concordance dans CONC_FC/<n>.txt ou "
              "CONC_NP/<n>.txt."
              "\n? Faire des concordances (O/N)? [défaut : O] (réponses : O, autre = non)"
              "\n? Chercher seulement dans le dictionnaire standard (1) ou dans tous les répertoires (0) ? [défaut : 1] (réponses : 1, 0)"
              "\n? Localiser le répertoire [défaut : aucun] (réponses : le fichier liste du corpus)"
              "\n? CONFIRMEZ PAR 'O' L'ECRASEMENT DU DOSSIER EXISTANT [défaut : O] (réponses : O, autre = abandon ; posée seulement si MANQUANTS existe)"
              "\n? Seuil ? [défaut : 1] (réponses : un nombre entier)"
              "\n? Longueur minimale [défaut : 1] (réponses : un nombre entier)"
              "\n? Localiser le lexique [défaut : aucun] (réponses : un fichier de lexique)"},
    Operation{"smn_iic", "Form2", "&Vérifications"_cp, "Identification inconnus"_cp, &OperationIdentificationInconnus,
              "Session d'identification des inconnus de MANQUANTS, un item à la fois avec sa concordance : entrée pour le "
              "dictionnaire général ou particulier, correction, mot étranger, nom propre, rien. Les décisions sont "
              "sauvées tous les dix items et à l'arrêt dans MANQUANTS_TRX.txt (à côté du dossier) et dans "
              "MANQUANTS/DICO_GEN.txt, DICO_PARTIC.txt, CORRECTIONS.txt, INCORRECTIONS.txt, ETRANGERS.txt ; "
              "ETAT_<famille>.txt retient le dernier item traité et une session reprise repart à l'item suivant."
              "\n? Avec (NP) ou sans (FC) une majuscule initiale ? [défaut : FC] (réponses : FC, NP)"
              "\n? Localiser le répertoire [défaut : aucun] (réponses : le fichier liste du corpus)"
              "\n? Votre choix (0 à 6, R<n>, C ..., P ..., Q) : [défaut : Q] (réponses : 0 à 6, R1 à R10, C ou P suivi d'un candidat, Q ; une par item, suivie des questions du formulaire choisi)"},
    Operation{"smn_crator", "Form2", "&Vérifications"_cp, "Correction automatique"_cp, &OperationCorrectionAutomatique,
              "Relit les textes étiquetés et corrige chaque mot inconnu que connaissent les stocks rescor et "
              "olbrin_accents (attribut fz=1) ; les inconnus non résolus reçoivent fz=2. Écrit les textes corrigés dans "
              "OLBRIN_TT/CORR_<aammjj_hhmm> (OLBRIN_TT reste intact) et les non-résolus avec leur effectif dans "
              "controle_corrections.txt à la racine du corpus."
              "\n? Localiser le répertoire [défaut : aucun] (réponses : le fichier liste du corpus)"},
    Operation{"smn_cormam", "Form2", "&Vérifications"_cp, "Correction mot à mot sur liste"_cp, &OperationCorrectionMotAMot,
              "Applique une liste de corrections (faute, tabulation, correction) à chaque mot du corpus en gardant la "
              "casse du mot remplacé ; l'ancienne forme est gardée dans l'attribut fx, une correction de plusieurs mots "
              "devient un groupe <cw fx=...><w f=...>...</cw>. Les textes de OLBRIN_TT sont réécrits sur place après "
              "copie dans OLBRIN_TT/AVANT_CORMAM."
              "\n? Charger la liste [défaut : aucun] (réponses : un fichier faute, tabulation, correction)"
              "\n? Localiser le répertoire [défaut : aucun] (réponses : le fichier liste du corpus)"},
    Operation{"smn_intres", "Form2", "&Vérifications"_cp, "Intégration d'éléments à \"rescor\""_cp, &OperationIntegrationRescor,
              "Ajoute des paires faute, tabulation, correction au stock rescor/rescor de la ressource, après une copie "
              "datée rescor/rescor_<aammjj_hhmm> ; une faute déjà présente voit sa correction complétée. Les 300 "
              "fichiers du stock sont réécrits."
              "\n? Localiser le fichier des corrections récentes [défaut : aucun] (réponses : un fichier faute, tabulation, correction)"},
    Operation{"smn_intinc", "Form2", "&Vérifications"_cp, "Intégration à \"incor\""_cp, &OperationIntegrationIncor,
              "Ajoute des paires faute, tabulation, forme au stock incor/incor de la ressource, après une copie datée "
              "incor/incor_<aammjj_hhmm>. Les 300 fichiers du stock sont réécrits."
              "\n? Localiser le fichier des in-corrections récentes [défaut : aucun] (réponses : un fichier faute, tabulation, forme)"},
    Operation{"smn_mocol", "Form2", "&Vérifications"_cp, "Mots collés"_cp, &OperationMotsColles,
              "Cherche pour chaque mot inconnu de l'index des textes une coupure en mots connus (élision manquante, "
              "deux mots au meilleur produit de fréquences, mot doublé, trois ou quatre mots) et écrit MOTS_COUPES.txt "
              "à la racine du corpus (forme, tabulation, verdict ; ECHEC pour un mot de plus de 6 caractères sans coupure)."
              "\n? Localiser le répertoire [défaut : aucun] (réponses : le fichier liste du corpus)"},
    Operation{"smn_respn", "Form2", "&Vérifications"_cp, "Mots collés"_cp, &OperationReparationsSignes,
              "Réécrit les textes étiquetés dans OLBRIN_TT_NEW en réparant les ligatures (oe, OE), les apostrophes "
              "doublées ou égarées en fin de mot et les barres obliques dans un mot ; OLBRIN_TT reste intact. "
              "CONTROLE.txt note la progression tous les dix textes."
              "\n? Localiser le répertoire [défaut : aucun] (réponses : le fichier liste du corpus)"},
    Operation{"smn_ctc", "Form2", "&Vérifications"_cp, "Recensement fautes corrigibles"_cp, &OperationRecensementFautes,
              "Lit INCONNUS.txt à la racine du corpus (mot, tabulation, effectif) et, pour chaque mot de plus de 4 "
              "caractères, cherche par un catalogue de fautes de frappe et de lecture le candidat connu du "
              "dictionnaire de filtrage au meilleur score ; écrit CORR_SUGGESTIONS.txt (mot, tabulation, candidat) et "
              "CORR_REJETS.txt (mots sans candidat) à la racine du corpus."
              "\n? Seuil de fréquence ? [défaut : 1] (réponses : un nombre entier)"
              "\n? Localiser le répertoire [défaut : aucun] (réponses : le fichier liste du corpus)"},
    Operation{"smn_vac", "Form2", "&Vérifications"_cp, "Variantes d'accents"_cp, &OperationVariantesAccents,
              "Essaie pour chaque mot d'une liste (4 à 14 caractères) les variantes d'accents des classes de "
              "DIACRITIQUES.txt et garde celles du dictionnaire général : VOY_SIMPLES.txt (une seule) et "
              "VOY_MULTIPLES.txt (plusieurs) à la racine du corpus."
              "\n? Version lourde ou légère (lou/leg) ? [défaut : lou] (réponses : lou, leg)"
              "\n? Localiser le répertoire [défaut : aucun] (réponses : le fichier liste du corpus)"
              "\n? Localiser la liste des inconnus/fautifs [défaut : aucun] (réponses : un fichier mot, tabulation, ...)"},
    Operation{"smn_F1L", "Form2", "&Vérifications"_cp, "Graphies 17ème"_cp, &OperationGraphies17,
              "Essaie pour chaque mot d'une liste les réécritures des graphies anciennes de graphies-17.txt et des "
              "finales (oit, oient, ois, y...) et écrit les formes connues du dictionnaire général dans "
              "<liste>_SOLUTIONS.txt à côté de la liste."
              "\n? Localiser la liste [défaut : aucun] (réponses : un fichier mot, tabulation, ...)"},
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
