#include <QFile>
#include <QProcess>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

constexpr int PATIENCE = 20'000; // ms

/// The program lumbra-unit-sim, run as a user would.
class Program {
public:
    explicit Program(const QStringList& arguments) {
        process_.start(QStringLiteral(SIMULATOR_PROGRAM), arguments);
        EXPECT_TRUE(process_.waitForStarted(PATIENCE));
    }

    /// The line that tells that it is ready.
    QString readyLine() {
        while (!process_.canReadLine() && process_.waitForReadyRead(PATIENCE)) {
        }
        return QString::fromLocal8Bit(process_.readLine()).trimmed();
    }

    QByteArray ask(const QString& readyLine, const QByteArray& command, const QByteArray& last) {
        QTcpSocket socket;
        socket.connectToHost(QStringLiteral("127.0.0.1"), readyLine.section(QLatin1Char(':'), -1).toUShort());
        EXPECT_TRUE(socket.waitForConnected(PATIENCE));
        socket.write(command);
        QByteArray answer;
        while (!answer.contains(last) && socket.waitForReadyRead(PATIENCE))
            answer += socket.readAll();
        return answer;
    }

    int exitCode() {
        EXPECT_TRUE(process_.waitForFinished(PATIENCE));
        return process_.exitStatus() == QProcess::NormalExit ? process_.exitCode() : -1;
    }

    int end() {
        process_.terminate();
        return exitCode();
    }

    QByteArray errors() { return process_.readAllStandardError(); }
    QByteArray output() { return process_.readAllStandardOutput(); }

private:
    QProcess process_;
};

TEST(Program, keepsItsStateFromRunToRun) {
    const QTemporaryDir directory;
    const QString file = directory.filePath(QStringLiteral("state"));
    const QStringList arguments = {QStringLiteral("--unit"), QStringLiteral("3"), QStringLiteral("--state"),
                                   file};
    {
        Program program(arguments);
        const QString ready = program.readyLine();
        EXPECT_TRUE(ready.startsWith(QStringLiteral("Simulated unit 3 listens on 127.0.0.1:")))
            << ready.toStdString();
        program.ask(ready, "[U3AO9A2][U3SP4SAVE][U3Z16V-7]", "(U3Z16V-7)");
        EXPECT_EQ(program.end(), 0);
        EXPECT_EQ(program.errors(), "");
    }
    {
        Program program(arguments);
        const QByteArray answer = program.ask(program.readyLine(), "[U3APPQ3][U3APPQ0]", "(U3APPQ0)");
        EXPECT_TRUE(answer.contains("(U3AO9A1)") && answer.contains("(U3Z16V-7)"));
        EXPECT_EQ(program.end(), 0);
    }
    {
        QFile damaged(file);
        ASSERT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
        damaged.write("{");
    }
    Program program(arguments);
    const QByteArray answer = program.ask(program.readyLine(), "[U3APPQ3]", "(U3APPQ3)");
    EXPECT_TRUE(answer.contains("(U3AO9A0)"));
    EXPECT_EQ(program.end(), 0);
    EXPECT_TRUE(program.errors().contains("It is kept as"));
    EXPECT_TRUE(QFile::exists(file + QStringLiteral(".bad")));
}

TEST(Program, tellsWhatIsWrongInOneLine) {
    struct Case {
        QStringList arguments;
        int exitCode;
        const char* says;
    };
    const auto list = [](const char* text) { return QString::fromLatin1(text).split(QLatin1Char(' ')); };
    const Case CASES[] = {
        {list("--port 65536"), 2, "--port takes a whole number from 0 to 65535, not \"65536\""},
        {list("--unit 5"), 2, "--unit takes"},
        {list("--unit 1x"), 2, "--unit takes"},
        {list("--split 0"), 2, "--split takes"},
        {list("--listen kitchen"), 2, "--listen takes an IP address, not \"kitchen\""},
        {list("--bogus"), 2, "bogus"},
        {list("--port"), 2, "port"},
        {list("extra"), 2, "\"extra\""},
        {list("--reset-after 1 --end-after 2"), 2, "exclude each other"},
        {list("--listen 192.0.2.1"), 1, "Can't listen on 192.0.2.1:0: "},
        {list("--state /proc/version"), 1, "can't be set aside"},
    };
    for (const Case& test : CASES) {
        Program program(test.arguments);
        const std::string name = test.arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_EQ(program.exitCode(), test.exitCode) << name;
        const QByteArray errors = program.errors();
        EXPECT_TRUE(errors.contains(test.says)) << errors.toStdString();
        EXPECT_EQ(errors.count('\n'), 1) << errors.toStdString();
        EXPECT_EQ(program.output(), "") << name;
    }
}

TEST(Program, printsCommandsAndReportsWhenAsked) {
    Program program({QStringLiteral("--verbose")});
    program.ask(program.readyLine(), "[U1Z3\x01][U1Z3V-35]", "(U1O4V-35)");
    EXPECT_EQ(program.end(), 0);
    const QByteArray output = program.output();
    for (const char* const line :
         {" ! connected\n", " > [U1Z3\\x01] refused\n", " > [U1Z3V-35]\n", " < (U1Z3V-35)\n",
          " < (U1O4V-35)\n", "Commands: 1 carried out, 1 refused, 0 for other units\n"})
        EXPECT_TRUE(output.contains(line)) << line << output.toStdString();
}

} // namespace
