#include "Remote.h"
#include "script/CommandInterpreter.h"
#include "script/EventReporter.h"
#include "script/JsonPrinter.h"

#include <gtest/gtest.h>

namespace {

using namespace lumbra;
using namespace lumbra::script;
using namespace std::chrono_literals;

/// A front end that keeps what is printed.
struct FrontEnd {
    struct Lines final : Output {
        void write(std::string_view lines) override { text += lines; }
        bool isBehind() const override { return behind; }
        void catchUp() {
            behind = false;
            announceCaughtUp();
        }
        std::string text;
        bool behind = false;
    };
    Remote remote;
    Lines output;
    JsonPrinter printer{output};
    std::optional<EventReporter> events{std::in_place, remote.application, printer, output};
    std::optional<CommandInterpreter> interpreter;

    explicit FrontEnd(CommandInterpreter::Delegate delegate = {}) {
        interpreter.emplace(remote.application, printer, *events, std::move(delegate));
        remote.launch();
        EXPECT_EQ(remote.play("> U1Z1V-40 ; > U1Z1M0 ; > U1Z1BASS0 ; > U1Z2V-40"), ""); // known from now on
        printed();
    }
    /// What a program has to know of each line printed since the last call: "volumeSlider -30.0", "ok slide".
    std::string printed() {
        std::istringstream lines(std::exchange(output.text, {}));
        std::string all;
        for (std::string line; std::getline(lines, line);) {
            const auto member = [&](const std::string& name) {
                const auto at = line.find("\"" + name + "\":");
                if (at == std::string::npos)
                    return std::string();
                const auto from = at + name.size() + 3;
                auto value = line.substr(from, line.find_first_of(",}", from) - from);
                std::erase(value, '"');
                return value + " ";
            };
            all += member("reply") + member("event") + member("control") + member("row") + member("value") +
                   member("on") + member("volume") + member("link") + member("status") + member("title") +
                   "; ";
        }
        return all;
    }
    std::string command(const char* line) {
        interpreter->execute({line});
        return printed();
    }
};

// The newest state of each control and item, once a turn, and before whatever is told of later.
TEST(EventReporter, GathersAndKeepsTheOrder) {
    FrontEnd end;
    auto& remote = end.remote;
    const auto hear = [&](std::initializer_list<const char*> reports) {
        for (const auto* report : reports)
            remote.report(report);
    };
    hear({"U1Z1V-30", "U1Z1V-31", "U1Z1M1", "U1Z1V-32"});
    EXPECT_EQ(end.printed(), "");
    remote.settle();
    EXPECT_EQ(end.printed(),
              "control volumeSlider -32.0 ; control volumeLabel ; control muteSwitch false ; ");
    remote.settle();
    EXPECT_EQ(end.printed(), "");
    hear({"U1Z1M1", "U1APPQ0"}); // and the status
    EXPECT_EQ(end.printed(), "control muteSwitch true ; control spinner ; status current ; ");
    hear({"U1Z1M0"});
    EXPECT_EQ(end.command("dismiss"), "control muteSwitch false ; dismiss ; ");
    EXPECT_EQ(end.command("watch on"), "watch ; ");
    hear({"U1Z2V-30", "U1Z1V-50", "U1Z2V-31"});
    EXPECT_EQ(end.command("slide bassSlider 2"),
              "control volumeSlider -50.0 ; control volumeLabel ; control bassSlider 2.0 ; "
              "item 0 -50 ; item 1 -31 ; slide ; ");
    hear({"U1Z2V-32"});
    remote.application.alerts().present({{"a"}, {"b"}, {"c"}});
    remote.application.alerts().withdraw();
    remote.application.alerts().withdraw();
    EXPECT_EQ(end.printed(), "item 1 -32 ; alert a ; alert null ; ");
    remote.application.alerts().present({{"a"}, {"b"}, {"c"}});
    EXPECT_EQ(end.command("dismiss"), "alert a ; dismiss ; ");
    hear({"U1Z1M1"});
    EXPECT_EQ(end.command("tab scene"),
              "control muteSwitch true ; item 0 -50 ; screen ; status waiting ; control spinner ; tab ; ");
}

// A reader that is behind costs nothing however long that lasts; what no later line makes good is told at once.
TEST(EventReporter, GathersTheLinkForASlowReader) {
    FrontEnd end;
    end.output.behind = true;
    for (int round = 0; round < 100; ++round)
        ASSERT_EQ(end.remote.play("> U1Z1V-30 ; end ; reconnect ; connect ; > U1Z1V-31 ; > U1APPQ0"), "");
    EXPECT_EQ(end.printed(), "");
    EXPECT_EQ(end.command("dismiss"), "dismiss ; ");
    end.remote.application.alerts().present({{"a"}, {"b"}, {"c"}});
    EXPECT_EQ(end.printed(), "alert a ; ");
    end.output.catchUp();
    EXPECT_EQ(
        end.printed(),
        "control volumeSlider -31.0 ; control volumeLabel ; control spinner ; link open ; status current ; ");
    end.output.catchUp();
    EXPECT_EQ(end.remote.play("end"), "");
    EXPECT_EQ(end.printed(), "link closed ; status offline ; ");
}

// What a front end decides, and what it adds.
TEST(CommandInterpreter, AsksItsFrontEnd) {
    std::string asked;
    const Command own[] = {{"invite NAME", "lets another one in", 1, 1, {}, [&](auto&, Arguments arguments) {
                                return asked += arguments[0], Failed{"full"};
                            }}};
    FrontEnd end(
        {.quit = [&] { return asked += "quit", Done{}; },
         .store = [&](std::string_view key, const std::optional<SettingValue>& value) -> Outcome {
             asked.append(key).append(value == SettingValue(true) ? "=true" : value ? "" : " absent");
             return Failed{"the link is set where the program runs"};
         },
         .place = "[::1]:4023",
         .commands = own});
    for (const auto* line : {"set serial_port_preference true", "unset ip_address_preference",
                             "set serial_port_preference 1", "unset volume", "invite you", "invite", "quit"})
        end.interpreter->execute({line});
    EXPECT_EQ(asked, "serial_port_preference=trueip_address_preference absentyouquit");
    EXPECT_NE(end.output.text.find("\"error\":\"the link is set where"), std::string::npos);
    EXPECT_FALSE(end.remote.settings.value("serial_port_preference") == SettingValue(true));
    EXPECT_NE(
        (end.printed(), end.interpreter->execute({"help"}), end.output.text.find("{\"name\":\"invite\"")),
        std::string::npos);
    end.interpreter->execute({"state"});
    EXPECT_NE(end.output.text.find("\"address\":\"[::1]:4023\""), std::string::npos);
}

// It goes in the middle of everything, and takes its finger and its wait along.
TEST(CommandInterpreter, EndsAtAnyMoment) {
    for (const bool byItself : {false, true}) {
        std::optional<CommandInterpreter>* own = nullptr;
        FrontEnd end({.resumed = [&own] { own->reset(); }});
        own = &end.interpreter;
        end.command("hold volumeSlider");
        end.command("slide volumeSlider -30");
        end.command("wait 0.5");
        end.remote.report("U1Z1M1");
        if (!byItself) {
            end.interpreter.reset();
            end.events.reset();
        }
        EXPECT_EQ(end.remote.play("wait 0.5"), "");
        EXPECT_EQ(end.printed(),
                  byItself ? "control muteSwitch true ; wait ; control volumeSlider -30.0 ; " : "");
        const auto slider = std::static_pointer_cast<Slider>(end.remote.screen().find("volumeSlider"));
        EXPECT_TRUE(end.remote.application.hands().find(*slider)->isHeld())
            << "the step has not been taken yet";
        EXPECT_EQ(end.remote.play("wait 0.3 ; sent [U1Z1V-30]"), "");
        EXPECT_FALSE(end.remote.application.hands().find(*slider)->isHeld());
    }
}

TEST(CommandInterpreter, MovesTheRowsOfTheList) {
    FrontEnd end;
    const auto row = [&](std::size_t index) {
        const auto& items = *end.remote.application.items();
        return items.volumeOf(index)->value() + (items.muteOf(index)->isOn() ? 0.5F : 0);
    };
    for (const auto* line : {"level \"=Zone 3\" -20", "mute 2 on", "level 1 99", "mute =\"Zone 2\" on",
                             "level 2.5 1", "level 3 loud", "mute 3 up", "level 16 -3"})
        end.interpreter->execute({line});
    EXPECT_EQ(end.output.text.find("\"ok\":false"),
              end.output.text.find("\"ok\":false,\"error\":\"a quote inside"));
    EXPECT_TRUE(row(2) == -19.5F && row(1) == 0 && row(3) == -40);
}

// All that a control's state may hold, to the letter.
TEST(JsonPrinter, TellsWhatIsKnownAskedAndHeld) {
    FrontEnd end;
    auto& hands = end.remote.application.hands();
    View view("zone", "Zones");
    const auto slider = std::make_shared<Slider>(-80.0F, 0.0F, -40.0F);
    slider->setReading([](float value) {
        return Reading{static_cast<std::int64_t>(value), Reading::Unit::Decibel};
    });
    slider->setLimit(-20);
    slider->setKnown(false);
    hands.on(slider).grab(&view);
    hands.on(slider).moveTo(-30.5F);
    slider->setValue(-31);
    view.add({"volumeSlider", "Volume", slider, true});
    end.printer.controlChanged(view, view.items()[0], hands.find(*slider));
    EXPECT_EQ(
        std::exchange(end.output.text, {}),
        R"({"event":"control","screen":"zone","control":"volumeSlider","state":{"kind":"slider","value":-31.0,)"
        R"("min":-80.0,"max":0.0,"enabled":true,"caption":"Volume","known":false,"text":"-31 dB","limit":-20.0,)"
        R"("held":true,"wish":-30.5}})"
        "\n");
    ItemRow item = end.remote.application.items()->row(2);
    item.known = {.name = true, .input = true, .volume = false, .mute = true, .power = true};
    item.power = false;
    item.askedVolume = -29;
    item.askedLevel = Reading{63, Reading::Unit::Percent};
    item.askedInput = "Streamer";
    end.printer.itemChanged(view, 2, item);
    EXPECT_EQ(
        std::exchange(end.output.text, {}),
        R"({"event":"item","screen":"zone","item":{"row":2,"name":"Zone 3","input":"Source 1","volume":-40,)"
        R"("text":"50%","mute":false,"power":false,"known":["input","mute","power"],)"
        R"("asked":{"volume":-29,"text":"63%","input":"Streamer"}}})"
        "\n");
}

} // namespace
