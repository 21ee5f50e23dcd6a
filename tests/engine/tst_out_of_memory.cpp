// A run in which one allocation fails. A program of its own, since it replaces operator new.

#include "media/failure_messages.h"
#include "support/engine_case.h"

#include <QTest>

#include <atomic>
#include <cstdlib>
#include <new>
#include <utility>

#include <unistd.h>

using namespace marrowcut;
using namespace Qt::StringLiterals;
using namespace marrowcut::testing;

namespace
{

/// Whether the next allocation on another thread than the main one fails.
std::atomic<bool> isOutOfMemory = false;

} // namespace

void *operator new(std::size_t size)
{
    void *memory =
        isOutOfMemory && gettid() != getpid() && isOutOfMemory.exchange(false) ? nullptr : std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, std::size_t) noexcept
{
    std::free(memory);
}

class TestOutOfMemory : public QObject, EngineCase
{
    Q_OBJECT
private Q_SLOTS:
    void failsOneClip_data()
    {
        QTest::addColumn<QString>("label"); // after which it happens
        for (const char *label : {"Queued", "Reading metadata…", "Encoding…"})
            QTest::newRow(label) << QString::fromUtf8(label);
    }

    void failsOneClip()
    {
        QFETCH(const QString, label);
        setUp();
        const QUuid id = addClip(u"a.mov"_s);
        const QUuid next = addClip(u"b.mov"_s);
        bool hasHappened = false;
        connect(m_engine.get(), &BurnInEngine::willChange, this, [&] {
            if (job(id).status.label() == label)
                isOutOfMemory = !std::exchange(hasHappened, true);
        });
        run(clipOf("60") + "write-output\n");
        QCOMPARE(job(id).status, JobStatus::failed(u"encode error"_s));
        QCOMPARE(job(id).errorDetail, media::outOfMemory);
        QCOMPARE(job(next).status, JobStatus::done());
    }
};

QTEST_GUILESS_MAIN(TestOutOfMemory)
#include "tst_out_of_memory.moc"
