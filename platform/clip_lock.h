#pragma once

#include <QString>

#include <functional>
#include <stop_token>

namespace marrowcut
{

/// Keeps other Marrowcut processes on this machine from working on the same clip, for as long as it lives. It
/// is a name in the kernel (an abstract socket's), so it leaves no file and vanishes with its process. A lock
/// on the clip itself would be mandatory on some network file systems and keep the encoder from reading it.
class ClipLock
{
public:
    /// Waits until no other process holds the file of that name in the folder; where no lock can be had, the
    /// clip counts as free. onLongWait is called once, after a second of waiting. Throws Interrupted on a
    /// stop request.
    ClipLock(const QString &folder, const QString &fileName, const std::function<void()> &onLongWait,
             const std::stop_token &stop);
    ~ClipLock();
    ClipLock(const ClipLock &) = delete;
    ClipLock &operator=(const ClipLock &) = delete;

    /// Whether another process held it first.
    bool hasWaited() const { return m_hasWaited; }

private:
    int m_descriptor = -1;
    bool m_hasWaited = false;
};

} // namespace marrowcut
