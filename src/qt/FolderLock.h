#pragma once

#include <QString>

namespace lumbra {

/// An advisory lock on the folder of a file, held as long as this object lives. A program that ends, in
/// whatever way, holds it no longer, and nothing is left on the disk.
class FolderLock {
public:
    /// Tries for at most `patience` milliseconds.
    FolderLock(const QString& file, int patience);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

    /// False where somebody else kept it, or where the file system knows no locks.
    bool isHeld() const { return held_; }

private:
    int folder_;
    bool held_ = false;
};

} // namespace lumbra
