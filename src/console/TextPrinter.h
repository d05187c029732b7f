#pragma once

#include "script/Output.h"
#include "script/Printer.h"

#include <string>

namespace lumbra::console {

/// Prints replies and events for people: tables and short lines. Text from the unit is escaped, so it cannot
/// control the terminal.
class TextPrinter final : public script::Printer {
public:
    /// `output` outlives the printer.
    explicit TextPrinter(script::Output& output) : output_(output) {}

    void done(std::string_view command) override;
    void failed(std::string_view command, std::string_view error) override;
    void state(std::string_view command, const script::State& state) override;
    void settings(std::string_view command, std::span<const script::StoredSetting> settings) override;
    void help(std::string_view command, std::span<const script::Command> commands) override;

    void screenChanged(const TabBarController& tabs) override;
    void controlChanged(const View& screen, const View::Item& item, const Hand* hand) override;
    void alertAskedFor(const Alert& alert) override;
    void alertWithdrawn() override;
    void linkChanged(LinkState link) override;
    void statusChanged(ScreenStatus status) override;
    void itemChanged(const View& screen, std::size_t row, const ItemRow& item) override;

private:
    script::Output& output_;
    std::string lastChange_; ///< the last line about a control of the present screen
};

} // namespace lumbra::console
