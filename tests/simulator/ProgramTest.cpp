#include <QFile>
#include <QProcess>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr int PATIENCE = 20'000; // ms

/// The program lumbra-unit-sim, run as a user would.
class Program : public QProcess {
public:
    /// Blanks divide the arguments. Standard output may go to a descriptor of the test's.
    explicit Program(const QString& arguments, int output = -1) {
        if (output >= 0)
            setChildProcessModifier([output] { ::dup2(output, STDOUT_FILENO); });
        start(QStringLiteral(SIMULATOR_PROGRAM), arguments.split(QLatin1Char(' ')));
        EXPECT_TRUE(waitForStarted(PATIENCE));
    }

    QByteArray readyLine() {
        while (!canReadLine() && waitForReadyRead(PATIENCE)) {
        }
        return readLine();
    }

    /// Its exit code once `signal` (0: none) has come; -1 if the signal has ended it.
    int end(int signal = SIGTERM) {
        ::kill(static_cast<pid_t>(processId()), signal);
        EXPECT_TRUE(waitForFinished(PATIENCE));
        return exitStatus() == NormalExit ? exitCode() : -1;
    }
};

/// True if the unit that told its ready line answers `commands` with something that ends in `last`.
bool answers(const QByteArray& readyLine, const QByteArray& commands, const QByteArray& last) {
    QTcpSocket socket;
    const QByteArray port = readyLine.mid(readyLine.lastIndexOf(':') + 1).trimmed();
    socket.connectToHost(QStringLiteral("127.0.0.1"), port.toUShort());
    EXPECT_TRUE(socket.waitForConnected(PATIENCE));
    socket.write(commands);
    QByteArray answer;
    while (!answer.contains(last) && socket.waitForReadyRead(PATIENCE))
        answer += socket.readAll();
    return answer.contains(last);
}

TEST(Program, keepsItsStateFromRunToRunAndPrintsWhatItDoes) {
    const QTemporaryDir directory;
    const QString file = directory.filePath(QStringLiteral("state"));
    const auto run = [&](const QByteArray& commands, const QByteArray& last, int signal) {
        Program program(QStringLiteral("--verbose --unit 3 --state ") + file);
        const QByteArray ready = program.readyLine();
        EXPECT_TRUE(ready.startsWith("Simulated unit 3 listens on 127.0.0.1:")) << ready.toStdString();
        EXPECT_TRUE(answers(ready, commands, last)) << commands.toStdString();
        EXPECT_EQ(program.end(signal), 0);
        return program.readAllStandardOutput() + program.readAllStandardError();
    };
    const QByteArray printed = run("[U3Z1\x01][U3AO9A2][U3Z16V-7]", "(U3Z16V-7)", SIGTERM);
    for (const char* const text :
         {" ! connected\n", " > [U3Z1\\x01] refused\n", " > [U3Z16V-7]\n", " < (U3Z16V-7)\n",
          "Commands: 2 carried out, 1 refused, 0 for other units\n"})
        EXPECT_TRUE(printed.contains(text)) << text << printed.toStdString();
    run("[U3Z15V-7][U3APPQ3]", "(U3AO9A1)", SIGHUP);
    EXPECT_FALSE(run("[U3APPQ0]", "(U3Z15V-7)", SIGINT).contains("state"));
    EXPECT_TRUE(QFile::resize(file, 9));
    EXPECT_TRUE(run("[U3APPQ3]", "(U3AO9A0)", SIGTERM).contains("It is kept as"));
}

TEST(Program, tellsWhatIsWrongInOneLine) {
    const std::tuple<const char*, int, const char*> CASES[] = {
        {"--port 65536", 2, "--port takes a whole number from 0 to 65535, not \"65536\""},
        {"--unit 1x", 2, "--unit takes"},
        {"--split 0", 2, "--split takes"},
        {"--listen kitchen", 2, "--listen takes an IP address, not \"kitchen\""},
        {"--bogus", 2, "bogus"},
        {"extra", 2, "\"extra\""},
        {"--reset-after 1 --end-after 2", 2, "exclude each other"},
        {"--listen 192.0.2.1", 1, "Can't listen on 192.0.2.1:0: "},
        {"--state /proc/version", 1, "can't be set aside"},
    };
    for (const auto& [arguments, exitCode, says] : CASES) {
        Program program(QString::fromLatin1(arguments));
        EXPECT_EQ(program.end(0), exitCode) << arguments;
        const QByteArray errors = program.readAllStandardError();
        EXPECT_TRUE(errors.contains(says) && errors.count('\n') == 1) << errors.toStdString();
        EXPECT_EQ(program.readAllStandardOutput(), "") << arguments;
    }
}

TEST(Program, servesAndEndsWhoeverReadsItsOutput) {
    for (const bool gone : {false, true}) {
        int ends[2] = {-1, -1};
        ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
        Program program(QStringLiteral("--verbose"), ends[1]);
        char buffer[100];
        const QByteArray ready(buffer, ::read(ends[0], buffer, sizeof buffer));
        ::close(ends[1]);
        if (gone)
            ::close(ends[0]);
        // Their trace is far more than a pipe takes.
        EXPECT_TRUE(answers(ready, QByteArray("[U1APPQ1]").repeated(30) + "[U1APPQ3]", "(U1APPQ3)"));
        EXPECT_EQ(program.end(), 0);
        if (!gone)
            ::close(ends[0]);
    }
}

} // namespace
