#include "app/Settings.h"
#include "platform/MemorySettingsStore.h"
#include "simulator/UnitServer.h"
#include "system/FixedReachability.h"
#include "system/QtMainQueue.h"
#include "system/RedirectingStreamFactory.h"
#include "system/SocketStreamFactory.h"
#include "system/ThreadWorker.h"
#include "toolkit/ActivityIndicator.h"
#include "toolkit/Picker.h"
#include "toolkit/SegmentedControl.h"
#include "toolkit/Slider.h"
#include "touch/AppAdapter.h"
#include "touch/TouchFrontEnd.h"

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLocale>
#include <QQuickItem>
#include <QQuickWindow>
#include <QSize>
#include <QThread>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <utility>

using namespace lumbra;

namespace {

constexpr QSize SIZES[] = {{360, 640}, {800, 480}, {1280, 800}, {1920, 1080}};

/// Runs the event loop until `done` says so. False after ten seconds.
template <class Done>
bool runUntil(Done done) {
    QElapsedTimer time;
    time.start();
    while (!done()) {
        if (time.elapsed() > 10'000)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(2);
    }
    return true;
}

void runFor(qint64 milliseconds) {
    QElapsedTimer time;
    time.start();
    runUntil([&] { return time.elapsed() > milliseconds; });
}

/// The whole program in front of a simulated unit, as a person has it.
class Studio {
public:
    Studio(QString folder, bool advanced) : folder_(std::move(folder)) {
        unit_.listen();
        settings_.setValue(ADVANCED_MODE_PREFERENCE, advanced);
        streams_.emplace(sockets_, HostPort{"127.0.0.1", unit_.port()});
        application_.emplace(Platform{queue_, worker_, *streams_, reachability_, settings_});
        touch_.emplace(*application_, TouchOptions{});
    }

    bool run() {
        if (!touch_->show())
            return false;
        const auto count = static_cast<int>(application_->tabs().viewControllers().size());
        for (int tab = 0; tab < count; ++tab) {
            application_->tabs().selectByUser(tab);
            if (!runUntil([this] { return isAnswered(); }))
                return false;
            shapeEqualiser();
            const auto name =
                QString::fromStdString(application_->tabs().selectedViewController()->view().name());
            if (!shoot(name))
                return false;
            // On a small window the equaliser is on a page of its own.
            if (name == QStringLiteral("output") && !(turnTo(1) && shoot(QStringLiteral("equaliser"))))
                return false;
        }
        touch_->adapter().settings()->open();
        return shoot(QStringLiteral("settings"));
    }

private:
    template <class T>
    std::shared_ptr<T> control(const std::string& name) {
        return std::dynamic_pointer_cast<T>(application_->tabs().selectedViewController()->view().find(name));
    }
    bool isAnswered() {
        return application_->link().isConnected() && !control<ActivityIndicator>("spinner")->isAnimating();
    }
    /// A flat equaliser shows nothing of the plot.
    void shapeEqualiser() {
        if (!control<SegmentedControl>("filterType1"))
            return;
        struct Band {
            int type;
            float slider, gain;
        };
        constexpr Band BANDS[] = {{1, 1500, 0}, {4, 2000, 5},  {5, 2500, -6}, {0, 3000, 0},
                                  {5, 3300, 4}, {2, 3800, -5}, {3, 4250, 0}};
        for (int band = 0; band < 7; ++band) {
            const auto number = std::to_string(band + 1);
            control<SegmentedControl>("filterType" + number)->tapByUser(BANDS[band].type);
            runFor(60);
            control<Slider>("filterFreq" + number)->slideByUser(BANDS[band].slider);
            control<Slider>("filterGain" + number)->slideByUser(BANDS[band].gain);
        }
        runFor(1200);
    }
    /// Turns to a part of the screen on show. False if it has none.
    bool turnTo(int part) { return turnTo(*touch_->window()->contentItem(), part); }
    static bool turnTo(QQuickItem& item, int part) {
        const auto children = item.childItems();
        return (item.isVisible() && item.setProperty("part", part)) ||
               std::any_of(children.begin(), children.end(),
                           [part](auto* child) { return turnTo(*child, part); });
    }
    bool shoot(const QString& name) {
        for (const auto size : SIZES) {
            touch_->window()->resize(size);
            runFor(400);
            const QString file =
                QStringLiteral("%1/%2-%3x%4.png").arg(folder_, name).arg(size.width()).arg(size.height());
            if (!touch_->window()->grabWindow().save(file)) {
                std::fprintf(stderr, "lumbra-screenshots: Can't write %s.\n", qPrintable(file));
                return false;
            }
        }
        return true;
    }

    QString folder_;
    sim::UnitServer unit_;
    QtMainQueue queue_;
    ThreadWorker worker_;
    FixedReachability reachability_{true};
    SocketStreamFactory sockets_{queue_};
    MemorySettingsStore settings_;
    std::optional<RedirectingStreamFactory> streams_;
    std::optional<Application> application_;
    std::optional<TouchFrontEnd> touch_;
};

} // namespace

/// Renders every screen from a simulated unit: lumbra-screenshots FOLDER [LANGUAGE].
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication qt(argc, argv);
    if (argc < 2 || argc > 3 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        std::fputs("usage: lumbra-screenshots FOLDER [LANGUAGE]\n", stderr);
        return 2;
    }
    TouchFrontEnd::installTypeface();
    QLocale::setDefault(QLocale(argc == 3 ? QString::fromLocal8Bit(argv[2]) : QStringLiteral("en")));
    TouchFrontEnd::installTranslation();
    for (const bool advanced : {false, true})
        if (!Studio(QString::fromLocal8Bit(argv[1]), advanced).run())
            return 1;
    return 0;
}
