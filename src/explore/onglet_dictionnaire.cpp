#include "explore/onglet_dictionnaire.hpp"

#include <algorithm>

#include "core/fichiers.hpp"
#include "core/jetons.hpp"
#include "core/texte.hpp"

namespace telvoris {

std::string FichierLabel(int label, bool lemmes) {
    const std::string_view genre = lemmes ? "_LEMMES.txt" : "_FORMES.txt";
    if (label <= 0) return Joindre("FREQUENTIEL", genre);
    const char lettre = label >= 23 ? 'W' : static_cast<char>('A' + label - 1);
    return Joindre(std::string(1, lettre), genre);
}

OngletDictionnaire::OngletDictionnaire(const std::filesystem::path& index) : dossier_(index / "DICTIONNAIRES") {
    for (bool l : {false, true}) {
        VueDictionnaire& v = Vue(l);
        v.lemmes = l;
        v.disponible[0] = true;
        v.disponible[23] = true;
        for (int label = 1; label <= 22; ++label) {
            const auto f = dossier_ / FichierLabel(label, l);
            v.disponible[static_cast<std::size_t>(label)] = FichierExiste(f) && std::filesystem::file_size(f) > 0;
        }
        const auto f = dossier_ / FichierLabel(0, l);
        v.texte = FichierExiste(f) ? LireFichier(f) : std::string();
    }
}

bool OngletDictionnaire::Choisir(bool lemmes, int label) {
    VueDictionnaire& v = Vue(lemmes);
    if (label < 0 || label >= NB_LABELS_DICO || !v.disponible[static_cast<std::size_t>(label)]) return false;
    const auto f = dossier_ / FichierLabel(label, lemmes);
    v.texte = FichierExiste(f) ? LireFichier(f) : std::string();
    v.marque = label;
    v.curseur = 0;
    return true;
}

bool OngletDictionnaire::Chercher(bool lemmes, std::string_view saisie) {
    VueDictionnaire& v = Vue(lemmes);
    if (v.marque < 1 || saisie.empty()) return false;
    const std::size_t trouve = v.texte.find(Joindre("\t", Minusculiser(saisie)));
    if (trouve == std::string::npos) return false;
    v.curseur = static_cast<long long>(trouve);
    return true;
}

std::string OngletDictionnaire::MotEn(bool lemmes, std::size_t place) const {
    const std::string_view t = Vue(lemmes).texte;
    place = std::min(place, t.size());
    const std::size_t saut = t.substr(0, place).rfind('\n');
    const std::size_t debut = saut == std::string_view::npos ? 0 : saut + 1;
    std::size_t fin = t.find('\n', place);
    if (fin == std::string_view::npos) fin = t.size();
    std::string_view ligne = t.substr(debut, fin - debut);
    if (ligne.ends_with('\r')) ligne.remove_suffix(1);
    const std::size_t tab = ligne.find('\t');
    if (tab == std::string_view::npos) return {};
    return std::string(ligne.substr(tab + 1));
}

void OngletDictionnaire::Cliquer(bool lemmes, std::size_t place, ListesMots& listes) const {
    const std::string mot = MotEn(lemmes, place);
    if (!mot.empty()) AjouterSansRepeter(lemmes ? listes.LISTE_LEMMES : listes.LISTE_FORMES, mot);
}

std::optional<EnvoiRequete> OngletDictionnaire::DoubleCliquer(bool lemmes, std::size_t place, ListesMots& listes) const {
    std::string mot = MotEn(lemmes, place);
    if (mot.empty()) return std::nullopt;
    (lemmes ? listes.LISTE_LEMMES : listes.LISTE_FORMES) = Joindre(mot, "\r\n");
    return EnvoiRequete{lemmes, std::move(mot)};
}

std::string& ListeEditee(ListesMots& listes, int indexLabel12) {
    return indexLabel12 == 0 ? listes.LISTE_FORMES : listes.LISTE_LEMMES;
}

}  // namespace telvoris
