#include "intake/export_xml.hpp"

#include <vector>

#include "core/fichiers.hpp"
#include "core/horloge.hpp"
#include "core/jetons.hpp"
#include "core/liste_textes.hpp"
#include "core/texte.hpp"

namespace telvoris {

namespace {

// The metadata head cut on "=", with the values that held an "=" joined back: a piece from the
// second on without a blank cannot end in a key, so it is the first part of a value.
std::vector<std::string> PiecesMetadonnees(std::string_view tete) {
    const auto brutes = Decouper(tete, "=");
    std::vector<std::string> pieces(brutes.begin(), brutes.end());
    std::size_t i = 1;
    while (i + 1 < pieces.size()) {
        if (pieces[i].find(' ') != std::string::npos) {
            ++i;
            continue;
        }
        pieces[i] += '=';
        pieces[i] += pieces[i + 1];
        pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(i) + 1);
    }
    return pieces;
}

std::string SoulignesEnBlancs(std::string_view v) {
    std::string r(v);
    for (char& c : r)
        if (c == '_') c = ' ';
    return r;
}

void Deux(EcrivainFichier& a, EcrivainFichier& b, std::string_view ligne) {
    a.Ligne(ligne);
    b.Ligne(ligne);
}

}  // namespace

long long ExporterTexteXml(std::string_view contenu, std::string_view nom, const fs::path& dossierTxm,
                           const fs::path& dossierTei, EtatExportXml& etat) {
    const auto morceaux = Decouper(contenu, "<QORX");
    LigneJetons table;
    std::string attributs, ligneXml;
    // What stands before the first metadata line is dropped.
    for (std::size_t rang = 1; rang < morceaux.size(); ++rang) {
        const std::string_view morceau = morceaux[rang];
        const std::string fichier = Joindre(nom, "_", std::to_string(rang), ".txt");
        EcrivainFichier txm(Chemin(dossierTxm, fichier));
        EcrivainFichier tei(Chemin(dossierTei, fichier));
        long long paragraphe = 0, mot = 0;
        attributs.clear();

        const std::size_t chevron = morceau.find('>');
        const std::string_view tete = morceau.substr(0, chevron);
        const std::string_view corps =
            chevron == std::string_view::npos ? std::string_view() : morceau.substr(chevron + 1);

        const auto pieces = PiecesMetadonnees(tete);
        for (std::size_t p = 0; p + 1 < pieces.size(); ++p) {
            const std::string& gauche = pieces[p];
            const std::size_t blanc = gauche.rfind(' ');
            const std::string_view cle =
                blanc == std::string::npos ? std::string_view(gauche) : std::string_view(gauche).substr(blanc + 1);
            const std::string_view droite = pieces[p + 1];
            const std::string_view valeur = droite.substr(0, droite.find(' '));
            if (cle == "SOURCE") {
                attributs += Joindre("journal=\"", valeur, "\" ");
                // This key alone opens the document.
                Deux(txm, tei, "<?xml version=\"1.0\" encoding=\"iso-8859-1\" ?>");
                Deux(txm, tei,
                     Joindre("<journalIssue journal=\"", valeur,
                             "\" source=\"Atelier_Corpus\" respEd=\"Responsable_Corpus\" dateCreated=\"", etat.date,
                             "\">"));
            } else if (cle == "TITRE") {
                attributs += Joindre("titre=\"", SoulignesEnBlancs(valeur), "\" ");
            } else if (cle == "AUTEUR") {
                if (!valeur.empty()) attributs += Joindre("auteur=\"", SoulignesEnBlancs(valeur), "\" ");
            } else if (cle == "RUBR" || cle == "RUBRIQUE") {
                attributs += Joindre("rubrique=\"", valeur, "\" ");
            } else if (cle == "DATE") {
                attributs += Joindre("date=\"", valeur, "\" ");
            }
        }
        if (!attributs.empty()) attributs.pop_back();
        Deux(txm, tei, Joindre("<article ", attributs, ">"));

        for (std::string_view ligne : Decouper(corps, "\r\n")) {
            if (ligne.ends_with("<BR>")) ligne.remove_suffix(4);
            if (ligne.empty()) continue;
            ++paragraphe;
            const std::string id = Joindre("\t<p id=\"l_", std::to_string(paragraphe), "\">");
            txm.Ligne(id);
            // The flat shape's paragraph head repeats a cell of the token table and a stray ">".
            tei.Ligne(Joindre(id, etat.fragment, ">"));

            DecouperLigne(ligne, table);
            long long numero = 0;
            for (int i = 1; i <= table.NbJetons; ++i) {
                const AttributsJeton a = LireAttributs(table.jeton[static_cast<std::size_t>(i)]);
                if (a.f.empty()) continue;
                ++mot;
                ++numero;
                const std::string k = std::to_string(mot), n = std::to_string(numero);
                // A reading with lemma and category; an ambiguous word ("/") has neither.
                const bool lemme = !a.l.empty() && a.l.find('/') == std::string::npos &&
                                   a.l.find('_') != std::string::npos;
                const std::size_t souligne = a.l.rfind('_');

                txm.Ligne(Joindre("\t\t<w id=\"w_", k, "\" n=\"", n, "\">"));
                txm.Ligne(Joindre("\t\t\t<form>", a.f, "</form>"));
                if (lemme) {
                    txm.Ligne(Joindre("\t\t\t<interp type=\"#lemma\">", std::string_view(a.l).substr(0, souligne),
                                      "</interp>"));
                    txm.Ligne(Joindre("\t\t\t<interp type=\"#pos\">", std::string_view(a.l).substr(souligne + 1),
                                      "</interp>"));
                }
                if (!a.x.empty()) txm.Ligne(Joindre("\t\t\t<interp type=\"#flex\">", a.x, "</interp>"));
                txm.Ligne("\t\t</w>");

                ligneXml = Joindre("\t\t<w id=\"w_", k, "\" w_n=\"", n, "\" form=\"", a.f, "\"");
                if (lemme)
                    ligneXml += Joindre(" lemme=\"", a.l, "\" pos=\"", std::string_view(a.l).substr(souligne + 1), "\"");
                if (!a.x.empty()) ligneXml += Joindre(" flex=\"", a.x, "\"");
                ligneXml += Joindre(" >", table.suite[static_cast<std::size_t>(i)], "</w>");
                tei.Ligne(ligneXml);
            }
            // The token loop leaves its index one past the last token; the next head reads the
            // cell there, which the parser has left empty unless the table holds it.
            const std::size_t indice = static_cast<std::size_t>(table.NbJetons) + 1;
            etat.fragment.assign(indice < table.suite.size() ? table.suite[indice] : std::string_view());

            Deux(txm, tei, "\t</p>");
        }
        Deux(txm, tei, "</article>");
        Deux(txm, tei, "</journalIssue>");
        txm.Fermer();
        tei.Fermer();
    }
    return static_cast<long long>(morceaux.size()) - 1;
}

void ExporterXml(Contexte& ctx) {
    const auto liste = ChoisirListeTextes(ctx.dialogue);
    if (!liste) return;
    const fs::path& racine = liste->doss_racine;
    const fs::path txm = racine / "ARCHIVE_XMLTXM";
    const fs::path tei = racine / "ARCHIVE_XMLTEI";
    CreerDossier(txm);
    CreerDossier(tei);
    EtatExportXml etat;
    etat.date = TexteDate(ctx.horloge.Maintenant());
    std::string contenu;
    const long long n = static_cast<long long>(liste->noms.size());
    for (long long i = 0; i < n; ++i) {
        const std::string& nom = liste->noms[static_cast<std::size_t>(i)];
        ctx.dialogue.Progression(Joindre("Conversion XML : "_cp, nom), i + 1, n);
        LireFichier(Chemin(racine / "OLBRIN_TT", Joindre(nom, ".txt")), contenu);
        ExporterTexteXml(contenu, nom, txm, tei, etat);
    }
    ctx.dialogue.MasquerProgression();
    ctx.dialogue.Afficher("Terminé"_cp);
}

}  // namespace telvoris
