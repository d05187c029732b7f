#pragma once

#include "script/Output.h"
#include "script/Printer.h"
#include "text/Json.h"

namespace lumbra::script {

/// Prints replies and events for programs: JSON Lines, one object a line, in UTF-8.
class JsonPrinter final : public Printer {
public:
    /// `output` outlives the printer.
    explicit JsonPrinter(Output& output) : output_(output) {}

    void done(std::string_view command) override;
    void failed(std::string_view command, std::string_view error) override;
    void state(std::string_view command, const State& state) override;
    void settings(std::string_view command, std::span<const StoredSetting> settings) override;
    void help(std::string_view command, std::span<const Command> commands) override;

    void screenChanged(const TabBarController& tabs) override;
    void controlChanged(const View& screen, const View::Item& item, const Hand* hand) override;
    void alertAskedFor(const Alert& alert) override;
    void alertWithdrawn() override;
    void linkChanged(LinkState link) override;
    void statusChanged(ScreenStatus status) override;
    void itemChanged(const View& screen, std::size_t row, const ItemRow& item) override;

private:
    template <class Write>
    void line(Write write) {
        output_.write(Json::line(write));
    }

    Output& output_;
};

} // namespace lumbra::script
