# The complete resource tree MORVENTA/morv_res, built beside the executables: the authored
# lists of resources/ (converted to Windows-1252, CR LF) and the 300 files of dico/olbrin
# generated from Grammalecte's French lexicon. Installed under share/MORVENTA/morv_res.

# The generator needs the interpreter that sees Debian's python3-grammalecte.
find_program(TELVORIS_PYTHON3 NAMES python3 PATHS /usr/bin NO_DEFAULT_PATH)
if(NOT TELVORIS_PYTHON3)
  find_program(TELVORIS_PYTHON3 NAMES python3 REQUIRED)
endif()

set(TELVORIS_ARBRE "${CMAKE_BINARY_DIR}/MORVENTA/morv_res")
file(GLOB_RECURSE TELVORIS_RESSOURCES_SOURCES CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/resources/*")

add_custom_command(
  OUTPUT "${CMAKE_BINARY_DIR}/ressources_listes.stamp"
  COMMAND "${TELVORIS_PYTHON3}" "${CMAKE_SOURCE_DIR}/tools/assembler_ressources.py"
          "${CMAKE_SOURCE_DIR}/resources" "${TELVORIS_ARBRE}"
  COMMAND "${CMAKE_COMMAND}" -E touch "${CMAKE_BINARY_DIR}/ressources_listes.stamp"
  DEPENDS ${TELVORIS_RESSOURCES_SOURCES} "${CMAKE_SOURCE_DIR}/tools/assembler_ressources.py"
  COMMENT "Listes de la ressource MORVENTA/morv_res"
  VERBATIM)

set(TELVORIS_LEXIQUE_GRAMMALECTE
    "/usr/lib/python3/dist-packages/grammalecte/graphspell/_dictionaries/fr-classic.json")
set(TELVORIS_DEPENDANCES_OLBRIN "${CMAKE_SOURCE_DIR}/tools/generer_olbrin.py"
    "${CMAKE_SOURCE_DIR}/resources/dico_courant.txt")
if(EXISTS "${TELVORIS_LEXIQUE_GRAMMALECTE}")
  list(APPEND TELVORIS_DEPENDANCES_OLBRIN "${TELVORIS_LEXIQUE_GRAMMALECTE}")
endif()
# 15t.txt is the last file written, so it stands for the whole folder.
add_custom_command(
  OUTPUT "${TELVORIS_ARBRE}/dico/olbrin/15t.txt" "${TELVORIS_ARBRE}/utilitaires/CATEGORIES_DE_VERBES_.txt"
  COMMAND "${TELVORIS_PYTHON3}" "${CMAKE_SOURCE_DIR}/tools/generer_olbrin.py" "${TELVORIS_ARBRE}/dico/olbrin"
          "${TELVORIS_ARBRE}/utilitaires/CATEGORIES_DE_VERBES_.txt"
  DEPENDS ${TELVORIS_DEPENDANCES_OLBRIN}
  COMMENT "Dictionnaire général dico/olbrin (lexique de Grammalecte)"
  VERBATIM)

# The filtering dictionary of the error census: the general dictionary's forms with their
# frequencies in the French Debian Reference when it is installed.
add_custom_command(
  OUTPUT "${CMAKE_BINARY_DIR}/ressources_filtrage.stamp"
  COMMAND "${TELVORIS_PYTHON3}" "${CMAKE_SOURCE_DIR}/tools/generer_filtrage.py" "${TELVORIS_ARBRE}/dico/olbrin"
          "${TELVORIS_ARBRE}/dico/FILTRAGE"
  COMMAND "${CMAKE_COMMAND}" -E touch "${CMAKE_BINARY_DIR}/ressources_filtrage.stamp"
  DEPENDS "${TELVORIS_ARBRE}/dico/olbrin/15t.txt" "${CMAKE_SOURCE_DIR}/tools/generer_filtrage.py"
  COMMENT "Dictionnaire de filtrage dico/FILTRAGE"
  VERBATIM)

add_custom_target(ressources ALL
  DEPENDS "${CMAKE_BINARY_DIR}/ressources_listes.stamp" "${TELVORIS_ARBRE}/dico/olbrin/15t.txt"
          "${CMAKE_BINARY_DIR}/ressources_filtrage.stamp")

install(DIRECTORY "${TELVORIS_ARBRE}" DESTINATION "${CMAKE_INSTALL_DATADIR}/MORVENTA")

# The lexicon tests read the built tree: building them builds it first.
function(telvoris_ressources_pour_tests)
  if(TARGET test_lexicon)
    add_dependencies(test_lexicon ressources telvoris)
  endif()
  if(TARGET test_cli)
    add_dependencies(test_cli ressources)
  endif()
endfunction()
cmake_language(DEFER CALL telvoris_ressources_pour_tests)

# The mapping of the dictionary generator has tests of its own, run by ctest.
function(telvoris_test_generateur)
  if(TELVORIS_TESTS)
    add_test(NAME GenerateurOlbrin.Correspondance
             COMMAND "${TELVORIS_PYTHON3}" "${CMAKE_SOURCE_DIR}/tools/test_generer_olbrin.py")
  endif()
endfunction()
cmake_language(DEFER CALL telvoris_test_generateur)
