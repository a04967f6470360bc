# The same correspondence analysis by R's `ca` package, for the solver benchmark.
# Usage: Rscript bench/afc_reference_r.R MATRICE.txt FACTEURS SORTIE_DOSSIER
# Writes eigen.txt (eigenvalues, one a line), corli.txt and corco.txt (principal coordinates of
# the first FACTEURS factors, one item a line, tab separated, 17 significant digits) and prints
# the seconds spent reading the matrix and in ca().
suppressPackageStartupMessages(library(ca))
arguments <- commandArgs(trailingOnly = TRUE)
fichier <- arguments[1]
k <- as.integer(arguments[2])
sortie <- arguments[3]
debut <- proc.time()[["elapsed"]]
entete <- strsplit(readLines(fichier, n = 1), "\t", fixed = TRUE)[[1]]
p <- length(entete) - 1
donnees <- scan(fichier, what = c(list(""), rep(list(0), p)), sep = "\t", skip = 1, quiet = TRUE,
                quote = "", comment.char = "", multi.line = FALSE)
n <- do.call(cbind, donnees[-1])
rm(donnees)
lecture <- proc.time()[["elapsed"]] - debut
debut <- proc.time()[["elapsed"]]
resultat <- ca(n)
calcul <- proc.time()[["elapsed"]] - debut
valeurs <- resultat$sv^2
k <- min(k, length(valeurs))
ecrire <- function(m, nom) {
  t <- formatC(m, digits = 17, format = "g")
  writeLines(apply(t, 1, paste, collapse = "\t"), file.path(sortie, nom))
}
writeLines(formatC(valeurs, digits = 17, format = "g"), file.path(sortie, "eigen.txt"))
sv <- resultat$sv[1:k]
ecrire(sweep(resultat$rowcoord[, 1:k, drop = FALSE], 2, sv, "*"), "corli.txt")
ecrire(sweep(resultat$colcoord[, 1:k, drop = FALSE], 2, sv, "*"), "corco.txt")
cat(sprintf("lecture %.2f\ncalcul %.2f\n", lecture, calcul))
