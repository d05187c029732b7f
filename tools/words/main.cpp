// Prints a translation catalogue as JSON, for the page: an object for each context, in it each English text with its
// translation. What is not translated is left out.

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QXmlStreamReader>

#include <cstdio>

namespace {

/// The catalogue; empty where the file is none.
QJsonObject read(QIODevice& file) {
    QJsonObject contexts;
    QString context;
    QString source;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1String("source")) {
            source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            auto texts = contexts[context].toObject();
            if (const auto translation = xml.readElementText(); !translation.isEmpty())
                texts[source] = translation;
            contexts[context] = texts;
        }
    }
    return xml.hasError() ? QJsonObject() : contexts;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: lumbra-words FILE.ts\n", stderr);
        return 2;
    }
    QFile file(QString::fromLocal8Bit(argv[1]));
    const auto words = file.open(QIODevice::ReadOnly) ? read(file) : QJsonObject();
    if (words.isEmpty()) {
        std::fprintf(stderr, "lumbra-words: %s is no catalogue that can be read.\n", argv[1]);
        return 1;
    }
    const auto json = QJsonDocument(words).toJson(QJsonDocument::Compact);
    return std::fputs(json.constData(), stdout) < 0 || std::fflush(stdout) != 0 ? 1 : 0;
}
