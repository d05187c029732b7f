#include "Harness.h"

#include <QQmlContext>
#include <QQmlEngine>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(Lumbra_TouchPlugin)

class Setup : public QObject {
    Q_OBJECT

public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine* engine) {
        engine->addImportPath(QStringLiteral("qrc:/qt/qml"));
        engine->rootContext()->setContextProperty(QStringLiteral("harness"), &harness_);
    }

private:
    lumbra::Harness harness_;
};

QUICK_TEST_MAIN_WITH_SETUP(touch, Setup)

#include "main.moc"
