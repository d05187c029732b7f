// Many users of one link: joins, leaves, queries and commands; connects, ends, short reads and writes; a unit that
// answers in order, loses queries or talks nonsense. Each user must see what it would have seen on a link of its own,
// less what came before it joined. A line is a step; N is a user from 0 to 7:
//
//     oN[P]  opens, to the place P, 0 or 1   lN  leaves             xN  leaves inside its next event with bytes
//     hN     closes its input alone          pN  is told nothing    rN  is told again       iN[n] reads n bytes an event
//     qN[n]  asks query n; n from 5: of unit 2    QN[n]  does so inside its next event with bytes
//     sN     announces the serial flag       cN  sends a command
//     C      the network connects            I   only its input does
//     E, X   it fails, ends                  S   it takes bytes again    Z   makes no pair, or pairs again
//     W[n], R[n]   its next write takes n bytes, its next read returns 0; with - an error
//     >BYTES       bytes arrive              .BYTES  without an event
//     b      the unit begins to answer the oldest query    a  ends it     L  loses it
//     t[n]   n + 1 times half a second passes              @P steps of the network are of the place P from now on

#include "link/SharedLink.h"

#include "Check.h"
#include "ManualQueue.h"
#include "ScriptedStreams.h"
#include "TapUser.h"
#include "Target.h"
#include "protocol/Command.h"
#include "protocol/ReportBuffer.h"
#include "protocol/StateQuery.h"

#include <chrono>
#include <map>
#include <optional>
#include <set>

using namespace lumbra;
using namespace std::chrono_literals;

namespace {

/// What a link of its own would have told a user, or an end that may be another's.
struct Told {
    std::string text;
    std::optional<StateQuery> ends;
    std::size_t query; ///< the position of the query that it answers, from 1
    bool isCertain;    ///< that it answers it
};

struct Ask {
    StateQuery query;
    std::size_t answeredBy;  ///< the position of the first query that may answer
    bool isAnswered = false; ///< perhaps: an end was heard that may have been its own
};

struct User {
    std::unique_ptr<TapUser> tap;
    std::size_t place = 0;
    std::chrono::nanoseconds opened{};
    std::optional<std::uint64_t> missed; ///< so many reports had begun when it joined
    std::deque<Told> told;
    ReportBuffer heard;
    std::vector<Ask> asks;
    bool hears = true;
    bool isAwake = true;
    bool isOver = false;

    bool isThere() const { return tap && tap->pair.output; }
};

/// The queries of one number, as the unit gets them.
struct Queries {
    std::vector<std::chrono::nanoseconds> sent;
    std::size_t answered = 0;
    bool isCertain = true; ///< each answer so far was the unit's, to the oldest query
};

/// One connection to a unit, from the unit's side.
struct Connection {
    explicit Connection(ScriptedPair& streams) : pair(streams) {}

    ScriptedPair& pair;
    bool inputIsOpen = false, outputIsOpen = false, isOver = false;
    std::string arrived;
    std::size_t consumed = 0, seen = 0;
    ReportBuffer reports;
    std::uint64_t lastReport = 0;
    bool lastIsEnd = false;
    bool isAnswering = false;
    std::string command;
    std::chrono::nanoseconds begun{};
    std::deque<std::string> accepted;
    std::set<std::int64_t> announced;
    std::deque<StateQuery> unanswered;
    std::map<StateQuery, Queries> queries;
};

class LinkUsers {
public:
    void play(Input& input) {
        while (!input.empty()) {
            const auto line = input.until('\n');
            Input step(reinterpret_cast<const std::uint8_t*>(line.data()), line.size());
            run(static_cast<char>(step.byte()), step);
            settle();
        }
        finish();
    }

private:
    void run(char kind, Input& step) {
        if (std::string_view("olxhpriqQsc").find(kind) != std::string_view::npos)
            runUser(kind, users_[static_cast<std::size_t>(step.number(8))], step);
        else
            runNetwork(kind, step);
    }

