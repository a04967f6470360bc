#include "corpus_test.hpp"

#include <map>

#include "core/jetons.hpp"
#include "support/support.hpp"

namespace telvoris::test {

namespace {

// The segment indexer's position code: block b, rank n in it.
std::string CodeLocal(long long rang) {
    const long long b = (rang - 1) / 220 + 1;
    const long long n = (rang - 1) % 220 + 1;
    const long long hi = b / 220 + 1;
    const long long lo = b - 220 * (hi - 1);
    return {static_cast<char>(hi + 33), static_cast<char>(lo + 33), static_cast<char>(n + 33)};
}

}  // namespace

std::filesystem::path EcrireCorpus(const std::filesystem::path& racine, const std::vector<TexteTest>& textes,
                                   const std::set<std::string>& courts, const std::string& liste) {
    const std::string sep = "<---------->\r\n";
    std::string noms;
    for (const auto& t : textes) {
        noms += t.nom + "\r\n";
        std::string etiq = sep, lex = sep, nu = sep, nb;
        bool premiere = true;
        for (const auto& p : t.partitions) {
            if (!premiere) {
                etiq += sep, lex += sep, nu += sep;
                nb += "\r\n";
            }
            premiere = false;
            etiq += p.meta + "\r\n";
            long long curseur = 1, rang = 0;
            std::vector<std::string> ordre;
            std::map<std::string, std::pair<long long, std::string>> index;
            for (const auto& ligne : p.lignes) {
                LigneJetons lj;
                DecouperLigne(ligne, lj, Copie::Exploration);
                std::string e(lj.suite[0]), n;
                for (int i = 1; i <= lj.NbJetons; ++i) {
                    const std::string balise(lj.jeton[static_cast<std::size_t>(i)]);
                    const std::string_view suite = lj.suite[static_cast<std::size_t>(i)];
                    const auto a = LireAttributs(balise);
                    const std::size_t blanc = balise.find(' ');
                    e += balise.substr(0, blanc + 1) + "k=" + std::to_string(curseur) + " " + balise.substr(blanc + 1);
                    e += suite;
                    curseur += static_cast<long long>(a.f.size());
                    n += a.f;
                    if (suite.find(' ') != std::string_view::npos) {
                        ++curseur;
                        n += ' ';
                    }
                    ++rang;
                    if (balise.starts_with("<PC ")) continue;
                    auto& entree = index[balise];
                    if (entree.first == 0) ordre.push_back(balise);
                    ++entree.first;
                    if (!courts.count(a.f)) entree.second += CodeLocal(rang);
                }
                curseur += 2;
                etiq += e + "\r\n";
                nu += n + "\r\n";
            }
            for (const auto& b : ordre) {
                const auto& [compte, positions] = index[b];
                lex += b + "\t" + std::to_string(compte) + "\t" + (positions.empty() ? "!" : positions) + "\r\n";
            }
            nb += std::to_string(rang);
        }
        const auto olbrin = racine / "OLBRIN_TT";
        Ecrire(olbrin / "TEXTE_ETIQ" / (t.nom + ".txt"), etiq);
        Ecrire(olbrin / "LEXINDEX" / (t.nom + ".txt"), lex);
        Ecrire(olbrin / "TEXTE_NU" / (t.nom + ".txt"), nu);
        Ecrire(olbrin / "NB_PARTITIONS" / (t.nom + ".txt"), nb);
    }
    Ecrire(racine / liste, noms);
    return racine / liste;
}

PartitionTest PartitionNumerotee(const std::string& meta, int n, int debut) {
    PartitionTest p{meta, {""}};
    for (int i = debut; i < debut + n; ++i) {
        const std::string f = "m" + std::to_string(i);
        p.lignes[0] += "<M f=" + f + " >" + f + " ";
    }
    return p;
}

}  // namespace telvoris::test
