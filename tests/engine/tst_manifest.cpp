// The manifest with more than one writer. They are processes, since its lock is a process's.

#include "engine/manifest.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace marrowcut;
using namespace Qt::StringLiterals;

class TestManifest : public QObject
{
    Q_OBJECT
private Q_SLOTS:
    void init() { QFile::remove(m_path); }

    void linesOfSeveralWritersStayWhole()
    {
        const QByteArray line = QByteArray(300, 'x') + '\n';
        QList<pid_t> writers;
        for (int writer = 0; writer < 4; ++writer) {
            writers.append(inChild([&] {
                for (int count = 0; count < 100; ++count)
                    Manifest::append(m_path, QString::fromLatin1(line));
                return 0;
            }));
        }
        for (const pid_t writer : writers)
            awaitSuccess(writer);
        QCOMPARE(linesBelowTheHeader(), line.repeated(400));
    }

    void oneThatIsRemovedUnderItsLockIsMadeAnew()
    {
        const QString locked = m_folder.filePath(u"locked"_s);
        const pid_t child = inChild([&] {
            struct flock whole = {};
            whole.l_type = F_WRLCK;
            QFile manifest(m_path);
            if (!manifest.open(QIODevice::ReadWrite) || fcntl(manifest.handle(), F_SETLK, &whole) != 0 ||
                !QFile(locked).open(QIODevice::WriteOnly))
                return 1;
            for (int waited = 0; waited < 60000 && !isOpenIn(getppid()); ++waited)
                QThread::msleep(1);
            return unlink(QFile::encodeName(m_path).constData());
        });
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(locked), 60000);
        Manifest::append(m_path, u"line\n"_s);
        awaitSuccess(child);
        QCOMPARE(linesBelowTheHeader(), QByteArray("line\n"));
    }

    void withoutRoomNothingHalfWrittenStays()
    {
        appendWithRoomFor(3, u"no room for the header\n"_s);
        QVERIFY(!QFile::exists(m_path));

        Manifest::append(m_path, u"first\n"_s);
        appendWithRoomFor(3, u"second\n"_s);
        Manifest::append(m_path, u"third\n"_s);
        QCOMPARE(linesBelowTheHeader(), QByteArray("first\nthird\n"));
    }

private:
    /// As on a disk on which so many bytes are left.
    void appendWithRoomFor(qint64 bytes, const QString &line)
    {
        const auto size = static_cast<rlim_t>(QFileInfo(m_path).size() + bytes);
        awaitSuccess(inChild([&] {
            const rlimit limit = {size, size};
            if (std::signal(SIGXFSZ, SIG_IGN) == SIG_ERR || setrlimit(RLIMIT_FSIZE, &limit) != 0)
                return 1;
            Manifest::append(m_path, line);
            return 0;
        }));
    }

    /// Starts a process that ends with the status which the work returns.
    template <typename Work>
    static pid_t inChild(const Work &work)
    {
        const pid_t child = fork();
        if (child == 0)
            _exit(work());
        return child;
    }

    bool isOpenIn(pid_t process) const
    {
        const QDir descriptors(u"/proc/%1/fd"_s.arg(process));
        const QFileInfoList links = descriptors.entryInfoList(QDir::Files | QDir::System);
        return std::ranges::any_of(links,
                                   [&](const QFileInfo &link) { return link.symLinkTarget() == m_path; });
    }

    static void awaitSuccess(pid_t child)
    {
        int status = -1;
        QCOMPARE(waitpid(child, &status, 0), child);
        QCOMPARE(status, 0);
    }

    QByteArray linesBelowTheHeader() const
    {
        QFile file(m_path);
        if (!file.open(QIODevice::ReadOnly) || !file.readLine().startsWith("source_filename,"))
            return "no header";
        return file.readAll();
    }

    QTemporaryDir m_folder;
    const QString m_path = m_folder.filePath(u"manifest.csv"_s);
};

QTEST_GUILESS_MAIN(TestManifest)
#include "tst_manifest.moc"
