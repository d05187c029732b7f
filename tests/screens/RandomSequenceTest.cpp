#include "Invariants.h"
#include "Remote.h"

#include <gtest/gtest.h>

#include <random>
#include <regex>

namespace lumbra {
namespace {

/// Random reports, good and bad, and random actions; the same seed gives the same run.
class Dice {
public:
    explicit Dice(unsigned seed) : engine_(seed) {}

    int number(int low, int high) { return std::uniform_int_distribution(low, high)(engine_); }
    template <class Options>
    auto& one(Options& options) {
        return options[static_cast<std::size_t>(number(0, static_cast<int>(std::size(options)) - 1))];
    }

    std::string report() {
        static const char* const SHAPES[] = {
            "Z#V$",     "Z#I#",       "Z#M!",     "Z#LD!",     "Z#BASS$",   "Z#TREB$",  "Z#N\"@\"",
            "O#Z#",     "Z#MV$",      "O#V$",     "O#I#",      "O#M!",      "O#P!",     "O#B%HPF&",
            "O#B%P$F&", "O#B%BYPASS", "O#N\"@\"", "O#MV$",     "O#MXTO$",   "O#MNTO$",  "O#STEREO!",
            "G#V$",     "G#I#",       "G#M!",     "G#P!",      "G#N\"@\"",  "I#N\"@\"", "I#STEREO!",
            "AO#A!",    "SP#N\"@\"",  "APPQ!",    "O#B%HS$F&", "O#B%LS$F&", "O#B%LPF&",
        };
        std::string text = number(0, 9) == 0 ? "U2" : "U1";
        for (const char* c = one(SHAPES); *c; ++c)
            text += filled(*c);
        if (number(0, 19) == 0)
            text.erase(static_cast<std::size_t>(number(0, static_cast<int>(text.size()) - 1)));
        return text;
    }

private:
    std::string filled(char shape) {
        std::string name;
        for (int length = shape == '@' ? number(1, 17) : 0; length > 0; --length)
            name += static_cast<char>(number(1, 255));
        return shape == '#'   ? std::to_string(number(0, 21))
               : shape == '$' ? std::to_string(number(-85, 20))
               : shape == '!' ? std::to_string(number(0, 1))
               : shape == '%' ? std::to_string(number(1, 7))
               : shape == '&' ? std::to_string(number(0, 20500))
               : shape == '@' ? name
                              : std::string{shape};
    }

    std::mt19937 engine_;
};

void act(Remote& remote, Dice& dice) {
    visit(*dice.one(remote.screen().items()).control,
          Overloads{[&](Picker& picker) { picker.pickByUser(dice.number(-1, 20)); },
                    [&](Slider& slider) {
                        slider.slideByUser(static_cast<float>(dice.number(-200, 30000)) / 7.0F);
                    },
                    [&](Switch& onOff) { onOff.flipByUser(dice.number(0, 1) == 1); },
                    [&](SegmentedControl& types) { types.tapByUser(dice.number(-1, 6)); },
                    [](Button& button) { button.pressByUser(); }, [](Label&) {}, [](ActivityIndicator&) {}});
}

TEST(RandomSequences, KeepTheInvariantsAndSendWellFormedCommands) {
    const std::regex wellFormed(R"(\[U[1-4](APPQ[0-4]|SERIAL[01]|)"
                                R"([ZOG]([1-9]|1[0-6])(V-?[0-9]+|I([1-9]|1[0-9]|20)|M[01])|[OG][0-9]+P[01]|)"
                                R"(Z[0-9]+(LD[01]|(BASS|TREB)-?[0-9]+)|)"
                                R"(O[0-9]+B[1-7](BYPASS|[HL]PF[1-9][0-9]*|([HL]S|P)-?[0-9]+F[1-9][0-9]*)|)"
                                R"(AO([1-9]|10)A2|SP([1-9]|10)(LOAD|SAVE))\])");
    for (unsigned seed = 1; seed <= 40; ++seed) {
        SCOPED_TRACE(seed);
        Dice dice(seed);
        Remote remote;
        remote.launch();
        for (int step = 0; step < 400; ++step) {
            const int what = dice.number(0, 19);
            if (what == 0)
                remote.application.tabs().selectByUser(dice.number(0, 4));
            else if (what == 1)
                remote.queue.advance(std::chrono::milliseconds(dice.number(0, 900)));
            else if (what == 2 && dice.number(0, 4) == 0)
                ASSERT_EQ(remote.play(dice.number(0, 1) == 1
                                          ? "set advanced_mode_preference true ; away ; back"
                                          : "set advanced_mode_preference false ; away ; back"),
                          "");
            else if (what == 3 && remote.application.link().linkState() == LinkState::Opening)
                remote.streams.last().connect();
            else if (what == 3 && dice.number(0, 9) == 0)
                remote.play(dice.number(0, 1) == 0 ? "end" : "error");
            else if (what < 7)
                act(remote, dice);
            else
                remote.report(dice.report());
            remote.settle();
            for (const auto& command : remote.sent())
                EXPECT_TRUE(std::regex_match(command, wellFormed)) << command;
            EXPECT_EQ(brokenInvariant(remote), "");
            if (HasFailure())
                return;
        }
    }
}

} // namespace
} // namespace lumbra
