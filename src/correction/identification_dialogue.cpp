// The identification session driven through the dialogue: each item is shown as a result text
// (progress, word, count, concordance, the main choices) and prompts take the choice and the
// fields of the form it opens. The terminal, with its --reponse answers, runs a session this way.
#include <charconv>

#include "core/liste_textes.hpp"
#include "core/texte.hpp"
#include "correction/identification.hpp"

namespace telvoris {

namespace {

std::string Nettoyer(std::string_view t) {
    std::size_t a = 0, b = t.size();
    while (a < b && (t[a] == ' ' || t[a] == '\t')) ++a;
    while (b > a && (t[b - 1] == ' ' || t[b - 1] == '\t')) --b;
    return std::string(t.substr(a, b - a));
}

std::optional<int> Entier(std::string_view t) {
    int v = 0;
    const auto r = std::from_chars(t.data(), t.data() + t.size(), v);
    if (t.empty() || r.ec != std::errc() || r.ptr != t.data() + t.size()) return std::nullopt;
    return v;
}

std::string Majuscules(std::string t) {
    for (char& c : t)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 32);
    return t;
}

std::string RenduCas(const SessionIdentification& s) {
    const CasInconnu& c = s.CasCourant();
    std::string r = Joindre(s.LigneProgression(), "\r\n", c.mot, "\r\n", s.LigneEffectif(), "\r\n");
    r += c.concordance;
    if (!c.concordance.empty() && c.concordance.back() != '\n') r += "\r\n";
    const auto& choix = SessionIdentification::ChoixPrincipaux();
    for (std::size_t i = 0; i < choix.size(); ++i) {
        r += Joindre("  [", std::to_string(i), "] ", choix[i]);
        if (i == 4) r += c.mot;
        r += "\r\n";
    }
    r += "  [R<n>] REVISER LE CAS PRECEDENT (1 à 10 cas en arrière)\r\n"_cp;
    r += "  [C texte] [P texte] noter un candidat composé ou nom propre\r\n"_cp;
    r += "  [Q] quitter\r\n";
    return r;
}

const std::string_view kConsigne = "Votre choix (0 à 6, R<n>, C ..., P ..., Q) :"_cp;

// The entry form; false when it was cancelled.
bool FormulaireEntree(SessionIdentification& s, Dialogue& d) {
    const std::string titre(s.TitreEntree());
    const auto forme = d.Demander("Forme de l'entrée :"_cp, titre, s.FormeEntree());
    if (!forme || forme->empty()) return false;
    std::string liste;
    for (const auto& [code, libelle] : SessionIdentification::Categories()) liste += Joindre(code, " : ", libelle, "\r\n");
    d.Resultat(liste);
    std::string categorie;
    while (true) {
        const auto r = d.Demander("Catégorie (code) :"_cp, titre, "SM");
        if (!r) return false;
        categorie = Majuscules(Nettoyer(*r));
        bool connu = false;
        for (const auto& [code, libelle] : SessionIdentification::Categories()) connu = connu || code == categorie;
        if (connu) break;
        d.Afficher(Joindre("Catégorie inconnue : "_cp, *r));
    }
    int flexion = 0;
    const auto choix = s.ChoixFlexion(categorie);
    if (!choix.empty()) {
        std::string panneau;
        for (const std::string& c : choix) panneau += Joindre(c, "\r\n");
        d.Resultat(panneau);
        while (true) {
            const auto r = d.Demander("Code flexionnel (0 pour la flexion manuelle) :"_cp, titre, "0");
            if (!r) return false;
            const auto n = Entier(Nettoyer(*r));
            if (n && *n >= 0 && *n < static_cast<int>(choix.size())) {
                flexion = *n;
                break;
            }
            d.Afficher(Joindre("Choix hors de la liste : "_cp, *r));
        }
    }
    bool infinitifParticipe = false;
    if (categorie == "V") {
        const auto r = d.Demander("infinitif+participe (O/N) ?"_cp, titre, "N");
        if (!r) return false;
        infinitifParticipe = Majuscules(Nettoyer(*r)) == "O";
    }
    const auto ok = d.Demander("Enregistrer (O) ou annuler (N) ?"_cp, titre, "O");
    if (!ok || Majuscules(Nettoyer(*ok)) != "O") return false;
    s.ValiderEntree(Nettoyer(*forme), categorie, flexion, infinitifParticipe);
    return true;
}

// The correction form; false when it was cancelled.
bool FormulaireCorrection(SessionIdentification& s, Dialogue& d) {
    d.Resultat("[2] MOT POUR MOT : correction, cas suivant\r\n[3] CORRIGEZ DANS LE CHAMP : noter une paire et "
               "rester\r\n[4] noter une paire et passer au cas suivant\r\n[A] annuler"_cp);
    while (s.EcranCourant() == SessionIdentification::Ecran::Correction) {
        const auto r = d.Demander("Choix de correction (2, 3, 4 ou A) :"_cp, "CORRIGER", "A");
        if (!r) return false;
        const std::string c = Majuscules(Nettoyer(*r));
        if (c == "A") return false;
        const auto n = Entier(c);
        if (!n || *n < 2 || *n > 4) {
            d.Afficher(Joindre("Choix inconnu : "_cp, *r));
            continue;
        }
        const auto texte = d.Demander("Texte de la correction :"_cp, "CORRIGER", s.TexteCorrection());
        if (!texte) return false;
        s.Corriger(*n, Nettoyer(*texte));
    }
    return true;
}

bool ListeLangues(SessionIdentification& s, Dialogue& d) {
    std::string liste;
    const auto& langues = SessionIdentification::Langues();
    for (std::size_t i = 0; i < langues.size(); ++i) liste += Joindre(std::to_string(i), " : ", langues[i].first, "\r\n");
    d.Resultat(liste);
    while (true) {
        const auto r = d.Demander("Langue (numéro, A pour annuler) :"_cp, "LANGUE", "A");
        if (!r || Majuscules(Nettoyer(*r)) == "A") return false;
        const auto n = Entier(Nettoyer(*r));
        if (n && *n >= 0 && *n < static_cast<int>(langues.size())) {
            s.ChoisirLangue(*n);
            return true;
        }
        d.Afficher(Joindre("Langue inconnue : "_cp, *r));
    }
}

}  // namespace

