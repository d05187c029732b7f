#pragma once

#include <QByteArray>

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace lumbra::web {

/// The files of the page, from memory. Any thread.
class Page {
public:
    struct File {
        QByteArray type; ///< as a Content-Type field
        QByteArray bytes;
        QByteArray gzip; ///< the same, compressed; empty where that is not smaller
        QByteArray
            tag; ///< of `bytes`: an entity tag without its quotes. That of `gzip` has "-gzip" behind it
    };

    /// Reads the files that are compiled in.
    Page();

    /// The file at the path of a request, or null.
    const File* find(std::string_view path) const;

private:
    std::map<std::string, File, std::less<>> files_;
};

} // namespace lumbra::web
