#include "qt/FolderLock.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace lumbra {

namespace {

constexpr int RETRY_INTERVAL = 2; // ms

} // namespace

FolderLock::FolderLock(const QString& file, int patience)
    : folder_(::open(QFile::encodeName(QFileInfo(file).absolutePath()).constData(),
                     O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (folder_ == -1)
        return;
    for (;;) {
        held_ = flock(folder_, LOCK_EX | LOCK_NB) == 0;
        if (held_ || errno != EWOULDBLOCK || patience <= 0)
            return;
        std::this_thread::sleep_for(std::chrono::milliseconds(RETRY_INTERVAL));
        patience -= RETRY_INTERVAL;
    }
}

FolderLock::~FolderLock() {
    if (folder_ != -1)
        ::close(folder_);
}

} // namespace lumbra
