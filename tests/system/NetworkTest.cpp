#include "system/HostPort.h"
#include "system/NetworkReachability.h"
#include "system/SocketAddress.h"

#include <gtest/gtest.h>

#include <net/if.h>
#include <optional>
#include <sched.h>
#include <string>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lumbra {
namespace {

TEST(HostPort, ReadsOnlyWhatIsUnambiguous) {
    const std::string longest(299, 'a');
    struct Case {
        std::string text;
        const char* host; // null: no host and port
        int port = 0;
    };
    const Case cases[] = {
        {"127.0.0.1:8023", "127.0.0.1", 8023},
        {"unit.local:1", "unit.local", 1},
        {"[::1]:65535", "::1", 65535},
        {"[fe80::1%lo]:23", "fe80::1%lo", 23},
        {longest + ":23", longest.c_str(), 23},
        {"", nullptr},
        {":23", nullptr},
        {"[]:23", nullptr},
        {"unit", nullptr},
        {"unit:", nullptr},
        {"unit:0", nullptr},
        {"unit:65536", nullptr},
        {"unit:99999999999999999999", nullptr},
        {"unit:-1", nullptr},
        {"unit:+23", nullptr},
        {"unit: 23", nullptr},
        {"unit:23 ", nullptr},
        {"unit:0x17", nullptr},
        {"my unit:23", nullptr},
        {std::string("un\0it:23", 8), nullptr},
        {"::1:23", nullptr},
        {"::1", nullptr},
        {"[::1]", nullptr},
        {"[::1:23", nullptr},
        {"::1]:23", nullptr},
        {"[127.0.0.1]:23", nullptr},
        {"[unit]:23", nullptr},
        {std::string(400, 'a') + ":23", nullptr},
    };
    for (const auto& [text, host, port] : cases) {
        const auto parsed = parseHostPort(text);
        ASSERT_EQ(parsed.has_value(), host != nullptr) << text;
        if (parsed) {
            EXPECT_EQ(parsed->host, host);
            EXPECT_EQ(parsed->port, port);
        }
    }
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
