// Every entry of the operation table carries its help: what it does and writes, then its
// questions in order, so that no operation reaches the menus or the command line undocumented.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "shell/operations.hpp"

namespace telvoris {
namespace {

// The check of one help text; an empty result means it is well formed.
std::string Defaut(std::string_view aide) {
    if (aide.empty()) return "aucune aide";
    const std::size_t fin = aide.find('\n');
    const std::string_view paragraphe = aide.substr(0, fin);
    if (paragraphe.size() < 20 || paragraphe.starts_with("?")) return "le paragraphe manque ou est trop court";
    if (fin == std::string_view::npos) return "ni question ni « Aucune question. »";
    std::string_view reste = aide.substr(fin + 1);
    if (reste == "Aucune question.") return "";
    int questions = 0;
    while (!reste.empty()) {
        const std::size_t n = reste.find('\n');
        const std::string_view q = reste.substr(0, n);
        reste = n == std::string_view::npos ? std::string_view() : reste.substr(n + 1);
        ++questions;
        if (!q.starts_with("? ")) return "ligne de question sans « ? » : " + std::string(q);
        if (q.find(" (réponses : ") == std::string_view::npos || !q.ends_with(")"))
            return "question sans (réponses : ...) : " + std::string(q);
    }
    return questions > 0 ? "" : "aucune question";
}

TEST(TableDesOperations, ChaqueOperationDitSesQuestions) {
    std::set<std::string> vus;
    ASSERT_FALSE(Operations().empty());
    for (const Operation& op : Operations()) {
        const std::string nom = std::string(op.zone) + "." + std::string(op.id);
        EXPECT_TRUE(vus.insert(nom).second) << nom << " figure deux fois";
        EXPECT_EQ(Defaut(op.aide), "") << nom;
        EXPECT_TRUE(op.zone == "Form1" || op.zone == "Form2" || op.zone == "Form3") << nom;
        EXPECT_NE(op.executer, nullptr) << nom;
    }
    // The checker itself refuses what it must.
    EXPECT_NE(Defaut(""), "");
    EXPECT_NE(Defaut("Fait quelque chose d'utile sur le corpus et écrit un fichier."), "");
    EXPECT_NE(Defaut("Fait quelque chose d'utile sur le corpus et écrit un fichier.\nQuestion ? [défaut : O] (réponses : O)"), "");
    EXPECT_NE(Defaut("Fait quelque chose d'utile sur le corpus et écrit un fichier.\n? Question ? [défaut : O]"), "");
    EXPECT_EQ(Defaut("Fait quelque chose d'utile sur le corpus et écrit un fichier.\n? Question ? [défaut : O] (réponses : O, N)"), "");
    EXPECT_EQ(Defaut("Fait quelque chose d'utile sur le corpus et écrit un fichier.\nAucune question."), "");
}

}  // namespace
}  // namespace telvoris
