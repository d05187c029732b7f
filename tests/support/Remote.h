#pragma once

#include "ManualQueue.h"
#include "ManualWorker.h"
#include "ScriptedStreams.h"
#include "app/Application.h"
#include "app/Finger.h"
#include "platform/MemorySettingsStore.h"
#include "toolkit/Controls.h"

#include <charconv>
#include <cmath>
#include <map>
#include <sstream>
#include <stdexcept>

namespace lumbra {

/// Runs the steps of a script, which stand on lines of their own or with " ; " between them. `run` gives what went wrong
/// at a step, or an empty text; so does this of them all.
template <class Run>
std::string runSteps(std::string_view script, Run run) {
    std::istringstream lines{std::string(script)};
    std::string problems;
    for (std::string line; std::getline(lines, line);) {
        auto at = std::min(line.find_first_not_of(' '), line.size());
        while (at < line.size()) {
            const auto end = std::min(line.find(" ; ", at), line.size());
            const auto step = line.substr(at, end - at);
            if (const std::string problem = run(step); !problem.empty())
                problems.append(step).append("\n    ").append(problem).append("\n");
            at = end + 3;
        }
    }
    return problems;
}

struct SwitchableReachability final : Reachability {
    bool reachable = true;
    bool isReachable() const override { return reachable; }
};

/// What remotes may share, and what outlives them.
struct House {
    ManualQueue queue;
    ManualWorker worker;
    ScriptedStreamFactory streams;
    SwitchableReachability reachability;
};

/// The whole application on virtual time and scripted streams, driven and looked at by short steps of text, so that a
/// test can be a table of them:
///
///     tab output                      a hand selects a tab, by the screen's name
///     > U1Z3V-30                      the report arrives
///     raw U1Z3                        bytes arrive
///     pick zonePicker 2               a hand on a control; likewise slide, switch, segment, press
///     wait 0.75                       seconds of virtual time
///     connect, end, error             what becomes of the newest pair of streams
///     output error                    an event of one of its streams: opened, bytes, space, error, end
///     reads -1, write 3               what its next read or write returns
///     nudge volumeSlider 11           a hand moves a slider by so much, as a key does
///     touch volumeSlider, drag -30    a finger is put on a slider, moves it there; lift, or hands are taken off: off
///     network off, threads off        what the system no longer has
///     away, back, resign, activate    the application leaves, comes back; one half of it
///     reconnect                       the user asks for the link
///     set KEY VALUE, unset KEY        a stored setting
///     hold, settle                    from now on what is posted waits; runs it, and waits no longer
///     turn, work                      runs one turn of the held queue; the held worker
///
///     sent [U1Z3V-20] [U1Z3M1]        all that was sent since the last such step; nothing behind it: nothing was
///     show volumeLabel 62%            what a control shows; volume@2 and mute@2 are those of a row, here and above
///     row 2 Patio, Source 1?, -40, on what the list tells of a row, "?" what it does not know; then what it has asked
///     known volumeSlider volumeLabel  all controls with a known value; likewise unknown
///     limit volumeSlider -20          the highest value that the unit allows
///     link open                       the link's state; likewise status, alert, screen, sockets, stored KEY
///     alerts 1                        how many alerts were asked for since the last such step
///     peer 10.0.0.9:23                whereto the newest pair of streams leads
///     hand volumeSlider -29.5 held    what the hand on a slider shows, and whether it holds it
///
/// `play` gives what went wrong, or an empty text.
class Remote {
    const std::shared_ptr<House> house_;

public:
    ManualQueue& queue = house_->queue;
    ManualWorker& worker = house_->worker;
    ScriptedStreamFactory& streams = house_->streams;
    SwitchableReachability& reachability = house_->reachability;
    MemorySettingsStore settings;
    Application application;

    /// The application uses what `around` makes of the scripted streams.
    explicit Remote(Reconnection reconnection = Reconnection::ByUser, MemorySettingsStore stored = {},
                    const std::function<StreamFactory&(StreamFactory&)>& around = std::identity(),
                    std::shared_ptr<House> house = std::make_shared<House>())
        : house_(std::move(house)),
          settings(std::move(stored)),
          application({queue, worker, around(streams), reachability, settings}, reconnection) {}

