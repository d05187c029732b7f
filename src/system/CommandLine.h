#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <variant>
#include <vector>

namespace lumbra {

/// One option of a program. The help, the manual page and the completions of the shells are made from it.
struct CommandLineOption {
    const char* name; ///< without its dashes
    const char* value =
        nullptr;      ///< what stands for its value in the help; null: it has none. FILE is completed
    const char* help; ///< sentences
    /// Stores the value; false: it is wrong. Called once, only if the option is given.
    std::function<bool(const QString& value)> store{};
    QString takes{};             ///< the right values, as the end of "--name takes"; unused without a value
    const char* choices = "";    ///< the values to offer, between blanks
    const char* needs = nullptr; ///< the option that must be given with it
    const char* excludes = nullptr; ///< the option that must not be given with it
    char letter = 0;                ///< another name, of one letter
};

/// The command line asks for a text on standard output and nothing else.
struct InformationRequest {
    QString text;
};

/// The command line is wrong, as a sentence.
struct UsageError {
    QString sentence;
};

/// The command line of a program. All texts are ASCII.
struct CommandLine {
    const char* program;
    const char* description; ///< a sentence
    std::vector<CommandLineOption> options;

    /// With "help" and "version", which every program has.
    std::vector<CommandLineOption> allOptions() const;
    /// Parses the arguments, of which the first is the program, and stores the values of the options. If it
    /// returns something, the program prints it and ends. Needs no application object. Any thread.
    std::optional<std::variant<InformationRequest, UsageError>> parse(const QStringList& arguments) const;
};

/// For options without a value.
inline std::function<bool(const QString&)> storesFlag(bool& flag) {
    return [&flag](const QString&) { return flag = true; };
}

/// For names of files, which can't be empty.
std::function<bool(const QString&)> storesFile(QString& name);
inline QString takesFile() {
    return QStringLiteral("the name of a file");
}

} // namespace lumbra
