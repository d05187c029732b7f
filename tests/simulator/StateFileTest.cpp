#include "simulator/StateFile.h"

#include "simulator/Unit.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace lumbra::sim {

namespace {

class StateFileTest : public testing::Test {
protected:
    StateFileTest() {
        for (const char* const body : {"Z3V-61", "O5B2P-7F317", "AO9A2", "Z1M1", "SP10SAVE", "G2P0"})
            unit_.execute(body);
    }

    void write(const QByteArray& bytes) const {
        QFile file(path_);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }

    QStringList files() const {
        return QDir(directory_.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    QTemporaryDir directory_;
    QString path_ = directory_.filePath(QStringLiteral("unit.state"));
    StateFile file_{path_};
    Unit unit_;
    QString message_;
};

TEST_F(StateFileTest, keepsAllOfAMemory) {
    ASSERT_TRUE(file_.save(unit_.memory(), message_)) << message_.toStdString();
    Memory memory;
    ASSERT_TRUE(file_.load(memory, message_));
    EXPECT_EQ(memory, unit_.memory());
    EXPECT_EQ(message_, QString());
    EXPECT_EQ(files(), QStringList{QStringLiteral("unit.state")});
}

TEST_F(StateFileTest, startsAfreshWithoutAFile) {
    Memory memory = unit_.memory();
    EXPECT_TRUE(file_.load(memory, message_));
    EXPECT_EQ(memory, unit_.memory());
    EXPECT_EQ(message_, QString());
}

TEST_F(StateFileTest, setsAsideWhatItCannotUseAndSaysWhy) {
    const QByteArray good = toJson(unit_.memory());
    const auto replaced = [&](const char* from, const char* to) {
        QByteArray json = good;
        const qsizetype at = json.indexOf(from);
        EXPECT_GE(at, 0) << from;
        return json.replace(at, static_cast<qsizetype>(strlen(from)), to);
    };
    struct Case {
        QByteArray bytes;
        const char* reason;
    };
    const Case CASES[] = {
        {"", "at byte 0"},
        {"[1,2]", "it holds no JSON object"},
        {good.left(good.size() / 2), "at byte"},
        {replaced("\"format\":1", "\"format\":2"), "format is not a whole number from 1 to 1"},
        {replaced("\"volume\":-61", "\"volume\":-81"),
         "outputs[3].volume is not a whole number from -80 to 0"},
        {replaced("\"volume\":-61", "\"volume\":\"-61\""), "outputs[3].volume"},
        {replaced("\"volume\":-61", "\"volume\":-60.5"), "outputs[3].volume"},
        {replaced("\"volume\":-61", "\"volume\":1e300"), "outputs[3].volume"},
        {replaced("\"frequency\":317", "\"frequency\":0"), "outputs[4].bands[1].frequency"},
        {replaced("\"overrides\":[{", "\"overrides\":[{\"on\":1},{"), "overrides is not a list of 10"},
        {replaced("\"scenes\":[{", "\"scenes\":[7,{"), "scenes is not a list of 10"},
        {replaced("\"bass\":", "\"boss\":"), "bass"},
        {QByteArray(StateFile::LONGEST + 1, ' '), "it is too long"},
    };
    int number = 0;
    for (const Case& test : CASES) {
        write(test.bytes);
        Memory memory = unit_.memory();
        message_.clear();
        EXPECT_TRUE(file_.load(memory, message_)) << test.reason;
        EXPECT_EQ(memory, unit_.memory()) << test.reason;
        EXPECT_TRUE(message_.contains(QLatin1String(test.reason))) << message_.toStdString();
        const QString aside =
            ++number == 1 ? path_ + QStringLiteral(".bad") : path_ + QStringLiteral(".bad%1").arg(number);
        QFile kept(aside);
        EXPECT_TRUE(kept.open(QIODevice::ReadOnly) && kept.readAll() == test.bytes) << test.reason;
        EXPECT_FALSE(QFile::exists(path_));
    }
}

// A mistyped path must not have a folder full of other things renamed.
TEST_F(StateFileTest, leavesAFolderAlone) {
    QDir(directory_.path()).mkdir(QStringLiteral("unit.state"));
    Memory memory;
    EXPECT_FALSE(file_.load(memory, message_));
    EXPECT_TRUE(message_.contains(QStringLiteral("it is no regular file"))) << message_.toStdString();
    EXPECT_EQ(files(), QStringList{QStringLiteral("unit.state")});
}

TEST_F(StateFileTest, tellsWhatItCannotWrite) {
    const StateFile nowhere(directory_.filePath(QStringLiteral("no/such/folder")));
    EXPECT_FALSE(nowhere.save(unit_.memory(), message_));
    EXPECT_TRUE(message_.contains(QStringLiteral("no/such/folder can't be written: ")))
        << message_.toStdString();
}

} // namespace

} // namespace lumbra::sim
