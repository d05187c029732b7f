#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

// A string added to the sources and to no catalogue would be shown in English among translated ones.
TEST(Catalogues, HoldAFinishedTranslationOfEveryString) {
    const QTemporaryDir folder;
    const QDir catalogues(QStringLiteral(LUMBRA_TOUCH_SOURCES "/i18n"));
    const QRegularExpression message(
        QStringLiteral("<source>([^<]+)</source>.*?<translation( type=.*?)?(/|>([^<]*)</translation)>"),
        QRegularExpression::DotMatchesEverythingOption);
    for (const auto& name : catalogues.entryList({QStringLiteral("*.ts")})) {
        QFile copy(folder.filePath(name));
        ASSERT_TRUE(QFile::copy(catalogues.filePath(name), copy.fileName()));
        ASSERT_EQ(QProcess::execute(
                      QStringLiteral(LUPDATE_PROGRAM),
                      {QStringLiteral("-silent"), QStringLiteral("-locations"), QStringLiteral("none"),
                       QStringLiteral("-tr-function-alias"), QStringLiteral("QT_TRANSLATE_NOOP+=LUMBRA_TEXT"),
                       QStringLiteral(LUMBRA_TOUCH_SOURCES "/.."), QStringLiteral("-ts"), copy.fileName()}),
                  0);
        ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
        const auto text = QString::fromUtf8(copy.readAll());
        int found = 0;
        for (auto all = message.globalMatch(text); all.hasNext(); ++found) {
            const auto match = all.next();
            const auto place = name.toStdString() + ", \"" + match.captured(1).toStdString() + "\"";
            EXPECT_EQ(match.captured(2), QString()) << place << ": lupdate, then translate";
            EXPECT_FALSE(match.captured(4).trimmed().isEmpty()) << place;
            for (const auto* const gap : {"%1", "%2", "%3"})
                EXPECT_EQ(match.captured(1).count(QLatin1String(gap)),
                          match.captured(4).count(QLatin1String(gap)))
                    << place;
        }
        EXPECT_GT(found, 50);
        EXPECT_EQ(found, text.count(QStringLiteral("<message"))) << "some are not understood";
    }
}

} // namespace
