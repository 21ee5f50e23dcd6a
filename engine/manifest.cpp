#include "engine/manifest.h"

#include "media/numbers.h"

#include <QDateTime>
#include <QFile>
#include <QStringList>

#include <cerrno>
#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace marrowcut::Manifest
{

namespace
{

using namespace std::chrono_literals;

constexpr auto lockLimit = 10s;
constexpr auto lockRetryInterval = 10ms;

QByteArray header()
{
    return QByteArrayLiteral("source_filename,proxy_filename,source_timecode,frame_rate,duration_seconds,"
                             "audio_channels,file_date,status,processed_at\n");
}

/// An open manifest, locked against other processes while it lives.
class LockedFile
{
public:
    explicit LockedFile(const QString &path)
        : m_descriptor(open(QFile::encodeName(path).constData(),
                            O_RDWR | O_APPEND | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, 0666))
    {
        struct stat status = {};
        m_isUsable =
            m_descriptor >= 0 && fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode) && lock();
    }
    ~LockedFile()
    {
        if (m_descriptor >= 0)
            close(m_descriptor); // and with it the lock
    }
    LockedFile(const LockedFile &) = delete;
    LockedFile &operator=(const LockedFile &) = delete;

    bool isUsable() const { return m_isUsable; }

    /// After the wait for the lock: another process may have written meanwhile.
    off_t size() const
    {
        struct stat status = {};
        return fstat(m_descriptor, &status) == 0 ? status.st_size : 0;
    }

    /// Removed by a process that could not write its header, between the opening here and the lock.
    bool isGone() const
    {
        struct stat status = {};
        return fstat(m_descriptor, &status) == 0 && status.st_nlink == 0;
    }

    /// In one piece, so that a full disk shows here and nothing half-written stays. False when it failed.
    bool append(const QByteArray &bytes) const
    {
        const off_t sizeBefore = size();
        if (write(m_descriptor, bytes.constData(), static_cast<std::size_t>(bytes.size())) == bytes.size())
            return true;
        static_cast<void>(!ftruncate(m_descriptor, sizeBefore));
        return false;
    }

private:
    /// Others hold the lock for one append; a longer hold is not one of ours. Where the file system knows no
    /// locks, appending by itself keeps lines whole.
    bool lock() const
    {
        struct flock whole = {};
        whole.l_type = F_WRLCK;
        whole.l_whence = SEEK_SET;
        for (auto waited = 0ms; fcntl(m_descriptor, F_SETLK, &whole) != 0; waited += lockRetryInterval) {
            if (errno != EAGAIN && errno != EACCES && errno != EINTR)
                return true;
            if (waited >= lockLimit)
                return false;
            std::this_thread::sleep_for(lockRetryInterval);
        }
        return true;
    }

    const int m_descriptor;
    bool m_isUsable = false;
};

QStringList probedFields(const std::optional<media::ProbedMetadata> &meta)
{
    if (!meta)
        return {QString(), QString(), QString(), QString(), QString()};
    return {meta->tc, meta->rate, media::decimalText(meta->duration), QString::number(meta->audioCount),
            meta->fileDate};
}

} // namespace

QString line(const OutputPaths &paths, const std::optional<media::ProbedMetadata> &meta,
             const QString &status)
{
    const QString processedAt = QDateTime::currentDateTimeUtc().toString(Qt::ISODate);
    const QStringList fields = QStringList{paths.sourceFilename, paths.proxyFilename} + probedFields(meta) +
                               QStringList{status, processedAt};
    return fields.join(QLatin1Char(',')) + QLatin1Char('\n');
}

void append(const QString &path, const QString &line)
{
    const LockedFile file(path);
    if (!file.isUsable())
        return;
    if (file.isGone()) {
        append(path, line);
        return;
    }
    const bool isNew = file.size() == 0;
    const bool written = file.append(isNew ? header() + line.toUtf8() : line.toUtf8());
    if (!written && isNew)
        unlink(QFile::encodeName(path).constData()); // a manifest never stays without its header
}

} // namespace marrowcut::Manifest
