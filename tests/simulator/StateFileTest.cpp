#include "simulator/StateFile.h"

#include "Limited.h"
#include "simulator/Unit.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace lumbra::sim::test {

TEST(StateFile, keepsAMemoryAndSetsAsideOnlyWhatHoldsNone) {
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("unit.state"));
    const StateFile file(path);
    QString message;
    Unit unit;
    for (const char* const body : {"Z3V-61", "O5B2P-7F317", "AO9A2", "Z1M1", "SP10SAVE", "O5B2BYPASS"})
        unit.execute(body);
    const Memory good = unit.memory();
    unit.execute("Z3V-62");
    const Memory other = unit.memory();
    const auto load = [&](const Memory& expected, bool loads, const char* says) {
        Memory memory = other;
        message.clear();
        EXPECT_EQ(file.load(memory, message), loads) << says;
        EXPECT_EQ(memory, expected) << says;
        EXPECT_TRUE(message.contains(QLatin1String(says)) && message.isEmpty() == !*says)
            << message.toStdString();
    };
    load(other, true, "");
    ASSERT_TRUE(file.save(good, message)) << message.toStdString();
    load(good, true, "");
    {
        const Limited descriptors(RLIMIT_NOFILE, 0);
        load(other, false, "It is left alone");
    }
    load(good, true, "");

    const QString json = QString::fromLatin1(toJson(good));
    const auto with = [&](const char* from, const char* to) {
        EXPECT_TRUE(json.contains(QLatin1String(from)));
        return QString(json).replace(QLatin1String(from), QLatin1String(to)).toLatin1();
    };
    const std::pair<QByteArray, const char*> CASES[] = {
        {"", "at byte 0"},
        {with("\"format\":1", "\"format\":2"), "format is not a whole number from 1 to 1"},
        {with("-61", "-81"), "zones[2].volume is not a whole number from -80 to 0"},
        {with("317", "1e300"), "outputs[4].bands[1].frequency"},
        {with("\"overrides\":[{", "\"overrides\":[{},{"), "overrides is not a list of 10"},
        {with("\"bass\":", "\"boss\":"), "bass"},
        {QByteArray(WholeFile::LONGEST + 1, ' '), "it is too long"},
    };
    QString aside = path + QStringLiteral(".bad");
    for (int number = 2; const auto& [bytes, reason] : CASES) {
        QFile written(path);
        ASSERT_TRUE(written.open(QIODevice::WriteOnly) && written.write(bytes) == bytes.size());
        written.close();
        load(other, true, reason);
        QFile kept(aside);
        EXPECT_TRUE(kept.open(QIODevice::ReadOnly) && kept.readAll() == bytes && !QFile::exists(path))
            << reason;
        aside = path + QStringLiteral(".bad%1").arg(number++);
    }

    // A mistyped path must not have a folder full of other things renamed.
    QDir().mkdir(path);
    load(other, false, "it is no regular file");
    EXPECT_FALSE(file.save(good, message));
    EXPECT_TRUE(message.contains(QStringLiteral("unit.state can't be written: "))) << message.toStdString();
    EXPECT_TRUE(QDir(path).exists());
}

} // namespace lumbra::sim::test
