#pragma once

#include "app/Application.h"
#include "app/Settings.h"
#include "program/Options.h"
#include "system/QtMainQueue.h"
#include "system/ThreadWorker.h"

#include <QString>

#include <memory>
#include <optional>
#include <string>

namespace lumbra {

class TraceFile;

namespace sim {
class UnitServer;
}

/// The application on its platform, or the platform for more than one, set up as the command line asks. It is the same for every front end.
/// Needs the Qt application object. Main thread only.
class ApplicationHost {
public:
    /// Opens the settings and the trace. Nothing is stored or connected before `prepare`.
    explicit ApplicationHost(Options options);
    ~ApplicationHost();
    ApplicationHost(const ApplicationHost&) = delete;
    ApplicationHost& operator=(const ApplicationHost&) = delete;

    /// False if the user must be asked where the unit is: the program would connect to its address, and none
    /// has been stored.
    bool knowsTheUnit() const;
    /// Makes the platform, once. Stores `unit` before, if there is one. False with an `error`.
    bool prepare(const std::optional<UnitPlace>& unit = {});
    /// The same, and the application on it.
    bool build(const std::optional<UnitPlace>& unit = {});
    /// Why there is no platform, as a sentence; empty if there is one.
    const QString& error() const { return error_; }
    /// For any number of applications, which end before the host, and after `stop`. Only after `prepare`.
    Platform platform();
    /// Only after `build`.
    Application& application() { return *application_; }
    /// Where every connection goes, as HOST:PORT; empty: to the unit's address.
    std::string place() const {
        return options_.connectTo ? formatHostPort(*options_.connectTo) : std::string();
    }
    /// Stops the worker: what it uses may end from now on.
    void stop() { worker_.stop(); }

private:
    const Options options_;
    QtMainQueue queue_;
    ThreadWorker worker_;
    std::unique_ptr<SettingsStore> settings_;
    std::unique_ptr<sim::UnitServer> demoUnit_;
    std::unique_ptr<StreamFactory> sockets_;
    std::unique_ptr<TraceFile> trace_; ///< null: nothing is traced
    std::unique_ptr<StreamFactory> tracing_;
    std::unique_ptr<StreamFactory> redirection_;
    std::unique_ptr<Reachability> reachability_;
    std::unique_ptr<Application> application_;
    QString error_;
};

} // namespace lumbra
