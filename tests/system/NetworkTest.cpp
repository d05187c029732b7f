#include "system/HostPort.h"
#include "system/NetworkReachability.h"
#include "system/SocketAddress.h"

#include <gtest/gtest.h>

#include <net/if.h>
#include <sched.h>
#include <sstream>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace lumbra::test {

TEST(HostPort, ReadsOnlyWhatIsUnambiguous) {
    const std::string longest(300, 'a');
    const auto read = [](const std::string& text) {
        const auto parsed = parseHostPort(text);
        return parsed ? parsed->host + " " + std::to_string(parsed->port) : "";
    };
    EXPECT_EQ(read("127.0.0.1:8023") + read("[::1]:65535"), "127.0.0.1 8023::1 65535");
    EXPECT_EQ(read("[fe80::1%lo]:1") + read(longest + ":23"), "fe80::1%lo 1" + longest + " 23");
    std::istringstream rest(
        ",:23,[]:23,unit,unit:,unit:0,unit:65536,unit:99999999999999999999,unit:-1,unit:+23,"
        "unit: 23,unit:23 ,unit:0x17,my unit:23,u\x7f:23,::1:23,::1,[::1],[::1:23,::1]:23,"
        "[127.0.0.1]:23,[unit]:23");
    for (std::string text; std::getline(rest, text, ',');)
        EXPECT_EQ(read(text), "") << text;
    EXPECT_EQ(read(std::string("un\0it:23", 8)) + read(longest + "a:23"), "");
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
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == NOT_PERMITTED)
        GTEST_SKIP() << "needs the right to a network of its own";
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

} // namespace lumbra::test
