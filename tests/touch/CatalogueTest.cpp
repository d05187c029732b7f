#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

struct Message {
    QString source;
    QString translation;
    QString state; ///< what the catalogue says of it; empty where it is finished
};

std::vector<Message> messages(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    std::vector<Message> all;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == u"message")
            all.emplace_back();
        else if (xml.name() == u"source")
            all.back().source = xml.readElementText();
        else if (xml.name() == u"translation") {
            all.back().state = xml.attributes().value(QLatin1String("type")).toString();
            all.back().translation = xml.readElementText();
        }
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    return all;
}

// A string added to the sources and to no catalogue would be shown in English among translated ones.
TEST(Catalogues, HoldAFinishedTranslationOfEveryString) {
    const QTemporaryDir folder;
    for (const auto* const language : {"de", "es", "fr"}) {
        const auto name = QStringLiteral("lumbra_%1.ts").arg(QLatin1String(language));
        const auto copy = folder.filePath(name);
        ASSERT_TRUE(QFile::copy(QStringLiteral(LUMBRA_TOUCH_SOURCES "/i18n/") + name, copy));
        QProcess lupdate;
        lupdate.start(QStringLiteral(LUPDATE_PROGRAM),
                      {QStringLiteral("-silent"), QStringLiteral("-locations"), QStringLiteral("none"),
                       QStringLiteral("-tr-function-alias"), QStringLiteral("QT_TRANSLATE_NOOP+=LUMBRA_TEXT"),
                       QStringLiteral(LUMBRA_TOUCH_SOURCES "/.."), QStringLiteral("-ts"), copy});
        ASSERT_TRUE(lupdate.waitForFinished() && lupdate.exitCode() == 0);
        const auto all = messages(copy);
        EXPECT_GT(all.size(), 50U);
        for (const auto& [source, translation, state] : all) {
            const auto place = std::string(language) + ", \"" + source.toStdString() + "\"";
            EXPECT_EQ(state, QString()) << place << ": lupdate, then translate";
            EXPECT_FALSE(translation.trimmed().isEmpty()) << place;
            for (const auto* const gap : {"%1", "%2", "%3"})
                EXPECT_EQ(source.count(QLatin1String(gap)), translation.count(QLatin1String(gap))) << place;
        }
    }
}

} // namespace
