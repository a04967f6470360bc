// The review sessions driven through the dialogue: each case is shown as a result text (the case
// line, the reading labels, the numbered occurrences in their contexts) and one prompt takes the
// choice. Any front end that renders prompts, the terminal with its --reponse answers included,
// runs a whole session this way.
#include <cctype>
#include <charconv>

#include "core/erreurs.hpp"
#include "core/texte.hpp"
#include "pipeline/levee.hpp"

namespace telvoris {

namespace {

std::string Nombre(std::size_t n, std::size_t largeur) {
    std::string s = std::to_string(n);
    if (s.size() < largeur) s.insert(0, largeur - s.size(), ' ');
    return s;
}

std::string RenduCas(const SessionLevee& s) {
    std::string r = s.LigneCas();
    r += "\r\n";
    for (int j = 1; j <= s.NbLectures(); ++j) {
        const LibelleLecture& l = s.Libelles()[static_cast<std::size_t>(j - 1)];
        r += Joindre("  [", std::to_string(j), "] ", l.lemme, l.flexion, "\r\n");
    }
    r += Joindre("  (T) ", s.LibelleTri(), "\r\n");
    const std::size_t largeur = std::to_string(s.NbOccurrences()).size();
    for (std::size_t i = 0; i < s.NbOccurrences(); ++i) {
        const OccurrenceLevee& o = s.Occurrence(i);
        std::string forme(ValeurAttribut(o.jeton, "f"));
        if (o.jeton == "<M >") forme = "<M >";
        r += Joindre(Nombre(i + 1, largeur), " (", o.coche ? std::string(1, static_cast<char>('0' + o.coche)) : ".",
                     ") ", o.gauche, "[", forme, "]", o.droite, "\r\n");
    }
    return r;
}

const std::string_view kConsigne =
    "Votre choix : un chiffre par occurrence dans l'ordre affiché (0 = aucune lecture) puis validation ; "
    "C<n> coche ou décoche la colonne n ; <a>-<b>:<n> coche la lecture n des lignes a à b ; "
    "T change le tri ; R pour REVISER ; V valide les coches et passe au cas suivant ; I (ou une réponse vide) pour "
    "INTERROMPRE."_cp;

const std::string_view kQuestionArret =
    "Voulez-vous vraiment (O/N) interrompre cette session après avoir sauvegardé vos données ?"_cp;

std::string Nettoyer(std::string_view t) {
    std::size_t a = 0, b = t.size();
    while (a < b && (t[a] == ' ' || t[a] == '\t')) ++a;
    while (b > a && (t[b - 1] == ' ' || t[b - 1] == '\t')) --b;
    std::string r(t.substr(a, b - a));
    for (char& c : r)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    return r;
}

bool QueDesChiffres(std::string_view t) {
    if (t.empty()) return false;
    for (char c : t)
        if (c < '0' || c > '9') return false;
    return true;
}

bool LireEntier(std::string_view t, std::size_t& n) {
    if (t.empty()) return false;
    const auto r = std::from_chars(t.data(), t.data() + t.size(), n);
    return r.ec == std::errc() && r.ptr == t.data() + t.size();
}

// Walks the cases until the last one is done or the person stops.
void Derouler(SessionLevee& s, Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    while (!s.Terminee()) {
        d.Resultat(RenduCas(s));
        // The default, like an empty answer, stops the session (after the question), so that a
        // script whose answers run out never settles cases by itself; Cancel is the window
        // closed: save and leave.
        const auto brute = d.Demander(kConsigne, s.LibelleBouton(), "I");
        if (!brute) {
            // The compound session asks before it closes; with nobody left to answer, it saves.
            if (s.Etiquette() == EtiquetteSession::levcon_comp) {
                const auto r = d.Demander(kQuestionArret, "INTERROMPRE ?", "O");
                if (r && Nettoyer(*r) != "O") continue;
            }
            s.Sauver();
            return;
        }
        const std::string reponse = Nettoyer(*brute);
        if (reponse == "V") {
            s.CasSuivant();
        } else if (QueDesChiffres(reponse)) {
            for (std::size_t i = 0; i < reponse.size() && i < s.NbOccurrences(); ++i) s.Cocher(i, reponse[i] - '0');
            s.CasSuivant();
        } else if (reponse == "T") {
            s.ChangerTri();
        } else if (reponse == "R") {
            if (s.Reviser()) {
                d.Demander("Cliquez sur 'CAS PRECEDENT' ci-dessus", "POUR REVISER LE CAS PRECEDENT", std::string(70, '*'));
                s.CasSuivant();
            } else {
                d.Afficher("Aucun cas à réviser."_cp);
            }
        } else if (reponse.empty() || reponse == "I") {
            const auto r = d.Demander(kQuestionArret, "INTERROMPRE ?", "O");
            if (r && Nettoyer(*r) == "O") {
                s.Sauver();
                return;
            }
        } else if (std::size_t n = 0; reponse[0] == 'C' && LireEntier(std::string_view(reponse).substr(1), n) &&
                                      n >= 1 && n <= static_cast<std::size_t>(s.NbLectures())) {
            s.CocherColonne(static_cast<int>(n));
        } else {
            // "a-b:n"
            const std::size_t tiret = reponse.find('-'), deux = reponse.find(':');
            std::size_t a = 0, b = 0, lecture = 0;
            if (tiret != std::string::npos && deux != std::string::npos && tiret < deux &&
                LireEntier(std::string_view(reponse).substr(0, tiret), a) &&
                LireEntier(std::string_view(reponse).substr(tiret + 1, deux - tiret - 1), b) &&
                LireEntier(std::string_view(reponse).substr(deux + 1), lecture) && a >= 1 && b >= 1 && lecture >= 1 &&
                lecture <= static_cast<std::size_t>(s.NbLectures()) && std::max(a, b) - std::min(a, b) < MAX_LIGNES_PLAGE) {
                s.CocherPlage(a - 1, b - 1, static_cast<int>(lecture));
            } else if (a >= 1 && b >= 1 && std::max(a, b) - std::min(a, b) >= MAX_LIGNES_PLAGE) {
                d.Afficher(Joindre("Une plage compte au plus "_cp, std::to_string(MAX_LIGNES_PLAGE), " lignes."));
            } else {
                d.Afficher(Joindre("Réponse non comprise : "_cp, reponse));
            }
        }
    }
    d.Afficher("Opération terminée"_cp);
}

}  // namespace

void OperationLeveeSimples(Contexte& ctx) {
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    SessionLevee s = SessionLevee::OuvrirSimples(*liste, ctx.horloge, ctx.dialogue);
    if (!s.Terminee()) {
        const std::string mode = Nettoyer(
            ctx.dialogue
                .Demander("Mode de travail : O pour prendre les cas dans l'ordre, L pour choisir les cas par lemmes.",
                          "VALIDE", "O")
                .value_or("O"));
        if (mode == "L") {
            s.ChoisirParLemmes();
            const auto lemmes = s.LemmesAffiches();
            std::string liste_lemmes;
            for (std::size_t i = 0; i < lemmes.size(); ++i)
                liste_lemmes += Joindre(Nombre(i + 1, std::to_string(lemmes.size()).size()), " ", lemmes[i], "\r\n");
            ctx.dialogue.Resultat(liste_lemmes);
            const std::string choix = ctx.dialogue
                                          .Demander("Numéros des lemmes choisis, séparés par des blancs :"_cp,
                                                    "VALIDER VOTRE SELECTION", "")
                                          .value_or("");
            std::vector<std::size_t> choisis;
            for (std::string_view m : Decouper(choix, " ")) {
                std::size_t n = 0;
                if (LireEntier(m, n) && n >= 1 && n <= lemmes.size()) choisis.push_back(n - 1);
            }
            s.ValiderLemmes(choisis);
        } else {
            s.TravaillerDansLOrdre();
        }
    }
    Derouler(s, ctx);
}

void OperationLeveeComposes(Contexte& ctx) {
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    SessionLevee s = SessionLevee::OuvrirComposes(*liste, ctx.horloge, ctx.dialogue);
    Derouler(s, ctx);
}

}  // namespace telvoris
