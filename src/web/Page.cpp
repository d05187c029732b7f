#include "web/Page.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QtGlobal>

#include <array>
#include <cassert>

namespace lumbra::web {

namespace {

/// Words of the page that the window has not; the page takes all its words from the window's catalogues.
[[maybe_unused]] constexpr const char* WORDS[] = {
    QT_TRANSLATE_NOOP("Page", "Back"),
    QT_TRANSLATE_NOOP("Page", "Invite another phone"),
    QT_TRANSLATE_NOOP(
        "Page", "Type the code that the program shows where it runs, or on a paired phone under Settings."),
};

struct Type {
    const char* suffix;
    const char* name;
};
constexpr std::array<Type, 8> TYPES{{
    {"html", "text/html; charset=utf-8"},
    {"css", "text/css; charset=utf-8"},
    {"js", "text/javascript; charset=utf-8"},
    {"json", "application/json"},
    {"svg", "image/svg+xml"},
    {"png", "image/png"},
    {"webmanifest", "application/manifest+json"},
    {"txt", "text/plain; charset=utf-8"},
}};

QByteArray typeOf(const QString& suffix) {
    for (const auto& type : TYPES)
        if (suffix == QLatin1String(type.suffix))
            return type.name;
    assert(false && "a file of the page has no type");
    return "application/octet-stream";
}

QByteArray contentsOf(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

Page::Page() {
    const QString root = QStringLiteral(":/page/");
    for (QDirIterator file(root, QDir::Files, QDirIterator::Subdirectories); file.hasNext();) {
        const auto name = file.next().mid(root.size());
        const auto bytes = contentsOf(root + name);
        const auto gzip = contentsOf(QStringLiteral(":/gzip/") + name);
        files_["/" + name.toStdString()] = {
            .type = typeOf(QFileInfo(name).suffix()),
            .bytes = bytes,
            .gzip = gzip.size() < bytes.size() ? gzip : QByteArray(),
            .tag = QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().left(32),
        };
    }
    const auto start = files_.find("/index.html");
    assert(start != files_.end());
    files_["/"] = start->second;
}

const Page::File* Page::find(std::string_view path) const {
    const auto found = files_.find(path);
    return found == files_.end() ? nullptr : &found->second;
}

} // namespace lumbra::web
