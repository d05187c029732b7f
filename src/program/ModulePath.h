#pragma once

#include <QString>

namespace lumbra {

/// The file of a front end's module, by its name: beside the program in a build, in the library folder in an
/// installation. `program` is the path of the program, or empty if the system does not provide it. The result
/// is always an absolute path: a module is never loaded from the working folder.
QString modulePath(const QString& program, const char* name);

} // namespace lumbra
