#include "shell/operations.hpp"

#include <array>

#include "core/texte.hpp"
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
#include "stats/carte_operations.hpp"

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
    Operation{"smn_v2", "Form3", "&Analyses"_cp, "Visualisation 2 Facteurs"_cp, &OperationVisualisation2,
              "Affiche la carte plane d'un fichier _PROJ (deux facteurs) : étiquettes, légende des axes, inertie, listes COLONNES et LIGNES. N'écrit rien."
              "\n? Colorations : Aucune, 4 Couleurs, Mise en gras ? [défaut : Aucune] (réponses : Aucune, 4 Couleurs, Mise en gras)"
              "\n? Couleur de surimpression : noir, rouge, vert, bleu, magenta ? [défaut : noir] (réponses : noir, rouge, vert, bleu, magenta)"
              "\n? Police d'affichage : taille ? [défaut : 8] (réponses : 4 à 72)"
              "\n? Police d'affichage : mise en gras (O/N) ? [défaut : N] (réponses : O, N)"
              "\n? AFC à afficher (fichier)"
              "\n? Fichier de codage (fichier, avec 4 Couleurs ou Mise en gras)"},
    Operation{"smn_v3", "Form3", "&Analyses"_cp, "Visualisation 3 Facteurs"_cp, &OperationVisualisation3,
              "Affiche le planisphère d'un fichier _PLANISPH_ (trois facteurs) : étiquettes stylées par distance, inertie, listes COLONNES et LIGNES. N'écrit rien."
              "\n? Colorations : Aucune, 4 Couleurs, 2 couleurs, 2 couleurs graduées ? [défaut : Aucune] (réponses : Aucune, 4 Couleurs, 2 couleurs, 2 couleurs graduées)"
              "\n? Colonnes : Comme lignes, Saillantes ? [défaut : Comme lignes] (réponses : Comme lignes, Saillantes)"
              "\n? Police d'affichage : corps ? [défaut : 8] (réponses : 4 à 72)"
              "\n? AFC à afficher (fichier)"
              "\n? Fichier de codage (fichier, sauf avec Aucune)"},
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
