#include "lexicon/composes.hpp"

#include "core/erreurs.hpp"
#include "core/fichiers.hpp"
#include "core/texte.hpp"
#include "lexicon/arbre.hpp"
#include "lexicon/dictionnaire.hpp"
#include "lexicon/reprise_dico.hpp"

namespace telvoris {

namespace {
constexpr std::size_t kCasiers = (MAX_CLASSE_INITIALE + 1) * (MAX_CLASSE_LONGUEUR + 1);
std::size_t Indice(CleMot cle) {
    return static_cast<std::size_t>(cle.ClasseInitiale) * (MAX_CLASSE_LONGUEUR + 1) +
           static_cast<std::size_t>(cle.ClasseLongueur);
}
}  // namespace

TableComposes::TableComposes() : casiers_(kCasiers) {}

std::string SegmentCompose(std::string_view ligne) {
    const std::size_t virgule = ligne.find(',');
    const std::string_view cle = ligne.substr(0, virgule);
    const std::string_view droite = virgule == std::string_view::npos ? std::string_view{} : ligne.substr(virgule + 1);
    // The validation session writes its readings without a dot ("key,SF:s"): no part stands
    // before a dot, so the lemma is the key, as with an empty part.
    const std::string pointee = droite.find('.') == std::string_view::npos ? Joindre(".", droite) : std::string();
    const Interpretation i = CouperInterpretation(pointee.empty() ? droite : std::string_view(pointee));
    std::string segment(cle);
    segment += '/';
    if (i.lemme_code.empty()) {
        for (char c : cle) segment += c == ' ' ? '_' : c;
    } else {
        segment.append(i.lemme_code);
    }
    segment += '_';
    segment.append(i.categorie);
    segment += '/';
    segment.append(i.flexion);
    return segment;
}

void TableComposes::AjouterLigne(std::string_view ligne, std::string_view source) {
    const std::string_view cle = ligne.substr(0, ligne.find(','));
    const std::string_view premier = cle.substr(0, cle.find(' '));
    const CleMot classe = classe_mot(premier);
    Casier& c = casiers_[Indice(classe)];
    std::uint32_t i;
    if (const auto trouve = c.index.Trouver(c.premiers, premier)) {
        i = *trouve;
    } else {
        if (c.premiers.size() >= MAX_COMPOSES_CASIER)
            LimiteDepassee("MAX_COMPOSES_CASIER", MAX_COMPOSES_CASIER,
                           Joindre("premiers mots dans le casier ("_cp, std::to_string(classe.ClasseLongueur), ", "_cp,
                                   std::to_string(classe.ClasseInitiale), ") des composés, en lisant "_cp, source));
        i = static_cast<std::uint32_t>(c.premiers.size());
        c.premiers.emplace_back(premier);
        c.nombres.push_back(0);
        c.chaines.emplace_back("|");
        c.index.Inserer(c.premiers, i);
        ++premiers_;
    }
    c.chaines[i] += SegmentCompose(ligne);
    c.chaines[i] += '|';
    ++c.nombres[i];
    ++composes_;
}

std::string_view TableComposes::Chercher(std::string_view premierMot) const {
    const Casier& c = casiers_[Indice(classe_mot(premierMot))];
    const auto i = c.index.Trouver(c.premiers, premierMot);
    if (!i) return {};
    return c.chaines[*i];
}

std::size_t TableComposes::Nombre(std::string_view premierMot) const {
    const Casier& c = casiers_[Indice(classe_mot(premierMot))];
    const auto i = c.index.Trouver(c.premiers, premierMot);
    return i ? c.nombres[*i] : 0;
}

void TableComposes::Vider() {
    for (auto& c : casiers_) c = Casier{};
    premiers_ = 0;
    composes_ = 0;
}

void ChargerComposes(TableComposes& table, const std::filesystem::path& racine) {
    ExigerDictionnaireComplet(RepriseComposes(racine));
    table.Vider();
    std::string contenu;
    for (int mots = MAX_MOTS_COMPOSE; mots >= MIN_MOTS_COMPOSE; --mots) {
        for (int c = 1; c <= MAX_CLASSE_INITIALE; ++c) {
            const fs::path fichier = FichierCasier(racine, DOSSIER_COMPOSES_NAMB, mots, c);
            const std::string source = TexteChemin(fichier);
            PourChaqueLigneNonVide(fichier, contenu, [&](std::string_view ligne) {
                // Read whole by now: a last line cut by a full disk is refused before it is used.
                if (ligne.data() + ligne.size() == contenu.data() + contenu.size()) VerifierFinDeFichier(contenu, fichier);
                table.AjouterLigne(ligne, source);
            });
        }
    }
}

}  // namespace telvoris
