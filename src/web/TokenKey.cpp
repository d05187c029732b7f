#include "web/TokenKey.h"

#include <QCryptographicHash>
#include <QFile>
#include <QMessageAuthenticationCode>
#include <QRandomGenerator>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace lumbra::web {

namespace {

constexpr qsizetype LEAST_KEY = 32; // bytes; the size of what SHA-256 makes
constexpr qsizetype MOST_KEY = 4096;
constexpr std::size_t TEXT_LENGTH = 22; // 16 bytes in base64

/// So many random bytes.
template <std::size_t COUNT>
QByteArray randomBytes() {
    std::array<std::uint32_t, COUNT / 4> numbers{};
    QRandomGenerator::system()->fillRange(numbers.data(), static_cast<qsizetype>(numbers.size()));
    return {reinterpret_cast<const char*>(numbers.data()), COUNT};
}

QByteArray base64(const QByteArray& bytes) {
    return bytes.toBase64(QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals);
}

/// Writes `key` to a new file. Two programs may do so at once: the first one's file stands.
bool create(const QString& name, const QByteArray& key) {
    auto temporary = QFile::encodeName(name) + ".XXXXXX";
    QFile file;
    const int descriptor = ::mkstemp(temporary.data()); // with mode 600
    const bool isWritten =
        descriptor != -1 && file.open(descriptor, QIODevice::WriteOnly, QFile::AutoCloseHandle) &&
        file.write(key) == key.size() && file.flush() && ::fsync(descriptor) == 0 &&
        (::link(temporary.constData(), QFile::encodeName(name).constData()) == 0 || errno == EEXIST);
    const int why = errno;
    if (descriptor != -1)
        ::unlink(temporary.constData());
    errno = why;
    return isWritten;
}

} // namespace

TokenKey::TokenKey(QString file) : file_(std::move(file)), key_(base64(randomBytes<LEAST_KEY>())) {
    refresh();
}

void TokenKey::refresh() {
    if (file_.isEmpty())
        return;
    const auto refuse = [this](const QString& reason) {
        error_ = QStringLiteral("The key in %1 can't be read: %2.").arg(file_, reason);
    };
    struct stat info {};
    const bool isThere = ::stat(QFile::encodeName(file_).constData(), &info) == 0;
    if (!isThere && errno == ENOENT) {
        key_ = base64(randomBytes<LEAST_KEY>());
        if (!create(file_, key_ + '\n')) {
            error_ = QStringLiteral("The key can't be kept in %1: %2.").arg(file_, qt_error_string(errno));
            return;
        }
    } else if (isThere && !S_ISREG(info.st_mode)) { // opening a pipe would block
        return refuse(QStringLiteral("it is no regular file"));
    }
    QFile file(file_);
    if (!file.open(QIODevice::ReadOnly))
        return refuse(file.errorString());
    const auto key = file.read(MOST_KEY + 1).trimmed();
    if (key.size() < LEAST_KEY || key.size() > MOST_KEY)
        return refuse(QStringLiteral("a key has 32 to 4096 bytes; delete the file for a new one"));
    key_ = key;
}

QByteArray TokenKey::macOf(std::string_view text) const {
    return base64(QMessageAuthenticationCode::hash(
        QByteArray(text.data(), static_cast<qsizetype>(text.size())), key_, QCryptographicHash::Sha256));
}

std::string TokenKey::makeToken() {
    refresh();
    const auto text = base64(randomBytes<16>()).toStdString();
    return text + macOf(text).toStdString();
}

bool TokenKey::isToken(std::string_view token) {
    refresh();
    const auto text = token.substr(0, TEXT_LENGTH);
    return isEqualInConstantTime(token.substr(text.size()), macOf(text).toStdString());
}

bool isEqualInConstantTime(std::string_view a, std::string_view b) {
    if (a.size() != b.size())
        return false;
    volatile unsigned char difference = 0;
    for (std::size_t i = 0; i < a.size(); ++i)
        difference = static_cast<unsigned char>(difference | (a[i] ^ b[i]));
    return difference == 0;
}

} // namespace lumbra::web
