#include "system/QtDescriptorWatcher.h"

#include <QSocketNotifier>

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

} // namespace

std::unique_ptr<DescriptorWatch> QtDescriptorWatcher::watchReadable(int fd, std::function<void()> readable) {
    return std::make_unique<NotifierWatch>(fd, std::move(readable));
}

} // namespace lumbra
