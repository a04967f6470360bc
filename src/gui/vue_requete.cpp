// The query panel CF_parametres: the four entry fields and their options, the case, the wanted
// results, the span and the sentence limit, and " ---VALIDER---".
#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "core/texte.hpp"
#include "gui/dialogue_qt.hpp"
#include "gui/exploration.hpp"
#include "gui/fenetres.hpp"

namespace telvoris::gui {

namespace {

class VueRequete : public QWidget {
public:
    explicit VueRequete(Exploration& e) : e_(e) {
        auto* l = new QVBoxLayout(this);
        auto* entrees = new QGroupBox(VersQt("Paramètres de la requête"_cp), this);
        auto* g = new QGridLayout(entrees);
        options_ = new QButtonGroup(this);
        const std::string_view legendes[] = {"Graphie unique ou séquence"_cp, "Liste de formes à rechercher"_cp,
                                             "Lemme unique ou expression régulière"_cp, "Liste de lemmes à rechercher"_cp};
        simple_ = new QLineEdit(this);
        multiple_ = new QPlainTextEdit(this);
        lemme_ = new QLineEdit(this);
        lemlist_ = new QPlainTextEdit(this);
        simple_->setObjectName(QStringLiteral("CFP_simple"));
        multiple_->setObjectName(QStringLiteral("CFP_multiple"));
        lemme_->setObjectName(QStringLiteral("CFP_lemme"));
        lemlist_->setObjectName(QStringLiteral("CFP_lemlist"));
        QWidget* champs[] = {simple_, multiple_, lemme_, lemlist_};
        for (int i = 0; i < 4; ++i) {
            auto* r = new QRadioButton(VersQt(legendes[i]), this);
            r->setObjectName(QStringLiteral("CFP_OPTX_%1").arg(i));
            options_->addButton(r, i);
            g->addWidget(r, i, 0);
            g->addWidget(champs[i], i, 1);
        }
        multiple_->setMaximumHeight(90);
        lemlist_->setMaximumHeight(90);
        l->addWidget(entrees);

        auto* ligne = new QHBoxLayout;
        auto* casse = new QGroupBox(QStringLiteral("Tenir compte de la casse ?"), this);
        casse->setObjectName(QStringLiteral("CFP_MAJOPT"));
        auto* lc = new QHBoxLayout(casse);
        non_ = new QRadioButton(QStringLiteral("non"), casse);
        oui_ = new QRadioButton(QStringLiteral("oui"), casse);
        oui_->setObjectName(QStringLiteral("CFP_MAJOPT_oui"));
        lc->addWidget(non_);
        lc->addWidget(oui_);
        ligne->addWidget(casse);
        auto* resultats = new QGroupBox(VersQt("Résultats"_cp), this);
        auto* lr = new QHBoxLayout(resultats);
        const char* cb[] = {"concordance", "macro-distribution", "micro-distribution"};
        for (int i = 0; i < 3; ++i) {
            cb_[i] = new QCheckBox(QLatin1String(cb[i]), resultats);
            cb_[i]->setObjectName(QStringLiteral("CFP_CB_%1").arg(i));
            lr->addWidget(cb_[i]);
        }
        ligne->addWidget(resultats);
        l->addLayout(ligne);

        auto* empan = new QGroupBox(this);
        auto* le = new QHBoxLayout(empan);
        empex_ = new QCheckBox(QStringLiteral("limité à un empan en nombre de mots"), empan);
        empex_->setObjectName(QStringLiteral("CFP_empex"));
        longueur_ = new QLineEdit(empan);
        longueur_->setObjectName(QStringLiteral("CFPE_long"));
        longueur_->setMaximumWidth(50);
        le->addWidget(empex_);
        le->addWidget(new QLabel(QStringLiteral("nombre de mots"), empan));
        le->addWidget(longueur_);
        cotes_ = new QButtonGroup(this);
        const char* cotes[] = {"des deux côtés", "gauche seulement", "droiteseulement"};
        for (int i = 0; i < 3; ++i) {
            auto* r = new QRadioButton(QString::fromUtf8(cotes[i]), empan);
            r->setObjectName(QStringLiteral("CFPE_option_%1").arg(i));
            cotes_->addButton(r, i);
            le->addWidget(r);
        }
        phrase_ = new QRadioButton(QStringLiteral("limité à la phrase"), empan);
        phrase_->setObjectName(QStringLiteral("CFPP_option_0"));
        nonPhrase_ = new QRadioButton(QStringLiteral("non limité à la phrase"), empan);
        auto* groupePhrase = new QButtonGroup(this);
        groupePhrase->addButton(phrase_);
        groupePhrase->addButton(nonPhrase_);
        le->addWidget(phrase_);
        le->addWidget(nonPhrase_);
        l->addWidget(empan);

        auto* valider = new QPushButton(QStringLiteral(" ---VALIDER---"), this);
        valider->setObjectName(QStringLiteral("CFP_valide"));
        l->addWidget(valider);
        l->addStretch();

        connect(valider, &QPushButton::clicked, this, [this] { Valider(); });
        connect(simple_, &QLineEdit::returnPressed, this, [this] { Valider(); });
        connect(lemme_, &QLineEdit::returnPressed, this, [this] { Valider(); });
        connect(longueur_, &QLineEdit::textEdited, this, [this](const QString& t) { VerifierLongueur(t); });
        connect(&e_, &Exploration::panneauChange, this, [this] { Afficher(); });
        Afficher();
    }

