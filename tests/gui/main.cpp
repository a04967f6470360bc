// The GUI tests run on Qt's offscreen platform unless a display is asked for.
#include <gtest/gtest.h>

#include <QApplication>

namespace {

// The offscreen platform warns that it cannot raise or size windows: noise for these tests.
void Filtrer(QtMsgType type, const QMessageLogContext& contexte, const QString& message) {
    if (message.startsWith(QLatin1String("This plugin does not support"))) return;
    if (message.startsWith(QLatin1String("QStandardPaths:"))) return;
    qt_message_output(type, contexte, message);
}

}  // namespace

int main(int argc, char** argv) {
    qInstallMessageHandler(Filtrer);
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
