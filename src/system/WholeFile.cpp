#include "system/WholeFile.h"

#include "system/FilePath.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <system_error>

namespace lumbra {

namespace fs = std::filesystem;

WholeFile::Content WholeFile::read() const {
    std::error_code error;
    const auto type = fs::status(path_, error).type();
    if (type == fs::file_type::not_found)
        return {.isThere = false};
    if (error)
        return {.problem = QString::fromStdString(error.message())};
    if (type != fs::file_type::regular) // opening a pipe would block
        return {.isRegular = false, .problem = QStringLiteral("it is no regular file")};
    QFile file(QFile::decodeName(path_.c_str()));
    QByteArray text;
    if (file.open(QIODevice::ReadOnly))
        text = file.read(LONGEST + 1);
    if (file.error() != QFileDevice::NoError)
        return {.problem = file.errorString()};
    return {.text = text};
}

QString WholeFile::replace(QByteArray text) const {
    QSaveFile file(QFile::decodeName(path_.c_str()));
    // Unbuffered, because a buffered file can be committed after a partial write. A full disk may accept a part
    // without an error and refuse only the rest.
    bool isGood = file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    while (isGood && !text.isEmpty()) {
        const auto count = file.write(text);
        isGood = count > 0;
        text.remove(0, count);
    }
    return isGood && file.commit() ? QString() : file.errorString();
}

WholeFile::Renaming WholeFile::setAside(QString (*suffix)(int number)) const {
    QFile file(QFile::decodeName(followed(path_).c_str()));
    for (int number = 1;; ++number) {
        const QFileInfo aside(file.fileName() + suffix(number));
        if (aside.exists() || aside.isSymLink())
            continue;
        if (file.rename(aside.filePath()))
            return {aside.filePath()};
        return {aside.filePath(), file.errorString()};
    }
}

} // namespace lumbra
