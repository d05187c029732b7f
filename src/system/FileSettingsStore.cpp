#include "system/FileSettingsStore.h"

#include "system/FilePath.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonParseError>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace lumbra {

namespace {

namespace fs = std::filesystem;

constexpr auto LOCKED = "another program has locked its folder";

QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
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

/// An advisory lock on the folder of a file, for as long as this object lives. It leaves nothing on the disk
/// and ends with the program, even a killed one.
class FolderLock {
public:
    explicit FolderLock(const std::string& file, std::chrono::milliseconds patience = {})
        : folder_(::open(followed(file).parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
        constexpr std::chrono::milliseconds STEP{10};
        for (;; patience -= STEP) {
            isBusy_ = ::flock(folder_, LOCK_EX | LOCK_NB) == -1 && errno == EWOULDBLOCK;
            if (!isBusy_ || patience <= patience.zero())
                return;
            std::this_thread::sleep_for(STEP);
        }
    }
    ~FolderLock() {
        if (folder_ != -1)
            ::close(folder_);
    }
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// True if another program holds the lock. False if the file system has no locks.
    bool isBusy() const { return isBusy_; }

private:
    int folder_;
    bool isBusy_ = false;
};

/// JSON with the byte order marks inside it escaped: Qt's parser would drop those that begin a text.
QByteArray withMarksEscaped(const QByteArray& json) {
    return json.left(1) + json.mid(1).replace("\xEF\xBB\xBF", "\\ufeff");
}

} // namespace

std::variant<QJsonObject, std::string> parseSettings(const QByteArray& text) {
    if (text.size() > WholeFile::LONGEST)
        return "it is larger than 1 MiB";
    if (text.trimmed().isEmpty())
        return QJsonObject();
    QJsonParseError error;
    const auto json = withMarksEscaped(text);
    const auto document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        return error.errorString().toStdString() + " in line " +
               std::to_string(1 + json.left(error.offset).count('\n'));
    if (!document.isObject())
        return "it holds no JSON object";
    return document.object();
}

void FileSettingsStore::reportOnStandardError(const std::string& sentence) {
    std::fprintf(stderr, "lumbra-remote: %s\n", sentence.c_str());
}

FileSettingsStore::FileSettingsStore(MainQueue& queue, const std::string& path, Report report)
    : queue_(queue), file_(path), report_(std::move(report)) {
    refresh();
    if (problem_.reason.empty())
        return;
    const FolderLock lock(file_.path(), PATIENCE);
    if (lock.isBusy())
        problem_ = {LOCKED, false};
    else
        refresh(); // another program may just have set it aside
    if (!problem_.reason.empty())
        setAside();
}

FileSettingsStore::~FileSettingsStore() {
    save(PATIENCE);
}

void FileSettingsStore::refresh() const {
    if (inMemoryOnly_)
        return;
    problem_ = {};
    const auto content = file_.read();
    if (!content.isThere) {
        values_ = {};
        return;
    }
    if (!content.problem.isEmpty()) {
        problem_.reason = content.problem.toStdString();
        return;
    }
    const auto parsed = parseSettings(content.text);
    if (const auto* wrong = std::get_if<std::string>(&parsed))
        problem_ = {*wrong, true};
    else
        values_ = std::get<QJsonObject>(parsed);
}

QJsonValue FileSettingsStore::current(const QString& key) const {
    refresh();
    const auto change = changes_.find(key);
    return change == changes_.end() ? values_.value(key) : change->second;
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
    flushLater();
}

void FileSettingsStore::flushLater() {
    if (std::exchange(flushPosted_, true))
        return;
    queue_.postAfter(FLUSH_DELAY, life_.guard([this] {
        flushPosted_ = false;
        flush();
    }));
}

void FileSettingsStore::flush() {
    save({});
}

void FileSettingsStore::save(std::chrono::milliseconds patience) {
    if (inMemoryOnly_ || changes_.empty())
        return;
    std::error_code error; // the write reports it
    fs::create_directories(fs::path(file_.path()).parent_path(), error);
    const FolderLock lock(file_.path(), patience);
    if (lock.isBusy())
        return patience == patience.zero() ? flushLater() : saveFailed(LOCKED);
    refresh();
    if (problem_.isContent)
        setAside();
    if (inMemoryOnly_)
        return;
    if (!problem_.reason.empty())
        return saveFailed(problem_.reason);
    auto values = values_;
    for (const auto& [key, value] : changes_)
        values.insert(key, value); // an undefined value removes the key
    if (values != values_)
        if (const auto problem = file_.replace(QJsonDocument(values).toJson()); !problem.isEmpty())
            return saveFailed(problem.toStdString());
    failureReported_ = false;
    changes_.clear();
    values_ = values;
}

void FileSettingsStore::saveFailed(const std::string& reason) {
    if (!std::exchange(failureReported_, true))
        report_("The settings can't be saved in " + file_.path() + " (" + reason +
                "). The next change tries again; what is not saved when the program ends is lost.");
}

void FileSettingsStore::setAside() {
    const auto sentence = "The settings in " + file_.path() + " can't be read (" + problem_.reason + ")";
    auto refusal = std::string("the file is left as it is");
    if (problem_.isContent) {
        const auto aside = file_.setAside([](int n) { return QStringLiteral(".unreadable-%1").arg(n); });
        if (aside.problem.isEmpty()) {
            report_(sentence + "; the file was renamed to " + QFile::encodeName(aside.name).toStdString() +
                    ".");
            // The values that were read before go into the new file.
            for (auto value = values_.begin(); value != values_.end(); ++value)
                changes_.try_emplace(value.key(), value.value());
            values_ = {};
            problem_ = {};
            return;
        }
        refusal = "it can't be renamed (" + aside.problem.toStdString() + ")";
    }
    inMemoryOnly_ = true;
    report_(sentence + "; " + refusal + ", and changes hold only until the program ends.");
}

} // namespace lumbra
