#include "system/HostPort.h"
#include "system/NetworkReachability.h"
#include "system/SocketAddress.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <net/if.h>
#include <sched.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <tuple>
#include <unistd.h>

namespace lumbra {
namespace {

TEST(HostPort, ReadsOnlyWhatIsUnambiguous) {
    const std::string longest(300, 'a');
    const std::tuple<std::string, std::string, int> places[] = {{"127.0.0.1:8023", "127.0.0.1", 8023},
                                                                {"unit.local:1", "unit.local", 1},
                                                                {"[::1]:65535", "::1", 65535},
                                                                {"[fe80::1%lo]:23", "fe80::1%lo", 23},
                                                                {longest + ":23", longest, 23}};
    for (const auto& [text, host, port] : places) {
        const auto parsed = parseHostPort(text);
        ASSERT_TRUE(parsed) << text;
        EXPECT_EQ(parsed->host, host);
        EXPECT_EQ(parsed->port, port);
    }
    for (const auto& text : std::initializer_list<std::string>{"",           ":23",
                                                               "[]:23",      "unit",
                                                               "unit:",      "unit:0",
                                                               "unit:65536", "unit:99999999999999999999",
                                                               "unit:-1",    "unit:+23",
                                                               "unit: 23",   "unit:23 ",
                                                               "unit:0x17",  "my unit:23",
                                                               "u\x7f:23",   std::string("un\0it:23", 8),
                                                               "::1:23",     "::1",
                                                               "[::1]",      "[::1:23",
                                                               "::1]:23",    "[127.0.0.1]:23",
                                                               "[unit]:23",  longest + "a:23"})
        EXPECT_FALSE(parseHostPort(text)) << text;
}

TEST(SocketAddress, KnowsTheLoopbackFromTheNetwork) {
    for (const auto* host :
         {"localhost", "LocalHost", "127.0.0.1", "127.255.255.254", "::1", "::ffff:127.0.0.1"})
        EXPECT_TRUE(isLoopbackHost(host)) << host;
    for (const auto* host : {"", "localhost ", "localhost.example", "128.0.0.1", "192.168.1.50", "0.0.0.0",
                             "::", "::2", "fe80::1", "::ffff:192.168.1.50", "unit.local"})
        EXPECT_FALSE(isLoopbackHost(host)) << host;
}

TEST(NetworkReachability, IsFalseWithTheLoopbackAlone) {
    constexpr int NOT_PERMITTED = 77;
    const auto child = ::fork();
    if (child == 0) {
        if (::unshare(CLONE_NEWNET) != 0 && ::unshare(CLONE_NEWUSER | CLONE_NEWNET) != 0)
            ::_exit(NOT_PERMITTED);
        ifreq loopback{};
        loopback.ifr_name[0] = 'l';
        loopback.ifr_name[1] = 'o';
        loopback.ifr_flags = IFF_UP | IFF_RUNNING;
        ::ioctl(::socket(AF_INET, SOCK_DGRAM, 0), SIOCSIFFLAGS, &loopback);
        ::_exit(NetworkReachability().isReachable() ? 1 : 0);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == NOT_PERMITTED)
        GTEST_SKIP() << "needs the right to a network of its own";
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

} // namespace
} // namespace lumbra
