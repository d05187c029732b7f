#pragma once

#include "app/Application.h"
#include "app/Settings.h"
#include "program/Options.h"
#include "system/QtMainQueue.h"
#include "system/ThreadWorker.h"

#include <QString>

#include <memory>
#include <optional>

namespace lumbra {

class TraceFile;

namespace sim {
class UnitServer;
}

/// The application on its platform, set up as the command line asks. It is the same for every front end.
/// Needs the Qt application object. Main thread only.
class ApplicationHost {
public:
    /// Opens the settings and the trace. Nothing is stored or connected before `build`.
    explicit ApplicationHost(Options options);
    ~ApplicationHost();
    ApplicationHost(const ApplicationHost&) = delete;
    ApplicationHost& operator=(const ApplicationHost&) = delete;

    /// False if the user must be asked where the unit is: the program would connect to its address, and none
    /// has been stored.
    bool knowsTheUnit() const;
    /// Builds the application, once. Stores `unit` before, if there is one. False with an `error`.
    bool build(const std::optional<UnitPlace>& unit = {});
    /// Why the application can't be built, as a sentence; empty if it can.
    const QString& error() const { return error_; }
    /// Only after `build`.
    Application& application() { return *application_; }

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
