#include "shell/operations.hpp"

#include <array>

#include "core/texte.hpp"
#include "explore/corpus.hpp"
#include "explore/extraction.hpp"
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
    Operation{"smn_ext", "Form1", "Extractions"_cp, "Extraire phrases"_cp, &OperationExtrairePhrases,
              "Copie dans EXTRAITS/<clé>/ARCHIVE_BRUT, texte par texte, chaque phrase du corpus étiqueté "
              "(OLBRIN_TT) dont une forme contient la chaîne (mode CH) ou est égale à une forme de la liste "
              "(mode LI), précédée de la ligne de métadonnées de son document, et écrit la liste des textes "
              "retenus dans REPERTOIRE.Txt : un corpus neuf, à segmenter à son tour. En mode CH, une phrase "
              "qui contient deux occurrences est écrite deux fois."
              "\n? Mode d'extraction (par chaîne : 'CH' / par liste : 'LI') ? [défaut : CH] (réponses : CH, LI)"
              "\n? Chaîne(s) à extraire, séparées par des /, puis après un signe '%', chaînes exclues (mode CH) ; "
              "ou Forme(s) à extraire séparées par des / (mode LI) [défaut : aucun] (réponses : le texte cherché)"
              "\n? fichier « Ouvrir le répertoire » (*.txt) [sans défaut] (réponses : la liste des textes du corpus)"
              "\n? Le dossier d'extraits existe déjà. Voulez-vous en constituer un autre -O/N- ? "
              "(si le dossier existe ; O : un dossier daté, N : le même dossier réécrit) [défaut : O] (réponses : O, N)"},
    Operation{"smn_ext2", "Form1", "Extractions"_cp, "Extraire §"_cp, &OperationExtraireParagraphes,
              "Copie dans EXTRAITS_2/<clé>/OLBRIN_TT, texte par texte, les paragraphes (lignes du texte "
              "étiqueté) qui contiennent la première chaîne demandée et aucune chaîne exclue, et la liste des "
              "textes retenus dans REPERTOIRE.Txt."
              "\n? Mode d'extraction (par chaîne : 'CH' / par liste : 'LI') ? [défaut : CH] (réponses : CH, LI)"
              "\n? Séquence à extraire, puis après un signe '%', chaînes exclues [défaut : aucun] (réponses : le texte cherché)"
              "\n? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : la liste des textes du corpus)"
              "\n? Le dossier d'extraits existe déjà. Voulez-vous en constituer un autre -O/N- ? "
              "(si le dossier existe) [défaut : O] (réponses : O, N)"},
    Operation{"smn_extd", "Form1", "Extractions"_cp, "Extraire Documents"_cp, &OperationExtraireDocuments,
              "Copie dans EXTRAITS_DOCS/<clé>/OLBRIN_TT, entiers et avec leur ligne de métadonnées, les "
              "documents dont le texte (TEXTE_MIN, ou TEXTE_NU quand la casse est respectée) contient la clé, "
              "et la liste des textes retenus dans REPERTOIRE.txt. Un dossier qui existe déjà est doublé d'un "
              "dossier daté."
              "\n? Entrez la clé de sélection [défaut : aucun] (réponses : le texte cherché)"
              "\n? Respect de la casse (OUI/NON) ? [défaut : NON] (réponses : NON, OUI)"
              "\n? Si nécessaire entrez un type de filtre (JOURNAL ou DATE) [défaut : NON] (réponses : JOURNAL, DATE, NON)"
              "\n? Spécifiez une année, ou une plage d'années (format 2000-20004), ou un titre de journal "
              "(si la réponse précédente n'est pas vide) [défaut : aucun] (réponses : un texte que le nom du texte doit contenir)"
              "\n? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : la liste des textes du corpus)"},
    Operation{"smn_extrexpr", "Form1", "Extractions"_cp, "Extraire phrases sur expressions"_cp,
              &OperationExtraireExpressions,
              "Copie dans EXTRAITS/un de ces_ETC/ARCHIVE_BRUT les phrases qui contiennent « un de ces » ou "
              "« une de ces », et la liste des textes retenus dans REPERTOIRE.Txt ; dit le nombre d'occurrences."
              "\n? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : la liste des textes du corpus)"
              "\n? Le dossier d'extraits existe déjà. Voulez-vous en constituer un autre -O/N- ? "
              "(si le dossier existe) [défaut : O] (réponses : O, N)"},
    Operation{"smn_qtoc", "Form1", "Extractions"_cp, "Quantifier occurrences"_cp, &OperationQuantifierOccurrences,
              "Compte par année les occurrences d'une chaîne dans le texte du corpus (TEXTE_MIN, ou TEXTE_NU "
              "quand la casse est respectée) ; l'année est le nombre qui ouvre le nom du texte. Écrit "
              "REPERAGES/<clé>.txt (ou <clé>_<date>.txt s'il existe) : année, tabulation, effectif."
              "\n? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : la liste des textes du corpus)"
              "\n? Entrez la clé de sélection [défaut : aucun] (réponses : le texte cherché)"
              "\n? Respect de la casse (OUI/NON) ? [défaut : NON] (réponses : NON, OUI)"},
    Operation{"smn_lx", "Form3", "&Relevés"_cp, "Lexique"_cp, &OperationLexique},
    Operation{"smn_tgl", "Form3", "&Relevés"_cp, "Grand lexique"_cp, &OperationGrandLexique},
    Operation{"smn_lexm", "Form3", "&Relevés"_cp, "Lexiques_multiples"_cp, &OperationLexiquesMultiples},
    Operation{"smn_trin", "Form3", "&Relevés"_cp, "Tri noms propres"_cp, &OperationTriNomsPropres},
    Operation{"smn_mic", "Form3", "&Relevés"_cp, "Micro-distribution"_cp, &OperationMicroDistribution},
    Operation{"smn_mac", "Form3", "&Relevés"_cp, "Macro-distribution"_cp, &OperationMacroDistribution},
    Operation{"smn_tpd", "Form3", "&Relevés"_cp, "longueur de partitions"_cp, &OperationLongueurPartitions},
    Operation{"smn_qtoc", "Form3", "&Relevés"_cp, "Quantifier occurrences expression"_cp,
              &OperationQuantifierOccurrencesStatistiques,
              "Compte par année les occurrences d'une chaîne dans le texte du corpus (TEXTE_MIN, ou TEXTE_NU "
              "quand la casse est respectée) ; l'année est le nombre qui ouvre le nom du texte. Écrit "
              "REPERAGES/<clé>.txt (ou <clé>_<date>.txt s'il existe) : année, tabulation, effectif."
              "\n? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : la liste des textes du corpus)"
              "\n? Entrez la clé de sélection [défaut : aucun] (réponses : le texte cherché)"
              "\n? Respect de la casse (OUI/NON) ? [défaut : NON] (réponses : NON, OUI)"},
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
