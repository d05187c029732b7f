#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <string>
#include <variant>
#include <vector>

namespace lumbra {

/// One option of a program. The help, the manual page and the completions of the shells are made from it.
struct CommandLineOption {
    const char* name; ///< without its dashes
    const char* value =
        nullptr;      ///< what stands for its value in the help; null: it has none. FILE is completed
    const char* help; ///< sentences
    /// Stores the value; false: it is wrong. Called only if the option is given; once, or for each of its values if
    /// it repeats.
    std::function<bool(const QString& value)> store{};
    QString takes{};          ///< the right values, as the end of "--name takes"; unused without a value
    const char* choices = ""; ///< the values to offer, between blanks
    std::vector<const char*> needs{};    ///< options of which one must be given with it
    std::vector<const char*> excludes{}; ///< the options that must not be given with it
    bool repeats = false;                ///< it may be given more than once
    bool isPublic = false; ///< a trace may tell its value; without a value an option is always public
    char letter = 0;       ///< another name, of one letter
};

/// An option that was given.
struct GivenOption {
    const char* name;
    QString value{};       ///< empty: it has none
    bool isPublic = false; ///< a trace may tell of it
};

/// What was given, in the order of the options' table.
using GivenOptions = std::vector<GivenOption>;

/// What is public of `given`, as a command line.
std::string publicOptions(const GivenOptions& given);

/// The command line asks for a text on standard output and nothing else.
struct InformationRequest {
    QString text;
};

/// Prints the text. Returns why it can't be printed, as a sentence; empty on success.
QString print(const InformationRequest& request);

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
    /// does not return the options, the program prints what it returns and ends. Needs no application object.
    /// Any thread.
    std::variant<GivenOptions, InformationRequest, UsageError> parse(const QStringList& arguments) const;
};

/// For options without a value.
inline std::function<bool(const QString&)> storesFlag(bool& flag) {
    return [&flag](const QString&) { return flag = true; };
}

/// Completes an option that takes a whole number from `low` to `high`, which `store` gets.
CommandLineOption takesNumber(CommandLineOption option, int low, int high, std::function<void(int)> store);

/// For names of files, which can't be empty.
std::function<bool(const QString&)> storesFile(QString& name);
inline QString takesFile() {
    return QStringLiteral("the name of a file");
}

} // namespace lumbra
