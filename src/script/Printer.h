#pragma once

#include "app/Hands.h"
#include "app/Settings.h"
#include "app/StatusMonitor.h"
#include "link/ServerConnection.h"
#include "platform/SettingsStore.h"
#include "toolkit/Alert.h"
#include "toolkit/ItemList.h"
#include "toolkit/TabBarController.h"
#include "toolkit/View.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace lumbra::script {

struct Command;

/// A setting, which may be absent.
struct StoredSetting {
    std::string_view key;
    std::optional<SettingValue> value;
};

/// What the `state` command shows.
struct State {
    const TabBarController& tabs;
    Hands& hands;                      ///< on the controls
    const std::optional<Alert>& alert; ///< the alert that is shown, if any
    LinkState link;
    ScreenStatus status;
    std::string_view address; ///< where the link goes
    std::int64_t unit;
    bool retrying;         ///< a closed link is opened again without the user
    const ItemList* items; ///< null on a screen without items
};

/// Prints replies and events. There is one implementation for programs and one for people. Main thread only.
class Printer {
public:
    virtual ~Printer() = default;

    // Replies. `command` is the name of the command.
    virtual void done(std::string_view command) = 0;
    /// `error` is a sentence for the user.
    virtual void failed(std::string_view command, std::string_view error) = 0;
    virtual void state(std::string_view command, const State& state) = 0;
    virtual void settings(std::string_view command, std::span<const StoredSetting> settings) = 0;
    virtual void help(std::string_view command, std::span<const Command> commands) = 0;

    // Events.
    virtual void screenChanged(const TabBarController& tabs) = 0;
    /// `hand` is the hand on the control; null if there has never been one.
    virtual void controlChanged(const View& screen, const View::Item& item, const Hand* hand) = 0;
    virtual void alertAskedFor(const Alert& alert) = 0;
    /// The program has withdrawn the alert.
    virtual void alertWithdrawn() = 0;
    virtual void linkChanged(LinkState link) = 0;
    virtual void statusChanged(ScreenStatus status) = 0;
    virtual void itemChanged(const View& screen, std::size_t row, const ItemRow& item) = 0;
};

} // namespace lumbra::script