    void runUser(char kind, User& user, Input& step) {
        if (kind == 'o') {
            user = User();
            user.place = static_cast<std::size_t>(step.number(2));
            user.opened = queue_.now();
            user.tap = std::make_unique<TapUser>(link_, std::to_string(user.place));
            if (auto* connection = open(user.place))
                user.missed = connection->reports.begun();
            check(user.tap->events.empty(), "an event inside a call");
            return;
        }
        if (!user.isThere())
            return;
        auto& tap = *user.tap;
        switch (kind) {
        case 'l':
            user = User();
            break;
        case 'x':
            tap.atBytes = [&tap] { tap.pair = {}; };
            break;
        case 'h':
            tap.pair.input.reset();
            user.hears = false;
            break;
        case 'p':
        case 'r':
            user.isAwake = kind == 'r';
            for (Stream* stream :
                 {static_cast<Stream*>(tap.pair.input.get()), static_cast<Stream*>(tap.pair.output.get())})
                if (stream)
                    user.isAwake ? stream->scheduleOnMainQueue() : stream->removeFromMainQueue();
            break;
        case 'i':
            tap.piece = static_cast<std::size_t>(1 + step.byte());
            break;
        case 'q':
            ask(user, step.number(10));
            break;
        case 'Q':
            tap.atBytes = [this, &user, number = step.number(10)] { ask(user, number); };
            break;
        case 's':
            write(user, frameCommand(1, announceSerial(step.number(2) == 1)));
            break;
        default:
            if (const auto command = frameCommand(1, setMute(ItemKind::Zone, ++commands_, true));
                write(user, command))
                latest(user.place)->accepted.push_back(command);
        }
    }

    bool write(User& user, const std::string& command) {
        const auto result = user.tap->write(command);
        const auto whole = static_cast<std::ptrdiff_t>(command.size());
        check(result == whole || result == 0 || result == -1, "a command was taken in part", command);
        check(result != whole || open(user.place), "a command was taken by no connection", command);
        return result == whole;
    }

    void ask(User& user, int number) {
        const StateQuery query{1 + number / StateQuery::COUNT, number % StateQuery::COUNT};
        follow();
        auto* connection = open(user.place);
        const auto before = connection ? connection->queries[query].sent.size() : 0;
        if (!user.isThere() || !write(user, frameCommand(query.unit, queryState(query.number))))
            return;
        user.asks.push_back({query, before + 1});
        if (connection && !connection->command.empty()) // it may be this query that is taken in part
            connection->queries[query].isCertain = false;
        follow();
    }

    void runNetwork(char kind, Input& step) {
        if (kind == '@') {
            place_ = static_cast<std::size_t>(step.number(2));
            return;
        }
        if (kind == 't') {
            for (int count = step.number(64); count >= 0; --count) {
                queue_.advance(500ms);
                settle();
            }
            return;
        }
        if (kind == 'Z')
            network_.fails = !network_.fails;
        auto* connection = latest(place_);
        if (!connection || connection->isOver)
            return;
        auto& pair = connection->pair;
        switch (kind) {
        case 'C':
        case 'I':
            if (!std::exchange(connection->inputIsOpen, true))
                pair.fireInput(StreamEvent::OpenCompleted);
            if (kind == 'C' && !connection->outputIsOpen) {
                connection->outputIsOpen = true;
                for (auto& user : users_)
                    if (user.isThere() && user.place == place_ && queue_.now() - user.opened < 10s)
                        user.missed = connection->reports.begun();
                pair.fireOutput(StreamEvent::OpenCompleted);
            }
            break;
        case 'E':
            pair.fireInput(StreamEvent::ErrorOccurred);
            break;
        case 'X':
            pair.fireOutput(StreamEvent::EndEncountered);
            break;
        case 'S':
            pair.fireOutput(StreamEvent::HasSpaceAvailable);
            break;
        case 'W':
            pair.writeResults.push_back(step.number(32) - 1);
            break;
        case 'R':
            pair.readResults.push_back(-step.number(2));
            break;
        case '>':
            arrive(*connection, step.take(4096), true);
            break;
        case '.':
            arrive(*connection, step.take(4096), false);
            break;
        case 'a':
        case 'b':
        case 'L':
            answer(*connection, kind);
            break;
        default:
            break;
        }
    }

    static void arrive(Connection& connection, std::string_view bytes, bool told) {
        connection.arrived += bytes;
        connection.pair.incoming += bytes;
        if (told)
            connection.pair.fireInput(StreamEvent::HasBytesAvailable);
    }

    void answer(Connection& connection, char kind) {
        arrive(connection, "", true); // what has arrived before
        settle();
        if (connection.isOver || connection.unanswered.empty())
            return;
        const auto query = connection.unanswered.front();
        const auto text = "(U" + std::to_string(query.unit);
        if (kind == 'b') {
            arrive(connection, text + "I1N\"" + std::to_string(++commands_) + "\")", true);
            return;
        }
        connection.unanswered.pop_front();
        if (kind == 'L') {
            connection.queries[query].isCertain = false;
            return;
        }
        connection.isAnswering = true;
        arrive(connection, text + queryState(query.number) + ")", true);
        settle();
        connection.isAnswering = false;
    }

