#pragma once

#include "ManualQueue.h"
#include "ManualWorker.h"
#include "ScriptedStreams.h"
#include "app/Application.h"
#include "platform/MemorySettingsStore.h"
#include "toolkit/ActivityIndicator.h"
#include "toolkit/Button.h"
#include "toolkit/Label.h"
#include "toolkit/Picker.h"
#include "toolkit/SegmentedControl.h"
#include "toolkit/Slider.h"
#include "toolkit/Switch.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lumbra {

/// The whole application on virtual time and scripted streams, driven and looked at by short lines of text,
/// so that a test can be a table of them:
///
///     tab output                      a hand selects a tab, by the screen's name
///     > U1Z3V-30                      the report arrives
///     pick zonePicker 2               a hand on a control; likewise slide, switch, segment, press
///     wait 0.75                       seconds of virtual time
///     sent [U1Z3V-20] [U1Z3M1]        all that was sent since the last such line; nothing behind it: nothing was
///     show volumeLabel 62%            what a control shows
///     link open                       the link's state
///     alerts 1                        how many alerts were asked for since the last such line
///     connect, end, error             what becomes of the newest pair of streams
///     network off, threads off        what the system no longer has
///     away, back                      the application leaves, comes back
///     set KEY VALUE, unset KEY        a stored setting
///     stored KEY VALUE                what is stored
///
/// Lines that are empty or begin with "#" are skipped. `play` gives what went wrong, or an empty text.
class Remote {
public:
    struct SwitchableReachability final : Reachability {
        bool reachable = true;
        bool isReachable() const override { return reachable; }
    };

    ManualQueue queue;
    ManualWorker worker;
    ScriptedStreamFactory streams;
    SwitchableReachability reachability;
    MemorySettingsStore settings;
    Application application{Platform{queue, worker, streams, reachability, settings}};

    Remote() {
        alerts_ = application.alerts().onChange([this] {
            if (application.alerts().shown())
                ++alertCount_;
        });
    }

    /// Launches and runs the worker; with `connected`, the streams then open and what was sent so far is
    /// forgotten.
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
        queue.runPosted();
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

    template <class T>
    T& control(std::string_view name) {
        auto found =
            std::dynamic_pointer_cast<T>(application.tabs().selectedViewController()->view().find(name));
        if (!found)
            throw std::runtime_error("no such control on the screen: " + std::string(name));
        return *found;
    }

    std::string play(std::string_view script) {
        std::istringstream lines{std::string(script)};
        std::string problems;
        int number = 0;
        for (std::string line; std::getline(lines, line);) {
            ++number;
            if (const auto begin = line.find_first_not_of(' ');
                begin != std::string::npos && line[begin] != '#')
                if (const auto problem = step(line.substr(begin)); !problem.empty())
                    problems +=
                        "line " + std::to_string(number) + ", " + line.substr(begin) + ": " + problem + "\n";
        }
        return problems;
    }

    /// What a control shows: a switch "on" or "off", a picker's selected row and its text, "- " where
    /// disabled.
    std::string shown(std::string_view name) {
        const auto found = application.tabs().selectedViewController()->view().find(name);
        const std::string prefix = found->isEnabled() ? "" : "- ";
        switch (found->kind()) {
        case Control::Kind::Picker: {
            const auto& picker = control<Picker>(name);
            if (picker.selected() < 0)
                return "none";
            return std::to_string(picker.selected()) + " " +
                   picker.rows()[static_cast<std::size_t>(picker.selected())] + " of " +
                   std::to_string(picker.rows().size());
        }
        case Control::Kind::Slider: {
            char text[32];
            const auto [end, error] = std::to_chars(text, text + sizeof text, control<Slider>(name).value());
            return prefix + std::string(text, end);
        }
        case Control::Kind::Switch:
            return prefix + (control<Switch>(name).isOn() ? "on" : "off");
        case Control::Kind::Segmented:
            return std::to_string(control<SegmentedControl>(name).selected());
        case Control::Kind::Label:
            return control<Label>(name).text();
        case Control::Kind::ActivityIndicator:
            return control<ActivityIndicator>(name).isAnimating() ? "turning" : "stopped";
        case Control::Kind::Button:
            return control<Button>(name).title();
        }
        return {};
    }

private:
    static std::string differs(const std::string& wanted, const std::string& found) {
        return wanted == found ? "" : "found '" + found + "'";
    }

