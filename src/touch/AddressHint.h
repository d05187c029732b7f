#pragma once

#include <QString>

namespace lumbra {

/// What a person should know about an address as it stands, in their language; empty where there is nothing
/// to say. Any text is accepted as an address all the same.
QString addressHint(const QString& address);

} // namespace lumbra
