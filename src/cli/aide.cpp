#include "cli/aide.hpp"

#include <algorithm>
#include <vector>

#include "core/texte.hpp"
#include "shell/operations.hpp"

namespace telvoris {

namespace {

// A menu or caption without its access-key marks, in UTF-8.
std::string SansEsperluette(std::string_view cp1252) {
    std::string t;
    for (char c : cp1252)
        if (c != '&') t += c;
    return Cp1252VersUtf8(t);
}

}  // namespace

std::string NomZone(std::string_view zone) {
    if (zone == "Form1") return "Form1 (accueil et exploration)";
    if (zone == "Form2") return "Form2 (environnement d'étiquetage)";
    if (zone == "Form3") return "Form3 (statistiques)";
    return std::string(zone);
}

std::string ListeOperations() {
    std::string t;
    for (std::string_view zone : {"Form1", "Form2", "Form3"}) {
        // Menus in the order the table first names them.
        std::vector<std::string_view> menus;
        for (const auto& op : Operations())
            if (op.zone == zone && std::find(menus.begin(), menus.end(), op.menu) == menus.end()) menus.push_back(op.menu);
        if (menus.empty()) continue;
        if (!t.empty()) t += '\n';
        t += NomZone(zone) + "\n";
        for (std::string_view menu : menus) {
            t += "  " + SansEsperluette(menu) + "\n";
            for (const auto& op : Operations())
                if (op.zone == zone && op.menu == menu)
                    t += Joindre("    ", op.zone, ".", op.id, "\t", SansEsperluette(op.legende), "\n");
        }
    }
    t += "\nL'aide d'une opération : telvoris OPERATION --help (ou telvoris aide OPERATION).\n";
    return t;
}

std::string AideOperation(const Operation& op) {
    std::string t = Joindre(op.zone, ".", op.id, " : ", NomZone(op.zone), ", menu « ", SansEsperluette(op.menu),
                            " », « ", SansEsperluette(op.legende), " »\n\n");
    if (op.aide.empty()) {
        t += "(Aucune description n'accompagne encore cette opération.)\n";
        return t;
    }
    const std::size_t finParagraphe = op.aide.find('\n');
    t += std::string(op.aide.substr(0, finParagraphe)) + "\n";
    if (finParagraphe != std::string_view::npos) {
        const std::string_view questions = op.aide.substr(finParagraphe + 1);
        if (questions.starts_with("?")) t += "\nQuestions, dans l'ordre (chaque --reponse répond à la suivante) :\n";
        else t += "\n";
        t += std::string(questions) + "\n";
    }
    return t;
}

int AfficherAideOperation(std::string_view nom, std::ostream& sortie, std::ostream& erreurs) {
    const Operation* op = TrouverOperation(nom);
    if (!op) {
        erreurs << "Opération inconnue : " << nom << " (voir « telvoris liste »)\n";
        return 2;
    }
    sortie << AideOperation(*op);
    return 0;
}

}  // namespace telvoris
