#include "link/SharedLink.h"

#include "Remote.h"
#include "TapUser.h"
#include "link/Tap.h"

#include <gtest/gtest.h>

namespace lumbra::test {

/// Pairs of one link, by the names A, B, ..., under scripts of short steps:
///
///     A open, A open HOST    opens a pair; A leaves closes it
///     A sends [U1Z1M1] 8     what a write of it returns
///     A heard (U1Z1M1)       all bytes since the last such step
///     A told open open       all events since it was opened
///     A idle, A reads        is told nothing of its input from now on; is told again
///     connect, end, error, space, write 3, raw BYTES, wait 2      as in Remote, on the network's newest pair
///     sent [U1Z1M1]          all writes since the last such step; connects 2: how many connects there were
class Sharing {
public:
    ManualQueue queue;
    ScriptedStreamFactory network;
    std::optional<SharedLink> link{std::in_place, queue, network};
    std::map<std::string, std::unique_ptr<TapUser>> users;

    std::string play(std::string_view script) {
        return runSteps(script, [this](const std::string& step) {
            std::istringstream words(step);
            std::string name, verb, rest;
            words >> name >> verb;
            std::getline(words >> std::ws, rest);
            const auto found = name.size() == 1 ? user(name, verb, rest) : world(name, verb, rest);
            queue.runPosted();
            return found == rest || found == verb ? "" : "found '" + found + "'";
        });
    }

private:
    std::string user(const std::string& name, const std::string& verb, const std::string& rest) {
        auto& user = users[name];
        if (verb == "open")
            user = std::make_unique<TapUser>(*link, rest.empty() ? "unit" : rest);
        else if (verb == "leaves")
            user.reset();
        else if (verb == "sends")
            return rest.substr(0, rest.find(' ') + 1) +
                   std::to_string(user->write(rest.substr(0, rest.find(' '))));
        else if (verb == "heard")
            return std::exchange(user->bytes, {});
        else if (verb == "told")
            return user->events.substr(0, user->events.find_last_not_of(' ') + 1);
        else if (verb == "idle")
            user->pair.input->removeFromMainQueue();
        else
            user->pair.input->scheduleOnMainQueue();
        return rest;
    }
    std::string world(const std::string& verb, const std::string& word, const std::string& rest) {
        if (verb == "connects")
            return std::to_string(network.created());
        if (verb == "sockets")
            return std::to_string(network.liveStreams() / 2);
        if (verb == "wait")
            queue.advance(std::chrono::milliseconds(std::lround(std::stod(word) * 1e3)));
        else if (verb == "without") {
            network.fails = word == "streams";
        } else if (verb == "gone") {
            link.reset();
        } else if (verb == "sent") {
            std::string all;
            for (std::size_t index = 0; index < network.created(); ++index)
                for (const auto& text : std::exchange(network.pair(index).writes, {}))
                    all += (all.empty() ? "" : " ") + text;
            return all == word + (rest.empty() ? "" : " ") + rest ? rest : all;
        } else if (verb == "connect")
            network.last().connect();
        else if (verb == "end" || verb == "error")
            network.last().fireInput(verb == "end" ? StreamEvent::EndEncountered
                                                   : StreamEvent::ErrorOccurred);
        else if (verb == "space")
            network.last().fireOutput(StreamEvent::HasSpaceAvailable);
        else if (verb == "write")
            network.last().writeResults.push_back(std::stoi(word));
        else if (verb == "raw" || verb == "late")
            verb == "raw" ? void(network.last().feed(word)) : void(network.last().incoming += word);
        else
            return "no such step";
        return rest;
    }
};

TEST(SharedLink, IsToEachAsALinkOfItsOwn) {
    const Scenario scenarios[] = {
        {"one connect for all who open meanwhile; a later one uses the connection", R"(
            A open ; B open ; A told ; connects 1 ; A sends [U1Z1M1] 0 ; connect ; A told open open ; B told open open
            C open ; C told open open ; connects 1 ; A sends [U1Z1M1] 8 ; C sends [U1Z1M0] 8 ; sent [U1Z1M1] [U1Z1M0])"},
        {"whole reports for everybody, from the next one on; nothing around them", R"(
            A open ; connect ; raw x(U1Z1 ; A heard ; B open ; raw V-3)\r\n(U1Z2(U1Z3M1) ; A heard (U1Z1V-3)(U1Z3M1)
            B heard (U1Z3M1) ; C open ; raw )) ; A heard )) ; C heard ; raw (U1Z4 ; late M1)(U1Z5M1)(U1Z ; end
            A heard (U1Z4M1)(U1Z5M1) ; C heard (U1Z4M1)(U1Z5M1) ; A told open open end ; C told open open end)"},
        {"a query under way serves who asked before it; all others share the next", R"(
            A open ; connect ; B open ; C open ; A sends [U1APPQ0] 9 ; sent [U1APPQ0] ; raw (U1Z1V-3) ; B sends [U1APPQ0] 9
            C sends [U1APPQ0] 9 ; A sends [U1APPQ1] 9 ; sent [U1APPQ1] ; raw (U1Z2V-3)(U1APPQ0)) ; sent [U1APPQ0]
            A heard (U1Z1V-3)(U1Z2V-3)(U1APPQ0) ; B heard (U1Z1V-3)(U1Z2V-3) ; raw (U2APPQ0)(U1APPQ07)(U1APPQ1)(U1APPQ0)
            B heard (U1APPQ07) ; C heard (U1Z1V-3)(U1Z2V-3)(U1APPQ07) ; A heard (U1APPQ1) ; sent)"},
        {"a query of one who has left is still under way", R"(
            A open ; B open ; connect ; A sends [U1APPQ3] 9 ; A leaves ; B sends [U1APPQ3] 9 ; sent [U1APPQ3]
            raw (U1APPQ3) ; B heard ; sent [U1APPQ3] ; raw (U1APPQ3) ; B heard (U1APPQ3))"},
        {"an end that was on its way before the query is none", R"(
            A open ; connect ; raw (U1AP ; B open ; B sends [U1APPQ0] 9 ; raw PQ0) ; raw (U1APPQ0) ; B heard (U1APPQ0))"},
        {"after 5 s without an answer the next is sent; late ends come in order", R"(
            A open ; B open ; connect ; A sends [U1APPQ0] 9 ; B sends [U1APPQ0] 9 ; wait 4.9 ; sent [U1APPQ0]
            wait 0.2 ; sent [U1APPQ0] ; raw (U1APPQ0) ; A heard (U1APPQ0) ; B heard ; raw (U1APPQ0) ; B heard (U1APPQ0)
            wait 60 ; sent ; A sends [U1APPQ0] 9 ; wait 60 ; sent [U1APPQ0] ; B sends [U1APPQ0] 9 ; sent [U1APPQ0])"},
        {"a lost query leaves nobody without an answer", R"(
            A open ; B open ; connect ; A sends [U1APPQ0] 9 ; B sends [U1APPQ0] 9 ; wait 5 ; raw (U1APPQ0) ; B heard
            sent [U1APPQ0] [U1APPQ0] ; wait 5 ; sent [U1APPQ0] ; raw (U1APPQ0) ; B heard (U1APPQ0) ; wait 60 ; sent)"},
        {"what the network refuses is refused, but for a query that others wait for", R"(
            A open ; B open ; connect ; write 0 ; A sends [U1Z1M1] 0 ; write -1 ; A sends [U1APPQ0] -1 ; write 0
            A sends [U1SERIAL0] 0 ; sent [U1Z1M1] [U1APPQ0] [U1SERIAL0] ; A sends [U1SERIAL0] 11 ; B sends [U1SERIAL1] 11
            sent [U1SERIAL0] ; A sends [U1APPQ0] 9 ; B sends [U1APPQ0] 9 ; write 0 ; raw (U1APPQ0) ; sent [U1APPQ0] [U1APPQ0]
            space ; sent [U1APPQ0] ; raw (U1APPQ0) ; B heard (U1APPQ0))"},
        {"no command starts inside another", R"(
            A open ; B open ; connect ; write 3 ; A sends [U1Z1M1] 8 ; write 2 ; B sends [U1Z2M1] 0
            sent [U1Z1M1] Z1M1] ; write -1 ; B sends [U1Z2M1] -1 ; write 0 ; space ; space ; B sends [U1Z2M1] 8
            sent M1] M1] M1] [U1Z2M1])"},
        {"closed 10 s after the last has left, unless one comes", R"(
            A open ; B open ; connect ; A leaves ; wait 20 ; sockets 1 ; B leaves ; wait 9.9 ; C open ; C told open open
            wait 20 ; C leaves ; wait 9.9 ; sockets 1 ; wait 0.2 ; sockets 0 ; C open ; connects 2 ; connect ; C told open open)"},
        {"one connect in 2 s; who opens earlier waits for its turn, and not longer than its 10 s", R"(
            A open ; B open ; error ; A told error ; B told error ; C open ; connects 1 ; wait 1.9 ; C told ; connects 1
            wait 0.2 ; connects 2 ; wait 7.8 ; C told ; wait 0.2 ; C told error ; A open ; connects 2 ; connect ; A told open open
            end ; A told open open end ; A open ; connects 3 ; A leaves ; error ; A open ; A leaves ; wait 9 ; connects 3)"},
        {"a pair that can't be made fails like a connect", R"(
            without streams ; A open ; A told error ; sockets 0 ; without nothing ; A open ; wait 2 ; connect ; A told open open)"},
        {"another address has a connection of its own", R"(
            A open ; connect ; B open other ; connects 2 ; connect ; B told open open ; raw (U1Z1M1) ; A heard ; B heard (U1Z1M1)
            A leaves ; wait 10 ; sockets 1)"},
        {"pairs outlive the link", R"(
            A open ; connect ; gone link ; sockets 0 ; A told open open end)"},
    };
    std::string problems;
    for (const auto& [name, script] : scenarios) {
        const auto found = Sharing().play(script);
        problems += found.empty() ? "" : std::string(name) + ": " + found;
    }
    EXPECT_EQ(problems, "");
}

