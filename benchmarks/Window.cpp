// The window from outside: time from exec to the first frame and memory, against the smallest possible window
// in the same run; wake-ups while idle; frames that take too long while the unit sends a thousand reports a
// second.
//
// A frame is seen in the line that Qt's scene graph logs of each when it is told to.

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <vector>

namespace {

constexpr int RUNS = 9;
constexpr int PATIENCE = 20000;        // ms for anything to happen at all
constexpr int SETTLE = 500;            // ms from the first frame until memory is read
constexpr double LONGEST_FRAME = 16.7; // ms

[[noreturn]] void giveUp(const QString& what) {
    std::fprintf(stderr, "error: %s\n", qPrintable(what));
    std::exit(1);
}

/// Starts a window and ends it with its own object.
class Window {
public:
    Window(const QString& program, const QStringList& arguments) {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        environment.insert(QStringLiteral("QT_LOGGING_RULES"),
                           QStringLiteral("qt.scenegraph.time.renderloop=true"));
        environment.insert(QStringLiteral("QT_FORCE_STDERR_LOGGING"), QStringLiteral("1"));
        process_.setProcessEnvironment(environment);
        process_.setReadChannel(QProcess::StandardError);
        clock_.start();
        process_.start(program, arguments);
    }
    ~Window() {
        process_.kill();
        process_.waitForFinished();
    }

    /// Waits for the first frame: ms from exec.
    double firstFrame() {
        while (!process_.readAllStandardError().contains("Frame rendered"))
            if (!process_.waitForReadyRead(PATIENCE))
                giveUp(process_.program() + QStringLiteral(" shows no frame"));
        return static_cast<double>(clock_.nsecsElapsed()) / 1e6;
    }
    /// The durations in ms of the frames of the next `time` ms; `meanwhile` is called all along.
    std::vector<double> frames(
        int time, const std::function<void()>& meanwhile = [] {}) {
        process_.readAllStandardError();
        QByteArray text;
        for (QElapsedTimer timer = started(); timer.elapsed() < time; meanwhile())
            if (process_.waitForReadyRead(5))
                text += process_.readAllStandardError();
        std::vector<double> durations;
        static const QRegularExpression line(QStringLiteral("renderloop in (\\d+)ms"));
        for (auto match = line.globalMatch(QString::fromUtf8(text)); match.hasNext();)
            durations.push_back(match.next().captured(1).toDouble());
        return durations;
    }
    void let(int time) { static_cast<void>(frames(time)); }

    /// Resident memory in MiB.
    double memory() const { return number(statusOf(process_.processId()), "VmRSS:") / 1024; }
    /// How often any of its threads has waited for something so far.
    double wakeUps() const {
        double sum = 0;
        const QDir tasks(QStringLiteral("/proc/%1/task").arg(process_.processId()));
        for (const auto& task : tasks.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            QFile file(tasks.filePath(task + QStringLiteral("/status")));
            if (file.open(QFile::ReadOnly))
                sum += number(file.readAll(), "\nvoluntary_ctxt_switches:");
        }
        return sum;
    }

private:
    static QElapsedTimer started() {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }
    static QByteArray statusOf(qint64 pid) {
        QFile file(QStringLiteral("/proc/%1/status").arg(pid));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }
    static double number(const QByteArray& status, const char* key) {
        const auto at = status.indexOf(key);
        return at < 0 ? 0
                      : status.mid(at + qstrlen(key))
                            .trimmed()
                            .split('\n')
                            .front()
                            .split(' ')
                            .front()
                            .toDouble();
    }

