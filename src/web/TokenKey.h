#pragma once

#include <QByteArray>
#include <QString>

#include <string>
#include <string_view>

namespace lumbra::web {

/// The key of the tokens that paired browsers have. Nothing is stored for a browser: a token is a random text and
/// its HMAC-SHA256 by the key. Main thread only.
class TokenKey {
public:
    /// Reads the key from `file`, which is made with mode 600 if it is missing; an empty name: the key lasts as long
    /// as this object. The file is looked at before each use: once it is gone there is a new key, and no earlier
    /// token holds.
    explicit TokenKey(QString file);

    /// Why there is no key, as a sentence; empty if there is one.
    const QString& error() const { return error_; }

    std::string makeToken();
    /// True for a token of this key. Takes as long for each that is false.
    bool isToken(std::string_view token);

private:
    void refresh();
    QByteArray macOf(std::string_view text) const;

    const QString file_;
    QByteArray key_;
    QString error_;
};

/// True if the texts are equal; takes as long for any two of one length.
bool isEqualInConstantTime(std::string_view a, std::string_view b);

} // namespace lumbra::web
