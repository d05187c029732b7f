#pragma once

#include "platform/MainQueue.h"
#include "platform/SettingsStore.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QString>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace lumbra {

/// Settings in a file that holds one JSON object. Main thread only.
///
/// A text, a whole number and a flag are stored as such; a number with a fraction reads as its text; any
/// other value reads as absent. Keys and values that this program does not know stay in the file.
///
/// The file is replaced as a whole: whatever happens while it is written, it is the old file or the new one.
/// Programs that share it see each other's changes, and each writes only the keys that it changed itself.
///
/// An absent or empty file is an empty store. A file that can't be read as settings is set aside under the
/// name "FILE.unreadable-1" (or the next free number), never overwritten. What a person should know is told
/// in one sentence: that, and a write that failed, whose values are kept and written with the next flush that
/// succeeds.
class FileSettingsStore final : public SettingsStore {
public:
    /// Takes one sentence for the person in front of the program.
    using Report = std::function<void(const std::string& sentence)>;

    /// How long after a change the file is written unless `flush` comes first.
    static constexpr std::chrono::milliseconds FLUSH_DELAY{200};
    /// A file longer than this is none of ours, and counts as unreadable.
    static constexpr qint64 MAX_FILE_SIZE = 1 << 20;

    /// The sentence as a line on standard error.
    static void reportOnStandardError(const std::string& sentence);

    /// Reads the file, and removes what a killed program left beside it. `queue` outlives the store.
    FileSettingsStore(MainQueue& queue, const std::string& path, Report report = reportOnStandardError);
    /// Writes what has changed.
    ~FileSettingsStore() override;
    FileSettingsStore(const FileSettingsStore&) = delete;
    FileSettingsStore& operator=(const FileSettingsStore&) = delete;

    std::optional<SettingValue> value(std::string_view key) const override;
    void setValue(std::string_view key, SettingValue value) override;
    void remove(std::string_view key) override;
    /// Makes the folder where it is missing. Nothing is written where nothing differs.
    void flush() override;

private:
    /// What the program knows of the file: a stamp that changes with it, and what it held.
    struct Known {
        std::optional<struct stat> stamp; ///< nothing while the file is absent
        QJsonObject values;
        std::string problem; ///< why the file can't be read; `values` are then those of before
    };

    void refresh() const;
    void read() const;
    QJsonValue current(const QString& key) const;
    void change(const QString& key, const QJsonValue& value);
    /// Makes way for a file that can be read. False, and the store lives in memory from now on, where it can
    /// not.
    bool makeReadable();
    void write(const QJsonObject& values);

    MainQueue& queue_;
    const QString path_;
    const Report report_;

    mutable Known known_;
    std::map<QString, QJsonValue> changes_; ///< not in the file yet; undefined for a key that goes
    bool inMemoryOnly_ = false;
    bool failureReported_ = false;
    bool flushPosted_ = false;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace lumbra