    QProcess process_;
    QElapsedTimer clock_;
};

double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

void compareStarts(const QString& remote, const QString& smallest) {
    struct Contestant {
        QString program;
        QStringList arguments;
        std::vector<double> times{};
        std::vector<double> memories{};
    };
    Contestant contestants[] = {
        {remote, {QStringLiteral("--demo")}}, {smallest, {}}, {smallest, {QStringLiteral("text-and-icon")}}};
    for (int run = 0; run < RUNS; ++run)
        for (auto& contestant : contestants) {
            Window window(contestant.program, contestant.arguments);
            contestant.times.push_back(window.firstFrame());
            window.let(SETTLE);
            contestant.memories.push_back(window.memory());
        }
    const auto& ours = contestants[0];
    for (const auto& [floor, name] :
         {std::pair(&contestants[1], "the smallest window"),
          std::pair(&contestants[2], "the smallest window with a text and an icon")}) {
        std::printf("exec to first frame: %.0f ms, %s %.0f ms: %.2f times\n", median(ours.times), name,
                    median(floor->times), median(ours.times) / median(floor->times));
        std::printf("memory: %.0f MiB, %s %.0f MiB: %.2f times\n", median(ours.memories), name,
                    median(floor->memories), median(ours.memories) / median(floor->memories));
    }
}

void countWakeUps(const QString& remote) {
    constexpr int SECONDS = 5;
    Window window(remote, {QStringLiteral("--demo")});
    window.firstFrame();
    window.let(3000);
    const auto before = window.wakeUps();
    window.let(SECONDS * 1000);
    std::printf("idle: %.1f wake-ups a second\n", (window.wakeUps() - before) / SECONDS);
}

/// A unit that reports without being asked, each time something else of what the Zone screen shows.
class BusyUnit {
public:
    explicit BusyUnit(int reportsPerSecond) : rate_(reportsPerSecond) {
        if (!server_.listen(QHostAddress::LocalHost))
            giveUp(server_.errorString());
    }
    QString place() const { return QStringLiteral("127.0.0.1:%1").arg(server_.serverPort()); }
    void accept() {
        if (!server_.waitForNewConnection(PATIENCE))
            giveUp(QStringLiteral("the window does not connect"));
        client_.reset(server_.nextPendingConnection());
        clock_.start();
    }
    /// Sends what is due.
    void report() {
        QByteArray bytes;
        for (const auto due = clock_.elapsed() * rate_ / 1000; sent_ < due; ++sent_) {
            const auto level = QByteArray::number(-(sent_ % 60));
            const auto tone = QByteArray::number(sent_ % 31 - 15);
            const auto input = QByteArray::number(sent_ % 20 + 1);
            bytes +=
                "(U1Z1" + std::array{"V" + level, "BASS" + tone, "TREB" + tone, "I" + input}[sent_ % 4] + ")";
        }
        client_->write(bytes);
        client_->flush();
    }

private:
    qint64 rate_;
    qint64 sent_ = 0;
    QTcpServer server_;
    std::unique_ptr<QTcpSocket> client_;
    QElapsedTimer clock_;
};

void countLongFrames(const QString& remote) {
    BusyUnit unit(1000);
    const QTemporaryDir folder;
    Window window(remote, {QStringLiteral("--connect-to"), unit.place(), QStringLiteral("--settings"),
                           folder.filePath(QStringLiteral("settings.json"))});
    window.firstFrame();
    unit.accept();
    const auto report = [&unit] { unit.report(); };
    window.frames(1000, report);
    const auto frames = window.frames(5000, report);
    const auto isLong = [](double duration) { return duration > LONGEST_FRAME; };
    std::printf("1000 reports a second: %zu frames in 5 s, %td of them over %.1f ms, the longest %.0f ms\n",
                frames.size(), std::count_if(frames.begin(), frames.end(), isLong), LONGEST_FRAME,
                frames.empty() ? 0.0 : *std::max_element(frames.begin(), frames.end()));
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const auto arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        giveUp(QStringLiteral("usage: bench_window REMOTE SMALLEST"));
    compareStarts(arguments[1], arguments[2]);
    countWakeUps(arguments[1]);
    countLongFrames(arguments[1]);
}
