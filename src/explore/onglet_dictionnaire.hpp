// The dictionary tab: the corpus's form and lemma dictionaries side by side, each with its row
// of letter labels and its search box; a click builds the word lists, a double click sends a
// word to the query panel.
#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "explore/listes_mots.hpp"

namespace telvoris {

// Label 0 is the frequency dictionary, 1 to 22 the letters A to V, 23 the letter W.
inline constexpr int NB_LABELS_DICO = 24;
// Lines that the search measures below a hit, so that the hit stands at the top of the view.
inline constexpr int LIGNES_VUE_DICO = 38;

// The file of a label: FREQUENTIEL_FORMES.txt, <letter>_FORMES.txt (and _LEMMES).
std::string FichierLabel(int label, bool lemmes);

struct VueDictionnaire {
    bool lemmes = false;
    std::array<bool, NB_LABELS_DICO> disponible{};
    int marque = 0;
    std::string texte;       // the loaded file as it stands: "count TAB word" lines
    long long curseur = 0;   // the place of the last hit of the search (0 up)
};

// What a double click asks of the query panel: the word in CFP_simple or CFP_lemme, and the
// concordance panel shown with the parameters open.
struct EnvoiRequete {
    bool lemme = false;
    std::string mot;
};

class OngletDictionnaire {
public:
    // At validation: both frequency dictionaries loaded, each letter marked available or not
    // by whether its file is empty (W is always offered).
    explicit OngletDictionnaire(const std::filesystem::path& index);

    VueDictionnaire& Vue(bool lemmes) { return lemmes ? lemmes_ : formes_; }
    const VueDictionnaire& Vue(bool lemmes) const { return lemmes ? lemmes_ : formes_; }

    // DICLAB_F / DICLAB_L: marks the label and loads its file; false for a label not available.
    bool Choisir(bool lemmes, int label);
    // DICTX_F / DICTX_L: the first "TAB text" (text folded) in a letter dictionary; the cursor
    // moves there. Returns false, the cursor staying, when there is nothing to find.
    bool Chercher(bool lemmes, std::string_view saisie);
    // The word of the line under the place `place` of the view's text ("" when none).
    std::string MotEn(bool lemmes, std::size_t place) const;
    // Left-button press: the word joins LISTE_FORMES or LISTE_LEMMES, without repeat.
    void Cliquer(bool lemmes, std::size_t place, ListesMots& listes) const;
    // Double click: the list of its kind becomes the word alone, and the word goes to the panel.
    std::optional<EnvoiRequete> DoubleCliquer(bool lemmes, std::size_t place, ListesMots& listes) const;

private:
    std::filesystem::path dossier_;
    VueDictionnaire formes_, lemmes_;
};

// The list commands of the menu: smn_lfed and smn_lled show a list for editing (Frame21, caption
// " VALIDER "), Label12 stores it back; smn_lfx and smn_llx empty it.
inline constexpr std::string_view LEGENDE_VALIDER_LISTE = " VALIDER ";
std::string& ListeEditee(ListesMots& listes, int indexLabel12);
inline void ViderListeFormes(ListesMots& l) { l.LISTE_FORMES.clear(); }
inline void ViderListeLemmes(ListesMots& l) { l.LISTE_LEMMES.clear(); }

}  // namespace telvoris
