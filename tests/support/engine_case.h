#pragma once

#include "engine/burn_in_engine.h"
#include "platform/notification_center.h"
#include "platform/preference_store.h"
#include "support/stand_in_script.h"

#include <QDir>
#include <QTest>

#include <algorithm>
#include <memory>

namespace marrowcut::testing
{

/// A probe's answers for a clip of the given duration; the encoder's part of the script follows.
inline QByteArray clipOf(const QByteArray &duration)
{
    return "when ffprobe stream=avg_frame_rate\nout 25/1\\n\nend\nwhen ffprobe format=duration\nout " +
           duration + "\\n\nend\nwhen ffprobe\nexit 0\nend\n";
}

/// What tests of the queue's run share: an engine over stand-in tools, and a folder of clips.
class EngineCase
{
protected:
    void setUp()
    {
        m_engine.reset(); // before what it refers to
        m_script = std::make_unique<StandInScript>();
        m_notifications = std::make_unique<MemoryNotificationCenter>(true);
        m_engine = std::make_unique<BurnInEngine>(m_preferences, *m_notifications);
        useEncoder(QStringLiteral("libx264")); // whatever this machine has
    }

    void useEncoder(const QString &name)
    {
        m_engine->setEncoderChoice(media::EncoderChoice(media::VideoEncoder{.name = name}));
    }

    QUuid addClip(const QString &name)
    {
        m_script->touch(name);
        m_engine->enqueue({QUrl::fromLocalFile(m_script->path(name))});
        return m_engine->jobs().last().id;
    }

    const ProxyJob &job(const QUuid &id) const
    {
        return *std::ranges::find(m_engine->jobs(), id, &ProxyJob::id);
    }

    void run(const QByteArray &script)
    {
        m_script->set(script);
        m_engine->start();
        m_engine->start(); // changes nothing during a run
        QVERIFY(m_engine->isRunning());
        awaitEnd();
    }

    void awaitEnd() { QTRY_VERIFY_WITH_TIMEOUT(!m_engine->isRunning(), 60000); }

    QList<QByteArray> manifest() const
    {
        return m_script->contents(QStringLiteral("marrowcut_proxies/manifest.csv")).split('\n');
    }

    QStringList proxies() const
    {
        return QDir(m_script->path(QStringLiteral("marrowcut_proxies")))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    std::unique_ptr<StandInScript> m_script;
    MemoryPreferenceStore m_preferences;
    std::unique_ptr<MemoryNotificationCenter> m_notifications;
    std::unique_ptr<BurnInEngine> m_engine;
};

} // namespace marrowcut::testing
