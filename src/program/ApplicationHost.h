#pragma once

#include "app/Application.h"
#include "program/Options.h"
#include "system/QtMainQueue.h"
#include "system/ThreadWorker.h"

#include <QString>

#include <memory>

namespace lumbra {

class TraceFile;

namespace sim {
class UnitServer;
}

/// The application on its platform, set up as the command line asks. It is the same for every front end.
/// Needs the Qt application object. Main thread only.
class ApplicationHost {
public:
    explicit ApplicationHost(const Options& options);
    /// False if the user must be asked where the unit is: the program would connect to its address, and none
    /// has been stored.
    static bool knowsTheUnit(const Options& options);
    ~ApplicationHost();
    ApplicationHost(const ApplicationHost&) = delete;
    ApplicationHost& operator=(const ApplicationHost&) = delete;

    /// Why the application could not be set up, as a sentence; empty on success.
    const QString& error() const { return error_; }
    /// Only without an `error`.
    Application& application() { return *application_; }

private:
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