    /// Launches and runs the worker; with `connected`, the streams then open and what was sent so far is forgotten.
    void launch(bool connected = true) {
        application.launch();
        settle();
        if (connected) {
            streams.last().connect();
            settle();
            sent();
        }
    }

    /// Runs what the worker and the queue hold, without letting time pass.
    void settle() {
        do
            queue.runPosted();
        while (worker.run() > 0);
    }

    void report(std::string_view text) { streams.last().feed("(" + std::string(text) + ")"); }

    /// All writes of all pairs since the last call, each one command or what was made of it.
    std::vector<std::string> sent() {
        std::vector<std::string> all;
        for (std::size_t index = 0; index < streams.created(); ++index)
            for (auto& text : std::exchange(streams.pair(index).writes, {}))
                all.push_back(std::move(text));
        return all;
    }

    const View& screen() { return application.tabs().selectedViewController()->view(); }

    template <class T>
    T& control(std::string_view name) {
        std::shared_ptr<Control> any = screen().find(name);
        if (const auto at = name.find('@'); at != std::string_view::npos) {
            const auto row = std::stoul(std::string(name.substr(at + 1)));
            any = name[0] == 'v' ? std::shared_ptr<Control>(application.items()->volumeOf(row))
                                 : application.items()->muteOf(row);
        }
        auto found = std::dynamic_pointer_cast<T>(any);
        if (!found)
            throw std::runtime_error("no such control on the screen: " + std::string(name));
        return *found;
    }

    std::string play(std::string_view script) {
        return runSteps(script, [this](const std::string& step) {
            auto problem = run(step);
            if (!held_)
                settle();
            return problem;
        });
    }

    /// What a control shows: a switch "on" or "off", a picker's selected row and its text, "- " where disabled.
    std::string shown(std::string_view name) {
        const auto& shown = control<Control>(name);
        return (shown.isEnabled() ? "" : "- ") +
               visit(shown,
                     Overloads{
                         [](const Picker& picker) {
                             return picker.rows().empty()
                                        ? "none"
                                        : std::to_string(picker.selected()) + " " + picker.selectedText() +
                                              " of " + std::to_string(picker.rows().size());
                         },
                         [](const Slider& slider) { return written(slider.value()); },
                         [](const Switch& onOff) { return std::string(onOff.isOn() ? "on" : "off"); },
                         [](const SegmentedControl& types) { return std::to_string(types.selected()); },
                         [](const Label& label) { return label.text(); },
                         [](const ActivityIndicator& spinner) {
                             return std::string(spinner.isAnimating() ? "turning" : "stopped");
                         },
                         [](const Button& button) { return button.title(); },
                     });
    }

    Hand& hand(std::string_view name) {
        return application.hands().on(std::dynamic_pointer_cast<Slider>(screen().find(name)));
    }

private:
    static std::string written(float value) {
        char text[32];
        return {text, std::to_chars(text, text + 32, value).ptr};
    }
    /// What stands before the first blank of a text, and behind it.
    static std::pair<std::string, std::string> cut(const std::string& text) {
        const auto blank = std::min(text.find(' '), text.size());
        return {text.substr(0, blank), text.substr(std::min(blank + 1, text.size()))};
    }

