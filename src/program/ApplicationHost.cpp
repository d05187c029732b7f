#include "program/ApplicationHost.h"

#include "app/Settings.h"
#include "platform/MemorySettingsStore.h"
#include "simulator/UnitServer.h"
#include "system/FilePath.h"
#include "system/FileSettingsStore.h"
#include "system/FixedReachability.h"
#include "system/NetworkReachability.h"
#include "system/RedirectingStreamFactory.h"
#include "system/SocketAddress.h"
#include "system/SocketStreamFactory.h"
#include "system/TraceFile.h"
#include "system/TracingStreamFactory.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace lumbra {

namespace {

/// The file of the settings; empty: they are not stored.
QString settingsFile(const Options& options) {
    if (options.demo && options.settingsFile.isEmpty())
        return {};
    return !options.settingsFile.isEmpty()
               ? options.settingsFile
               : QDir(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation))
                     .filePath(QStringLiteral("settings.json"));
}

std::unique_ptr<SettingsStore> openSettings(const std::string& path, MainQueue& queue) {
    if (path.empty())
        return std::make_unique<MemorySettingsStore>();
    return std::make_unique<FileSettingsStore>(queue, path);
}

/// The unit of the demo has the number that the settings ask for.
int demoUnitNumber(const SettingsStore& settings) {
    const auto stored = settings.integer(UNIT_NUMBER_PREFERENCE);
    return static_cast<int>(std::clamp(stored, MIN_UNIT_NUMBER, MAX_UNIT_NUMBER));
}

/// What a reader of a trace must know of this run. No names of files, and no address but the one connected to.
TraceStart traceStart(const Options& options, const SettingsStore& settings) {
    TraceStart start{.options = publicOptions(options.given)};
    for (const auto& [key, type, caption, explanation] : SETTINGS)
        if (type != SettingEntry::Type::Text && settings.value(key))
            start.settings.emplace(key, type == SettingEntry::Type::Flag ? SettingValue(settings.flag(key))
                                                                         : settings.integer(key));
    return start;
}

} // namespace

ApplicationHost::ApplicationHost(Options options)
    : options_(std::move(options)), sockets_(std::make_unique<SocketStreamFactory>(queue_)) {
    auto settings = QFile::encodeName(settingsFile(options_)).toStdString();
    const auto trace = QFile::encodeName(options_.traceFile).toStdString();
    if (!trace.empty() && !settings.empty() && areOneFile(trace, settings)) {
        error_ = QStringLiteral("The trace can't be written to %1: the settings are kept there.")
                     .arg(options_.traceFile);
        settings.clear(); // a trace would be set aside as settings that can't be read
    }
    settings_ = openSettings(settings, queue_);
    if (trace.empty() || !error_.isEmpty())
        return;
    trace_ = std::make_unique<TraceFile>(queue_, trace, FileSettingsStore::reportOnStandardError,
                                         options_.traceLimit);
    tracing_ = std::make_unique<TracingStreamFactory>(*sockets_, *trace_);
    error_ = QString::fromStdString(trace_->error());
}

bool ApplicationHost::knowsTheUnit() const {
    return options_.demo || options_.connectTo || settings_->value(IP_ADDRESS_PREFERENCE);
}

bool ApplicationHost::prepare(const std::optional<UnitPlace>& unit) {
    if (!error_.isEmpty())
        return false;
    if (unit)
        storeUnit(*settings_, *unit);
    auto place = options_.connectTo;
    if (options_.demo) {
        demoUnit_ = std::make_unique<sim::UnitServer>(sim::Unit(demoUnitNumber(*settings_)));
        if (!demoUnit_->listen()) {
            error_ = QStringLiteral("The simulated unit can't listen on the loopback: ") +
                     demoUnit_->errorString();
            return false;
        }
        place = HostPort{demoUnit_->address().toString().toStdString(), demoUnit_->port()};
    }
    if (trace_)
        trace_->start(traceStart(options_, *settings_));
    auto& network = tracing_ ? *tracing_ : *sockets_;
    if (place) {
        redirection_ = std::make_unique<RedirectingStreamFactory>(network, *place);
        if (isLoopbackHost(place->host))
            reachability_ = std::make_unique<FixedReachability>(true);
    }
    if (!reachability_)
        reachability_ = std::make_unique<NetworkReachability>();
    return true;
}

Platform ApplicationHost::platform() {
    return {queue_, worker_,
            redirection_ ? *redirection_
            : tracing_   ? *tracing_
                         : *sockets_,
            *reachability_, *settings_};
}

bool ApplicationHost::build(const std::optional<UnitPlace>& unit) {
    if (!prepare(unit))
        return false;
    application_ = std::make_unique<Application>(platform(), options_.keepConnected ? Reconnection::Automatic
                                                                                    : Reconnection::ByUser);
    return true;
}

ApplicationHost::~ApplicationHost() {
    // What the worker runs uses the stream factories and the reachability. A pair of streams that it has handed
    // over waits in the queue, and must not outlive its factory.
    worker_.stop();
    application_.reset();
    queue_.drop();
}

} // namespace lumbra
