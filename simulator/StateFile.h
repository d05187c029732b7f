#pragma once

#include "simulator/UnitState.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace lumbra::sim {

/// `memory` as a JSON text, the format of state files.
QByteArray toJson(const Memory& memory);

/// The memory that a JSON text holds; nothing unless it holds one whole, with every value present and in
/// range. Then `error` is a clause that names the first thing amiss.
std::optional<Memory> fromJson(const QByteArray& json, QString& error);

/// The file that keeps a unit's memory between runs. A save replaces the whole file or leaves it as it was,
/// even if the program is killed in the middle. It throws nothing.
class StateFile {
public:
    /// A file longer than this is no state file.
    static constexpr qint64 LONGEST = 1 << 20;

    explicit StateFile(QString path) : path_(std::move(path)) {}

    /// Reads the file into `memory`, which stays as it is where there is no file yet. A file that holds no
    /// memory is set aside under another name: `memory` stays as it is, and `message` is a sentence that
    /// tells so. False, with such a sentence, if a file is there that can't be read or set aside, or that is
    /// no regular file: the caller must not save then.
    bool load(Memory& memory, QString& message) const;

    /// Writes `memory`; false with a sentence in `message` when that fails, the old file is then as it was.
    bool save(const Memory& memory, QString& message) const;

private:
    QString path_;
};

} // namespace lumbra::sim
