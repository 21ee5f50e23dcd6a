#include "platform/folder_lock.h"

#include "platform/background_thread.h"

#include <QFile>

#include <cerrno>
#include <chrono>
#include <fcntl.h>
#include <sys/file.h>
#include <thread>
#include <unistd.h>

namespace marrowcut
{

namespace
{

// A blocking flock could not be told to stop.
constexpr std::chrono::milliseconds retryInterval(100);

bool isHeldByAnother(int descriptor)
{
    return flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

} // namespace

FolderLock::FolderLock(const QString &folder, const std::stop_token &stop)
    : m_descriptor(open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    while (m_descriptor >= 0 && isHeldByAnother(m_descriptor)) {
        if (stop.stop_requested()) {
            close(m_descriptor);
            throw Interrupted();
        }
        std::this_thread::sleep_for(retryInterval);
    }
}

FolderLock::~FolderLock()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

} // namespace marrowcut
