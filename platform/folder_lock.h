#pragma once

#include <QString>

#include <stop_token>

namespace marrowcut
{

/// Keeps other Marrowcut processes from working in the same folder at the same time, for as long as it
/// lives. The lock is the folder's own (flock): no file appears, and it goes with the process.
class FolderLock
{
public:
    /// Waits until no other process holds the folder; throws Interrupted on a stop. Where a folder cannot
    /// be locked (it does not exist, its file system knows no locks) it is taken for free.
    FolderLock(const QString &folder, const std::stop_token &stop);
    ~FolderLock();
    FolderLock(const FolderLock &) = delete;
    FolderLock &operator=(const FolderLock &) = delete;

private:
    int m_descriptor = -1;
};

} // namespace marrowcut
