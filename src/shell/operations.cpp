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
#include "stats/angulations.hpp"
#include "stats/distances.hpp"
#include "stats/lois.hpp"
#include "stats/outils_lexiques.hpp"
#include "stats/outils_corpus.hpp"
#include "stats/outils_matrices.hpp"
#include "stats/sequences.hpp"
#include "stats/sequences_mois.hpp"
#include "stats/specificites.hpp"
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
    Operation{"smn_sepc", "Form3", "&Analyses"_cp, "Spécificités"_cp, &OperationSpecificites,
              "Compare un lexique spécifique à un lexique de référence : pour chaque item de plus de 5 occurrences présent dans la référence, écrit l'effectif, l'effectif attendu et l'écart réduit dans SPECIFICITES.txt, dans le dossier du lexique spécifique."
              "\n? fichier « LEXIQUE DE REFERENCE » (*.txt) [sans défaut] (réponses : un lexique : item, tabulation, effectif)"
              "\n? Le lexique de référence est-il total (T) ou partiel (P) ? [défaut : P] (réponses : T, P)"
              "\n? fichier « FICHIER MEMO N/V » (*.txt) (si la référence est partielle, P) [sans défaut] (réponses : un mémo dont la première ligne est « N = <total> »)"
              "\n? fichier « LEXIQUE SPECIFIQUE » (*.txt) [sans défaut] (réponses : un lexique : item, tabulation, effectif)"
              "\n? Le lexique spécifique est-il total (T) ou partiel (P) ? [défaut : P] (réponses : T, P)"
              "\n? fichier « FICHIER MEMO N/V » (*.txt) (si le lexique spécifique est partiel, P) [sans défaut] (réponses : un mémo dont la première ligne est « N = <total> »)"},
    Operation{"smn_spc", "Form3", "&Analyses"_cp, "Spécif pour coloration"_cp, &OperationSpecifColoration,
              "Écrit un fichier de codage COLOR_<horodate>.txt à côté d'une matrice d'écarts réduits : pour chaque ligne, le numéro de la couleur de la colonne choisie de plus grande valeur strictement au-dessus du seuil."
              "\n? Nombre de couleurs, de 1 à 4 [sans défaut] (réponses : un entier de 1 à 4)"
              "\n? Colonne sélectionnée n°<i> ? (une fois par couleur) [sans défaut] (réponses : un nom de colonne de l'en-tête de la matrice)"
              "\n? Seuil d'écart-réduit? [sans défaut] (réponses : un nombre)"
              "\n? fichier « Fichier d'écarts-réduits ? » (*.txt) [sans défaut] (réponses : une matrice d'écarts réduits avec en-tête de colonnes)"},
    Operation{"smn_angP3", "Form3", "&Analyses"_cp, "Angulation P3"_cp, &OperationAngulationP3,
              "Calcule l'angle en degrés entre tous les items d'un fichier de globe, pour chaque paire ordonnée, dans ANGULATIONS_3.txt d'un dossier du nom du fichier."
              "\n? fichier « Projection ? » (*.txt) [sans défaut] (réponses : un fichier de globe : en-tête, puis item, longitude, latitude)"},
    Operation{"smn_zag", "Form3", "&Analyses"_cp, "Zone d'angulation"_cp, &OperationZoneAngulation,
              "Écrit COLOR_<pivot>.txt à côté d'un fichier d'angles : code 1 pour les items à moins du premier angle du pivot, 2 pour ceux à moins du second."
              "\n? Pivot ? [sans défaut] (réponses : un item du fichier d'angles)"
              "\n? Angulation zone proche, en degrés entiers ? [sans défaut] (réponses : un entier)"
              "\n? Souhaitez-vous colorer une deuxième zone (O/N) ? [défaut : N] (réponses : O, N)"
              "\n? Angulation zone proche, en degrés entiers ? (si la réponse précédente est O) [sans défaut] (réponses : un entier)"
              "\n? fichier « Fichier d'angles ? » (*.txt) [sans défaut] (réponses : un fichier d'angles : pivot, item, angle)"},
    Operation{"smn_cpag", "Form3", "&Analyses"_cp, "Comparer angulations"_cp, &OperationComparerAngulations,
              "Compare des paires de fichiers d'angles ligne à ligne : écarts dans <fichier1>_COMPAR.txt, moyenne par pivot dans <fichier1>_COMPARSYNTHESE.txt, écart moyen général en message."
              "\n? fichier « Liste ? » (*.txt) [sans défaut] (réponses : une liste, une ligne par paire à comparer)"
              "\n? fichier « Fichier d'angulation 1 » (*.txt) (pour chaque paire de la liste) [sans défaut] (réponses : un fichier d'angles)"
              "\n? fichier « Fichier d'angulation 2 » (*.txt) (pour chaque paire de la liste) [sans défaut] (réponses : un fichier d'angles de même forme)"},
    Operation{"smn_disja", "Form3", "&Analyses"_cp, "Distance Jaccard"_cp, &OperationJaccard,
              "Distance de Jaccard (somme des parts propres des deux vocabulaires, de 0 à 2) : d'une paire de lexiques en message, ou de toutes les paires d'un corpus dans JACCARD_<liste>.txt."
              "\n? Calcul simple -S- (une paire) ou multiple -M- (un corpus) ? [défaut : M] (réponses : M, S)"
              "\n? Vocaulaire des formes -F-, des lemmes -L-, des catégories -C- ? (en mode M) [défaut : F] (réponses : F, L ; C est refusé faute de lexique de catégories)"
              "\n? fichier « Localiser le répertoire » (*.txt) (en mode M) [sans défaut] (réponses : une liste de textes du corpus, un nom par ligne)"
              "\n? fichier « lexique 1 » (*.txt) (en mode S) [sans défaut] (réponses : un lexique : item, tabulation, effectif)"
              "\n? fichier « lexique 2 » (*.txt) (en mode S) [sans défaut] (réponses : un lexique : item, tabulation, effectif)"},
    Operation{"smn_lab", "Form3", "&Analyses"_cp, "Distance Labbé"_cp, &OperationLabbe,
              "Distance de Labbé (0 à 1) : d'une paire de lexiques en message, ou de toutes les paires d'un corpus dans LABBE_<liste>.txt."
              "\n? Calcul simple -S- (une paire) ou multiple -M- (un corpus) ? [défaut : M] (réponses : M, S)"
              "\n? Vocaulaire des formes -F-, des lemmes -L-, des catégories -C- ? (en mode M) [défaut : F] (réponses : F, L ; C est refusé faute de lexique de catégories)"
              "\n? fichier « Localiser le répertoire » (*.txt) (en mode M) [sans défaut] (réponses : une liste de textes du corpus, un nom par ligne)"
              "\n? fichier « lexique 1 » (*.txt) (en mode S) [sans défaut] (réponses : un lexique : item, tabulation, effectif)"
              "\n? fichier « lexique 2 » (*.txt) (en mode S) [sans défaut] (réponses : un lexique : item, tabulation, effectif)"},
    Operation{"smn_dqrt", "Form3", "&Analyses"_cp, "Distance qrt"_cp, &OperationQrt,
              "Différence moyenne des blocs de 1000 occurrences (un tous les 500) de deux textes étiquetés : d'une paire en message, ou de toutes les paires d'un corpus dans distance<liste>.txt."
              "\n? Calcul simple -S- (une paire) ou multiple -M- (un corpus) ? [défaut : M] (réponses : M, S)"
              "\n? Vocaulaire des formes -F-, des lemmes -L-, des catégories -C- ? (en mode M) [défaut : F] (réponses : F, L ; C est refusé faute de lexique de catégories)"
              "\n? fichier « Localiser le répertoire » (*.txt) (en mode M) [sans défaut] (réponses : une liste de textes du corpus, un nom par ligne)"
              "\n? fichier « lexique 1 » (*.txt) (en mode S) [sans défaut] (réponses : un texte étiqueté)"
              "\n? fichier « lexique 2 » (*.txt) (en mode S) [sans défaut] (réponses : un texte étiqueté)"},
    Operation{"smn_spear", "Form3", "&Analyses"_cp, "Spearman"_cp, &OperationSpearman,
              "Corrélation des rangs de Spearman de deux listes des mêmes items (une ligne : item, effectif, item, effectif) : N(N²-1)/3, Q, 2Q et rho dans _SPEARMAN.txt du dossier."
              "\n? fichier « liste ? » (*.txt) [sans défaut] (réponses : une liste : item, effectif, item, effectif par ligne)"},
    Operation{"Smn_x2", "Form3", "&Analyses"_cp, "chi_deux"_cp, &OperationChiDeux,
              "Khi-deux d'une matrice : écarts (O-E)/racine(E) et khi-deux total dans CHI-DEUX.txt, khi-deux de chaque paire de lignes dans CHI-DEUX-PAIRES.txt et CHI-DEUX-PAIRES_TAB.txt, à côté de la matrice."
              "\n? fichier « matrice ? » (*.txt) [sans défaut] (réponses : une matrice d'effectifs avec en-tête de colonnes)"},
    Operation{"smn_binom", "Form3", "&Analyses"_cp, "Binomiale-essai"_cp, &OperationBinomialeEssai,
              "Table de la loi binomiale : P(k) et queue cumulée P(>= k) pour k de 0 à n, dans le volet des résultats."
              "\n? Empan ? [sans défaut] (réponses : un entier de 0 à 1000)"
              "\n? Probabilité ? [sans défaut] (réponses : un nombre de 0 à 1)"},
    Operation{"smn_bnmxl", "Form3", "&Analyses"_cp, "Binomiale étendue"_cp, &OperationBinomialeEtendue,
              "Table de la loi binomiale : P(k) et queue cumulée P(>= k) pour k de 0 à n, dans le volet des résultats."
              "\n? Empan ? [sans défaut] (réponses : un entier de 0 à 1000)"
              "\n? Probabilité ? [sans défaut] (réponses : un nombre de 0 à 1)"},
    Operation{"smn_v1000", "Form3", "&Analyses"_cp, "Variété par 1000"_cp, &OperationVariete,
              "Nombre moyen de formes distinctes par bloc de 1000 occurrences des textes d'une liste, dans VARIETE_<horodate>.txt à la racine du corpus et en message."
              "\n? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : une liste de textes du corpus, un nom par ligne)"},
    Operation{"smn_zipf", "Form3", "&Analyses"_cp, "Zipf"_cp, &OperationZipf,
              "Nombre d'items de chaque fréquence sous le seuil, du seuil à 1, dans <lexique>_ZIPF.txt."
              "\n? Seuil supérieur ? - limite 10000 [sans défaut] (réponses : un entier jusqu'à 10000)"
              "\n? fichier « lexique à traiter » (*.txt) [sans défaut] (réponses : un lexique : item, tabulation, effectif)"},
    Operation{"smn_compmat", "Form3", "&Analyses"_cp, "Comparer 2 matrices de cooc"_cp, &OperationComparerMatrices,
              "Compare la distribution de chaque ligne dans deux matrices de même forme : somme de (x-m)(y-m)/m par ligne dans <matrice1>_COMP_<matrice2>.txt."
              "\n? fichier « 1ère matrice » (*.txt) [sans défaut] (réponses : une matrice avec en-tête de colonnes)"
              "\n? fichier « 2ème matrice » (*.txt) [sans défaut] (réponses : une matrice de même forme)"},
    Operation{"smn_adlex", "Form3", "&Relevés"_cp, "additionner_lexiques"_cp, &OperationAdditionnerLexiques,
              "Additionne les lexiques PARTIELS/<nom>.txt des noms de la liste dans LEXIQUE_TOTAL.txt à la racine du corpus."
              "\n? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : une liste de textes du corpus, un nom par ligne)"},
    Operation{"smn_admat", "Form3", "&Relevés"_cp, "Additionner 2 matrices"_cp, &OperationAdditionnerMatrices,
              "Additionne cellule à cellule des matrices de même forme dans MATRICE_TOTALE.txt à côté de la première."
              "\n? Nombre de matrices à additionner ? [défaut : 2] (réponses : un entier)"
              "\n? fichier « Matrice n°<i> ? » (*.txt) (une fois par matrice) [sans défaut] (réponses : une matrice de même forme que les autres)"},
    Operation{"smn_extra", "Form3", "&Relevés"_cp, "extraction d'un tableau"_cp, &OperationExtractionTableau,
              "Extrait d'une micro-distribution les cellules dont l'écart dépasse le seuil (ligne, colonne, effectif, écart) dans EXTRACTION.txt d'un dossier du nom de la matrice."
              "\n? seuil inférieur ? [sans défaut] (réponses : un nombre)"
              "\n? fichier « matrice brute à analyser » (*.txt) [sans défaut] (réponses : une matrice MICRO_BRUT d'une micro-distribution)"},
    Operation{"smn_fillex", "Form3", "&Relevés"_cp, "Filtrage du lexique par chaîne"_cp, &OperationFiltrageLexique,
              "Garde les lignes d'un lexique dont l'item contient la chaîne (partout, au début ou à la fin) dans <lexique>_FILTRE_<chaîne>_<position>.txt."
              "\n? Partie de chaîne à retrouver [sans défaut] (réponses : une chaîne)"
              "\n? Position : indifférente (I); début de mot (D); fin de mot (F) ? [défaut : I] (réponses : I, D, F)"
              "\n? fichier « lexique à traiter » (*.txt) [sans défaut] (réponses : un lexique : item, tabulation, effectif)"},
    Operation{"smn_rdesl", "Form3", "&Relevés"_cp, "Retrouver des effectifs sur liste"_cp, &OperationEffectifsSurListe,
              "Pour chaque item d'une liste, son effectif dans un lexique ou INCONNU, dans <liste>_QUANT.txt."
              "\n? fichier « LEXIQUE » (*.txt) [sans défaut] (réponses : un lexique : item, tabulation, effectif)"
              "\n? fichier « LISTE » (*.txt) [sans défaut] (réponses : une liste d'items, un par ligne)"},
    Operation{"B12_Paramètres", "Form3", "&Relevés"_cp, "Sélection d'items"_cp, &OperationSelectionItems,
              "Garde les premiers items d'un lexique, hors mots exclus, nombres et catégories non retenues, dans <lexique>_SL_<n>.txt."
              "\n? Nombre d'items à retenir [sans défaut] (réponses : un entier)"
              "\n? Choix de la liste d'exclus (graph.) [défaut : standard] (réponses : standard, personnalisée, aucune)"
              "\n? Filtrage [défaut : sans filtrage] (réponses : par catégories, sans filtrage, Liste de lemmes)"
              "\n? Retenir les nombres ? [défaut : oui] (réponses : oui, non)"
              "\n? Indiquez les catégories à retenir (modèle : SF ou SF/SM/J/R/V...). (si le filtrage est par catégories) [défaut : SF/SM/V/J/R] (réponses : des catégories séparées par /)"
              "\n? fichier « fichier de 'mots-outils' (à éliminer) » (*.txt) (si la liste d'exclus est personnalisée) [sans défaut] (réponses : une liste de mots, un par ligne)"
              "\n? fichier « lexique à traiter » (*.txt) [sans défaut] (réponses : un lexique : item, tabulation, effectif)"},
    Operation{"smn_sgr", "Form3", "&Relevés"_cp, "Séquences de mots"_cp, &OperationSequencesMots,
              "Repère les suites de mots répétées des textes étiquetés d'une liste, avec le taux de chaque mot par rapport à un lexique simple : LEXIQUES/SEG_REP_<horodate>.txt (CODICO, SEQUENCE, NB_OCC, PIVOT, TAUX_PIVOT, TAUX_1...) et la trace LEXIQUES/SEG_REP_CONTROLE.txt."
              "\n? Seuil d'occurrence ? [sans défaut] (réponses : un entier)"
              "\n? Filtrer avec le dictionnaire des composés ? [défaut : N] (réponses : O, N)"
              "\n? fichier « LEXIQUE SIMPLE » (*.txt) [sans défaut] (réponses : un lexique : item, tabulation, effectif)"
              "\n? fichier « REPERTOIRE » (*.txt) [sans défaut] (réponses : une liste de textes du corpus, un nom par ligne)"},
    Operation{"smn_rcplt", "Form3", "&Relevés"_cp, "Recherche type \"un autre X\""_cp, &OperationUnAutreX,
              "Relève dans le texte nu de chaque texte de la liste chaque occurrence de la clé suivie du nombre de mots demandé : SEQUENCES/<clé>.txt (texte, tabulation, la clé et ses mots)."
              "\n? Entrez la clé de sélection [sans défaut] (réponses : un mot ou une suite de mots)"
              "\n? Respect de la casse (OUI/NON) ? [défaut : NON] (réponses : OUI, NON)"
              "\n? Nombre de mots à droite [sans défaut] (réponses : un entier)"
              "\n? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : une liste de textes du corpus, un nom par ligne)"},
    Operation{"smn_stapos", "Form3", "&Relevés"_cp, "Statistiques par pos"_cp, &OperationStatistiquesPos,
              "Compte les occurrences « <M » des textes étiquetés de la liste par catégorie (lignes) et par valeur du critère pris dans les métadonnées (colonnes) : FLEXTRA.txt à la racine du corpus."
              "\n? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : une liste de textes du corpus, un nom par ligne)"
              "\n? Critère de partition ? [défaut : AUCUN] (réponses : une clé de métadonnée, DATE, ou AUCUN)"
              "\n? Nombre de caractères à gauche de la date ? (si le critère est DATE) [défaut : 4] (réponses : un entier)"},
    Operation{"smn_lds", "Form3", "&Relevés"_cp, "liste_descripteurs"_cp, &OperationListeDescripteurs,
              "Relève les valeurs d'un descripteur dans les métadonnées de tous les fichiers sous DCP/ du corpus, avec leurs effectifs : LISTES_DESCRIPTEURS/<nom>.txt ; message des cas remplis, des types et des articles."
              "\n? Nom du descripteur ? [sans défaut] (réponses : une clé de métadonnée)"
              "\n? fichier « REPERTOIRE » (*.txt) [sans défaut] (réponses : un fichier à la racine du corpus, qui fixe le dossier DCP/)"},
    Operation{"Command1", "Form3", "&Relevés"_cp, "ECLAIRAGE"_cp, &OperationEclairage,
              "Découpe un texte étiqueté en parties égales en nombre de mots (MOTS) ou à chaque métadonnée (META), en ajoutant le jeton « <PC f=. l=. >. » à la fin de chaque partie : <texte>_ECLAIRAGE.txt."
              "\n? fichier « Texte ? » (*.txt) [sans défaut] (réponses : un texte étiqueté)"
              "\n? Mode de subdivision ? [défaut : MOTS] (réponses : MOTS, META)"
              "\n? nombre de mots par subdivision ? [défaut : 1000] (réponses : un entier d'au moins 1, ignoré en mode META)"},
    Operation{"smn_sqq", "Form3", "&Relevés"_cp, "séquences_1"_cp, &OperationSequences1,
              "Première étape du relevé mensuel : pour chaque mois (tiré du nom des textes, <JOURNAL>_aaaa-mm-jj ou <JOURNAL>_aaaa_mm_jj), le lexique LEXIQUES/PARMOIS_<mois>.txt, le mémo MEMOS/MEMO_<mois>.txt et les séquences SEQUENCES/<mois>.txt (séquence, effectif) ; trace CONTROLE.txt à la racine du corpus."
              "\n? Seuil d'occurrence ? [sans défaut] (réponses : un entier)"
              "\n? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : une liste de textes du corpus, un nom par ligne)"},
    Operation{"smn_sqq2", "Form3", "&Relevés"_cp, "séquences_2"_cp, &OperationSequences2,
              "Deuxième étape : pour chaque mois des MEMOS, le taux de chaque séquence rapporté au N du mois (SEQUENCES/TAUX_<mois>.txt), et le total de tous les mois par effectif décroissant, clos par « N = » et la somme (SEQUENCES/A_TOTAL.txt)."
              "\n? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : une liste de textes du corpus, un nom par ligne)"},
    Operation{"smn_sqpr", "Form3", "&Relevés"_cp, "seq_provi"_cp, &OperationSequencesProvi,
              "Forme provisoire de la première étape du relevé mensuel : mêmes questions, listes et fichiers que séquences_1."
              "\n? Seuil d'occurrence ? [sans défaut] (réponses : un entier)"
              "\n? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : une liste de textes du corpus, un nom par ligne)"},
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
