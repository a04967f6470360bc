// The distribution tables as text: one row per partition or class, hundreds of thousands of
// rows on a large corpus. A deviation takes few distinct values (it depends on the part's share
// and its count), so each value is formatted once and the rows are appended to one buffer.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace telvoris {

class TexteEcarts {
public:
    // FormaterDouble(Round(z, 2)).
    const std::string& Arrondi(double z);
    // FormaterDouble(z).
    const std::string& Exact(double z);

private:
    std::unordered_map<std::uint64_t, std::string> arrondis_, exacts_;
};

// Appends, for each k from 1 to n, "name TAB count TAB deviation rounded to 2 places CR LF",
// the deviation being that of comptes[k] in a part of share parts[k] for `total` occurrences.
// Vectors run from 1; a missing slot counts as 0.
void AjouterLignesDistribution(std::string& texte, long long n, const std::vector<std::string>& noms,
                               const std::vector<long long>& comptes, const std::vector<double>& parts, long long total,
                               TexteEcarts& ecarts);

// Appends the decimal text of v.
void AjouterEntier(std::string& texte, long long v);

}  // namespace telvoris
