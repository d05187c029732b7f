#pragma once

#include "simulator/UnitState.h"
#include "system/WholeFile.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace lumbra::sim {

/// `memory` as JSON text, the format of state files.
QByteArray toJson(const Memory& memory);

/// Parses a JSON text; nothing unless it holds a complete memory, with every value present and in range.
/// `error` is then a clause that names the first problem.
std::optional<Memory> fromJson(const QByteArray& json, QString& error);

/// The file that keeps a unit's memory between runs. A save replaces the whole file or leaves it unchanged,
/// even if the program is killed meanwhile. Throws nothing.
class StateFile {
public:
    explicit StateFile(const QString& path);

    /// Loads the file into `memory`, which stays unchanged if there is no file. A file that holds no memory
    /// is renamed, `memory` stays unchanged, and `message` is a sentence that says so. Returns false, with a
    /// sentence in `message`, if the file cannot be read or renamed, or is not a regular file: the caller
    /// must not save then.
    bool load(Memory& memory, QString& message) const;

    /// Saves `memory`. On failure returns false with a sentence in `message`; the old file is then unchanged.
    bool save(const Memory& memory, QString& message) const;

private:
    QString path_;
    WholeFile file_;
};

} // namespace lumbra::sim
