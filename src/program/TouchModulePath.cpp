#include "program/TouchModulePath.h"

#include <QDir>
#include <QFileInfo>

namespace lumbra {

QString touchModulePath(const QString& program) {
    const QString name = QStringLiteral("lumbra-touch.so");
    const QFileInfo file(program);
    if (file.isAbsolute())
        for (const auto* folder : {"", "../" LUMBRA_MODULE_FOLDER "/"})
            if (auto module = file.dir().filePath(QLatin1String(folder) + name); QFileInfo::exists(module))
                return module;
    return QStringLiteral(LUMBRA_INSTALLED_MODULE_FOLDER "/") + name;
}

} // namespace lumbra