TEST(SharedLink, EndsAPairThatIsNotReadAndDelaysNoOther) {
    Sharing sharing;
    EXPECT_EQ(sharing.play("A open ; B open ; connect ; A idle"), "");
    const std::string report = "(U1Z1N\"Living Room\")";
    for (std::size_t fed = 0; fed <= Tap::UNREAD_LIMIT; fed += 100 * report.size()) {
        std::string reports;
        for (int count = 0; count < 100; ++count)
            reports += report;
        sharing.network.last().feed(reports);
        EXPECT_EQ(std::exchange(sharing.users["B"]->bytes, {}), reports);
    }
    EXPECT_EQ(sharing.play("A sends [U1Z1M1] -1 ; A reads ; A told open open end ; B told open open"), "");
    EXPECT_LE(sharing.users["A"]->bytes.size(), Tap::UNREAD_LIMIT);
    EXPECT_EQ(sharing.users["A"]->bytes.size() % report.size(), 0U);
}

// Whole applications: some open before the link is, some in the middle of the first one's answer.
TEST(SharedLink, SixtyApplicationsAnnounceOnceAskTwiceAndComeBackTogether) {
    Sharing sharing;
    std::vector<std::unique_ptr<Remote>> remotes;
    const auto pass = [&](std::chrono::milliseconds time) {
        for (; time >= time.zero(); time -= std::chrono::milliseconds(100))
            for (int turn = 0; turn < 3; ++turn) {
                sharing.queue.advance(std::chrono::milliseconds(turn == 0 ? 100 : 0));
                for (const auto& remote : remotes) {
                    remote->queue.advance(std::chrono::milliseconds(turn == 0 ? 100 : 0));
                    remote->settle();
                }
            }
    };
    const auto launchThirty = [&] {
        for (int count = 0; count < 30; ++count)
            remotes
                .emplace_back(
                    std::make_unique<Remote>(Reconnection::Automatic, MemorySettingsStore(),
                                             [&](StreamFactory&) -> StreamFactory& { return *sharing.link; }))
                ->launch(false);
        pass(std::chrono::milliseconds(0));
    };
    const auto count = [&](std::string_view look) {
        return std::count_if(remotes.begin(), remotes.end(),
                             [&](auto& remote) { return remote->play(look).empty(); });
    };
    launchThirty();
    EXPECT_EQ(sharing.play("connect"), "");
    pass(std::chrono::milliseconds(0));
    EXPECT_EQ(sharing.play("sent [U1SERIAL0] [U1APPQ0] ; raw (U1Z1V-30)"), "");
    launchThirty();
    EXPECT_EQ(sharing.play("sent ; raw (U1APPQ0)(U1Z1V ; sent [U1APPQ0]"), "");
    EXPECT_EQ(count("status current"), 1);
    EXPECT_EQ(sharing.play("raw -20)(U1APPQ0) ; sent"), "");
    EXPECT_EQ(count("status current ; show volumeSlider -20"), 60);
    EXPECT_EQ(sharing.play("error"), "");
    EXPECT_EQ(count("status offline ; link closed"), 60);
    pass(std::chrono::milliseconds(2200));
    EXPECT_EQ(sharing.play("connects 2 ; sockets 1 ; connect"), "");
    EXPECT_EQ(count("link open"), 60);
}

} // namespace lumbra::test
