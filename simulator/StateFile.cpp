#include "simulator/StateFile.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <cmath>
#include <cstddef>

namespace lumbra::sim {

namespace {

constexpr int FORMAT = 1;

// `exchange` visits the parts of a record. Writing and reading are two visitors, so that both always have the
// same parts.
template <typename Visitor>
void exchange(Visitor& v, Zone& zone) {
    v.number("volume", zone.volume, VOLUME);
    v.number("mute", zone.mute, FLAG);
    v.number("input", zone.input, INPUT);
    v.number("loudness", zone.loudness, FLAG);
    v.number("bass", zone.bass, TONE);
    v.number("treble", zone.treble, TONE);
}

template <typename Visitor>
void exchange(Visitor& v, Band& band) {
    v.number("filter", band.filter, FILTER);
    v.number("frequency", band.frequency, FREQUENCY);
    v.number("gain", band.gain, GAIN);
}

template <typename Visitor>
void exchange(Visitor& v, Output& output) {
    v.number("power", output.power, FLAG);
    v.number("volume", output.volume, VOLUME);
    v.number("mute", output.mute, FLAG);
    v.number("input", output.input, INPUT);
    v.list("bands", output.bands);
}

template <typename Visitor>
void exchange(Visitor& v, Group& group) {
    v.number("power", group.power, FLAG);
    v.number("volume", group.volume, VOLUME);
    v.number("mute", group.mute, FLAG);
    v.number("input", group.input, INPUT);
}

template <typename Visitor>
void exchange(Visitor& v, Setting& setting) {
    v.list("zones", setting.zones);
    v.list("outputs", setting.outputs);
    v.list("groups", setting.groups);
}

/// An override's state is a bare number in memory and a record in the file.
struct OverrideState {
    int on;
};

template <typename Visitor>
void exchange(Visitor& v, OverrideState& state) {
    v.number("on", state.on, FLAG);
}

template <typename Visitor>
void exchange(Visitor& v, Memory& memory) {
    int format = FORMAT;
    v.number("format", format, {FORMAT, FORMAT});
    exchange(v, memory.setting);
    std::array<OverrideState, OVERRIDES> overrides{};
    for (std::size_t index = 0; index < overrides.size(); ++index)
        overrides[index].on = memory.overrides[index];
    v.list("overrides", overrides);
    for (std::size_t index = 0; index < overrides.size(); ++index)
        memory.overrides[index] = overrides[index].on;
    v.list("scenes", memory.scenes);
}

class Writer {
public:
    void number(const char* key, int value, Range) { object_.insert(QLatin1String(key), value); }

    template <typename Items>
    void list(const char* key, Items& items) {
        QJsonArray array;
        for (auto& item : items) {
            Writer writer;
            exchange(writer, item);
            array.append(writer.object_);
        }
        object_.insert(QLatin1String(key), array);
    }

    const QJsonObject& object() const { return object_; }

private:
    QJsonObject object_;
};

class Reader {
public:
    Reader(QJsonObject object, QString where, QString& error)
        : object_(std::move(object)), where_(std::move(where)), error_(error) {}

    void number(const char* key, int& value, Range range) {
        const double number = object_.value(QLatin1String(key)).toDouble(std::nan(""));
        if (!(number >= range.low && number <= range.high) || number != std::floor(number)) {
            fail(QStringLiteral("%1%2 is not a whole number from %3 to %4")
                     .arg(where_, QLatin1String(key))
                     .arg(range.low)
                     .arg(range.high));
            return;
        }
        value = static_cast<int>(number);
    }

    template <typename Items>
    void list(const char* key, Items& items) {
        const QJsonArray array = object_.value(QLatin1String(key)).toArray();
        if (array.size() != static_cast<qsizetype>(items.size())) {
            fail(
                QStringLiteral("%1%2 is not a list of %3").arg(where_, QLatin1String(key)).arg(items.size()));
            return;
        }
        for (qsizetype index = 0; index < array.size(); ++index) {
            Reader reader(array.at(index).toObject(),
                          QStringLiteral("%1%2[%3].").arg(where_, QLatin1String(key)).arg(index), error_);
            exchange(reader, items[static_cast<std::size_t>(index)]);
        }
    }

private:
    void fail(const QString& error) {
        if (error_.isEmpty())
            error_ = error;
    }

    QJsonObject object_;
    QString where_;
    QString& error_;
};

} // namespace

QByteArray toJson(const Memory& memory) {
    Memory copy = memory;
    Writer writer;
    exchange(writer, copy);
    return QJsonDocument(writer.object()).toJson(QJsonDocument::Compact);
}

std::optional<Memory> fromJson(const QByteArray& json, QString& error) {
    QJsonParseError parsing{};
    const QJsonDocument document = QJsonDocument::fromJson(json, &parsing);
    if (!document.isObject()) {
        error = parsing.error == QJsonParseError::NoError
                    ? QStringLiteral("it holds no JSON object")
                    : QStringLiteral("at byte %1, %2").arg(parsing.offset).arg(parsing.errorString());
        return std::nullopt;
    }
    error.clear();
    Memory memory;
    Reader reader(document.object(), QString(), error);
    exchange(reader, memory);
    if (!error.isEmpty())
        return std::nullopt;
    return memory;
}

StateFile::StateFile(const QString& path) : path_(path), file_(QFile::encodeName(path).toStdString()) {}

bool StateFile::load(Memory& memory, QString& message) const {
    const auto content = file_.read();
    if (!content.isThere)
        return true;
    if (!content.problem.isEmpty()) {
        message = QStringLiteral("The state file %1 can't be %2: %3. It is left alone.")
                      .arg(path_, content.isRegular ? QStringLiteral("read") : QStringLiteral("used"),
                           content.problem);
        return false;
    }
    QString error;
    if (content.text.size() > WholeFile::LONGEST) {
        error = QStringLiteral("it is too long for one");
    } else if (const auto read = fromJson(content.text, error)) {
        memory = *read;
        return true;
    }
    const auto aside = file_.setAside(
        [](int n) { return n == 1 ? QStringLiteral(".bad") : QStringLiteral(".bad%1").arg(n); });
    const bool isAside = aside.problem.isEmpty();
    message = QStringLiteral("The state file %1 can't be used: %2. ").arg(path_, error) +
              (isAside ? QStringLiteral("It is kept as %1, and the unit starts with a new state.")
                       : QStringLiteral("It can't be set aside as %1 either."))
                  .arg(aside.name);
    return isAside;
}

bool StateFile::save(const Memory& memory, QString& message) const {
    const auto problem = file_.replace(toJson(memory));
    if (!problem.isEmpty())
        message = QStringLiteral("The state file %1 can't be written: %2.").arg(path_, problem);
    return problem.isEmpty();
}

} // namespace lumbra::sim
