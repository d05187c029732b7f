#include "program/Options.h"

#include "program/ApplicationHost.h"
#include "program/TouchModulePath.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using namespace lumbra;

QStringList split(const char* line) {
    return QStringLiteral("lumbra-remote %1")
        .arg(QString::fromUtf8(line))
        .split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

TEST(Options, AreRead) {
    const auto parsed =
        parseOptions(split("--console --json --connect-to [::1]:4023 --settings /tmp/a.json"));
    const auto& options = std::get<Options>(parsed);
    EXPECT_TRUE(options.console && options.json && !options.demo && !options.fullscreen);
    EXPECT_EQ(options.connectTo.value().host + std::to_string(options.connectTo->port), "::14023");
    EXPECT_EQ(options.settingsFile, QStringLiteral("/tmp/a.json"));
}

TEST(Options, WrongOnesAreUsageErrors) {
    for (const auto* line : {"--fly", "-x", "zone", "--console zone", "--console --",
                             "--demo --connect-to a:1", "--json", "--console --fullscreen", "--connect-to",
                             "--connect-to a", "--settings=", "--json=1 --console", "--help --fly"})
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

// Whoever starts the program in a folder of somebody else's must not load what lies there.
TEST(TouchModulePath, IsNeverInTheWorkingFolder) {
    const QTemporaryDir folder;
    QDir::setCurrent(folder.path());
    EXPECT_TRUE(QFile(QStringLiteral("lumbra-touch.so")).open(QIODevice::WriteOnly));
    for (const auto* program : {"", "lumbra-remote", "./lumbra-remote", "/nowhere/lumbra-remote"}) {
        const auto path = touchModulePath(QString::fromLatin1(program));
        EXPECT_TRUE(path.startsWith(QLatin1Char('/')) &&
                    path.endsWith(QStringLiteral("/lumbra-remote/lumbra-touch.so")))
            << program << ": " << path.toStdString();
    }
}

} // namespace
