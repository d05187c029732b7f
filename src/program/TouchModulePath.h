#pragma once

#include <QString>

namespace lumbra {

/// The file of the touch screens' module: beside the program where it was built, in the library folder where it is
/// installed. `program` is the program's own path, or empty where the system does not tell it. The result is always an
/// absolute path: a module never comes from the working folder.
QString touchModulePath(const QString& program);

} // namespace lumbra
