#include "system/CommandLine.h"

#include <QCommandLineParser>

namespace lumbra {

namespace {

QString text(const char* ascii) {
    return QString::fromLatin1(ascii);
}

} // namespace

std::function<bool(const QString&)> storesFile(QString& name) {
    return [&name](const QString& value) {
        name = value;
        return !value.isEmpty();
    };
}

std::vector<CommandLineOption> CommandLine::allOptions() const {
    auto all = options;
    all.push_back({.name = "help", .help = "Print this.", .letter = 'h'});
    all.push_back({.name = "version", .help = "Print the version.", .letter = 'v'});
    return all;
}

std::optional<std::variant<InformationRequest, UsageError>>
CommandLine::parse(const QStringList& arguments) const {
    QCommandLineParser parser;
    parser.setApplicationDescription(text(description));
    for (const auto& option : allOptions()) {
        QStringList names(text(option.name));
        if (option.letter != 0)
            names.prepend(QString(QLatin1Char(option.letter)));
        parser.addOption({names, text(option.help), text(option.value)});
    }
    if (!parser.parse(arguments))
        return UsageError{parser.errorText()};
    if (!parser.positionalArguments().isEmpty())
        return UsageError{
            QStringLiteral("Unexpected argument \"%1\".").arg(parser.positionalArguments().constFirst())};

    const auto isGiven = [&](const char* name) { return name && parser.isSet(text(name)); };
    for (const auto& option : options) {
        if (!isGiven(option.name))
            continue;
        if (option.needs && !isGiven(option.needs))
            return UsageError{QStringLiteral("--%1 needs --%2.").arg(text(option.name), text(option.needs))};
        if (isGiven(option.excludes))
            return UsageError{QStringLiteral("--%1 and --%2 exclude each other.")
                                  .arg(text(option.name), text(option.excludes))};
        const auto value = option.value ? parser.value(text(option.name)) : QString();
        if (!option.store(value))
            return UsageError{
                QStringLiteral("--%1 takes %2, not \"%3\".").arg(text(option.name), option.takes, value)};
    }
    if (isGiven("help")) {
        // Without an application object the parser does not know the program's name; with one it takes the path.
        auto help = parser.helpText();
        help.replace(0, help.indexOf(QLatin1Char('\n')),
                     QStringLiteral("Usage: %1 [options]").arg(text(program)));
        return InformationRequest{help};
    }
    if (isGiven("version"))
        return InformationRequest{text(program) + QStringLiteral(" " LUMBRA_VERSION "\n")};
    return std::nullopt;
}

} // namespace lumbra
