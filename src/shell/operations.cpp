#include "shell/operations.hpp"

#include <array>

#include "core/texte.hpp"
#include "correction/correction_auto.hpp"
#include "correction/identification.hpp"
#include "correction/mots_colles.hpp"
#include "correction/recensement.hpp"
#include "correction/reperage.hpp"
#include "explore/corpus.hpp"
#include "explore/extraction.hpp"
#include "explore/indexation.hpp"
#include "explore/operations_vues.hpp"
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
#include "stats/angulations.hpp"
#include "stats/carte_operations.hpp"
#include "stats/distances.hpp"
#include "stats/lexiques.hpp"
#include "stats/lois.hpp"
#include "stats/macro_distribution.hpp"
#include "stats/micro_distribution.hpp"
#include "stats/outils_corpus.hpp"
#include "stats/outils_lexiques.hpp"
#include "stats/outils_matrices.hpp"
#include "stats/projection.hpp"
#include "stats/sequences.hpp"
#include "stats/sequences_mois.hpp"
#include "stats/sur_sous_emploi.hpp"

namespace telvoris {

namespace {

// The count of a key by year stands in the extraction menu and in the statistics work area.
constexpr std::string_view kAideQuantifierOccurrences =
              "Compte par année les occurrences d'une chaîne dans le texte du corpus (TEXTE_MIN, ou TEXTE_NU "
              "quand la casse est respectée) ; l'année est le nombre qui ouvre le nom du texte. Écrit "
              "REPERAGES/<clé>.txt (ou <clé>_<date>.txt s'il existe) : année, tabulation, effectif."
              "\n? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : la liste des textes du corpus)"
              "\n? Entrez la clé de sélection [défaut : aucun] (réponses : le texte cherché)"
              "\n? Respect de la casse (OUI/NON) ? [défaut : NON] (réponses : NON, OUI)";

const std::array kOperations = {
    Operation{"smn_seg", "Form2", "&Etablissement"_cp, "&Segmentation"_cp, &OperationSegmentation,
         "Segmente chaque texte de la liste, ARCHIVE_BRUT/<nom>.txt, en une balise <M ...> ou <PC ...> par mot ou ponctuation dans OLBRIN_TT/<nom>.txt, puis l'indexe : OLBRIN_TT/TEXTE_NU, TEXTE_MIN, LEXINDEX, REPERE_LIGNES, TEXTE_ETIQ, NB_PARTITIONS et METADONNEES. Dit « Segmenté et indexé en » et la durée.\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)"},
    Operation{"smn_cmp", "Form2", "&Etablissement"_cp, "Composés"_cp, &OperationComposes,
         "Marque les mots composés du dictionnaire des composés comme <MC ...> dans le texte étiqueté OLBRIN_TT/<nom>.txt, après en avoir copié chaque texte dans OLBRIN_TT/AVANT_COMP. Le corpus doit avoir été segmenté. Dit la durée, le nombre de mots et de composés.\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)"},
    Operation{"smn_aup", "Form2", "&Etablissement"_cp, "Passe automatique"_cp, &OperationPasseAutomatique,
         "Passe automatique : applique le dictionnaire puis les règles de contexte au texte étiqueté OLBRIN_TT/<nom>.txt (copie préalable dans OLBRIN_TT/AVANT_AUTOMATE_SIMPLES) et laisse les listes des cas ambigus #INDEX_ms.txt, #INDEX_LEMMES.txt, #F_ETAT.txt et #BILAN.txt dans OLBRIN_TT, que lit smn_lev.\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)"},
    Operation{"smn_idx", "Form2", "&Etablissement"_cp, "Réindexer"_cp, &OperationReindexation,
         "Réindexe le texte étiqueté de chaque texte de la liste, comme à la fin de la segmentation : OLBRIN_TT/TEXTE_NU, TEXTE_MIN, LEXINDEX, REPERE_LIGNES, TEXTE_ETIQ, NB_PARTITIONS et METADONNEES. À relancer après toute correction du texte étiqueté.\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)"},
    Operation{"smn_lev", "Form2", "&Etablissement"_cp, "Levée simples ambigus"_cp, &OperationLeveeSimples,
         "Séance de levée des ambiguïtés simples laissées par la passe automatique : chaque cas (une forme et ses lectures) est montré avec ses occurrences numérotées dans leur contexte ; les décisions sont écrites dans OLBRIN_TT/<nom>.txt (copie préalable dans OLBRIN_TT/AVANT_LEVCON/<horodate>), l'état dans #F_ETAT.txt et #BILAN.txt ; une séance interrompue reprend au cas suivant.\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)\n"
         "? Mode de travail : O pour prendre les cas dans l'ordre, L pour choisir les cas par lemmes. [défaut : O] (réponses : O, L ; posée s'il reste des cas)\n"
         "? Numéros des lemmes choisis, séparés par des blancs : [sans défaut] (réponses : des numéros de la liste affichée ; posée après L)\n"
         "? Votre choix : ... [défaut : I] (réponses : à chaque cas, un chiffre par occurrence dans l'ordre affiché, 0 = aucune lecture, puis le cas suivant ; C<n> coche ou décoche la colonne n ; <a>-<b>:<n> coche la lecture n des lignes a à b ; T change le tri ; R révise le cas précédent ; V valide les coches et passe au cas suivant ; I ou une réponse vide interrompt)\n"
         "? Voulez-vous vraiment (O/N) interrompre cette session après avoir sauvegardé vos données ? [défaut : O] (réponses : O sauvegarde et arrête, N reprend le cas ; posée après I)"},
    Operation{"smn_lca", "Form2", "&Etablissement"_cp, "Levée composés ambigus"_cp, &OperationLeveeComposes,
         "Séance de levée des composés ambigus repérés dans OLBRIN_TT/CONTROLE_COMPOSES : chaque cas est montré avec ses occurrences ; les décisions sont écrites dans le texte étiqueté (copie préalable dans OLBRIN_TT/AVANT_LCA/<horodate>), l'état dans CONTROLE_COMPOSES/#ETAT.txt et #BILAN.txt.\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)\n"
         "? Votre choix : ... [défaut : I] (réponses : à chaque cas, un chiffre par occurrence dans l'ordre affiché, 0 = aucune lecture, puis le cas suivant ; C<n> coche ou décoche la colonne n ; <a>-<b>:<n> coche la lecture n des lignes a à b ; T change le tri ; R révise le cas précédent ; V valide les coches et passe au cas suivant ; I ou une réponse vide interrompt)\n"
         "? Voulez-vous vraiment (O/N) interrompre cette session après avoir sauvegardé vos données ? [défaut : O] (réponses : O sauvegarde et arrête, N reprend le cas ; posée après I)"},
    Operation{"smn_idx", "Form1", "&Fichier"_cp, "Indexer"_cp, &OperationIndexExploration,
         "Construit l'index d'exploration <liste>_QORX_INDEX à côté du fichier de liste (LEXINDEX, LEXINDEX_F, LEXINDEX_L, TEXTE_ETIQUETE, TEXTE_AFFICHE, METADONNEES_QORX, LONPARTS_M.txt..., et LEXINDEX_COURTS : le nombre d'occurrences par partition des mots courts et fréquents, dont l'index ne garde pas les positions), que lisent smn_op et « telvoris requete ». Le corpus doit être segmenté et indexé.\n"
         "? Discriminer les majuscules (O/N) ? Exemple API, Phnong, etc ? [défaut : N] (réponses : O garde la casse, N la replie)\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)\n"
         "? Il existe déjà un dossier d'indexation au nom de ce corpus. ... [défaut : N] (réponses : O détruit l'index existant et le refait, N arrête ; posée si l'index existe)"},
    Operation{"smn_op", "Form1", "&Fichier"_cp, "&Ouvrir"_cp, &OperationOuvrirCorpus,
         "Ouvre l'index d'exploration d'un corpus et le valide : variables affichées dans le titre des partitions, variable de mise en contraste. Affiche le nombre de partitions et d'occurrences, et les classes de contraste avec leurs occurrences. N'écrit rien.\n"
         "? fichier « Ouvrir le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste d'un corpus indexé par Form1.smn_idx)\n"
         "? <variable> : afficher dans la barre de titre (O/N) ? [défaut : N] (réponses : O, N ; une question par variable de l'index, dans l'ordre de METADONNEES_QORX/index.txt)\n"
         "? Variable retenue pour la mise en contraste de partitions (vide : aucun critère) ? [sans défaut] (réponses : le nom d'une variable, JOURNAL ou DATE par exemple, ou une réponse vide)\n"
         "? Quelle partie de la date est-elle à prendre en compte ? ... [défaut : 1-4] (réponses : 1er caractère, un tiret, nombre de caractères ; posée si la variable est une date)"},
    Operation{"smn_lx", "Form3", "&Relevés"_cp, "Lexique"_cp, &OperationLexique,
         "Lexique : compte les items de tous les textes de la liste (index OLBRIN_TT/LEXINDEX) au niveau lexical choisi et écrit, par fréquence décroissante (item, tabulation, effectif), LEXIQUES/FORMES_MIN_<horodate>.txt (niveau 0), FORMES_TYP_ (1), LEMMES_ et LEMMES_AMB (2) ou NP (3), et les totaux dans MEMO_<horodate>.txt. « telvoris exporter » en fait une copie pour R ou pandas.\n"
         "? niveau lexical à traiter [défaut : 0] (réponses : 0 formes, sans respect typogr. ; 1 formes, avecrespect typogr. ; 2 lemmes ; 3 noms propres seuls)\n"
         "? relevé limité à la phrase ? [défaut : N] (réponses : O, N)\n"
         "? limité à un empan cotextuel ? [défaut : N] (réponses : O, N)\n"
         "? dimension de l'empan ? [sans défaut] (réponses : un nombre de mots en chiffres ; posée seulement après O)\n"
         "? Regrouper les post-clitiques avec les autres occurrences (O/N) ? [défaut : O] (réponses : O, N ; le lexique compte de toute façon les post-clitiques à part)\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)"},
    Operation{"smn_tgl", "Form3", "&Relevés"_cp, "Grand lexique"_cp, &OperationGrandLexique,
         "Grand lexique : le lexique des corpus trop grands pour la mémoire, par fusions successives dans LEXIQUES/TG_LEXIQUE_<horodate>/ : DEFI_<k>.txt par tranche d'environ 100 000 items, SYNTHESE.txt (tranches), MEMO.txt (N et V) ; les post-clitiques sont toujours regroupés.\n"
         "? niveau lexical à traiter [défaut : 0] (réponses : 0 formes, sans respect typogr. ; 1 formes, avecrespect typogr. ; 2 lemmes ; 3 noms propres seuls)\n"
         "? relevé limité à la phrase ? [défaut : N] (réponses : O, N)\n"
         "? limité à un empan cotextuel ? [défaut : N] (réponses : O, N)\n"
         "? dimension de l'empan ? [sans défaut] (réponses : un nombre de mots en chiffres ; posée seulement après O)\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)"},
    Operation{"smn_lexm", "Form3", "&Relevés"_cp, "Lexiques_multiples"_cp, &OperationLexiquesMultiples,
         "Lexiques multiples : un lexique par texte de la liste, LEXIQUES_MULTIPLES/<nom>_FORMIN.txt (niveau 0), _FORMES_TYP (1), _LEMMES (2) ou _NP (3), item, tabulation, effectif.\n"
         "? niveau lexical à traiter [défaut : 0] (réponses : 0 formes, sans respect typogr. ; 1 formes, avecrespect typogr. ; 2 lemmes ; 3 noms propres seuls)\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)"},
    Operation{"smn_trin", "Form3", "&Relevés"_cp, "Tri noms propres"_cp, &OperationTriNomsPropres,
         "Tri des noms propres : garde d'un lexique les items à majuscule initiale plus fréquents que leur variante en minuscule et les écrit dans LEXIQUES/NOMS_PROPRES.txt (item, effectif, longueur) du corpus.\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)\n"
         "? fichier « Lexique ? » (*.txt) [sans défaut] (réponses : un fichier de lexique, par exemple LEXIQUES/FORMES_TYP_<horodate>.txt)"},
    Operation{"smn_mic", "Form3", "&Relevés"_cp, "Micro-distribution"_cp, &OperationMicroDistribution,
         "Micro-distribution : matrice des co-occurrences des items en lignes (pivots) avec les items en colonnes dans le texte étiqueté, écrite dans AFC_MICRO/<nom>/ : MICRO_BRUT.txt, MICRO_ECARTS.txt (écarts réduits), MICRO_ECRETEE.txt, MICRO_AMORTIE.txt et FORTS_ECARTS.txt ; les matrices vont à smn_afc.\n"
         "? niveau lexical à traiter [défaut : 0] (réponses : 0 formes, sans respect typogr. ; 1 formes, avecrespect typogr. ; 2 lemmes ; 3 noms propres seuls)\n"
         "? relevé limité à la phrase ? [défaut : N] (réponses : O, N)\n"
         "? limité à un empan cotextuel ? [défaut : N] (réponses : O, N)\n"
         "? dimension de l'empan ? [sans défaut] (réponses : un nombre de mots en chiffres ; posée seulement après O)\n"
         "? Seuil pour les forts écarts-réduits (de 15 à 50) ? [défaut : 10] (réponses : un nombre)\n"
         "? Souhaitez-vous sélectionner selon une métadonnée à l'intérieur de votre corpus -O/N- ? [défaut : N] (réponses : O, N ; le critère ne change pas le relevé)\n"
         "? Entrez le libellé du critère de sélection (type LOC=X). [sans défaut] (réponses : un texte ; posée après O)\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)\n"
         "? Exclure les cooccurrents les plus proches ? Si oui, entrez le nombre. Si non, entrez ZERO [défaut : 0] (réponses : un nombre de mots)\n"
         "? Fixez un seuil d'écart-réduit pour l'ecrétage (un nombre entier de 2 à 5). [défaut : 2] (réponses : un nombre)\n"
         "? fichier « items en lignes » (*.txt) [sans défaut] (réponses : un lexique ou un fichier item, tabulation, nombre ; au plus 1000 lignes)\n"
         "? fichier « items en colonnes » (*.txt) [sans défaut] (réponses : un fichier de même forme ; au plus 1000 lignes)\n"
         "? Nommez votre matrice - sinon elle sera nommée automatiquement [sans défaut] (réponses : un nom de dossier, ou une réponse vide pour le nom automatique)"},
    Operation{"smn_mac", "Form3", "&Relevés"_cp, "Macro-distribution"_cp, &OperationMacroDistribution,
         "Macro-distribution : matrice des items en lignes par valeur d'une métadonnée (une colonne par valeur, DATE, JOURNAL...), comptée sur les formes de l'index, écrite dans AFC_MACRO/<horodate>/ : MACRO_BRUT.txt, ECART_REDUIT.txt, SPECIF_RED.txt, ECRETEE.txt, LONPARTS.txt, VARIANCES_LI.txt et VARIANCES_CO.txt ; les matrices vont à smn_afc.\n"
         "? niveau lexical à traiter [défaut : 0] (réponses : 0 formes, sans respect typogr. ; 1 formes, avecrespect typogr. ; 2 lemmes ; 3 noms propres seuls ; sans effet sur ce relevé)\n"
         "? Valeur d'écart-réduit pour écretage ? [défaut : 2] (réponses : un nombre)\n"
         "? Valeur seuil pour prise en compte spécificité [défaut : 3] (réponses : un nombre)\n"
         "? fichier « items en lignes » (*.txt) [sans défaut] (réponses : un lexique ou un fichier item, tabulation, nombre)\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)\n"
         "? Clé de variable colonnes ? [sans défaut] (réponses : une clé des lignes <QORX_ATTR ...> du corpus, JOURNAL ou DATE par exemple)\n"
         "? Quelle partie de la date est-elle à prendre en compte ? ... [défaut : 1-4] (réponses : 1er caractère, un tiret, nombre de caractères, 1-7 pour l'année et le mois d'une date AAAA_MM_JJ ; posée si la clé est DATE, date ou Date, appliquée pour DATE seulement)"},
    Operation{"smn_tpd", "Form3", "&Relevés"_cp, "longueur de partitions"_cp, &OperationLongueurPartitions,
         "Longueur de partitions : somme les occurrences de l'index de chaque texte par année, l'année étant l'avant-dernier champ du nom coupé sur « _ », et écrit LONPARTS.txt (année, tabulation, somme, de 1981 à 2015) dans le dossier du corpus.\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)"},
    Operation{"smn_afc", "Form3", "&Analyses"_cp, "AFC"_cp, &OperationAfc,
         "Analyse factorielle des correspondances : vérifie une matrice (entiers positifs, aucune ligne ni colonne nulle), écrit dans le dossier X à côté de la matrice X.txt ITEMLIGNES.txt, ITEMCOLONNES.txt et STATS.txt, puis lance le solveur axisolve qui y écrit eigen.txt et les coordonnées, contributions, cosinus carrés et distances (corli, corco, conli, conco, cosli, cosco, disli, disco). Avec --attendre, les fichiers sont finalisés dans la foulée (sinon : telvoris finaliser-afc X).\n"
         "? fichier « matrice à analyser » (*.txt) [sans défaut] (réponses : une matrice de smn_mic ou smn_mac, par exemple AFC_MACRO/<horodate>/ECRETEE.txt ; aucun blanc dans les noms de dossiers)"},
    Operation{"smn_p2", "Form3", "&Analyses"_cp, "Projection 2 Facteurs"_cp, &OperationProjection2,
         "Projection sur 2 facteurs : place les colonnes et les lignes d'une AFC finalisée dans un carré de 0 à 10 000 et écrit le fichier de carte coli_PROJ<a><b>.txt (co ou li seuls selon les cases) dans le dossier de l'AFC : nombre de colonnes/lignes, puis nom, X, Y et codes de contribution, puis les lignes ** et *** des pourcentages d'inertie et ### de STATS.txt.\n"
         "? Pour l'axe 1 [défaut : 1] (réponses : un numéro de facteur)\n"
         "? Pour l'axe 2 [défaut : 2] (réponses : un autre numéro de facteur)\n"
         "? coord. colonnes [défaut : O] (réponses : O, N)\n"
         "? coord. lignes [défaut : O] (réponses : O, N)\n"
         "? valeurs propres [défaut : O] (réponses : O, N)\n"
         "? noms variables colonnes [défaut : O] (réponses : O, N ; sans effet sur le fichier)\n"
         "? noms variables lignes [défaut : O] (réponses : O, N ; sans effet sur le fichier)\n"
         "? trace, chi-deux... [défaut : N] (réponses : O, N)\n"
         "? fichier « Fichier des coordonnées de colonnes » (*.txt) [sans défaut] (réponses : le corco.txt finalisé du dossier de l'AFC ; posée si coord. colonnes vaut O)\n"
         "? fichier « Fichier des coordonnées de lignes » (*.txt) [sans défaut] (réponses : le corli.txt finalisé du même dossier ; posée si coord. lignes vaut O)"},
    Operation{"smn_p3", "Form3", "&Analyses"_cp, "Projection 3 Facteurs"_cp, &OperationProjection3,
         "Projection sur 3 facteurs : calcule pour chaque colonne et ligne d'une AFC finalisée longitude, latitude, distance et contributions sur trois facteurs, et écrit le fichier de globe <dossier>_PLANISPH_<a><b><c>.txt à côté du dossier de l'AFC.\n"
         "? Pour l'axe 1 [défaut : 1] (réponses : un numéro de facteur)\n"
         "? Pour l'axe 2 [défaut : 2] (réponses : un autre numéro de facteur)\n"
         "? Pour l'axe 3 [défaut : 3] (réponses : un troisième numéro de facteur)\n"
         "? coord. colonnes [défaut : O] (réponses : O, N)\n"
         "? coord. lignes [défaut : O] (réponses : O, N)\n"
         "? valeurs propres [défaut : O] (réponses : O, N)\n"
         "? noms variables colonnes [défaut : O] (réponses : O, N ; sans effet sur le fichier)\n"
         "? noms variables lignes [défaut : O] (réponses : O, N ; sans effet sur le fichier)\n"
         "? trace, chi-deux... [défaut : N] (réponses : O, N)\n"
         "? fichier « Fichier des coordonnées de colonnes » (*.txt) [sans défaut] (réponses : le corco.txt finalisé du dossier de l'AFC ; posée si coord. colonnes vaut O)\n"
         "? fichier « Fichier des coordonnées de lignes » (*.txt) [sans défaut] (réponses : le corli.txt finalisé du même dossier ; posée si coord. lignes vaut O)"},
    Operation{"smn_eur", "Form2", "&Gestion base"_cp, "Europresse"_cp, &ImporterEuropresse,
         "Import Europresse : découpe les fichiers téléchargés ARCHIVE/<n>/<k>.txt du dossier du corpus en articles (dossier ARTICLES) puis les regroupe par journal et par jour dans ARCHIVE_BRUT/<JOURNAL>_<aaaa>_<mm>_<jj>.txt, chaque article derrière sa ligne <QORX_ATTR JOURNAL=... DATE=... > ; les articles fautifs sont notés dans CONTROLE_PREMIERE_LIGNE.txt.\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : un fichier .txt du dossier du corpus, qui ne sert qu'à désigner ce dossier)"},
    Operation{"smn_acr", "Form2", "&Gestion base"_cp, "Type : fichier unique à séparateurs"_cp, &ImporterFichierUnique,
         "Import d'un fichier unique : coupe un fichier texte en textes aux lignes de séparation et écrit ARCHIVE_BRUT/ et REPERTOIRE.txt dans son dossier, avec les métadonnées de TABLEAU.txt s'il existe.\n"
         "? Si vous souhaitez partitionner votre corpus, ... saisissez ce séparateur. Sinon, saisissez 'STOP' ... [défaut : STOP] (réponses : la ligne de séparation ; STOP met fin au programme)\n"
         "? fichier « Appeler le fichier texte total » (*.txt) [sans défaut] (réponses : le fichier à découper)"},
    Operation{"smn_xmltxm", "Form2", "&Système de fichiers"_cp, "Conversion XML-TXM"_cp, &ExporterXml,
         "Export XML : écrit chaque texte étiqueté de la liste en XML dans ARCHIVE_XMLTXM/ (forme TXM) et ARCHIVE_XMLTEI/ (forme TEI) dans le dossier du corpus.\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)"},
    Operation{"smn_repech", "Form2", "&Système de fichiers"_cp, "Répertoire-échantillon"_cp, &OperationRepertoireEchantillon,
         "Répertoire-échantillon : écrit REPETOIRE_ECHANTILLON_<n>.txt dans le dossier du corpus, la liste d'un texte sur n.\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)\n"
         "? Tous les combien ? [sans défaut] (réponses : un nombre entier positif n)"},
    Operation{"smn_echant", "Form2", "&Système de fichiers"_cp, "Extraire un sous-corpus"_cp, &OperationExtraireSousCorpus,
         "Extraire un sous-corpus : copie dans EXTRAIT_<horodate>/ les fichiers des textes de la liste dont le nom contient la clé, pris dans ARCHIVE_BRUT ou OLBRIN_TT. Ne dit rien à la fin.\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)\n"
         "? ARCHIVE_BRUT ou OLBRIN_TT ? [défaut : ARCHIVE_BRUT] (réponses : ARCHIVE_BRUT, OLBRIN_TT)\n"
         "? Partie du nom servant de clé ? [sans défaut] (réponses : un morceau de nom de texte, LE_MATIN par exemple)"},
    Operation{"smn_ctr2", "Form2", "&Gestion base"_cp, "Contrôle doublons"_cp, &OperationControleDoublons,
         "Contrôle des doublons : sépare dans chaque texte ARCHIVE_BRUT/<nom>.txt les articles gardés (ARCHIVE_BRUT_NEW/) des doublons rejetés (ARCHIVE_BRUT_REJETS/).\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)"},
    Operation{"smn_filtred", "Form2", "&Gestion base"_cp, "filtrage des redites"_cp, &OperationFiltrageRedites,
         "Filtrage des redites : écrit dans ARCHIVE_BRUT_FILTRE/ les textes sans leurs articles redits, et leur liste dans REPERTOIRE_NEW.txt ; le dernier article de chaque texte n'est pas repris.\n"
         "? fichier « Localiser le répertoire » (*.txt) [sans défaut] (réponses : le fichier de liste des textes du corpus, REPERTOIRE.txt, dans le dossier du corpus)"},
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
              kAideQuantifierOccurrences},
    Operation{"smn_qtoc", "Form3", "&Relevés"_cp, "Quantifier occurrences expression"_cp,
              &OperationQuantifierOccurrencesStatistiques,
              kAideQuantifierOccurrences},
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
    Operation{"smn_rq", "Form1", "&Exploration"_cp, "Requête"_cp, &OperationVueExploration,
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
    Operation{"smn_v2", "Form3", "&Analyses"_cp, "Visualisation 2 Facteurs"_cp, &OperationVisualisation2,
              "Affiche la carte plane d'un fichier _PROJ (deux facteurs) : étiquettes, légende des axes, inertie, listes COLONNES et LIGNES. N'écrit rien."
              "\n? Colorations : Aucune, 4 Couleurs, Mise en gras ? [défaut : Aucune] (réponses : Aucune, 4 Couleurs, Mise en gras)"
              "\n? Couleur de surimpression : noir, rouge, vert, bleu, magenta ? [défaut : noir] (réponses : noir, rouge, vert, bleu, magenta)"
              "\n? Police d'affichage : taille ? [défaut : 8] (réponses : 4 à 72)"
              "\n? Police d'affichage : mise en gras (O/N) ? [défaut : N] (réponses : O, N)"
              "\n? fichier « AFC à afficher » [sans défaut] (réponses : un fichier de projection _PROJ)"
              "\n? fichier « Fichier de codage » (avec 4 Couleurs ou Mise en gras) [sans défaut] (réponses : item, tabulation, code)"},
    Operation{"smn_v3", "Form3", "&Analyses"_cp, "Visualisation 3 Facteurs"_cp, &OperationVisualisation3,
              "Affiche le planisphère d'un fichier _PLANISPH_ (trois facteurs) : étiquettes stylées par distance, inertie, listes COLONNES et LIGNES. N'écrit rien."
              "\n? Colorations : Aucune, 4 Couleurs, 2 couleurs, 2 couleurs graduées ? [défaut : Aucune] (réponses : Aucune, 4 Couleurs, 2 couleurs, 2 couleurs graduées)"
              "\n? Colonnes : Comme lignes, Saillantes ? [défaut : Comme lignes] (réponses : Comme lignes, Saillantes)"
              "\n? Police d'affichage : corps ? [défaut : 8] (réponses : 4 à 72)"
              "\n? fichier « AFC à afficher » [sans défaut] (réponses : un fichier de projection _PLANISPH_)"
              "\n? fichier « Fichier de codage » (sauf avec Aucune) [sans défaut] (réponses : item, tabulation, code)"},
    Operation{"smn_flx", "Form2", "&Dictionnaires"_cp, "Fléchisseur"_cp, &OperationFlechisseur,
              "Fléchit une liste de lemmes « lemme,CATEGORIE<TAB>classe » (classe suivie de _D pour un verbe défectif) "
              "avec les tables de utilitaires/codes_flexionnels ; écrit à côté de la liste <nom>_FLEX.txt "
              "(« forme,lemme,CODE ») et <nom>_FLEXMA.txt (lemmes que les tables ne traitent pas)."
              "\n? Localiser la liste [fichier] (réponses : un fichier .txt)"},
    Operation{"smn_ifs", "Form2", "&Dictionnaires"_cp, "Intégration"_cp, &OperationIntegrationFormes,
              "Intègre un fichier d'apports « forme,lemme,CODE » dans dico/olbrin : copie d'abord les 300 fichiers "
              "dans dico/olbrin_<horodate>, fusionne les lectures (personnes, temps, genre, nombre, noms et adjectifs), "
              "réécrit les fichiers touchés et écrit une ligne par apport dans dico/apports_remarques_<horodate>.txt."
              " Relancée après une interruption (trace dico/#EN_COURS_olbrin.txt), elle rétablit d'abord dico/olbrin depuis la sauvegarde de ce lancement-là."
              "\n? Localiser le fichier d'apports [fichier] (réponses : un fichier .txt)"},
    Operation{"smn_ilc", "Form2", "&Dictionnaires"_cp, "Intégration de lignes"_cp, &OperationIntegrationLignes,
              "Intègre des lignes de dictionnaire toutes faites « forme,lecture/lecture » dans dico/olbrin, avec la même "
              "fusion que l'intégration des apports : sauvegarde dans dico/olbrin_<horodate> d'abord, rapport dans "
              "dico/apports_remarques_<horodate>.txt."
              " Relancée après une interruption (trace dico/#EN_COURS_olbrin.txt), elle rétablit d'abord dico/olbrin depuis la sauvegarde de ce lancement-là."
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
              " Relancée après une interruption (trace dico/#EN_COURS_olbrin.txt), elle rétablit d'abord dico/olbrin depuis la sauvegarde de ce lancement-là."
              "\n? Localiser le fichier de retraits [fichier] (réponses : un fichier .txt)"},
    Operation{"smn_spd", "Form2", "&Dictionnaires"_cp, "Suppression lignes de dict."_cp, &OperationSuppressionLignes,
              "Retire de dico/olbrin les lignes entières identiques à celles de la liste de retraits ; copie d'abord les "
              "300 fichiers dans dico/olbrin_<horodate>. Lignes retirées dans dico/SUPPRESSIONS_2.txt."
              " Relancée après une interruption (trace dico/#EN_COURS_olbrin.txt), elle rétablit d'abord dico/olbrin depuis la sauvegarde de ce lancement-là."
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
              "\n? Catégorie ? (après 8 DIVERS) [sans défaut] (réponses : une catégorie du dictionnaire)"
              "\n? Option (SM, SF, R ou J) ? (après V) [sans défaut] (réponses : SM, SF, R, J)"
              "\n? Formes fléchies, dans l'ordre, séparées par « ; » ? (après V) [sans défaut] (réponses : les formes séparées par « ; »)"
              "\n? Corrigez éventuellement la saisie de 10 cas et confirmez par 'OUI'. [défaut : OUI] (réponses : OUI, autre)"},
    Operation{"smn_icp", "Form2", "&Dictionnaires"_cp, "Intégration"_cp, &OperationIntegrationComposes,
              "Intègre un fichier de propositions « clé,lecture<TAB>classe » (1 amb, 2 namb) dans dico/comp/amb et "
              "dico/comp/namb, après copie de chaque fichier dans dico/comp/svg ; réécrit utilitaires/COMPOSANTS.txt "
              "et crée dico/comp/apports_rejetés.txt (vide)."
              " Relancée après une interruption (trace dico/comp/#EN_COURS_comp.txt), elle rétablit d'abord les fichiers des composés depuis dico/comp/svg."
              "\n? Fichier de séquences nouvelles [fichier] (réponses : un fichier .txt)"},
    Operation{"smn_cdc", "Form2", "&Dictionnaires"_cp, "Dictionnaire du corpus"_cp, &OperationDictionnaireCorpusComposes,
              "Range un fichier de propositions de composés dans un dictionnaire à part, DICOMP_CORPUS/amb et "
              "DICOMP_CORPUS/namb à côté du fichier (fichiers <W><c>.txt, W de 2 à 8)."
              "\n? Fichier de séquences nouvelles [fichier] (réponses : un fichier .txt)"},
    Operation{"smn_pcan", "Form2", "&Dictionnaires"_cp, "Passer de comp amb à nomb"_cp, &OperationPasserAmbNamb,
              "Retire des fichiers dico/comp/amb les lignes listées dans dico/comp/AMBIGUS.txt et les écrit dans "
              "dico/comp/CONTROLE.txt ; elles ne sont pas ajoutées à namb (cela demande une intégration). Les fichiers amb "
              "sont d'abord copiés dans dico/comp/svg/amb."
              " Relancée après une interruption (trace dico/comp/#EN_COURS_comp.txt), elle rétablit d'abord les fichiers des composés depuis dico/comp/svg."
              "\nAucune question."},
    Operation{"smn_supcomp", "Form2", "&Dictionnaires"_cp, "Suppression de lignes"_cp, &OperationSuppressionComposes,
              "Supprime d'une classe de composés (amb ou namb) les lignes identiques à celles d'un fichier, après copie "
              "des fichiers de la classe dans dico/comp/svg/<classe>."
              " Relancée après une interruption (trace dico/comp/#EN_COURS_comp.txt), elle rétablit d'abord les fichiers des composés depuis dico/comp/svg."
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
