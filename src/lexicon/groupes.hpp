// The lists that the context rules read: the word groups that may precede a noun or a verb,
// the post-clitics with their person codes, and the classes of verbs.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace telvoris {

inline constexpr std::size_t MAX_GROUPES_CLASSE = 800;
inline constexpr std::size_t MAX_MOTS_GROUPES_CLASSE = 200;
inline constexpr std::size_t MAX_POSTCLITIQUES_DESAMB = 200;
inline constexpr std::size_t MAX_VERBES_CATEGORIES = 10000;

// An entry of groupes_contexte: type 1 (preverb.txt), 2 (prenom.txt) or 3 (prevernom.txt).
struct GroupeContexte {
    std::string forme;
    int type = 0;
    std::string valeur_nom;
    std::string valeur_verbe;
    std::string valeur_classe;
};

class GroupesContexte {
public:
    GroupesContexte();
    // Adds an entry, and its elided twin when the form ends in "e"; feeds mots_groupes.
    void Ajouter(const GroupeContexte& groupe, std::string_view source);
    // The first entry equal to `forme`, in the letter class of its first character.
    const GroupeContexte* Chercher(std::string_view forme) const;
    // Whether a single item belongs to some group (mots_groupes).
    bool EstMotDeGroupe(std::string_view mot) const;
    std::size_t NombreGroupes() const;
    std::size_t NombreMots() const;
    void Vider();

private:
    void AjouterEntree(GroupeContexte groupe, std::string_view source);
    std::vector<std::vector<GroupeContexte>> groupes_;
    std::vector<std::vector<std::string>> mots_;
};

// Clears the table, then loads preverb.txt, prenom.txt and prevernom.txt.
void ChargerGroupesContexte(GroupesContexte& table, const std::filesystem::path& racine);

struct Postclitique {
    std::string forme;
    std::string code;
};
// POSTCLIT_DESAMB.txt: "postclitic<TAB>code", blank lines skipped.
std::vector<Postclitique> ChargerPostclitiquesDesamb(const std::filesystem::path& racine);

struct CategorieVerbe {
    std::string verbe;  // "lemma_V"
    int classe = 0;     // 1 to 7
};
// The class from the marks of fields 2, 3, 4: 1, 2, 3 alone; 4 all three; 5 (2+3), 6 (2+4), 7 (3+4).
// 0 when no field is marked.
int ClasseVerbe(bool a, bool b, bool c);
// CATEGORIES_DE_VERBES_.txt: a header line, then "verb<TAB>a<TAB>b<TAB>c"; unmarked lines skipped.
std::vector<CategorieVerbe> ChargerCategoriesVerbes(const std::filesystem::path& racine);

}  // namespace telvoris
