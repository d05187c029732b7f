#include "program/ModulePath.h"

#include <QDir>
#include <QFileInfo>

namespace lumbra {

QString modulePath(const QString& program, const char* name) {
    const QFileInfo file(program);
    if (file.isAbsolute())
        for (const auto* folder : {"", "../" LUMBRA_MODULE_FOLDER "/"})
            if (auto module = file.dir().filePath(QLatin1String(folder) + QLatin1String(name));
                QFileInfo::exists(module))
                return module;
    return QStringLiteral(LUMBRA_INSTALLED_MODULE_FOLDER "/") + QLatin1String(name);
}

} // namespace lumbra
