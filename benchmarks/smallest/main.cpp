// The smallest windows that Qt Quick Controls can show, which our window is measured against: an empty one, or with an
// argument one that shows a text and an icon.

#include <QGuiApplication>
#include <QQmlApplicationEngine>

int main(int argc, char** argv) {
    const bool isEmpty = argc == 1;
    const QGuiApplication application(argc, argv);
    QQmlApplicationEngine engine;
    engine.load(QUrl(isEmpty ? QStringLiteral("qrc:/qt/qml/Lumbra/Smallest/Main.qml")
                             : QStringLiteral("qrc:/qt/qml/Lumbra/Smallest/TextAndIcon.qml")));
    return QGuiApplication::exec();
}
