#include "explore/mots_courts.hpp"

#include <algorithm>
#include <charconv>
#include <memory>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"

namespace telvoris {

namespace {

void AjouterVarint(std::string& s, unsigned long long v) {
    while (v >= 0x80) {
        s.push_back(static_cast<char>((v & 0x7F) | 0x80));
        v >>= 7;
    }
    s.push_back(static_cast<char>(v));
}

unsigned long long LireVarint(std::string_view s, std::size_t& i) {
    unsigned long long v = 0;
    for (int decalage = 0; i < s.size(); decalage += 7) {
        const auto octet = static_cast<unsigned char>(s[i++]);
        v |= static_cast<unsigned long long>(octet & 0x7F) << decalage;
        if (!(octet & 0x80)) break;
    }
    return v;
}

void AjouterNombre(std::string& s, long long v) {
    char tampon[24];
    s.append(tampon, std::to_chars(tampon, tampon + sizeof tampon, v).ptr);
}

std::string ListeFormes(const std::vector<std::string>& formes) {
    std::string liste;
    for (const auto& f : formes) liste += Joindre(liste.empty() ? "" : ", ", "« "_cp, f, " »"_cp);
    return Joindre(formes.size() > 1 ? "Les occurrences des formes "_cp : "Les occurrences de la forme "_cp, liste);
}

// Parses "p:c p:c ..." into rising (partition, count) pairs.
bool LirePaires(std::string_view colonne, ComptesSansPositions& c) {
    c.parties.clear();
    long long total = 0, precedente = 0;
    const char* p = colonne.data();
    const char* const fin = p + colonne.size();
    while (p < fin) {
        long long partition = 0, compte = 0;
        auto r = std::from_chars(p, fin, partition);
        if (r.ec != std::errc() || r.ptr == fin || *r.ptr != ':' || partition <= precedente) return false;
        r = std::from_chars(r.ptr + 1, fin, compte);
        if (r.ec != std::errc() || compte < 1) return false;
        p = r.ptr;
        if (p < fin) {
            if (*p != ' ') return false;
            ++p;
        }
        c.parties.emplace_back(partition, compte);
        total += compte;
        precedente = partition;
    }
    return total == c.total;
}

}  // namespace

void RelevesCourts::Ajouter(std::uint32_t balise, long long partition, long long compte) {
    if (compte < 1) return;  // a line that counts nothing adds no pair
    Releve& r = releves_[balise];
    r.total += compte;
    if (r.partition == partition) {
        r.compte += compte;
        return;
    }
    if (r.partition > 0) {
        AjouterVarint(r.octets, static_cast<unsigned long long>(r.partition - r.precedente));
        AjouterVarint(r.octets, static_cast<unsigned long long>(r.compte));
        r.precedente = r.partition;
    }
    r.partition = partition;
    r.compte = compte;
}

bool RelevesCourts::Colonne(std::uint32_t balise, long long& total, std::string& colonne) const {
    const auto it = releves_.find(balise);
    if (it == releves_.end()) return false;
    const Releve& r = it->second;
    total = r.total;
    colonne.clear();
    long long partition = 0;
    auto paire = [&](long long p, long long c) {
        if (!colonne.empty()) colonne += ' ';
        AjouterNombre(colonne, p);
        colonne += ':';
        AjouterNombre(colonne, c);
    };
    for (std::size_t i = 0; i < r.octets.size();) {
        partition += static_cast<long long>(LireVarint(r.octets, i));
        paire(partition, static_cast<long long>(LireVarint(r.octets, i)));
    }
    paire(r.partition, r.compte);
    return true;
}

bool IndexCompteMotsCourts(const std::filesystem::path& index) { return DossierExiste(index / kDossierCourts); }

namespace {

// The files of LEXINDEX_COURTS read for one query, each once.
class LecteurCourts {
public:
    explicit LecteurCourts(const std::filesystem::path& index) : index_(index) {}

