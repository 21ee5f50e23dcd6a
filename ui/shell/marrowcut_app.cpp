#include "ui/shell/marrowcut_app.h"

#include "platform/resources.h"

#include <QDesktopServices>
#include <QGuiApplication>
#include <QTimer>
#include <QWindow>

#include <cstdlib>
#include <utility>

namespace marrowcut
{

MarrowcutApp::MarrowcutApp(QObject *parent)
    : QObject(parent)
    , m_notifications(applicationId())
    , m_fileViewer([](const QUrl &folder) { QDesktopServices::openUrl(folder); })
    , m_taskbarProgress(applicationId())
    , m_engine(m_preferences, m_notifications)
    , m_queue(m_engine, m_fileViewer)
    , m_report([this] { return m_engine.jobs(); })
{
    connect(&m_queue, &QueueViewModel::isRunningChanged, this, &MarrowcutApp::updateDesktop);
    connect(&m_queue, &QueueViewModel::summaryChanged, this, &MarrowcutApp::updateDesktop);
    connect(&m_queue, &QueueViewModel::isRunningChanged, this, &MarrowcutApp::keepRunning);
    connect(&m_engine, &BurnInEngine::willChange, &m_report, &DiagnosticsReport::rebuildLater);
}

void MarrowcutApp::requestQuit()
{
    if (m_engine.isRunning())
        setAskingToQuit(true);
    else
        quit(EXIT_SUCCESS);
}

void MarrowcutApp::keepRunning()
{
    setAskingToQuit(false);
}

void MarrowcutApp::quit(int exitStatus)
{
    for (QWindow *window : QGuiApplication::topLevelWindows())
        window->hide();
    // After the event loop has sent that to the window system: a process that cannot end would keep its
    // windows.
    QTimer::singleShot(1, this, [this, exitStatus] {
        if (!m_engine.interrupt(quitLimit))
            std::_Exit(exitStatus); // the system holds the run's thread; its child ends with this process
        QCoreApplication::exit(exitStatus);
    });
}

void MarrowcutApp::setAskingToQuit(bool asking)
{
    if (std::exchange(m_isAskingToQuit, asking) != asking)
        Q_EMIT isAskingToQuitChanged();
}

void MarrowcutApp::updateDesktop()
{
    m_sleepInhibitor.setHeld(m_queue.isRunning());
    m_taskbarProgress.show(m_queue.isRunning() ? std::optional(m_queue.overallProgress()) : std::nullopt);
}

} // namespace marrowcut