    /// Does or looks at what a step says; what went wrong.
    std::string run(const std::string& step) {
        const auto words = cut(step);
        const auto& rest = words.second;
        const auto more = cut(rest);
        const auto& name = more.first;
        const auto& value = more.second;
        const std::map<std::string_view, std::function<bool()>> doings{
            {">", [&] { return report(rest), true; }},
            {"raw", [&] { return streams.last().feed(rest); }},
            {"tab", [&] { return selectTab(rest); }},
            {"pick", [&] { return control<Picker>(name).pickByUser(std::stoi(value)); }},
            {"slide", [&] { return control<Slider>(name).slideByUser(std::stof(value)); }},
            {"switch", [&] { return control<Switch>(name).flipByUser(value == "on"); }},
            {"segment", [&] { return control<SegmentedControl>(name).tapByUser(std::stoi(value)); }},
            {"press", [&] { return control<Button>(name).pressByUser(); }},
            {"wait",
             [&] {
                 return queue.advance(std::chrono::milliseconds(std::lround(std::stod(rest) * 1e3))), true;
             }},
            {"nudge", [&] { return hand(name).moveTo(hand(name).shown() + std::stof(value)); }},
            {"touch", [&] { return finger_.emplace(hand(name)).press(); }},
            {"drag", [&] { return finger_->dragTo(std::stof(rest)), true; }},
            {"lift", [&] { return finger_->lift(), true; }},
            {"off", [&] { return application.hands().cancel(), true; }},
            {"connect", [&] { return streams.last().connect(), true; }},
            {"error", [&] { return streams.last().fireInput(StreamEvent::ErrorOccurred); }},
            {"end", [&] { return streams.last().fireInput(StreamEvent::EndEncountered); }},
            {"input", [&] { return streams.last().fireInput(event(rest)); }},
            {"output", [&] { return streams.last().fireOutput(event(rest)); }},
            {"reads", [&] { return streams.last().readResults.push_back(std::stoi(rest)), true; }},
            {"write", [&] { return streams.last().writeResults.push_back(std::stoi(rest)), true; }},
            {"network", [&] { return reachability.reachable = rest == "on", true; }},
            {"threads", [&] { return worker.hasThread = rest == "on", true; }},
            {"away", [&] { return application.resignActive(), application.enterBackground(), true; }},
            {"back", [&] { return application.enterForeground(), application.becomeActive(), true; }},
            {"resign", [&] { return application.resignActive(), true; }},
            {"activate", [&] { return application.becomeActive(), true; }},
            {"reconnect", [&] { return application.reconnect(), true; }},
            {"set", [&] { return settings.setValue(name, typed(value)), true; }},
            {"unset", [&] { return settings.remove(name), true; }},
            {"hold", [&] { return held_ = true; }},
            {"settle", [&] { return !(held_ = false); }},
            {"turn", [&] { return queue.runTurn() > 0; }},
            {"work", [&] { return worker.run() > 0; }},
        };
        const std::map<std::string_view, std::function<std::string()>> looks{
            {"sent", [&] { return joined(sent()); }},
            {"peer", [&] { return streams.last().host + ":" + std::to_string(streams.last().port); }},
            {"link", [&] { return std::string(nameOf(application.link().linkState())); }},
            {"status", [&] { return std::string(nameOf(application.status().status())); }},
            {"screen", [&] { return screen().name(); }},
            {"alerts", [&] { return std::to_string(std::exchange(alertCount_, 0)); }},
            {"alert",
             [&] {
                 return application.alerts().shown().value_or(Alert{{}, {"none"}, {}}).message.english();
             }},
            {"sockets", [&] { return std::to_string(streams.liveStreams() / 2); }},
            {"show", [&] { return name + " " + shown(name); }},
            {"hand",
             [&] { return name + " " + written(hand(name).shown()) + (hand(name).isHeld() ? " held" : ""); }},
            {"row", [&] { return name + " " + row(std::stoul(name)); }},
            {"known", [&] { return joined(controls(true)); }},
            {"unknown", [&] { return joined(controls(false)); }},
            {"limit",
             [&] { return name + " " + std::to_string(std::lround(control<Slider>(name).limit().value())); }},
            {"stored", [&] { return name + " " + told(settings.value(name)); }},
        };
        if (const auto look = looks.find(words.first); look != looks.end()) {
            const auto found = look->second();
            return found == rest ? "" : "found '" + found + "'";
        }
        const auto doing = doings.find(words.first);
        return doing == doings.end() ? "no such step" : doing->second() ? "" : "refused";
    }