    bool Lire(Casier casier, std::string_view balise, ComptesSansPositions& comptes) {
        if (casier.lettre < 1 || casier.longueur < 1) return false;
        const auto fichier = index_ / kDossierCourts / NomFichierCasier(casier);
        auto& table = tables_[IndiceCasier(casier)];
        if (!table) table = FichierExiste(fichier) ? LireTableIndex(fichier) : std::make_unique<TableIndex>();
        const auto* ligne = table->Trouver(balise);
        if (!ligne) return false;
        comptes.total = ligne->compte;
        if (!LirePaires(ligne->colonne, comptes))
            throw ErreurExecution(Joindre("Comptes illisibles dans "_cp, TexteChemin(fichier), " pour "_cp, balise,
                                          " : on attend des paires partition:nombre, séparées par un blanc, dont les "
                                          "nombres font le total."_cp));
        return true;
    }

private:
    std::filesystem::path index_;
    std::unordered_map<int, std::unique_ptr<TableIndex>> tables_;
};

}  // namespace

bool LireComptesSansPositions(const std::filesystem::path& index, Casier casier, std::string_view balise,
                              ComptesSansPositions& comptes) {
    return LecteurCourts(index).Lire(casier, balise, comptes);
}

bool CompterSansPositions(const EtatCorpus& etat, const std::vector<const TableIndex::Ligne*>& lignes, Requete& r,
                          Dialogue& dialogue) {
    if (r.LONG_SEQ != 1 || r.TAGS.empty() || lignes.size() != r.TAGS.size() || !IndexCompteMotsCourts(etat.PATH_INDEX))
        return false;
    std::vector<ComptesSansPositions> comptes(r.TAGS.size());
    LecteurCourts lecteur(etat.PATH_INDEX);
    for (std::size_t t = 0; t < r.TAGS.size(); ++t) {
        // The bucket of the tag's LEXINDEX line: its folded form, else its form as written.
        const std::string f = LireAttributs(r.TAGS[t]).f;
        const std::string pliee = Minusculiser(f);
        const bool trouve = lecteur.Lire(CalculerCasier(pliee), r.TAGS[t], comptes[t]) ||
                            (pliee != f && lecteur.Lire(CalculerCasier(f), r.TAGS[t], comptes[t]));
        // A tag with positions in some partitions takes the road of positions.
        if (!trouve || !lignes[t] || lignes[t]->compte != comptes[t].total) return false;
    }
    std::vector<std::string> formes;
    for (std::size_t t = 0; t < r.TAGS.size(); ++t) {
        for (const auto& [p, c] : comptes[t].parties) {
            r.NB_OCC_SANS_POSITION += c;
            const auto i = static_cast<std::size_t>(p);
            if (i < r.OCC_PAR_PART.size()) r.OCC_PAR_PART[i] += c;
            if (i < etat.CLASSE_PART.size() && etat.CLASSE_PART[i] > 0)
                r.OCC_PAR_CLASSE[static_cast<std::size_t>(etat.CLASSE_PART[i])] += c;
        }
        const std::string f = LireAttributs(r.TAGS[t]).f;
        r.rapport += Joindre(f, "\t", Nombre(comptes[t].total), "\r\n");
        if (std::find(formes.begin(), formes.end(), f) == formes.end()) formes.push_back(f);
    }
    r.contextes = false;
    dialogue.Afficher(Joindre(ListeFormes(formes),
                              " sont comptées et distribuées, mais la concordance et la micro-distribution ne peuvent "
                              "être montrées : l'index ne garde pas les positions des mots courts et fréquents."_cp));
    return true;
}

std::string MessagePositionsAbsentes(const EtatCorpus& etat, const std::vector<std::string>& formes) {
    if (!IndexCompteMotsCourts(etat.PATH_INDEX)) return MessageNonIndexees(formes);
    return Joindre(ListeFormes(formes),
                   " ne sont ni comptées ni montrées ici : l'index ne garde pas les positions des mots courts et "
                   "fréquents, qui ne sont comptés et distribués que par une requête qui ne porte que sur eux."_cp);
}

}  // namespace telvoris