    Connection* latest(std::size_t place) {
        return connections_[place].empty() ? nullptr : &connections_[place].back();
    }
    Connection* open(std::size_t place) {
        auto* connection = latest(place);
        return connection && connection->inputIsOpen && connection->outputIsOpen && !connection->isOver
                   ? connection
                   : nullptr;
    }

    /// What the connections have read and written since the last call.
    void follow() {
        for (; pairs_ < network_.created(); ++pairs_) {
            auto& pair = network_.pair(pairs_);
            const auto place = static_cast<std::size_t>(pair.host[0] - '0');
            check(queue_.now() - connected_[place] >= 2s, "two connects within 2 s");
            check(!latest(place) || latest(place)->pair.live() == 0, "two connections to one place");
            connected_[place] = queue_.now();
            connections_[place].emplace_back(pair);
        }
        for (std::size_t place = 0; place < connections_.size(); ++place) {
            auto* connection = latest(place);
            if (!connection || connection->isOver)
                continue;
            followReports(*connection, place);
            followCommands(*connection);
            if ((connection->isOver = connection->pair.live() == 0))
                for (auto& user : users_)
                    user.isOver |= user.place == place;
        }
    }

    void followReports(Connection& connection, std::size_t place) {
        const auto end = connection.arrived.size() - connection.pair.incoming.size();
        const std::string bytes = connection.arrived.substr(connection.consumed, end - connection.consumed);
        connection.consumed = end;
        connection.reports.feed(std::span(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()),
                                [&](std::string_view text) { followReport(connection, place, text); });
        for (auto& [query, queries] : connection.queries)
            if (queries.answered < queries.sent.size() &&
                queue_.now() - queries.sent[queries.answered] >= 30s)
                queries.isCertain = false;
    }

    void followReport(Connection& connection, std::size_t place, std::string_view text) {
        const auto begun = connection.reports.begun();
        const bool repeats = std::exchange(connection.lastReport, begun) == begun;
        if (repeats && connection.lastIsEnd)
            return;
        Told told{std::string(text), {}, 0, false};
        if (!repeats) {
            told.ends = readEndOfState(text);
            connection.lastIsEnd = told.ends.has_value();
        }
        if (told.ends) {
            auto& queries = connection.queries[*told.ends];
            queries.isCertain &= connection.isAnswering && queries.answered < queries.sent.size();
            queries.answered = std::min(queries.answered + 1, queries.sent.size());
            told.query = queries.answered;
            told.isCertain = queries.isCertain;
        }
        for (auto& user : users_)
            if (user.tap && user.place == place && user.hears && !user.isOver && user.missed &&
                *user.missed < begun)
                user.told.push_back(told);
    }

    void followCommands(Connection& connection) {
        for (; connection.seen < connection.pair.taken.size(); ++connection.seen) {
            auto& command = connection.command;
            if (command.empty())
                connection.begun = queue_.now();
            command += connection.pair.taken[connection.seen];
            check((command.back() == '[') == (command.size() == 1), "a command inside another", command);
            if (command.back() == ']')
                followCommand(connection, std::exchange(command, {}));
        }
    }

    static void followCommand(Connection& connection, const std::string& command) {
        const auto parts = readCommand(command);
        check(parts.has_value(), "what is no command", command);
        if (const auto query = readQuery(command)) {
            auto& queries = connection.queries[*query];
            check(!queries.isCertain || queries.answered == queries.sent.size() ||
                      connection.begun - queries.sent.back() >= 5s,
                  "two queries at a time", command);
            queries.sent.push_back(connection.begun);
            connection.unanswered.push_back(*query);
        } else if (isSerialAnnouncement(parts->body)) {
            check(connection.announced.insert(parts->unit).second, "a second announcement");
        } else {
            check(!connection.accepted.empty() && connection.accepted.front() == command,
                  "another command than the next", command);
            connection.accepted.pop_front();
        }
    }

    void settle() {
        follow();
        queue_.runPosted();
        follow();
        for (auto& user : users_)
            if (user.tap)
                checkUser(user);
        for (std::size_t place = 0; place < connections_.size(); ++place) {
            const bool isUsed = std::any_of(users_.begin(), users_.end(), [&](const User& user) {
                return user.isThere() && user.place == place;
            });
            if (isUsed || !latest(place) || latest(place)->isOver)
                used_[place] = queue_.now();
            check(queue_.now() - used_[place] <= 10s, "a connection that nobody uses");
        }
    }

