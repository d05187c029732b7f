// Prints what the tables of the programs tell about their options and commands: a manual page, from a template that
// holds the other sections, or the completions of a shell.

#include "program/Options.h"
#include "script/CommandInterpreter.h"
#include "simulator/Options.h"

#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <cstdio>

namespace {

using namespace lumbra;

QString text(const char* ascii) {
    return QString::fromLatin1(ascii);
}

QString dashed(const char* name) {
    return QStringLiteral("--") + text(name);
}

bool isFile(const CommandLineOption& option) {
    return option.value && std::string_view(option.value) == "FILE";
}

/// The help up to the first end of a clause: shells show it beside the option.
QString brief(const CommandLineOption& option) {
    static const QRegularExpression end(QStringLiteral("[.:;]( |$)"));
    const auto help = text(option.help);
    return help.left(help.indexOf(end));
}

/// The names of an option, dashes included, the one-letter name first.
QStringList spellings(const CommandLineOption& option) {
    QStringList names(dashed(option.name));
    if (option.letter != 0)
        names.prepend(QStringLiteral("-") + QLatin1Char(option.letter));
    return names;
}

/// The options after which `option` makes no sense: itself, unless it repeats, and what excludes it.
std::vector<CommandLineOption> rivals(const CommandLineOption& option, const CommandLine& line) {
    const auto excludes = [](const CommandLineOption& one, std::string_view name) {
        return std::find(one.excludes.begin(), one.excludes.end(), name) != one.excludes.end();
    };
    std::vector<CommandLineOption> found;
    for (const auto& other : line.allOptions())
        if ((std::string_view(other.name) == option.name && !option.repeats) ||
            excludes(other, option.name) || excludes(option, other.name))
            found.push_back(other);
    return found;
}

QStringList rivalSpellings(const CommandLineOption& option, const CommandLine& line) {
    QStringList names;
    for (const auto& rival : rivals(option, line))
        names += spellings(rival);
    return names;
}

// The manual page.

QString roff(QString plain) {
    plain.replace(QLatin1Char('\\'), QStringLiteral("\\e"));
    plain.replace(QLatin1Char('-'), QStringLiteral("\\-"));
    return plain;
}

QString italic(const QString& plain) {
    return QStringLiteral("\\fI") + plain + QStringLiteral("\\fR");
}

/// One entry of a list: a heading, and a text that does not begin with a dot or a quote.
QString entry(const QString& heading, const QString& body) {
    return QStringLiteral(".TP\n%1\n%2\n").arg(heading, body);
}

QString manualOptions(const CommandLine& line) {
    QString page;
    for (const auto& option : line.allOptions()) {
        auto names = spellings(option);
        for (auto& name : names)
            name = QStringLiteral("\\fB") + roff(name) + QStringLiteral("\\fR");
        auto heading = names.join(QStringLiteral(", "));
        auto body = roff(text(option.help));
        if (option.value) {
            heading += QLatin1Char(' ') + italic(text(option.value));
            body.replace(QRegularExpression(
                             QStringLiteral("\\b%1\\b").arg(QRegularExpression::escape(text(option.value)))),
                         italic(text(option.value)));
        }
        page += entry(heading, body);
    }
    return page;
}

QString manualCommands() {
    QString page;
    for (const auto& command : script::CommandInterpreter::commands()) {
        auto usage =
            roff(QString::fromLatin1(command.usage.data(), static_cast<qsizetype>(command.usage.size())));
        usage.replace(QRegularExpression(QStringLiteral("\\b([A-Z]+)\\b")), italic(QStringLiteral("\\1")));
        usage.replace(QRegularExpression(QStringLiteral("^([a-z]+)")), QStringLiteral("\\fB\\1\\fR"));
        auto help =
            roff(QString::fromLatin1(command.help.data(), static_cast<qsizetype>(command.help.size())));
        help[0] = help[0].toUpper();
        page += entry(usage, help + QLatin1Char('.'));
    }
    return page;
}

QString manual(const CommandLine& line, QString page) {
    return page.replace(QStringLiteral(".\\\" the options\n"), manualOptions(line))
        .replace(QStringLiteral(".\\\" the commands\n"), manualCommands());
}

// The completions. Each offers an option once, and none that excludes one that is given.

QString quoted(QString plain, const char* escapedQuote) {
    return QLatin1Char('\'') + plain.replace(QLatin1Char('\''), text(escapedQuote)) + QLatin1Char('\'');
}

QString generated(const CommandLine& line) {
    return QStringLiteral("# Completion for %1(1). Generated from the program's table of options.\n")
        .arg(text(line.program));
}

QString bash(const CommandLine& line) {
    QString values;
    QString offers;
    for (const auto& option : line.allOptions()) {
        const auto others = rivalSpellings(option, line);
        offers += QStringLiteral("    ");
        if (!others.isEmpty())
            offers += QStringLiteral("[[ $given =~ ' '(%1)' ' ]] || ").arg(others.join(QLatin1Char('|')));
        offers += QStringLiteral("offered+=(%1)\n").arg(dashed(option.name));
        if (option.value)
            values += QStringLiteral("    %1) %2 return ;;\n")
                          .arg(dashed(option.name),
                               isFile(option)
                                   ? QStringLiteral("compopt -o filenames 2>/dev/null; "
                                                    "mapfile -t COMPREPLY < <(compgen -f -- \"$word\");")
                                   : QStringLiteral("mapfile -t COMPREPLY < <(compgen -W '%1' -- \"$word\");")
                                         .arg(text(option.choices)));
    }
    const auto function = QLatin1Char('_') + text(line.program).replace(QLatin1Char('-'), QLatin1Char('_'));
    return generated(line) + QStringLiteral(R"(
%1() {
    local IFS=$' \t\n' word=$2 before=$3 offered=()
    local given=" ${COMP_WORDS[*]:1:COMP_CWORD-1} "
    COMPREPLY=()
    # "--option=value" comes as three words.
    if [[ ${COMP_WORDS[COMP_CWORD]} == = ]]; then
        word=
    elif [[ $before == = ]]; then
        before=${COMP_WORDS[COMP_CWORD-2]}
    fi
    case $before in
%2    esac
%3    mapfile -t COMPREPLY < <(compgen -W "${offered[*]}" -- "$word")
}
complete -F %1 %4
)")
                                 .arg(function, values, offers, text(line.program));
}

QString zsh(const CommandLine& line) {
    const auto escaped = [](QString plain) {
        return plain.replace(QRegularExpression(QStringLiteral("([\\[\\]:\\\\])")), QStringLiteral("\\\\1"));
    };
    QString specs;
    for (const auto& option : line.allOptions()) {
        for (const auto& name : spellings(option)) {
            const auto others = rivalSpellings(option, line);
            auto spec =
                others.isEmpty() ? QString() : QStringLiteral("(%1)").arg(others.join(QLatin1Char(' ')));
            spec += (option.repeats ? QStringLiteral("*") : QString()) + name;
            if (option.value)
                spec += QLatin1Char('=');
            spec += QStringLiteral("[%1]").arg(escaped(brief(option)));
            if (option.value)
                spec += QStringLiteral(":%1:%2").arg(
                    escaped(text(option.value)),
                    isFile(option) ? QStringLiteral("_files")
                                   : QStringLiteral("(%1)").arg(escaped(text(option.choices))));
            specs += QStringLiteral(" \\\n    ") + quoted(spec, "'\\''");
        }
    }
    return QStringLiteral("#compdef %1\n").arg(text(line.program)) + generated(line) +
           QStringLiteral("\n_arguments%1\n").arg(specs);
}

QString fish(const CommandLine& line) {
    QString rows;
    for (const auto& option : line.allOptions()) {
        // A word behind the option is its value.
        auto condition =
            option.value
                ? QStringLiteral("__fish_prev_arg_in %1; or not __fish_contains_opt").arg(dashed(option.name))
                : QStringLiteral("not __fish_contains_opt");
        for (const auto& rival : rivals(option, line)) {
            condition += QLatin1Char(' ') + text(rival.name);
            if (rival.letter != 0)
                condition += QStringLiteral(" -s ") + QLatin1Char(rival.letter);
        }
        rows += QStringLiteral("complete -c %1 -n '%2' -l %3")
                    .arg(text(line.program), condition, text(option.name));
        if (option.letter != 0)
            rows += QStringLiteral(" -s ") + QLatin1Char(option.letter);
        if (option.value)
            rows += isFile(option) ? QStringLiteral(" -rF")
                                   : QStringLiteral(" -xa '%1'").arg(text(option.choices));
        rows += QStringLiteral(" -d ") +
                quoted(brief(option).replace(QLatin1Char('\\'), QStringLiteral("\\\\")), "\\'") +
                QLatin1Char('\n');
    }
    return generated(line) + QStringLiteral("\ncomplete -c %1 -f\n").arg(text(line.program)) + rows;
}

} // namespace

int main(int argc, char** argv) {
    const QString usage = QStringLiteral("usage: lumbra-pages remote|unit-sim bash|zsh|fish|TEMPLATE\n");
    Options options;
    sim::Options simulatorOptions;
    const CommandLine lines[] = {commandLine(options), sim::commandLine(simulatorOptions)};
    const QString program = argc == 3 ? QStringLiteral("lumbra-") + text(argv[1]) : QString();
    for (const auto& line : lines) {
        if (text(line.program) != program)
            continue;
        const std::string_view kind = argv[2];
        QString page;
        if (kind == "bash")
            page = bash(line);
        else if (kind == "zsh")
            page = zsh(line);
        else if (kind == "fish")
            page = fish(line);
        else if (QFile file(text(argv[2])); file.open(QIODevice::ReadOnly))
            page = manual(line, QString::fromUtf8(file.readAll()));
        else {
            std::fprintf(stderr, "lumbra-pages: %s: %s\n", argv[2], qPrintable(file.errorString()));
            return 1;
        }
        return std::fputs(page.toUtf8().constData(), stdout) < 0 || std::fflush(stdout) != 0 ? 1 : 0;
    }
    std::fputs(qPrintable(usage), stderr);
    return 2;
}
