#include "platform/clip_lock.h"

#include "platform/background_thread.h"

#include <QCryptographicHash>
#include <QFile>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <thread>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace marrowcut
{

namespace
{

// There is no event for the end of the other process' lock.
constexpr std::chrono::milliseconds retryInterval(100);
constexpr std::chrono::milliseconds longWait(1000);

/// The same for every way to the folder. Empty where the folder is not there.
QByteArray lockName(const QString &folder, const QString &fileName)
{
    struct stat status = {};
    if (stat(QFile::encodeName(folder).constData(), &status) != 0)
        return QByteArray();
    const QByteArray hash = QCryptographicHash::hash(QFile::encodeName(fileName), QCryptographicHash::Sha1);
    return "marrowcut-" + QByteArray::number(status.st_dev) + '-' + QByteArray::number(status.st_ino) + '-' +
           hash.toHex();
}

bool isHeldByAnother(int descriptor, const QByteArray &name)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path + 1, name.constData(), static_cast<std::size_t>(name.size()));
    const auto size = offsetof(sockaddr_un, sun_path) + 1 + static_cast<std::size_t>(name.size());
    return bind(descriptor, reinterpret_cast<const sockaddr *>(&address), static_cast<socklen_t>(size)) !=
               0 &&
           errno == EADDRINUSE;
}

} // namespace

ClipLock::ClipLock(const QString &folder, const QString &fileName, const std::function<void()> &onLongWait,
                   const std::stop_token &stop)
{
    const QByteArray name = lockName(folder, fileName);
    if (name.isEmpty())
        return;
    m_descriptor = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    auto waited = std::chrono::milliseconds::zero();
    while (m_descriptor >= 0 && isHeldByAnother(m_descriptor, name)) {
        m_hasWaited = true;
        if (stop.stop_requested()) {
            close(m_descriptor);
            throw Interrupted();
        }
        std::this_thread::sleep_for(retryInterval);
        waited += retryInterval;
        if (waited == longWait)
            onLongWait();
    }
}

ClipLock::~ClipLock()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

} // namespace marrowcut
