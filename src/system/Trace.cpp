#include "system/Trace.h"

#include "system/Printable.h"
#include "text/Json.h"

#include <QDateTime>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <set>

namespace lumbra {

namespace {

using Kind = TraceEntry::Kind;

struct EventName {
    Kind kind;
    const char* name;
};
constexpr std::array<EventName, 6> EVENTS{{{Kind::Attempt, "attempt"},
                                           {Kind::Opened, "opened"},
                                           {Kind::Error, "error"},
                                           {Kind::End, "end"},
                                           {Kind::Closed, "closed"},
                                           {Kind::Full, "full"}}};

constexpr auto TIME_LIMIT = 1e9; // s

std::string textOf(const QJsonValue& value) {
    return value.toString().toStdString();
}

/// The text that stands for bytes in a trace, as UTF-8.
std::string charactersOf(const std::string& bytes) {
    return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size())).toStdString();
}

/// The bytes that a text of a trace stands for; nothing if it is no such text.
std::optional<std::string> bytesOf(const QJsonValue& value) {
    const auto text = value.toString();
    const auto isByte = [](QChar c) { return c.unicode() <= 0xFF; };
    if (!value.isString() || !std::all_of(text.begin(), text.end(), isByte))
        return std::nullopt;
    return text.toLatin1().toStdString();
}

/// Reads the lines behind the first. What is wrong is the end of a sentence that begins with the line.
class EntryReader {
public:
    std::string read(const QJsonObject& object, TraceEntry& entry) {
        if (object.contains(QLatin1String("step")))
            return readStep(object, entry);
        if (auto problem = readTime(object, entry); !problem.empty())
            return problem;
        if (textOf(object.value(QLatin1String("event"))) == "full") {
            entry.kind = Kind::Full;
            return {};
        }
        entry.link = object.value(QLatin1String("link")).toInt();
        if (entry.link < 1)
            return "has no \"link\", a number from 1 on";
        auto problem =
            object.contains(QLatin1String("event")) ? readEvent(object, entry) : readBytes(object, entry);
        if (problem.empty() && entry.kind != Kind::Attempt && !attempts_.contains(entry.link))
            problem = "is about link " + std::to_string(entry.link) + ", of which no attempt is known";
        return problem;
    }

private:
    std::string readTime(const QJsonObject& object, TraceEntry& entry) {
        const auto time = object.value(QLatin1String("time")).toDouble(-1);
        if (!(time >= 0))
            return "has no \"time\" in seconds";
        if (time >= TIME_LIMIT)
            return "has a \"time\" of 1000000000 seconds or more, which is too long for a trace";
        entry.time = std::chrono::microseconds(std::llround(time * 1e6));
        if (entry.time < last_)
            return "is earlier than the one before";
        last_ = entry.time;
        return {};
    }
    std::string readStep(const QJsonObject& object, TraceEntry& entry) {
        entry.kind = Kind::Step;
        entry.text = textOf(object.value(QLatin1String("step")));
        entry.time = last_;
        return object.contains(QLatin1String("time")) ? readTime(object, entry) : std::string();
    }
    std::string readEvent(const QJsonObject& object, TraceEntry& entry) {
        const auto name = textOf(object.value(QLatin1String("event")));
        const auto* const event =
            std::find_if(EVENTS.begin(), EVENTS.end(), [&](const auto& known) { return known.name == name; });
        if (event == EVENTS.end())
            return "has an event that is not known, \"" + printable(name) + "\"";
        entry.kind = event->kind;
        if (entry.kind != Kind::Attempt)
            return {};
        entry.text = textOf(object.value(QLatin1String("host")));
        const auto port = object.value(QLatin1String("port")).toInt();
        if (port < 1 || port > 65535)
            return "has no \"port\" from 1 to 65535";
        entry.port = static_cast<std::uint16_t>(port);
        if (!attempts_.insert(entry.link).second)
            return "begins link " + std::to_string(entry.link) + " again";
        return {};
    }
    static std::string readBytes(const QJsonObject& object, TraceEntry& entry) {
        const auto sent = object.value(QLatin1String("sent"));
        const auto received = object.value(QLatin1String("received"));
        if (sent.isUndefined() == received.isUndefined())
            return "has not one of \"event\", \"sent\" and \"received\"";
        entry.kind = received.isUndefined() ? Kind::Sent : Kind::Received;
        const auto bytes = bytesOf(received.isUndefined() ? sent : received);
        const auto rest = object.value(QLatin1String("not_sent"));
        const auto restBytes = rest.isUndefined() ? std::string() : bytesOf(rest);
        if (!bytes || !restBytes)
            return "has bytes that are no text of characters up to \\u00ff";
        entry.text = *bytes;
        entry.notSent = *restBytes;
        entry.failed = object.value(QLatin1String("failed")).toBool();
        return {};
    }

