// telvoris-gui: the desktop workbench. Opens Form1 once the resource tree is found.
#include <QApplication>
#include <QStringList>
#include <cstdlib>
#include <iostream>

#include "gui/fenetres.hpp"

namespace fs = std::filesystem;

int main(int argc, char** argv) {
    QApplication qapp(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Telvoris"));
    std::optional<fs::path> ressources;
    const QStringList args = QApplication::arguments();
    for (qsizetype i = 1; i < args.size(); ++i) {
        if (args[i] == QLatin1String("--ressources") && i + 1 < args.size()) {
            const QByteArray d = args[++i].toUtf8();
            ressources = fs::path(std::string(d.constData(), static_cast<std::size_t>(d.size())));
        } else if (args[i] == QLatin1String("--help") || args[i] == QLatin1String("-h")) {
            std::cout << "Usage : telvoris-gui [--ressources DOSSIER]\n";
            return 0;
        } else {
            std::cerr << "Option inconnue : " << args[i].toStdString() << "\nUsage : telvoris-gui [--ressources DOSSIER]\n";
            return 2;
        }
    }
    std::optional<fs::path> maison;
    if (const char* home = std::getenv("HOME"); home && *home) maison = fs::path(home);
    const QByteArray exe = QCoreApplication::applicationDirPath().toUtf8();
    telvoris::gui::Application app;
    if (!app.Demarrer(ressources, fs::path(std::string(exe.constData(), static_cast<std::size_t>(exe.size()))), maison))
        return 3;
    return QApplication::exec();
}
