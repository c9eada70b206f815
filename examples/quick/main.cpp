// SPDX-License-Identifier: Apache-2.0
#include <QtQml/QQmlApplicationEngine>
#include <QtWidgets/QApplication>

int main(int argc, char **argv) {
    QApplication application(argc, argv); // not a QGuiApplication: advertising consists of widgets
    QQmlApplicationEngine engine;
    engine.addImportPath(QStringLiteral(VELMORA_QML_DIR));
    QObject::connect(
        &engine, &QQmlApplicationEngine::objectCreationFailed, &application,
        [] { QCoreApplication::exit(1); }, Qt::QueuedConnection);
    engine.load(QUrl(QStringLiteral("qrc:/Main.qml")));
    return application.exec();
}
