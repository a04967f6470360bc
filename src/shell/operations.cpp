#include "shell/operations.hpp"

#include <array>

#include "core/texte.hpp"
#include "explore/corpus.hpp"
#include "explore/indexation.hpp"
#include "explore/operations_vues.hpp"
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
    Operation{"smn_filtred", "Form2", "&Gestion base"_cp, "filtrage des redites"_cp, &OperationFiltrageRedites},    Operation{"smn_rq", "Form1", "&Exploration"_cp, "Requête"_cp, &OperationVueExploration,
              "Vue de l'exploration (application de bureau) : rouvre le panneau de requête avec les dernières saisies, garni des listes de formes et de lemmes recueillies.\nAucune question."},
    Operation{"sm_nav", "Form1", "&Exploration"_cp, "Plein texte"_cp, &OperationVueExploration,
              "Vue de l'exploration (application de bureau) : montre le plein texte d'une partition, les occurrences de la requête marquées, avec les déplacements par partition, occurrence et co-occurrence.\nAucune question."},
    Operation{"smn_st", "Form1", "&Exploration"_cp, "Distribution"_cp, &OperationVueExploration,
              "Vue de l'exploration (application de bureau) : montre les histogrammes des écarts réduits par partition et par classe, et les listes de co-occurrents ; sauvegarde les tableaux sous SAUVEGARDES/DISTRIBUTIONS.\nAucune question."},
    Operation{"smn_dc", "Form1", "&Exploration"_cp, "Dictionnaires"_cp, &OperationVueExploration,
              "Vue de l'exploration (application de bureau) : montre les dictionnaires de formes et de lemmes du corpus ; un clic ajoute un mot à une liste, un double clic l'envoie au panneau de requête.\nAucune question."},
    Operation{"smn_lfed", "Form1", "&Listes"_cp, "Éditer la liste de formes"_cp, &OperationVueExploration,
              "Vue de l'exploration (application de bureau) : montre LISTE_FORMES pour la modifier ; VALIDER l'enregistre.\nAucune question."},
    Operation{"smn_lled", "Form1", "&Listes"_cp, "Éditer la liste de lemmes"_cp, &OperationVueExploration,
              "Vue de l'exploration (application de bureau) : montre LISTE_LEMMES pour la modifier ; VALIDER l'enregistre.\nAucune question."},
    Operation{"smn_lfx", "Form1", "&Listes"_cp, "Vider la liste de formes"_cp, &OperationVueExploration,
              "Vue de l'exploration (application de bureau) : vide LISTE_FORMES.\nAucune question."},
    Operation{"smn_llx", "Form1", "&Listes"_cp, "Vider la liste de lemmes"_cp, &OperationVueExploration,
              "Vue de l'exploration (application de bureau) : vide LISTE_LEMMES.\nAucune question."},
    Operation{"smn_cg", "Form1", "&AFC"_cp, "Charger une carte"_cp, &OperationVueExploration,
              "Vue de l'exploration (application de bureau) : charge une carte d'AFC à trois colonnes (libellé, x, y) dans l'onglet afc. L'application demande le fichier dans la boîte « AFC à afficher ».\nAucune question."},
    Operation{"smn_chg", "Form1", "&AFC"_cp, "Charger une autre carte"_cp, &OperationVueExploration,
              "Vue de l'exploration (application de bureau) : charge une carte d'AFC à trois colonnes (libellé, x, y) à la place de la carte affichée. L'application demande le fichier dans la boîte « AFC à afficher ».\nAucune question."},
    Operation{"smn_rfc", "Form1", "&AFC"_cp, "Rafraîchir la carte"_cp, &OperationVueExploration,
              "Vue de l'exploration (application de bureau) : montre de nouveau chaque libellé de la carte à ses coordonnées.\nAucune question."},
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
