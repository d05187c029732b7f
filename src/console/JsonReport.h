#pragma once

#include "console/Output.h"
#include "console/Report.h"

namespace lumbra {

/// Replies and events for programs: JSON Lines, one object a line, UTF-8.
class JsonReport final : public Report {
public:
    /// `output` outlives the report.
    explicit JsonReport(Output& output) : output_(output) {}

    void done(std::string_view command) override;
    void failed(std::string_view command, std::string_view error) override;
    void state(std::string_view command, const TabBarController& tabs, const std::optional<Alert>& alert,
               LinkState link) override;
    void settings(std::string_view command, std::span<const StoredSetting> settings) override;
    void help(std::string_view command, std::span<const ConsoleCommand> commands) override;

    void screenChanged(const TabBarController& tabs) override;
    void controlChanged(const View& screen, const View::Item& item) override;
    void alertAskedFor(const Alert& alert) override;
    void linkChanged(LinkState link) override;

private:
    template <class Write>
    void line(Write write);

    Output& output_;
};

} // namespace lumbra