    // smn_rq: the panel again, with the last entries and the word lists.
    void Remplir() {
        Lire();
        RemplirDepuisListes(e_.panneau, e_.listes);
        Afficher();
    }

private:
    void VerifierLongueur(const QString& t) {
        const std::string s = DepuisQt(t);
        std::string_view message;
        if (s.size() > 2) message = "0Ce champ ne peut contenir qu'un nombre de 1 à 50"_cp;
        else if (s.find_first_not_of("0123456789") != std::string::npos) message = "1Ce champ ne peut contenir qu'un nombre de 1 à 50"_cp;
        else if (!s.empty() && std::stoi(s) > MAX_EMPAN) message = "2Ce champ ne peut contenir qu'un nombre de 1 à 50"_cp;
        if (message.empty()) {
            dernierValide_ = t;
            return;
        }
        e_.Zone().Dialogue().Afficher(message);
        longueur_->setText(dernierValide_);
    }

    void Lire() {
        PanneauRequete& p = e_.panneau;
        p.option = std::max(0, options_->checkedId());
        p.simple = DepuisQt(simple_->text());
        p.multiple = DepuisQt(multiple_->toPlainText());
        p.lemme = DepuisQt(lemme_->text());
        p.lemlist = DepuisQt(lemlist_->toPlainText());
        ParametresRequete& a = p.autres;
        a.casse = oui_->isChecked();
        a.concordance = cb_[0]->isChecked();
        a.macro = cb_[1]->isChecked();
        a.micro = cb_[2]->isChecked();
        a.empan = empex_->isChecked();
        a.longueurEmpan = DepuisQt(longueur_->text());
        a.cote = static_cast<Cote>(std::max(0, cotes_->checkedId()));
        a.phrase = phrase_->isChecked();
    }

    void Afficher() {
        const PanneauRequete& p = e_.panneau;
        options_->button(p.option)->setChecked(true);
        simple_->setText(VersQt(p.simple));
        // The lists keep CR LF in the library; the box shows plain lines.
        multiple_->setPlainText(VersQt(p.multiple).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
        lemme_->setText(VersQt(p.lemme));
        lemlist_->setPlainText(VersQt(p.lemlist).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
        const ParametresRequete& a = p.autres;
        (a.casse ? oui_ : non_)->setChecked(true);
        cb_[0]->setChecked(a.concordance);
        cb_[1]->setChecked(a.macro);
        cb_[2]->setChecked(a.micro);
        empex_->setChecked(a.empan);
        longueur_->setText(VersQt(a.longueurEmpan));
        dernierValide_ = longueur_->text();
        cotes_->button(static_cast<int>(a.cote))->setChecked(true);
        (a.phrase ? phrase_ : nonPhrase_)->setChecked(true);
    }

    void Valider() {
        Lire();
        for (std::string* s : {&e_.panneau.multiple, &e_.panneau.lemlist}) {
            std::string crlf;
            for (const char c : *s) crlf += c == '\n' ? std::string("\r\n") : std::string(1, c);
            *s = crlf;
        }
        e_.Commande([this] { e_.LancerRequetePanneau(); });
    }

    Exploration& e_;
    QButtonGroup* options_;
    QLineEdit *simple_, *lemme_, *longueur_;
    QPlainTextEdit *multiple_, *lemlist_;
    QRadioButton *non_, *oui_, *phrase_, *nonPhrase_;
    QCheckBox* cb_[3];
    QCheckBox* empex_;
    QButtonGroup* cotes_;
    QString dernierValide_;
};

const bool inscrit = EnregistrerVue("Form1.smn_rq", [](ContexteVue& c) {
    Exploration& e = Exploration::De(c.zone);
    if (auto* v = dynamic_cast<VueRequete*>(e.Montrer(VUE_REQUETE))) v->Remplir();
});

}  // namespace

QWidget* CreerVueRequete(Exploration& e) { return new VueRequete(e); }

}  // namespace telvoris::gui
