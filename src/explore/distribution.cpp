#include "explore/distribution.hpp"

#include <algorithm>
#include <cmath>

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/nombres.hpp"
#include "core/texte.hpp"
#include "explore/ecarts_texte.hpp"
#include "explore/index_commun.hpp"

namespace telvoris {

namespace {

Histogramme Dessiner(long long n, const std::vector<double>& parts, const std::vector<long long>& comptes,
                     std::vector<std::string> noms, long long total, bool classes, bool tracer) {
    Histogramme h;
    h.nombre = n;
    h.noms = std::move(noms);
    h.ecarts.assign(static_cast<std::size_t>(n) + 1, 0.0);
    h.comptes.assign(static_cast<std::size_t>(n) + 1, 0);
    for (long long p = 1; p <= n; ++p) {
        const auto i = static_cast<std::size_t>(p);
        h.comptes[i] = i < comptes.size() ? comptes[i] : 0;
        h.ecarts[i] = EcartReduit(total, i < parts.size() ? parts[i] : 0.0, h.comptes[i]);
    }
    if (!tracer || n < 1) return h;
    const double large = classes ? 8000.0 : 12000.0, etroit = classes ? 5000.0 : 6000.0;
    h.largeurBarre = static_cast<long long>(Round((n >= 40 ? large : etroit) / static_cast<double>(n)));
    h.largeurImage = h.largeurBarre * n + 500;
    h.vide = false;
    if (!classes && n < 2) return h;
    for (long long p = 1; p <= n; ++p) {
        const auto i = static_cast<std::size_t>(p);
        h.barres.push_back({MARGE_GAUCHE + (p - 1) * h.largeurBarre, h.largeurBarre - 40,
                            -static_cast<long long>(Round(h.ecarts[i] * 100)), h.comptes[i] == 0});
    }
    for (const auto& [texte, z] : {std::pair{"+2", 2}, {"-2", -2}, {"+5", 5}, {"-5", -5}, {"+10", 10}})
        h.guides.push_back({texte, 0, -z * 100LL});
    for (long long k = 5; k <= n; k += 5) h.graduations.push_back({Nombre(k), MARGE_GAUCHE + k * h.largeurBarre, 0});
    h.total = {Joindre(Nombre(total), " occ."), MARGE_GAUCHE + n * h.largeurBarre + 50, 0};
    return h;
}

std::string NomFichier(std::string s) {
    // A label such as "1/2" must not name a sub-folder.
    std::replace(s.begin(), s.end(), '/', '_');
    std::replace(s.begin(), s.end(), '\\', '_');
    return s;
}

}  // namespace

long long Histogramme::BarreEn(double x) const {
    if (vide || largeurBarre <= 0 || x < MARGE_GAUCHE) return 0;
    const long long p = static_cast<long long>(std::floor((x - MARGE_GAUCHE) / static_cast<double>(largeurBarre))) + 1;
    return p >= 1 && p <= nombre ? p : 0;
}

std::string Histogramme::Libelle(long long p) const {
    if (p < 1 || p > nombre) return {};
    const auto i = static_cast<std::size_t>(p);
    return Joindre(noms[i], " : ", Nombre(comptes[i]), " occurrences. ", "Ecart-réduit : "_cp, FormaterDouble(ecarts[i]));
}

Histogramme HistogrammePartitions(const EtatCorpus& etat, const Requete& r) {
    return Dessiner(etat.NB_PARTS, etat.PART_CORPUS, r.OCC_PAR_PART, etat.TITRE_PART, r.NB_OCC(),
                    false, etat.NB_PARTS <= MAX_BARRES);
}

Histogramme HistogrammeClasses(const EtatCorpus& etat, const Requete& r) {
    return Dessiner(etat.NB_CLASSES, etat.PART_CLASSE, r.OCC_PAR_CLASSE, etat.VALEUR_CLASSE,
                    r.NB_OCC(), true, etat.NB_CLASSES >= 1);
}

std::filesystem::path SauverDistribution(const EtatCorpus& etat, const Requete& r, bool classes, const Horloge& horloge) {
    const Histogramme h = classes ? HistogrammeClasses(etat, r) : HistogrammePartitions(etat, r);
    std::string l1, l2 = "brut", l3 = "er";
    TexteEcarts ecarts;
    for (long long p = 1; p <= h.nombre; ++p) {
        const auto i = static_cast<std::size_t>(p);
        l1 += '\t';
        if (classes) l1 += etat.VALEUR_CLASSE[i];
        else AjouterEntier(l1, p);
        l2 += '\t';
        AjouterEntier(l2, h.comptes[i]);
        l3 += '\t';
        l3 += ecarts.Exact(h.ecarts[i]);
    }
    const auto chemin = Chemin(etat.PATH_INDEX / "SAUVEGARDES" / "DISTRIBUTIONS",
                               Joindre(NomFichier(r.LIBELLE), classes ? "_B_" : "_A_", Horodater(horloge), ".txt"));
    EcrireFichier(chemin, Joindre(l1, "\r\n", l2, "\r\n", l3, "\r\n"));
    return chemin;
}

ListeMicro CalculerMicro(EtatCorpus& etat, const Requete& r, bool lemmes) {
    ListeMicro m;
    const double p0 = etat.NB_MOTS > 0 ? static_cast<double>(r.NB_COOC) / static_cast<double>(etat.NB_MOTS) : 0.0;
    std::vector<std::string> creneaux(NB_CRENEAUX);
    std::vector<std::vector<std::string>> cles(NB_CRENEAUX);
    std::vector<std::pair<std::string, std::string>> alpha;
    const auto& table = lemmes ? r.COOC_LEMMES : r.COOC_FORMES;
    for (int L = 1; L <= NB_LONGUEURS; ++L)
        for (int c = 1; c <= NB_LETTRES; ++c)
            for (const auto& e : table[static_cast<std::size_t>(IndiceCasier({c, L}))]) {
                const std::string_view cle = e.cle;
                const auto casier = lemmes ? CalculerCasier(cle.substr(0, cle.rfind('_'))) : CalculerCasier(cle);
                const auto* ligne = etat.Table(lemmes ? DossierIndexe::Lemmes : DossierIndexe::Formes, casier).Trouver(cle);
                const double f = ligne ? static_cast<double>(ligne->compte) : 0.0;
                const double attendu = f * p0;
                const double s = std::sqrt(attendu * (1.0 - p0));
                const double z = s > 0 ? Round((static_cast<double>(e.compte) - attendu) / s, 2) : 0.0;
                if (!(attendu > 2 || e.compte >= 8)) continue;
                const auto creneau =
                    static_cast<std::size_t>(std::clamp<long long>(static_cast<long long>(Round(z * 100)) + 500, 0, NB_CRENEAUX - 1));
                creneaux[creneau] += Joindre(FormaterDouble(z), "\t", Nombre(e.compte), "\t", e.cle, "\r\n");
                cles[creneau].push_back(e.cle);
                std::string a = SansAccent(cle.substr(0, LONGUEUR_ALPHA));
                a.resize(LONGUEUR_ALPHA + 1, ' ');
                alpha.emplace_back(Joindre(a, Nombre(e.compte), "\t", FormaterDouble(z), "\r\n"), e.cle);
            }
    for (std::size_t i = NB_CRENEAUX; i-- > 0;) {
        m.numerique += creneaux[i];
        for (auto& k : cles[i]) m.retenus.push_back(std::move(k));
    }
    // Insertion order among equals, as the list was built.
    std::stable_sort(alpha.begin(), alpha.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    for (auto& [ligne, cle] : alpha) {
        m.alphabetique += ligne;
        m.clesAlpha.push_back(std::move(cle));
    }
    return m;
}

std::string ListeMicro::CleDeLigne(std::size_t n) const {
    const auto& cles = triAlpha ? clesAlpha : retenus;
    return n < cles.size() ? cles[n] : std::string();
}

const EntreeCooc* TrouverCooccurrent(const Requete& r, const std::string& cle, bool lemmes) {
    const Casier casier = CalculerCasier(cle);
    for (const auto& e : (lemmes ? r.COOC_LEMMES : r.COOC_FORMES)[static_cast<std::size_t>(IndiceCasier(casier))])
        if (e.cle == cle) return &e;
    return nullptr;
}

std::vector<std::filesystem::path> EcrireFichiersMicro(const EtatCorpus& etat, const ListeMicro& formes, const ListeMicro& lemmes,
                                                       const std::filesystem::path& dossierResultat) {
    std::string marques;
    for (const auto* m : {&formes, &lemmes})
        for (const auto& k : m->retenus) marques += Joindre(k, "\r\n");
    const auto fichierMarques = etat.PATH_INDEX / "SAUVEGARDES" / "marque_afc_datata.txt";
    EcrireFichier(fichierMarques, marques);
    const auto fichierResultat = dossierResultat / "resultat.txt";
    EcrireFichier(fichierResultat, Joindre(formes.numerique, lemmes.numerique));
    return {fichierMarques, fichierResultat};
}

}  // namespace telvoris
