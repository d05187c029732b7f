#include "system/QtDescriptorWatcher.h"

#include <QSocketNotifier>
#include <QTimer>

#include <fcntl.h>
#include <utility>

namespace lumbra {

namespace {

class NotifierWatch final : public DescriptorWatch {
public:
    NotifierWatch(int fd, std::function<void()> readable) : notifier_(fd, QSocketNotifier::Read) {
        QObject::connect(&notifier_, &QSocketNotifier::activated, std::move(readable));
    }

    void setEnabled(bool enabled) override { notifier_.setEnabled(enabled); }

private:
    QSocketNotifier notifier_;
};

/// The watch of a descriptor that cannot be polled because it is not open. Its read fails at once.
class ClosedDescriptorWatch final : public DescriptorWatch {
public:
    explicit ClosedDescriptorWatch(std::function<void()> readable) {
        QObject::connect(&timer_, &QTimer::timeout, std::move(readable));
        timer_.start(0);
    }

    void setEnabled(bool enabled) override {
        if (enabled)
            timer_.start(0);
        else
            timer_.stop();
    }

private:
    QTimer timer_;
};

} // namespace

std::unique_ptr<DescriptorWatch> QtDescriptorWatcher::watchReadable(int fd, std::function<void()> readable) {
    if (fcntl(fd, F_GETFD) == -1)
        return std::make_unique<ClosedDescriptorWatch>(std::move(readable));
    return std::make_unique<NotifierWatch>(fd, std::move(readable));
}

} // namespace lumbra