    void noteRows(std::optional<std::size_t> row) {
        rows_.resize(list_->rowCount());
        for (auto number = row.value_or(0); number < (row ? *row + 1 : rows_.size()); ++number)
            rows_[number] = list_->row(number);
    }
    /// As the list last announced it, from the first look at one of its rows on.
    std::string row(std::size_t number) {
        if (const auto* const list = application.items(); std::exchange(list_, list) != list) {
            noteRows({});
            rowChanges_ = list_->onRowChange([this](auto changed) { noteRows(changed); });
        }
        const auto& row = rows_.at(number);
        const auto& volume = *list_->volumeOf(number);
        const auto reading = [](const Slider& slider, std::int64_t level) {
            return slider.readingOf(static_cast<float>(level));
        };
        if (row.known.volume != volume.known() || row.known.mute != list_->muteOf(number)->known() ||
            row.level != reading(control<Slider>("volumeSlider"), row.volume) ||
            (row.askedVolume && row.askedLevel != reading(volume, *row.askedVolume)))
            return "is not what its controls tell";
        const auto value = [](const std::string& text, bool known) { return text + (known ? ", " : "?, "); };
        const auto text = value(row.name, row.known.name) + value(row.input, row.known.input) +
                          value(std::to_string(row.volume), row.known.volume) +
                          value(row.mute ? "on" : "off", row.known.mute) +
                          (row.power ? value(*row.power ? "on" : "off", row.known.power) : "") +
                          (row.askedInput ? "asked " + *row.askedInput + ", " : "") +
                          (row.askedVolume ? "asked " + std::to_string(*row.askedVolume) + ", " : "");
        return text.substr(0, text.size() - 2);
    }
    std::vector<std::string> controls(bool known) {
        std::vector<std::string> names;
        for (const auto& item : screen().items())
            if (item.control->known() == known)
                names.push_back(item.name);
        return names;
    }
    bool selectTab(const std::string& name) {
        const auto& tabs = application.tabs().viewControllers();
        const auto found =
            std::find_if(tabs.begin(), tabs.end(), [&](auto& tab) { return tab->view().name() == name; });
        return application.tabs().selectByUser(static_cast<int>(found - tabs.begin()));
    }
    static StreamEvent event(const std::string& name) {
        static const std::map<std::string, StreamEvent> events{{"opened", StreamEvent::OpenCompleted},
                                                               {"bytes", StreamEvent::HasBytesAvailable},
                                                               {"space", StreamEvent::HasSpaceAvailable},
                                                               {"error", StreamEvent::ErrorOccurred},
                                                               {"end", StreamEvent::EndEncountered}};
        return events.at(name);
    }
    static SettingValue typed(const std::string& value) {
        if (value == "true" || value == "false")
            return value == "true";
        if (!value.empty() && value.find_first_not_of("-0123456789") == std::string::npos)
            return std::int64_t{std::stoll(value)};
        return value;
    }
    static std::string told(const std::optional<SettingValue>& value) {
        return !value ? "absent"
                      : std::visit(Overloads{[](const std::string& text) { return text; },
                                             [](bool flag) { return std::string(flag ? "true" : "false"); },
                                             [](std::int64_t number) { return std::to_string(number); }},
                                   *value);
    }
    static std::string joined(const std::vector<std::string>& texts) {
        std::string all;
        for (const auto& text : texts)
            all += (all.empty() ? "" : " ") + text;
        return all;
    }

    bool held_ = false;
    std::optional<Finger> finger_;
    int alertCount_ = 0;
    const ItemList* list_ = nullptr;
    std::vector<ItemRow> rows_;
    Subscription rowChanges_;
    Subscription alerts_ =
        application.alerts().onChange([this] { alertCount_ += application.alerts().shown() ? 1 : 0; });
};

/// One scripted case of a table.
struct Scenario {
    const char* name;
    const char* script;
};

/// Plays each on an application of its own, launched and after the steps of `first`. What went wrong, by their names.
inline std::string playAll(std::span<const Scenario> scenarios, std::string_view first = "connect",
                           Reconnection reconnection = Reconnection::ByUser) {
    std::string problems;
    for (const auto& [name, script] : scenarios) {
        Remote remote(reconnection);
        remote.launch(false);
        auto found = remote.play(first);
        remote.sent();
        found += remote.play(script);
        problems += found.empty() ? "" : std::string(name).append(": ").append(found);
    }
    return problems;
}

} // namespace lumbra
