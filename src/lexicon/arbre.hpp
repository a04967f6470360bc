// The layout of the resource tree: the folders that the loaders read and the names of the
// bucket files, which carry the word class of their words.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace telvoris {

namespace fs = std::filesystem;

// Folders under the resource root (CP1252 names, joined with Chemin).
inline constexpr std::string_view DOSSIER_DICO = "dico/olbrin";
inline constexpr std::string_view DOSSIER_ACCENTS = "dico/olbrin_accents";
inline constexpr std::string_view DOSSIER_COMPOSES_NAMB = "dico/comp/namb";
inline constexpr std::string_view DOSSIER_COMPOSES_AMB = "dico/comp/amb";
inline constexpr std::string_view DOSSIER_RESCOR = "rescor/rescor";
inline constexpr std::string_view DOSSIER_INCOR = "incor/incor";
inline constexpr std::string_view DOSSIER_UTILITAIRES = "utilitaires";
inline constexpr std::string_view DOSSIER_ETRANGERS = "utilitaires/ETRANGERS";
inline constexpr std::string_view DOSSIER_CODES_FLEXIONNELS = "utilitaires/codes_flexionnels";

// Compounds are filed by their number of words, from 2 to 8.
inline constexpr int MIN_MOTS_COMPOSE = 2;
inline constexpr int MAX_MOTS_COMPOSE = 8;

// The letter of an initial class: 1 is "a", 20 is "t".
char LettreClasse(int classeInitiale);
// "<L><c>.txt": the file of a dictionary folder that holds the words of length class L and
// initial class c (also "<W><c>.txt" for compounds of W words).
std::string NomFichierCasier(int classeLongueur, int classeInitiale);
// "<L>_<NN>.txt": a file of the foreign forms, the initial class on two digits.
std::string NomFichierEtrangers(int classeLongueur, int classeInitiale);

// <racine>/<dossier>/<name of the bucket file>.
fs::path FichierCasier(const fs::path& racine, std::string_view dossier, int classeLongueur, int classeInitiale);
// <racine>/utilitaires/<nom>.
fs::path FichierUtilitaire(const fs::path& racine, std::string_view nom);

}  // namespace telvoris
