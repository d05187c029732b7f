#pragma once

#include <QByteArray>
#include <QString>

#include <string>
#include <utility>

namespace lumbra {

/// A file of a program's own, which a person may have edited: it is read whole, up to a limit, replaced whole or
/// not at all, and renamed where its content is wrong. No other file is touched, so a temporary file stays behind
/// when the program is killed during a write. Symbolic links are followed. Any thread.
class WholeFile {
public:
    /// A longer file was not written by this program.
    static constexpr qint64 LONGEST = 1 << 20; // bytes

    /// What was read.
    struct Content {
        bool isThere = true;
        bool isRegular = true;
        QString problem{}; ///< why it can't be read, as a clause; empty if it can
        QByteArray text{}; ///< one byte more than LONGEST of a file that is longer
    };

    /// What became of a file that was to be renamed.
    struct Renaming {
        QString name;      ///< the new one, which was free
        QString problem{}; ///< why it does not have it, as a clause; empty on success
    };

    explicit WholeFile(std::string path) : path_(std::move(path)) {}

    const std::string& path() const { return path_; }

    Content read() const;

    /// Replaces or makes the file. Returns why not, as a clause; empty on success. On failure, and if the program
    /// is killed meanwhile, the old file is unchanged.
    QString replace(QByteArray text) const;

    /// Renames the file by adding the first of the suffixes that gives a free name. `suffix` makes the suffixes
    /// from the numbers 1, 2 ...
    Renaming setAside(QString (*suffix)(int number)) const;

private:
    std::string path_;
};

} // namespace lumbra
