#include "gui/exploration.hpp"

#include "core/erreurs.hpp"
#include "core/texte.hpp"
#include "gui/dialogue_qt.hpp"
#include "gui/fenetres.hpp"

namespace telvoris::gui {

namespace {

struct Onglet {
    const char* nom;
    std::string_view titre;
    QWidget* (*creer)(Exploration&);
};

const Onglet kOnglets[] = {
    {VUE_REQUETE, "Paramètres de la requête"_cp, &CreerVueRequete},
    {VUE_CONCORDANCE, "concordance"_cp, &CreerVueConcordance},
    {VUE_PLEIN_TEXTE, "Plein texte"_cp, &CreerVuePleinTexte},
    {VUE_STAT, "distribution"_cp, &CreerVueDistribution},
    {VUE_DICO, "dictionnaires"_cp, &CreerVueDictionnaire},
    {VUE_AFC, "afc"_cp, &CreerVueCarte},
};

}  // namespace

unsigned CouleurRgb(long long c) {
    const auto v = static_cast<unsigned long long>(c);
    return static_cast<unsigned>(((v & 0xFF) << 16) | (v & 0xFF00) | ((v >> 16) & 0xFF));
}

Exploration::Exploration(ZoneTravail& zone) : QObject(&zone), zone_(zone) { setObjectName(QStringLiteral("exploration")); }

Exploration& Exploration::De(ZoneTravail& zone) {
    if (auto* e = zone.findChild<Exploration*>(QStringLiteral("exploration"), Qt::FindDirectChildrenOnly)) return *e;
    return *new Exploration(zone);
}

void Exploration::Commande(const std::function<void()>& f) {
    if (zone_.App().Occupee()) return;
    try {
        f();
    } catch (const FinProgramme& e) {
        zone_.Dialogue().Afficher(e.what());
        zone_.App().Terminer(3);
    } catch (const ErreurExecution& e) {
        zone_.Dialogue().AfficherErreur(e.what());
    } catch (const std::exception& e) {
        zone_.Dialogue().AfficherErreur(Joindre("Erreur : ", Utf8VersCp1252(e.what())));
    }
}

void Exploration::CorpusValide(std::unique_ptr<EtatCorpus> etat) {
    // The views of the corpus before go with it.
    for (const auto& o : kOnglets)
        if (QWidget* v = zone_.Vue<QWidget>(QLatin1String(o.nom))) zone_.RetirerVue(v);
    etat_ = std::move(etat);
    requete_ = Requete();
    requeteFaite_ = false;
    navigateur_ = std::make_unique<Navigateur>(*etat_);
    dictionnaires_ = std::make_unique<OngletDictionnaire>(etat_->PATH_INDEX);
    panneau = PanneauRequete();
    emit corpusChange();
    Montrer(VUE_REQUETE);
}

QWidget* Exploration::Creer(const char* nom) {
    for (const auto& o : kOnglets)
        if (std::string_view(o.nom) == nom) {
            QWidget* v = o.creer(*this);
            v->setObjectName(QLatin1String(o.nom));
            return zone_.AjouterVue(v, VersQt(o.titre));
        }
    return nullptr;
}

QWidget* Exploration::Montrer(const char* nom) {
    if (!etat_ && std::string_view(nom) != VUE_AFC) {
        zone_.Dialogue().Afficher("Ouvrez d'abord un corpus indexé (&Ouvrir)."_cp);
        return nullptr;
    }
    QWidget* v = zone_.Vue<QWidget>(QLatin1String(nom));
    if (!v) v = Creer(nom);
    else zone_.MontrerVue(v);
    return v;
}

void Exploration::LancerRequetePanneau() {
    if (!etat_ || zone_.App().Occupee()) return;
    const ParametresRequete p = ParametresDuPanneau(panneau);
    auto resultat = std::make_shared<Requete>();
    auto accepte = std::make_shared<bool>(false);
    EtatCorpus* etat = etat_.get();
    zone_.Lancer(
        [etat, p, resultat, accepte](Contexte& ctx) { *accepte = LancerRequete(*etat, p, *resultat, ctx.dialogue); },
        [this, p, resultat, accepte] {
            if (!*accepte) return;
            requete_ = std::move(*resultat);
            requeteFaite_ = true;
            derniers_ = p;
            navigateur_->NouvelleRequete(&requete_);
            navigateur_->texte.clear();
            emit requeteFaite();
            if (requete_.NB_OCC() == 0) return;
            // The view shown last: the concordance, or the distributions when they were asked
            // and there is no concordance.
            if (p.macro && !requete_.contextes) Montrer(VUE_STAT);
            else if (p.macro || p.micro) {
                Montrer(VUE_STAT);
                if (requete_.contextes) Montrer(VUE_CONCORDANCE);
            } else if (requete_.contextes) Montrer(VUE_CONCORDANCE);
        });
}

}  // namespace telvoris::gui