    void checkUser(User& user) {
        auto& tap = *user.tap;
        for (const char byte : std::exchange(tap.bytes, {}))
            user.heard.feed(std::span(reinterpret_cast<const std::uint8_t*>(&byte), 1),
                            [&](std::string_view text) { checkHeard(user, text); });
        check(tap.events.find("inside") == std::string::npos, "an event inside a call");
        check(!user.isThere() || tap.events.empty() || tap.isOpen() || !user.hears, "events in no order",
              tap.events);
        if (!user.isThere() && !tap.events.ends_with("end ") && !tap.events.ends_with("error "))
            user = User(); // it has left by itself
        if (!user.tap || !user.isAwake)
            return;
        while (!user.told.empty() && user.told.front().ends)
            passEnd(user);
        check(user.told.empty() || !user.hears || !user.isThere(), "a report did not come");
        if (user.isOver)
            check(!user.isThere(), "the end did not come");
        else if (user.missed)
            check(tap.isOpen() || !user.hears, "the connection is open");
        else
            check(!user.isThere() || queue_.now() - user.opened < 10s, "opening for longer than 10 s");
    }

    static void checkHeard(User& user, std::string_view text) {
        while (!user.told.empty() && user.told.front().ends &&
               (user.told.front().text != text ||
                (user.told.front().isCertain && !isFor(user, user.told.front()))))
            passEnd(user);
        check(!user.told.empty() && user.told.front().text == text, "heard what was not told", text);
        const auto told = user.told.front();
        user.told.pop_front();
        if (!told.ends)
            return;
        const auto ends = [&](const Ask& ask) {
            return ask.query == *told.ends && (!told.isCertain || ask.answeredBy <= told.query);
        };
        const auto ask = std::find_if(user.asks.begin(), user.asks.end(), ends);
        check(ask != user.asks.end(), "an end of another's query", text);
        user.asks.erase(ask);
        if (told.isCertain)
            std::erase_if(user.asks, ends);
        for (auto& other : user.asks)
            other.isAnswered |= ends(other);
    }

    static bool isFor(const User& user, const Told& end) {
        return std::any_of(user.asks.begin(), user.asks.end(), [&](const auto& ask) {
            return ask.query == *end.ends && ask.answeredBy <= end.query;
        });
    }
    /// The user did not hear the next end.
    static void passEnd(User& user) {
        const auto& end = user.told.front();
        check(!end.isCertain || !user.hears || !isFor(user, end), "the end of an answer did not come",
              end.text);
        user.told.pop_front();
    }

    /// A unit that answers whatever it is asked leaves nobody without an answer, once somebody asks it again.
    void finish() {
        for (auto& user : users_) {
            if (!user.isThere())
                continue;
            user.tap->atBytes = [] {};
            Input none(nullptr, 0);
            runUser('r', user, none);
        }
        settle();
        for (place_ = 0; place_ < connections_.size(); ++place_) {
            auto* connection = open(place_);
            if (!connection)
                continue;
            connection->pair.readResults.clear();
            connection->pair.writeResults.clear();
            Input none(nullptr, 0);
            runNetwork('S', none);
            TapUser fresh(link_, std::to_string(place_));
            queue_.runPosted();
            for (int number = 0; number < 2 * StateQuery::COUNT; ++number)
                fresh.write(
                    frameCommand(1 + number / StateQuery::COUNT, queryState(number % StateQuery::COUNT)));
            for (int round = 0; round < 8; ++round) {
                follow();
                while (!connection->unanswered.empty()) {
                    check(!connection->isOver, "a connection in use has ended");
                    answer(*connection, 'a');
                }
                for (int count = 0; count < 10; ++count) {
                    queue_.advance(500ms);
                    used_[place_] = queue_.now();
                    settle();
                }
            }
            check(connection->accepted.empty() && connection->command.empty(), "a command was not sent");
            for (const auto& user : users_)
                check(!user.isThere() || user.place != place_ || !user.hears ||
                          std::all_of(user.asks.begin(), user.asks.end(),
                                      [](const Ask& ask) { return ask.isAnswered; }),
                      "a query was never answered");
        }
    }

    ManualQueue queue_;
    ScriptedStreamFactory network_;
    SharedLink link_{queue_, network_};
    std::array<User, 8> users_;
    std::array<std::deque<Connection>, 2> connections_;
    std::array<std::chrono::nanoseconds, 2> connected_{-10s, -10s};
    std::array<std::chrono::nanoseconds, 2> used_{};
    std::size_t pairs_ = 0;
    std::size_t place_ = 0;
    int commands_ = 0;
};

} // namespace

FUZZ_TARGET(link)(Input input) {
    LinkUsers().play(input);
}
