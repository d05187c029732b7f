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

/// The file that keeps a unit's memory between runs. A save replaces the file at once or not at all, whenever
/// the program is killed. No exceptions: what fails is told in words.
class StateFile {
public:
    /// A file longer than this is no state file.
    static constexpr qint64 LONGEST = 1 << 20;

    explicit StateFile(QString path) : path_(std::move(path)) {}

    /// Reads the file into `memory`; true also when there is none yet, `memory` is then left as it is. A file
    /// that can't be read or makes no sense is set aside under another name, `memory` is left as it is, and
    /// `message` is a sentence that tells so. False when it could not even be set aside, or is no regular
    /// file and thus nobody's memory: the caller must not save then.
    bool load(Memory& memory, QString& message) const;

    /// Writes `memory`; false with a sentence in `message` when that fails, the old file is then as it was.
    bool save(const Memory& memory, QString& message) const;

private:
    QString path_;
};

} // namespace lumbra::sim
