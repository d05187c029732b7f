#pragma once

#include "platform/Lifetime.h"
#include "platform/MainQueue.h"
#include "platform/SettingsStore.h"
#include "system/WholeFile.h"

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace lumbra {

/// Parses the bytes of a settings file. Returns the settings, or what is wrong as part of a sentence. Empty
/// or blank text holds no settings. Any thread.
std::variant<QJsonObject, std::string> parseSettings(const QByteArray& text);

/// Settings in a file that holds one JSON object. Main thread only.
///
/// A text, a whole number and a flag are stored as such; a number with a fraction reads as its text; any
/// other value reads as absent. Keys and values that this program does not know stay in the file.
///
/// Every read looks at the file, so a change by an editor or by another program is seen at once. A write
/// replaces the whole file and changes only the keys that this program changed. A lock on the folder keeps
/// two programs from writing at the same time; while another program holds it, the write is tried again
/// later.
///
/// A file whose content is wrong is renamed to "FILE.unreadable-1" (or the next free number), never
/// overwritten. A file that can't be read for any other reason stays as it is; if that happens at the start,
/// the store lives in memory. Other files are left alone, so a temporary file stays behind when the program
/// is killed during a write.
class FileSettingsStore final : public SettingsStore {
public:
    /// Receives a sentence for the user: what was set aside or not saved. Must not throw.
    using Report = std::function<void(const std::string& sentence)>;

    /// Writes the sentence as a line to standard error. Failures are ignored.
    static void reportOnStandardError(const std::string& sentence);

    /// Reads the file. If its content is wrong and the folder is locked, waits up to `PATIENCE` for the lock.
    /// `queue` outlives the store.
    FileSettingsStore(MainQueue& queue, const std::string& path, Report report = reportOnStandardError);
    /// Writes the changes; waits up to `PATIENCE` for the lock, then reports that the changes are lost.
    ~FileSettingsStore() override;
    FileSettingsStore(const FileSettingsStore&) = delete;
    FileSettingsStore& operator=(const FileSettingsStore&) = delete;

    std::optional<SettingValue> value(std::string_view key) const override;
    void setValue(std::string_view key, SettingValue value) override;
    void remove(std::string_view key) override;
    /// Creates the folder if it is missing. Never waits. A failure is reported once until a write succeeds.
    void flush() override;

    /// The delay between a change and the write, unless `flush` comes first; also the delay before a write
    /// that found the folder locked is tried again.
    static constexpr std::chrono::milliseconds FLUSH_DELAY{200};
    /// How long the constructor and the destructor wait for the lock.
    static constexpr std::chrono::milliseconds PATIENCE{500};

private:
    struct Problem {
        std::string reason; ///< empty: none
        bool isContent = false;
    };

    void refresh() const;
    QJsonValue current(const QString& key) const;
    void change(const QString& key, const QJsonValue& value);
    void flushLater();
    void save(std::chrono::milliseconds patience);
    void saveFailed(const std::string& reason);
    /// Renames the file if its content is wrong; otherwise, or if that fails, the store lives in memory.
    void setAside();

    MainQueue& queue_;
    const WholeFile file_;
    const Report report_;

    mutable QJsonObject values_;            ///< as last read
    mutable Problem problem_;               ///< why the file can't be read now
    std::map<QString, QJsonValue> changes_; ///< not in the file yet; undefined: to be removed
    bool inMemoryOnly_ = false;
    bool failureReported_ = false;
    bool flushPosted_ = false;
    Lifetime life_;
};

} // namespace lumbra