    std::chrono::microseconds last_{};
    std::set<int> attempts_;
};

} // namespace

std::string formatTraceStart(const TraceStart& start) {
    return Json::asciiLine([&](Json& json) {
        json.field("trace", 1).field("program", "lumbra-remote").field("version", LUMBRA_VERSION);
        json.field("time", QDateTime::currentDateTimeUtc().toString(Qt::ISODate).toStdString());
        json.field("options", start.options).object("settings", [&](Json& settings) {
            for (const auto& [key, value] : start.settings)
                std::visit(
                    [&, name = std::string_view(key)](const auto& plain) { settings.field(name, plain); },
                    value);
        });
    });
}

std::string formatTraceEntry(const TraceEntry& entry) {
    return Json::asciiLine([&](Json& json) {
        json.field("time", entry.time);
        if (entry.kind != Kind::Full)
            json.field("link", entry.link);
        if (entry.kind == Kind::Sent || entry.kind == Kind::Received) {
            json.field(entry.kind == Kind::Sent ? "sent" : "received", charactersOf(entry.text));
            if (!entry.notSent.empty())
                json.field("not_sent", charactersOf(entry.notSent));
            if (entry.failed)
                json.field("failed", true);
            return;
        }
        const auto* const event = std::find_if(EVENTS.begin(), EVENTS.end(),
                                               [&](const auto& known) { return known.kind == entry.kind; });
        json.field("event", event->name);
        if (entry.kind == Kind::Attempt)
            json.field("host", entry.text).field("port", int{entry.port});
        else if (entry.kind == Kind::Full)
            json.field("limit", entry.limit);
    });
}

std::variant<Trace, std::string> parseTrace(const QByteArray& text) {
    if (!text.startsWith(QByteArray::fromRawData(TRACE_MARK.data(), TRACE_MARK.size())))
        return "Line 1 is not the first line of a trace, which begins with " + std::string(TRACE_MARK) + ".";
    Trace trace;
    EntryReader reader;
    int number = 0;
    for (qsizetype begin = 0, end = 0; (end = text.indexOf('\n', begin)) >= 0; begin = end + 1) {
        const auto line = text.mid(begin, end - begin);
        QJsonParseError error;
        const auto document = QJsonDocument::fromJson(line, &error);
        const auto where = "Line " + std::to_string(++number);
        if (!document.isObject())
            return where + " is no JSON object: " +
                   (error.error == QJsonParseError::NoError ? "it is a list."
                                                            : error.errorString().toStdString() + ".");
        const auto object = document.object();
        if (number == 1) {
            if (object.value(QLatin1String("trace")).toInt() != 1)
                return "Line 1 is the first line of a trace of another version of the format.";
            trace.start = {textOf(object.value(QLatin1String("options"))), {}};
            const auto settings = object.value(QLatin1String("settings")).toObject();
            for (auto setting = settings.begin(); setting != settings.end(); ++setting)
                trace.start.settings.emplace(setting.key().toStdString(),
                                             setting->isBool() ? SettingValue(setting->toBool())
                                                               : std::int64_t{setting->toInteger()});
            continue;
        }
        TraceEntry entry;
        entry.line = number;
        if (const auto problem = reader.read(object, entry); !problem.empty())
            return std::string(where).append(" ").append(problem).append(".");
        trace.entries.push_back(std::move(entry));
    }
    return trace;
}

std::variant<Trace, std::string> readTrace(const std::string& path) {
    QFile file(QFile::decodeName(path.c_str()));
    const auto failed = [&] {
        return "Can't read the trace in " + path + ": " + file.errorString().toStdString() + ".";
    };
    if (!file.open(QFile::ReadOnly))
        return failed();
    // The first line tells whether the rest, which may have no end, is worth reading.
    auto text = file.peek(TRACE_MARK.size());
    if (text == QByteArray::fromRawData(TRACE_MARK.data(), TRACE_MARK.size()))
        text = file.read(LONGEST_TRACE + 1);
    if (file.error() != QFile::NoError)
        return failed();
    if (text.size() > LONGEST_TRACE)
        return "Can't read the trace in " + path + ": it is larger than 1 GiB.";
    auto result = parseTrace(text);
    if (const auto* problem = std::get_if<std::string>(&result))
        return path + " holds no trace that can be read. " + *problem;
    return result;
}

} // namespace lumbra
