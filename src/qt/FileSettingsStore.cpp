#include "qt/FileSettingsStore.h"

#include "qt/FolderLock.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonParseError>
#include <QSaveFile>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <iostream>
#include <system_error>
#include <utility>
#include <variant>

namespace lumbra {

namespace {

// How long a flush waits for another program that is writing; it then goes ahead.
constexpr int LOCK_PATIENCE = 1000; // ms

QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string systemMessage(int error) {
    return std::generic_category().message(error);
}

bool sameFile(const std::optional<struct stat>& a, const std::optional<struct stat>& b) {
    if (!a || !b)
        return !a && !b;
    const auto sameTime = [](const timespec& x, const timespec& y) {
        return x.tv_sec == y.tv_sec && x.tv_nsec == y.tv_nsec;
    };
    return a->st_dev == b->st_dev && a->st_ino == b->st_ino && a->st_size == b->st_size &&
           sameTime(a->st_mtim, b->st_mtim) && sameTime(a->st_ctim, b->st_ctim);
}

QJsonValue toJson(const SettingValue& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return toQString(*text);
    if (const auto* number = std::get_if<std::int64_t>(&value))
        return static_cast<qint64>(*number);
    return std::get<bool>(value);
}

std::optional<SettingValue> fromJson(const QJsonValue& value) {
    if (value.isString())
        return value.toString().toStdString();
    if (value.isBool())
        return value.toBool();
    if (!value.isDouble())
        return std::nullopt;
    const auto number = value.toVariant();
    if (number.typeId() == QMetaType::LongLong)
        return std::int64_t{number.toLongLong()};
    return number.toString().toStdString();
}

/// Where in `text` the byte at `offset` stands, for a person with an editor.
std::string lineOf(const QByteArray& text, qsizetype offset) {
    return "line " + std::to_string(1 + text.left(offset).count('\n'));
}

/// The file that a write replaces: what a symbolic link points to, not the link.
QString target(const QString& path) {
    const auto canonical = QFileInfo(path).canonicalFilePath();
    return canonical.isEmpty() ? path : canonical;
}

/// True for the name of a temporary file of `fileName` as QSaveFile makes them: a dot and six random letters.
/// Letters of one case, or a capitalised word, don't count: "FILE.backup" may be a person's own copy.
bool isTemporaryName(const QString& name, const QString& fileName) {
    if (name.size() != fileName.size() + 7 || !name.startsWith(fileName + QLatin1Char('.')))
        return false;
    const auto letters = name.last(6).toStdString();
    const auto isUpper = [](char c) { return c >= 'A' && c <= 'Z'; };
    const auto isLower = [](char c) { return c >= 'a' && c <= 'z'; };
    return std::all_of(letters.begin(), letters.end(), [&](char c) { return isUpper(c) || isLower(c); }) &&
           std::any_of(letters.begin() + 1, letters.end(), isUpper) &&
           std::any_of(letters.begin(), letters.end(), isLower);
}

/// Removes what programs killed during a write have left beside `file`.
void removeStrayFiles(const QString& file) {
    const FolderLock lock(file, 0);
    if (!lock.isHeld()) // somebody may be writing right now
        return;
    const QFileInfo info(file);
    auto folder = info.absoluteDir();
    for (const auto& name : folder.entryList(QDir::Files | QDir::Hidden | QDir::NoSymLinks))
        if (isTemporaryName(name, info.fileName()))
            folder.remove(name);
}

/// Gives `file` the first name of "FILE.unreadable-1", "-2" ... that is free, and returns it; nothing, with
/// the reason in errno, where the system refuses.
std::optional<QByteArray> renameAside(const QByteArray& file) {
    for (int number = 1;; ++number) {
        auto aside = file + ".unreadable-" + QByteArray::number(number);
        if (renameat2(AT_FDCWD, file.constData(), AT_FDCWD, aside.constData(), RENAME_NOREPLACE) == 0)
            return aside;
        if (errno == EINVAL) { // a file system without a rename that spares existing files
            struct stat existing {};
            if (::lstat(aside.constData(), &existing) == 0)
                continue;
            if (::rename(file.constData(), aside.constData()) == 0)
                return aside;
        }
        if (errno != EEXIST)
            return std::nullopt;
    }
}

/// Writes all of `text` to an unbuffered file.
bool writeAll(QFileDevice& file, const QByteArray& text) {
    for (qsizetype done = 0; done < text.size();) {
        const auto count = file.write(text.constData() + done, text.size() - done);
        if (count <= 0)
            return false;
        done += count;
    }
    return true;
}

} // namespace

void FileSettingsStore::reportOnStandardError(const std::string& sentence) {
    std::cerr << "lumbra-remote: " << sentence << std::endl;
}

FileSettingsStore::FileSettingsStore(MainQueue& queue, const std::string& path, Report report)
    : queue_(queue), path_(QFile::decodeName(path.c_str())), report_(std::move(report)) {
    refresh();
    if (!known_.problem.empty()) {
        const FolderLock lock(target(path_), LOCK_PATIENCE);
        if (!makeReadable())
            return;
    }
    removeStrayFiles(target(path_));
}

FileSettingsStore::~FileSettingsStore() {
    flush();
}

void FileSettingsStore::refresh() const {
    if (inMemoryOnly_)
        return;
    struct stat stamp {};
    if (::stat(QFile::encodeName(path_).constData(), &stamp) == 0) {
        if (sameFile(known_.stamp, stamp))
            return;
        known_.stamp = stamp;
        read();
    } else if (errno == ENOENT || errno == ENOTDIR) {
        known_ = {};
    } else {
        known_.stamp.reset();
        known_.problem = systemMessage(errno);
    }
}

void FileSettingsStore::read() const {
    known_.problem.clear();
    if (!S_ISREG(known_.stamp->st_mode)) {
        known_.problem = S_ISDIR(known_.stamp->st_mode) ? "it is a folder" : "it is no regular file";
        return;
    }
    QFile file(path_);
    if (!file.open(QIODevice::ReadOnly)) {
        known_.problem = file.errorString().toStdString();
        return;
    }
    const auto text = file.read(MAX_FILE_SIZE + 1);
    if (file.error() != QFileDevice::NoError) {
        known_.problem = file.errorString().toStdString();
    } else if (text.size() > MAX_FILE_SIZE) {
        known_.problem = "it is larger than 1 MiB";
    } else if (text.trimmed().isEmpty()) {
        known_.values = {};
    } else {
        QJsonParseError error;
        const auto document = QJsonDocument::fromJson(text, &error);
        if (error.error != QJsonParseError::NoError)
            known_.problem = error.errorString().toStdString() + " in " + lineOf(text, error.offset);
        else if (!document.isObject())
            known_.problem = "it holds no JSON object";
        else
            known_.values = document.object();
    }
}

QJsonValue FileSettingsStore::current(const QString& key) const {
    refresh();
    const auto change = changes_.find(key);
    return change == changes_.end() ? known_.values.value(key) : change->second;
}

std::optional<SettingValue> FileSettingsStore::value(std::string_view key) const {
    return fromJson(current(toQString(key)));
}

void FileSettingsStore::setValue(std::string_view key, SettingValue value) {
    change(toQString(key), toJson(value));
}

void FileSettingsStore::remove(std::string_view key) {
    change(toQString(key), QJsonValue(QJsonValue::Undefined));
}

void FileSettingsStore::change(const QString& key, const QJsonValue& value) {
    if (current(key) == value)
        return;
    changes_[key] = value;
    if (std::exchange(flushPosted_, true))
        return;
    queue_.postAfter(FLUSH_DELAY, [this, alive = std::weak_ptr(alive_)] {
        if (alive.expired())
            return;
        flushPosted_ = false;
        flush();
    });
}

void FileSettingsStore::flush() {
    if (inMemoryOnly_ || changes_.empty())
        return;
    QDir().mkpath(QFileInfo(path_).absolutePath()); // the write tells where this fails
    const FolderLock lock(target(path_), LOCK_PATIENCE);
    if (!makeReadable())
        return;
    auto values = known_.values;
    for (const auto& [key, value] : changes_)
        values.insert(key, value); // an undefined value removes the key
    if (values == known_.values)
        changes_.clear();
    else
        write(values);
}

void FileSettingsStore::write(const QJsonObject& values) {
    QSaveFile file(path_);
    const auto text = QJsonDocument(values).toJson();
    // Buffered, a write that the disk takes only in part goes unnoticed, and the torn file is committed.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !writeAll(file, text) || !file.commit()) {
        auto sentence = "The settings can't be saved in " + path_.toStdString();
        sentence += " (" + file.errorString().toStdString();
        sentence += "); they hold until the program ends, and the next change tries again.";
        if (!std::exchange(failureReported_, true))
            report_(sentence);
        return;
    }
    failureReported_ = false;
    changes_.clear();
    known_ = {std::nullopt, values, {}};
    struct stat stamp {};
    if (::stat(QFile::encodeName(path_).constData(), &stamp) == 0)
        known_.stamp = stamp;
}

bool FileSettingsStore::makeReadable() {
    refresh();
    if (known_.problem.empty()) // another program was faster
        return true;
    auto sentence = "The settings in " + path_.toStdString();
    sentence += " can't be read (" + std::exchange(known_.problem, {}) + ")";
    const bool isFile = !known_.stamp || S_ISREG(known_.stamp->st_mode);
    const auto aside = isFile ? renameAside(QFile::encodeName(path_)) : std::nullopt;
    if (aside) {
        // What is known of the settings from before goes into the new file.
        for (auto value = known_.values.begin(); value != known_.values.end(); ++value)
            changes_.try_emplace(value.key(), value.value());
        known_ = {};
        sentence += "; the file was set aside as " + aside->toStdString() + ".";
    } else {
        sentence += " and can't be set aside (" + (isFile ? systemMessage(errno) : "it is no regular file");
        sentence += "); they are left alone, and changes hold only until the program ends.";
        inMemoryOnly_ = true;
    }
    report_(sentence);
    return aside.has_value();
}

} // namespace lumbra
