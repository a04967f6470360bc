// Driving the application as a person would: a script of answers given to the boxes that open,
// in order, and a record of every box shown.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <deque>
#include <filesystem>
#include <functional>
#include <optional>

class QTimer;

namespace telvoris::test {

// One scripted answer: the text typed into an input box (nullopt presses Cancel), or the file
// chosen in a file dialog (empty presses Cancel).
struct Reponse {
    std::optional<QString> texte;
    std::filesystem::path fichier;
    bool estFichier = false;
};
Reponse Texte(const QString& t);
Reponse Annuler();
Reponse Fichier(const std::filesystem::path& f);

class Pilote : public QObject {
    Q_OBJECT
public:
    Pilote();
    ~Pilote() override;
    void Ajouter(Reponse r) { reponses.push_back(std::move(r)); }

    std::deque<Reponse> reponses;
    QStringList messages;   // message boxes, in order
    QStringList questions;  // "title|label|default" of each input box
    QStringList fichiers;   // "title|filter|folder" of each file dialog
    QStringList imprevus;   // boxes that found no answer (closed with Cancel)

private:
    void Regarder();
    QTimer* minuterie_;
};

// Processes events until `condition` holds; false after a long safety limit (a hang).
bool AttendreQue(const std::function<bool()>& condition);

}  // namespace telvoris::test