    std::string step(const std::string& line) {
        const auto space = line.find(' ');
        const auto word = line.substr(0, space);
        const auto rest = space == std::string::npos ? "" : line.substr(space + 1);
        const auto last = rest.rfind(' ');
        const auto name = rest.substr(0, last);
        const auto value = last == std::string::npos ? "" : rest.substr(last + 1);
        bool moved = true;
        std::string problem;
        if (word == ">")
            report(rest);
        else if (word == "raw")
            streams.last().feed(rest);
        else if (word == "tab")
            moved = selectTab(rest);
        else if (word == "pick")
            moved = control<Picker>(name).pickByUser(std::stoi(value));
        else if (word == "slide")
            moved = control<Slider>(name).slideByUser(std::stof(value));
        else if (word == "switch")
            moved = control<Switch>(name).flipByUser(value == "on");
        else if (word == "segment")
            moved = control<SegmentedControl>(name).tapByUser(std::stoi(value));
        else if (word == "press")
            moved = control<Button>(rest).pressByUser();
        else if (word == "wait")
            queue.advance(std::chrono::nanoseconds(std::llround(std::stod(rest) * 1e9)));
        else if (word == "connect")
            streams.last().connect();
        else if (word == "error")
            streams.last().fireInput(StreamEvent::ErrorOccurred);
        else if (word == "end")
            streams.last().fireInput(StreamEvent::EndEncountered);
        else if (word == "away")
            application.resignActive(), application.enterBackground();
        else if (word == "back")
            application.enterForeground(), application.becomeActive();
        else if (word == "resign")
            application.resignActive();
        else if (word == "activate")
            application.becomeActive();
        else if (word == "network")
            reachability.reachable = rest == "on";
        else if (word == "threads")
            worker.hasThread = rest == "on";
        else if (word == "write")
            streams.last().writeResults.push_back(std::stoi(rest));
        else if (word == "set")
            settings.setValue(name, typed(value));
        else if (word == "unset")
            settings.remove(rest);
        else if (word == "stored")
            problem = differs(value, told(settings.value(name)));
        else if (word == "sent")
            problem = differs(rest, joined(sent()));
        else if (word == "show")
            problem = differs(rest.substr(rest.find(' ') + 1), shown(rest.substr(0, rest.find(' '))));
        else if (word == "link")
            problem = differs(rest, linkWord());
        else if (word == "screen")
            problem = differs(rest, application.tabs().selectedViewController()->view().name());
        else if (word == "alerts")
            problem = differs(rest, std::to_string(std::exchange(alertCount_, 0)));
        else if (word == "alert")
            problem =
                differs(rest, application.alerts().shown() ? application.alerts().shown()->message : "none");
        else if (word == "sockets")
            problem = differs(rest, std::to_string(streams.liveStreams() / 2));
        else
            problem = "no such step";
        settle();
        return moved ? problem : "refused";
    }

    bool selectTab(const std::string& name) {
        const auto& tabs = application.tabs().viewControllers();
        for (std::size_t index = 0; index < tabs.size(); ++index)
            if (tabs[index]->view().name() == name)
                return application.tabs().selectByUser(static_cast<int>(index));
        return false;
    }

    static SettingValue typed(const std::string& value) {
        std::int64_t number = 0;
        const auto* end = value.data() + value.size();
        if (!value.empty() && std::from_chars(value.data(), end, number).ptr == end)
            return number;
        if (value == "true" || value == "false")
            return value == "true";
        return value;
    }
    static std::string told(const std::optional<SettingValue>& value) {
        if (!value)
            return "absent";
        if (const auto* text = std::get_if<std::string>(&*value))
            return *text;
        if (const auto* flag = std::get_if<bool>(&*value))
            return *flag ? "true" : "false";
        return std::to_string(std::get<std::int64_t>(*value));
    }
    static std::string joined(const std::vector<std::string>& texts) {
        std::string all;
        for (const auto& text : texts)
            all += (all.empty() ? "" : " ") + text;
        return all;
    }
    std::string linkWord() {
        switch (application.link().linkState()) {
        case LinkState::Closed:
            return "closed";
        case LinkState::Opening:
            return "opening";
        case LinkState::Open:
            return "open";
        }
        return {};
    }

    int alertCount_ = 0;
    Subscription alerts_;
};

/// One scripted case of a table.
struct Scenario {
    const char* name;
    const char* script;
};

} // namespace lumbra
