#include "Remote.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <random>

namespace lumbra::test {

using Random = std::mt19937;

std::size_t oneOf(Random& random, std::size_t count) {
    return random() % count;
}
template <class Table>
auto& anyOf(Random& random, Table& table) {
    return table[oneOf(random, std::size(table))];
}

constexpr const char* STEPS[] = {"tab output",
                                 "tab group",
                                 "tab scene",
                                 "tab override",
                                 "away",
                                 "back",
                                 "resign",
                                 "activate",
                                 "reconnect",
                                 "network off ; reconnect ; work ; network on",
                                 "threads off ; reconnect",
                                 "network off ; reconnect",
                                 "work",
                                 "turn",
                                 "wait 0",
                                 "wait 0.4",
                                 "wait 0.8",
                                 "wait 6",
                                 "wait 40",
                                 "set advanced_mode_preference true ; activate",
                                 "set advanced_mode_preference false",
                                 "set polling_preference false",
                                 "set ip_address_preference 10.0.0.1"};

const std::function<void(ScriptedPair&)> PEER[] = {
    [](auto& pair) { pair.connect(); },
    [](auto& pair) { pair.feed("(U1Z1V-35)(U1O1V-20)(U1G1V-9)(U1APPQ0)(U1APPQ1)(U1APPQ4)(U1Z2N\"Ba"); },
    [](auto& pair) { pair.feed("th\")(U1I2N\"Tuner\")(U1G1M1)(U1O1B1HPF80)(U1AO1A1)(U1APPQ2)(U1APPQ3)"); },
    [](auto& pair) { pair.fireInput(StreamEvent::ErrorOccurred); },
    [](auto& pair) { pair.fireOutput(StreamEvent::ErrorOccurred); },
    [](auto& pair) { pair.fireInput(StreamEvent::EndEncountered); },
    [](auto& pair) { pair.readResults.push_back(0); },
    [](auto& pair) { pair.writeResults.push_back(-1); }};

/// A remote with a front end that looks at everything when it is told of a change.
class Life {
public:
    Life(const std::shared_ptr<House>& house, Random& random)
        : random_(random),
          remote_(oneOf(random, 2) ? Reconnection::Automatic : Reconnection::ByUser, {}, std::identity(),
                  house) {
        remote_.play("hold");
        auto& application = remote_.application;
        const auto look = [this] {
            looks_ += remote_.application.items() ? remote_.screen().items().size() : 1;
        };
        observers_.push_back(application.link().onLinkChange(look));
        observers_.push_back(application.status().onChange(look));
        observers_.push_back(application.alerts().onChange(look));
        observers_.push_back(application.tabs().onScreenChange(look));
        for (const auto& tab : application.tabs().viewControllers()) {
            parts_.push_back(tab);
            for (const auto& item : tab->view().items())
                observers_.push_back(item.control->onChange(look));
        }
        parts_.push_back(application.link().weak_from_this());
    }

    void step() {
        const auto pairs = remote_.streams.created();
        if (!std::exchange(launched_, true))
            remote_.application.launch();
        else if (const auto kind = oneOf(random_, 8); kind < 2)
            remote_.play(anyOf(random_, STEPS)); // some can't be done now
        else if (kind < 3 && pairs > 0)
            anyOf(random_, PEER)(remote_.streams.pair(pairs - 1 - oneOf(random_, std::min(pairs, LATEST))));
        else if (kind < 5 && !remote_.application.link().isConnected())
            remote_.play("network on ; threads on ; reconnect ; work ; turn ; connect ; turn");
        else
            operate(anyOf(random_, remote_.screen().items()).control);
    }

    /// What must be gone with this life, whatever is posted.
    const std::vector<std::weak_ptr<const void>>& parts() const { return parts_; }

private:
    static constexpr std::size_t LATEST = 5; ///< pairs that something still happens to

    void operate(const std::shared_ptr<Control>& control) {
        const auto number = static_cast<int>(oneOf(random_, 12));
        visit(*control, Overloads{[&](Picker& picker) { picker.pickByUser(number); },
                                  [&](Slider& slider) {
                                      auto& hand = remote_.application.hands().on(
                                          std::static_pointer_cast<Slider>(control));
                                      number < 4   ? static_cast<void>(slider.slideByUser(slider.value() + 1))
                                      : number < 6 ? static_cast<void>(hand.grab(this))
                                      : number < 8 ? hand.release(this)
                                                   : static_cast<void>(hand.moveTo(slider.value() - 1));
                                  },
                                  [](Switch& flipped) { flipped.flipByUser(!flipped.isOn()); },
                                  [&](SegmentedControl& types) { types.tapByUser(number); },
                                  [](Button& button) { button.pressByUser(); }, [](Label&) {},
                                  [](ActivityIndicator&) {}});
    }

    Random& random_;
    Remote remote_;
    std::size_t looks_ = 0;
    bool launched_ = false;
    std::vector<std::weak_ptr<const void>> parts_;
    std::vector<Subscription> observers_;
};

std::size_t given(const char* variable, std::size_t otherwise) {
    const char* const value = std::getenv(variable);
    return value ? std::stoul(value) : otherwise;
}

// Under the address sanitizer, which sees whatever reaches one that is gone.
TEST(Lives, EndAtAnyMomentWhileOthersGoOn) {
    const auto lives = given("LUMBRA_LIVES", 10'000), seed = given("LUMBRA_SEED", 1);
    std::printf("LUMBRA_SEED=%zu\n", seed);
    Random random(static_cast<Random::result_type>(seed));
    for (std::size_t ended = 0; ended < lives;) {
        const auto house = std::make_shared<House>();
        std::array<std::unique_ptr<Life>, 3> living;
        for (const auto until = ended + 50; ended < until;) {
            auto& life = anyOf(random, living);
            if (!life) {
                life = std::make_unique<Life>(house, random);
            } else if (oneOf(random, 12) > 0) {
                life->step();
            } else {
                const auto parts = life->parts();
                life.reset();
                ++ended;
                ASSERT_TRUE(
                    std::all_of(parts.begin(), parts.end(), [](auto& part) { return part.expired(); }));
            }
        }
        living = {};
        house->worker.run();
        house->queue.advance(std::chrono::minutes(1));
        ASSERT_EQ(house->queue.delayed() + static_cast<std::size_t>(house->streams.liveStreams()), 0U);
    }
}

} // namespace lumbra::test