void OperationIdentificationInconnus(Contexte& ctx) {
    Dialogue& d = ctx.dialogue;
    const auto famille = d.Demander("Avec (NP) ou sans (FC) une majuscule initiale ?"_cp, "", "FC");
    if (!famille) return;
    const auto liste = ChoisirListeTextes(d);
    if (!liste) return;
    SessionIdentification s = SessionIdentification::Ouvrir(liste->doss_racine, *famille, ctx.ressources, d);
    if (s.Terminee()) {
        d.Afficher("Aucun cas à examiner."_cp);
        return;
    }
    while (!s.Terminee()) {
        d.Resultat(RenduCas(s));
        const auto r = d.Demander(kConsigne, "IDENTIFICATION", "Q");
        const std::string choix = r ? Nettoyer(*r) : std::string("Q");
        const std::string code = Majuscules(choix.substr(0, 1));
        if (code == "Q") {
            const auto ok = d.Demander("Voulez-vous vraiment quitter (0/N) ?"_cp, "", "O");
            if (ok && Majuscules(Nettoyer(*ok)) == "O") s.Quitter();
            else if (!r) s.Quitter();  // cancelled twice: nothing more can be asked
            continue;
        }
        if ((code == "C" || code == "P") && choix.size() > 1) {
            s.NoterCandidat(code == "C", Nettoyer(std::string_view(choix).substr(1)));
            continue;
        }
        if (code == "R") {
            const auto n = Entier(Nettoyer(std::string_view(choix).substr(1)));
            if (!n || *n < 1 || *n > MAX_RETOUR) {
                d.Afficher("Réviser : de 1 à 10 cas en arrière (R1 à R10)."_cp);
                continue;
            }
            s.OuvrirRetour();
            s.Revenir(*n);
            continue;
        }
        const auto n = Entier(choix);
        if (!n || *n < 0 || *n > 6) {
            d.Afficher(Joindre("Choix inconnu : "_cp, choix));
            continue;
        }
        s.Choisir(*n);
        bool fait = true;
        switch (s.EcranCourant()) {
            case SessionIdentification::Ecran::Entree: fait = FormulaireEntree(s, d); break;
            case SessionIdentification::Ecran::Correction: fait = FormulaireCorrection(s, d); break;
            case SessionIdentification::Ecran::Langue: fait = ListeLangues(s, d); break;
            default: break;
        }
        if (!fait) s.Annuler();
    }
    d.Afficher("Session terminée : décisions sauvegardées."_cp);
}

}  // namespace telvoris
