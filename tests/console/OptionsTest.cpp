#include "program/Options.h"

#include "program/ApplicationHost.h"
#include "program/ModulePath.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <filesystem>
#include <tuple>

namespace {

using namespace lumbra;

QStringList split(const char* line) {
    return QStringLiteral("lumbra-remote %1")
        .arg(QString::fromUtf8(line))
        .split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

TEST(Options, AreRead) {
    const auto parsed =
        parseOptions(split("--json --console --connect-to [::1]:4023 --settings /tmp/a.json --trace /tmp/b"));
    const auto& options = std::get<Options>(parsed);
    EXPECT_TRUE(options.console && options.json && !options.demo && !options.fullscreen);
    EXPECT_EQ(options.connectTo.value().host + std::to_string(options.connectTo->port), "::14023");
    EXPECT_EQ(options.settingsFile, QStringLiteral("/tmp/a.json"));
    EXPECT_EQ(publicOptions(options.given), "--console --json --connect-to [::1]:4023") << "for a trace";
    EXPECT_EQ(options.traceLimit, 64);
}

TEST(Options, WrongOnesAreUsageErrors) {
    for (const auto* line :
         {"--fly", "-x", "zone", "--console zone", "--console --", "--demo --connect-to a:1", "--json",
          "--console --fullscreen", "--connect-to", "--connect-to a", "--settings=", "--json=1 --console",
          "--help --fly", "--trace-size 1", "--trace a --trace-size 0", "--trace a --trace-size 1025"})
        EXPECT_EQ(std::holds_alternative<UsageError>(parseOptions(split(line))),
                  std::string_view(line) != "--console --")
            << line;
}

// A guessed address must not be reached, nor stored before the user has answered.
TEST(ApplicationHost, AsksForTheUnitOnlyWhereNoneIsKnown) {
    int count = 0;
    const QCoreApplication qt(count, nullptr);
    const QTemporaryDir folder;
    Options options;
    options.settingsFile = folder.filePath(QStringLiteral("a.json"));
    ApplicationHost host(options);
    EXPECT_FALSE(host.knowsTheUnit() || QFile::exists(options.settingsFile));
    for (const auto* line : {"--demo", "--connect-to localhost:1"}) {
        auto known = std::get<Options>(parseOptions(split(line)));
        known.settingsFile = options.settingsFile;
        EXPECT_TRUE(ApplicationHost(known).knowsTheUnit()) << line;
    }
    ASSERT_TRUE(host.build(UnitPlace{"10.0.0.7", 3}) && host.knowsTheUnit());
    const auto& link = host.application().link();
    EXPECT_TRUE(link.ip_address() == "10.0.0.7" && link.unit == 3 && link.polling && !link.serial);
}

// An empty trace would pass for settings, and settings that end in a trace would be set aside.
TEST(ApplicationHost, TracesToNoFileOfTheSettings) {
    int count = 0;
    const QCoreApplication qt(count, nullptr);
    const QTemporaryDir folder;
    const auto in = [&](const char* name) { return folder.filePath(QString::fromLatin1(name)); };
    QFile(in("empty")).open(QIODevice::WriteOnly);
    std::filesystem::create_hard_link(in("empty").toStdString(), in("twin").toStdString());
    std::filesystem::create_symlink("settings", in("link").toStdString());
    const auto before = QDir(folder.path()).entryList().size();
    for (const auto& [settings, trace, isRefused] : {std::tuple("settings", "settings", true),
                                                     {"new/../a", "a", true},
                                                     {"settings", "link", true},
                                                     {"link", "settings", true},
                                                     {"empty", "twin", true},
                                                     {"settings", "empty", false}}) {
        Options options;
        options.settingsFile = in(settings);
        options.traceFile = in(trace);
        const auto error = ApplicationHost(options).error();
        EXPECT_EQ(error.contains(QStringLiteral("the settings are kept there")), isRefused)
            << settings << " " << trace << error.toStdString();
    }
    EXPECT_EQ(QDir(folder.path()).entryList().size(), before);
}

// Whoever starts the program in a folder of somebody else's must not load what lies there.
TEST(ModulePath, IsNeverInTheWorkingFolder) {
    const QTemporaryDir folder;
    QDir::setCurrent(folder.path());
    EXPECT_TRUE(QFile(QStringLiteral("lumbra-touch.so")).open(QIODevice::WriteOnly));
    for (const auto* program : {"", "lumbra-remote", "./lumbra-remote", "/nowhere/lumbra-remote"}) {
        const auto path = modulePath(QString::fromLatin1(program), "lumbra-touch.so");
        EXPECT_TRUE(path.startsWith(QLatin1Char('/')) &&
                    path.endsWith(QStringLiteral("/lumbra-remote/lumbra-touch.so")))
            << program << ": " << path.toStdString();
    }
}

} // namespace
