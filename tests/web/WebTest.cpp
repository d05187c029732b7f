#include "Loopback.h"
#include "Process.h"
#include "Remote.h"
#include "web/WebFrontEnd.h"

#include <fstream>
#include <linux/tcp.h>
#include <set>
#include <sys/stat.h>

namespace lumbra::test {

/// Browsers of one front end, by the names A, B, ..., on real sockets and virtual time, under scripts of short steps:
///
///     A asks HEAD             connects and sends the head of a request; "|" ends its lines
///     A opens                 a WebSocket; A enters does so, and says a hello that needs no pairing
///     A says TEXT             a message, in which CODE and TOKEN are what was printed and heard last
///     A sends 82 x            a frame, by its first byte, as nobody's program would
///     A hears PART            what has come behind the last such step has this part
///     A misses PART           it has not, to its end; nothing is heard by that
///     A closed 1008           so the WebSocket ends; A dropped: the connection just ends
///     A sleeps                from now on it answers no ping; A leaves: without a word
///     printed PART            likewise of what the front end printed
///     many 65 A says get      the rest so many times
///     wait, connect, raw, sent [U1Z1M1], sockets      as in Remote, of the link that all share
class Web {
public:
    House house;
    MemorySettingsStore settings;
    std::string printed;
    std::optional<WebFrontEnd> web;
    std::map<std::string, std::unique_ptr<Peer>> browsers;
    std::map<std::string, std::size_t> heard;

    explicit Web(std::vector<std::string> names = {}, const QString& keyFile = {})
        : web(std::in_place, Platform{house.queue, house.worker, house.streams, house.reachability, settings},
              WebOptions{.address = QHostAddress(QHostAddress::LocalHost),
                         .names = std::move(names),
                         .keyFile = keyFile,
                         .json = true},
              [this](std::string_view text) { printed += text; }) {
        EXPECT_EQ(web->start(), QString());
    }
    std::string play(std::string_view script) {
        return runSteps(script, [this](std::string step) {
            int times = 1;
            if (step.starts_with("many ")) {
                times = std::stoi(step.substr(5));
                step.erase(0, step.find(' ', 5) + 1);
            }
            std::string problem;
            for (; times > 0 && problem.empty(); --times)
                problem = run(step);
            return problem;
        });
    }
    bool pump(const std::function<bool()>& condition) {
        return runUntil([&] {
            do
                house.queue.runPosted();
            while (house.worker.run() > 0);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // else only inside exec
            return condition();
        });
    }

private:
    static constexpr int NOW = 1;
    std::set<std::string> asleep_;

