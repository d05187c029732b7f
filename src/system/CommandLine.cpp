#include "system/CommandLine.h"

#include <QCommandLineParser>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <system_error>
#include <utility>

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

CommandLineOption takesNumber(CommandLineOption option, int low, int high, std::function<void(int)> store) {
    option.store = [low, high, store = std::move(store)](const QString& value) {
        bool isRight = false;
        const int number = value.toInt(&isRight);
        isRight = isRight && number >= low && number <= high;
        if (isRight)
            store(number);
        return isRight;
    };
    option.takes = QStringLiteral("a whole number from %1 to %2").arg(low).arg(high);
    return option;
}

std::string publicOptions(const GivenOptions& given) {
    QStringList words;
    for (const auto& option : given)
        if (option.isPublic) {
            words += QStringLiteral("--") + text(option.name);
            if (!option.value.isEmpty())
                words += option.value;
        }
    return words.join(QLatin1Char(' ')).toStdString();
}

QString print(const InformationRequest& request) {
    if (std::fputs(qPrintable(request.text), stdout) >= 0 && std::fflush(stdout) == 0)
        return {};
    return QStringLiteral("Standard output can't be written to: %1.")
        .arg(QString::fromStdString(std::generic_category().message(errno)));
}

std::vector<CommandLineOption> CommandLine::allOptions() const {
    auto all = options;
    all.push_back({.name = "help", .help = "Print this.", .letter = 'h'});
    all.push_back({.name = "version", .help = "Print the version.", .letter = 'v'});
    return all;
}

std::variant<GivenOptions, InformationRequest, UsageError>
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

    GivenOptions given;
    const auto isGiven = [&](const char* name) { return name && parser.isSet(text(name)); };
    for (const auto& option : options) {
        if (!isGiven(option.name))
            continue;
        if (!option.needs.empty() && std::none_of(option.needs.begin(), option.needs.end(), isGiven)) {
            QStringList needed;
            for (const auto* other : option.needs)
                needed += QStringLiteral("--") + text(other);
            return UsageError{
                QStringLiteral("--%1 needs %2.").arg(text(option.name), needed.join(QStringLiteral(" or ")))};
        }
        for (const auto* other : option.excludes)
            if (isGiven(other))
                return UsageError{
                    QStringLiteral("--%1 and --%2 exclude each other.").arg(text(option.name), text(other))};
        const auto all = option.value ? parser.values(text(option.name)) : QStringList(QString());
        for (const auto& value : option.repeats ? all : all.last(1)) {
            if (!option.store(value))
                return UsageError{
                    QStringLiteral("--%1 takes %2, not \"%3\".").arg(text(option.name), option.takes, value)};
            given.push_back({option.name, value, option.isPublic || !option.value});
        }
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
    return given;
}

} // namespace lumbra
