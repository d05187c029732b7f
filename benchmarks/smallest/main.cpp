// The smallest window that Qt Quick Controls can show: what any window is measured against.

#include <QGuiApplication>
#include <QQmlApplicationEngine>

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    QQmlApplicationEngine engine;
    engine.load(QUrl(QStringLiteral("qrc:/qt/qml/Lumbra/Smallest/Main.qml")));
    return QGuiApplication::exec();
}