    std::string run(const std::string& step) {
        std::istringstream words(step);
        std::string name, verb, rest;
        words >> name;
        if (name[0] < 'A' || name[0] > 'Z')
            return std::getline(words >> std::ws, rest), world(name, rest);
        words >> verb;
        std::getline(words >> std::ws, rest);
        auto& browser = browsers[name];
        if (verb == "asks" || verb == "opens" || verb == "enters") {
            browser = std::make_unique<Peer>(connectTo(web->port(), 4096));
            ::setsockopt(browser->socket(), IPPROTO_TCP, TCP_NODELAY, &NOW, sizeof NOW);
            heard[name] = 0;
            browser->send(requestOf(verb == "asks" ? rest : "GET /remote {OK}{WS}|"));
            if (verb == "asks")
                return pump([turns = 0]() mutable { return ++turns > 4; }) ? "" : "it hangs";
            auto problem = hear(name, "101 Switching");
            if (verb == "opens" || !problem.empty())
                return problem;
            browser->send(frame('\x81', "hello \"\" 0 false"));
            return hear(name, "\"hello\",\"ok\":true");
        }
        if (verb == "says") {
            for (const auto& [word, value] : {std::pair("CODE", after(printed, "\"code\":\"")),
                                              {"TOKEN", after(browser->received(), "\"token\":\"")}})
                if (const auto at = rest.find(word); at != std::string::npos)
                    rest.replace(at, std::strlen(word), value);
            browser->send(frame('\x81', rest));
        } else if (verb == "sends") {
            browser->send(frame(static_cast<char>(std::stoi(rest, nullptr, 16)), rest.substr(3)));
        } else if (verb == "hears") {
            return hear(name, rest);
        } else if (verb == "misses") {
            pump([turns = 0]() mutable { return ++turns > 10; });
            return browser->received().find(rest, heard[name]) == std::string::npos ? "" : "it came";
        } else if (verb == "closed") {
            const auto code = static_cast<unsigned>(std::stoi(rest));
            return pump([&] {
                const auto& all = browser->received();
                const auto at = all.find('\x88', heard[name]);
                return at != std::string::npos && all.size() >= at + 4 &&
                       static_cast<unsigned char>(all[at + 2]) == code / 256 &&
                       static_cast<unsigned char>(all[at + 3]) == code % 256;
            })
                       ? ""
                       : "ended so: " + browser->received().substr(heard[name]);
        } else if (verb == "dropped") {
            return pump([&] {
                return browser->received().ends_with("FIN") || browser->received().ends_with("RST");
            })
                       ? ""
                       : "it is still there";
        } else if (verb == "sleeps") {
            asleep_.insert(name);
        } else {
            browser->close();
        }
        return "";
    }
    std::string world(const std::string& verb, const std::string& rest) {
        if (verb == "printed") {
            const auto at = printed.find(rest, heard[verb]);
            auto found = at == std::string::npos ? printed.substr(heard[verb]) : "";
            heard[verb] = at == std::string::npos ? heard[verb] : at + 1;
            return found;
        }
        auto& queue = house.queue;
        if (verb == "wait") {
            const auto step = std::chrono::milliseconds(std::stod(rest) < 5 ? 250 : 500);
            for (std::chrono::milliseconds left(std::lround(std::stod(rest) * 1000)); left.count() > 0;
                 left -= step) {
                queue.advance(step);
                for (const auto& [name, browser] : browsers)
                    if (left.count() % 5000 == 0 && !asleep_.contains(name) && browser->socket() != -1)
                        browser->sendNow(frame('\x8a', ""));
                pump([turns = 0]() mutable { return ++turns > 1; });
            }
            return "";
        }
        pump([turns = 0]() mutable { return ++turns > 4; });
        if (verb == "connect")
            house.streams.last().connect();
        else if (verb == "raw")
            house.streams.last().feed(rest);
        else if (verb == "sockets")
            return std::to_string(house.streams.liveStreams() / 2) == rest ? "" : "other";
        else {
            std::string all;
            for (const auto& text : std::exchange(house.streams.last().writes, {}))
                all += (all.empty() ? "" : " ") + text;
            return all == rest ? "" : "found '" + all + "'";
        }
        return "";
    }
    std::string hear(const std::string& name, const std::string& part) {
        std::size_t at = std::string::npos;
        auto& browser = *browsers[name];
        if (!pump([&] { return (at = browser.received().find(part, heard[name])) != std::string::npos; }))
            return "heard '" + browser.received().substr(heard[name]) + "'";
        heard[name] = at + part.size();
        return "";
    }
    static std::string requestOf(std::string text) {
        const std::pair<const char*, std::string> marks[] = {
            {"{WS}", "Upgrade: websocket|Connection: Upgrade|Sec-WebSocket-Version: 13|"
                     "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==|"},
            {"{OK}", "HTTP/1.1|Host: localhost|"},
            {"{TLS}", "\x16\x03\x01"},
            {"{LONG}", std::string(8192, 'x')}};
        for (const auto& [mark, meaning] : marks)
            if (const auto at = text.find(mark); at != std::string::npos)
                text.replace(at, std::strlen(mark), meaning);
        for (std::size_t at = 0; (at = text.find('|', at)) != std::string::npos;)
            text.replace(at, 1, "\r\n");
        return text;
    }
    /// What stands between the last `begin` and the next quote, without blanks.
    static std::string after(const std::string& text, const std::string& begin) {
        const auto at = text.rfind(begin);
        auto found = at == std::string::npos ? "" : text.substr(at + begin.size());
        found.erase(std::min(found.find('"'), found.size()));
        std::erase(found, ' ');
        return found;
    }
    /// A frame whose mask is zero.
    static std::string frame(char first, const std::string& text) {
        std::string head{first};
        if (text.size() < 126)
            head += static_cast<char>(0x80 | text.size());
        else
            head.append({'\xfe', static_cast<char>(text.size() >> 8), static_cast<char>(text.size())});
        return head + std::string(4, '\0') + text;
    }
};

// Each line: what the answer has, and the request. {OK} ends a request line and names a host, {WS} asks for a WebSocket.
TEST(Web, AnswersRequests) {
    std::istringstream rows(R"(
200 OK            GET / {OK}
Encoding: gzip    GET /?a {OK}Accept-Encoding: br, gzip;q=0.5|
-Type: text/html  GET / {OK}Accept-Encoding: gzip;q=0|
application/json  HEAD /words/de.json {OK}
304 Not           GET / {OK}If-None-Match: *|
404 Not           GET /../etc/passwd {OK}
404 Not           GET /remote {OK}
Allow: GET, HEAD  POST / {OK}Content-Length: 0|
405 Method        OPTIONS * {OK}
400 Bad           GET http://localhost/ {OK}
400 Bad           GET / {OK}Content-Length: 1|
400 Bad           GET / {OK}Content-Length: 0|Content-Length: 0|
400 Bad           GET / {OK}Transfer-Encoding: chunked|
400 Bad           GET / {OK}Host: localhost|
400 Bad           GET / {OK} folded|
400 Bad           {TLS}
400 Bad           GET / HTTP/2.0|Host: localhost|
400 Bad           GET / HTTP/1.1|
421 Mis           GET / HTTP/1.0|
421 Mis           GET / HTTP/1.1|Host: evil.example|
421 Mis           GET / HTTP/1.1|Host: 192.0.2|
200 OK            GET / HTTP/1.1|Host: 192.0.2.1|
200 OK            GET / HTTP/1.1|Host: [::1]:80|
200 OK            GET / HTTP/1.1|Host: Remote.Example:80|
101 Switching     GET /remote {OK}{WS}
101 Switching     GET /remote {OK}{WS}Origin: http://localhost|
101 Switching     GET /remote HTTP/1.1|Host: remote.example|Origin: https://remote.example|{WS}
403 For           GET /remote {OK}{WS}Origin: null|
403 For           GET /remote {OK}{WS}Origin: https://localhost|
403 For           GET /remote {OK}{WS}Origin: http://localhost:81|
400 Bad           HEAD /remote {OK}{WS}
400 Bad           GET /remote HTTP/1.0|Host: localhost|{WS}
431 Request       GET / {OK}X: {LONG}|)");
    Web web({"remote.example"});
    for (std::string row; std::getline(rows, row);)
        if (!row.empty()) {
            const auto answer = row.substr(0, row.find_last_not_of(' ', 17) + 1);
            EXPECT_EQ(web.play("A asks " + row.substr(18) + "|\nA hears " + answer), "") << row;
            web.browsers.clear();
        }
    EXPECT_EQ(
        web.play("A asks GET / HTTP/1.1|Host: ; wait 9.5 ; A misses 4 ; wait 0.5 ; A hears 408 ; A dropped"),
        "");
}

TEST(Web, LetsPairedBrowsersIn) {
    const Folder folder;
    const auto key = QString::fromStdString(folder / "key");
    Web web({"remote.example"}, key);
    EXPECT_EQ(web.play(R"(
        A opens ; A says hello "" 0 true ; A hears "pair":true ; A says state ; A hears only hello and pair
        many 5 A says pair 12345678 ; many 5 A hears this is not ; A says pair CODE ; A hears try again in a minute
        wait 60 ; many 5 A says pair 0000 0000 ; many 5 A hears this is not
        printed "code" ; printed "code" ; wait 60 ; A says pair CODE ; A hears "token" ; printed "code"
        A says hello TOKEN 1 true ; A hears "ok":true,"version" ; A hears "screen":"group" ; A says invite ; A hears "code":")"),
              "");
    struct stat info {};
    EXPECT_TRUE(::stat((folder / "key").c_str(), &info) == 0 && (info.st_mode & 0777) == 0600);
    const auto token = web.browsers["A"]->received();
    const auto begin = token.find("\"token\":\"") + 9;
    const auto hello = "hello " + token.substr(begin, token.find('"', begin) - begin);
    Web again({"remote.example"}, key);
    EXPECT_EQ(again.play("A opens ; A says " + hello + "x 0 true ; A hears \"pair\":true ; A says " + hello +
                         " 0 true ; A hears version"),
              "");
    std::filesystem::remove(folder / "key");
    EXPECT_EQ(again.play("B opens ; B says " + hello + " 0 true ; B hears \"pair\":true"), "");
    std::ofstream(folder / "short") << "key";
    for (const auto* file : {"/nowhere/key", "/dev/null", "short"})
        EXPECT_NE(
            web::TokenKey(file[0] == '/' ? QString::fromLatin1(file) : QString::fromStdString(folder / file))
                .error(),
            QString())
            << file;
}

TEST(Web, GivesEachVisitorARemoteOnOneLink) {
    const std::string tooMuch(4097, 'x'), half(2500, 'x');
    const std::pair<const char*, std::string> scenarios[] = {
        {"what is no message, or no hello", "A opens ; A sends 82 x ; A closed 1003 ; A opens ; A sends 81 " +
                                                tooMuch + " ; A closed 1009 ; A enters ; A sends 01 " + half +
                                                " ; A sends 80 " + half + " ; A closed 1009" +
                                                R"(
            A opens ; A sends 81 )"
                                                "\xff"
                                                R"( ; A closed 1007 ; A opens ; A says state ; A closed 1008
            A opens ; A says hello "" -1 true ; A hears usage: hello ; wait 9.5 ; A misses closes ; wait 0.5 ; A closed 1008)"},
        {"its own start tab and mode, the program's link", R"(
            A enters ; B enters ; A says set unit_number_preference 2 ; A hears the link is set where the program runs
            A says set fly 2 ; A hears no such setting ; A says set start_tab_preference 2 ; A says set advanced_mode_preference true ; A says get
            A hears "start_tab_preference":2 ; B says get ; B hears "start_tab_preference":0 ; A says app away ; A says app back
            A hears "screen":"override" ; A says invite ; A hears "code":null,"urls":["http://127.0.0.1: ; A says hello "" 0 true
            A hears no such command ; A says quit ; A hears "quit","ok":true ; A closed 1000 ; B misses quit)"},
        {"one link, which ends 10 s after all; what was moved is sent", R"(
            A enters ; connect ; A hears "link":"open" ; sent [U1SERIAL0] [U1APPQ0] ; raw (U1Z1V-30) ; B enters
            B hears "status":"waiting" ; raw (U1Z1M0)(U1APPQ0) ; A hears "status":"current" ; B misses current ; sent [U1APPQ0]
            raw (U1Z1V-30)(U1APPQ0) ; B hears "status":"current" ; A says slide volumeSlider -20 ; A hears "slide" ; A leaves
            wait 1 ; sent [U1Z1V-20] ; B says hold volumeSlider ; B says slide volumeSlider -25 ; B hears "slide" ; wait 2
            raw (U1Z1V-30) ; B leaves ; wait 1 ; sent [U1Z1V-25] ; wait 9 ; sockets 1 ; wait 3 ; sockets 0)"},
        {"commands that wait, up to 64", R"(
            A enters ; A says wait 4 ; many 64 A says get ; A misses "get" ; wait 5 ; many 64 A hears "get" ; A says wait 4
            many 65 A says get ; wait 1 ; A closed 1008)"},
        {"one that vanishes", R"(A enters ; A sleeps ; wait 35 ; A misses FIN ; wait 5 ; A dropped)"},
    };
    for (const auto& [name, script] : scenarios)
        EXPECT_EQ(Web().play(script), "") << name;
}

TEST(Web, TellsASlowReaderTheNewestAndEndsOneThatDoesNotRead) {
    Web web;
    EXPECT_EQ(web.play("A enters ; connect ; A says watch on ; A hears \"watch\" ; B enters ; raw (U1APPQ0)"),
              "");
    const auto flood = [&](int count) {
        for (int report = 0; report < count; ++report) {
            const auto level = std::to_string(-10 - report % 60);
            web.house.streams.last().feed("(U1Z" + std::to_string(1 + report % 16) + "V" + level + ")");
            web.house.queue.runPosted();
        }
        web.house.streams.last().feed("(U1Z1V-77)");
    };
    flood(8000);
    EXPECT_EQ(web.play("A says get ; A hears \"volume\":-77 ; A hears \"get\""), "");
    const auto& told = web.browsers["A"]->received();
    EXPECT_LT(std::count(told.begin(), told.end(), '{'), 8000);
    flood(8000);
    EXPECT_EQ(web.play("wait 36 ; A dropped"), "");
}

// Counted by signals, those who have gone would keep their places.
TEST(Web, HasRoomFor32VisitorsAtATime) {
    Web web;
    for (int round = 0; round < 8; ++round) {
        for (int visitor = 0; visitor < 32; ++visitor)
            EXPECT_EQ(web.play("A" + std::to_string(visitor) + (visitor % 2 == 0 ? " enters" : " opens")),
                      "");
        EXPECT_EQ(
            web.play("B asks GET /remote HTTP/1.1|Host: localhost|Upgrade: websocket|Connection: Upgrade|"
                     "Sec-WebSocket-Version: 13|Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==|| ; B hears 503"),
            "");
        web.browsers.clear();
        web.pump([turns = 0]() mutable { return ++turns > 9; });
    }
}

} // namespace lumbra::test
