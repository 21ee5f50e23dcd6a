#pragma once

#include "engine/burn_in_engine.h"
#include "platform/desktop_notifications.h"
#include "platform/file_viewer.h"
#include "platform/preference_store.h"
#include "platform/sleep_inhibitor.h"
#include "platform/taskbar_progress.h"
#include "ui/main/queue_view_model.h"
#include "ui/sheets/diagnostics_report.h"
#include "ui/sheets/help_state.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace marrowcut
{

/// The application: owns the engine, the window's models and the desktop's services. One per process, on the
/// main thread, for as long as the program runs.
class MarrowcutApp : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("There is one.")
    Q_PROPERTY(marrowcut::QueueViewModel *queue READ queue CONSTANT)
    Q_PROPERTY(marrowcut::HelpState *helpState READ helpState CONSTANT)
    Q_PROPERTY(marrowcut::DiagnosticsReport *report READ report CONSTANT)
    Q_PROPERTY(bool isAskingToQuit READ isAskingToQuit NOTIFY isAskingToQuitChanged)
public:
    explicit MarrowcutApp(QObject *parent = nullptr);

    QueueViewModel *queue() { return &m_queue; }
    HelpState *helpState() { return &m_helpState; }
    DiagnosticsReport *report() { return &m_report; }

    /// Whether the question is shown that comes before quitting during a run.
    bool isAskingToQuit() const { return m_isAskingToQuit; }
    /// Quits; during a run it asks first. A further request changes nothing: it may be the rest of a double
    /// click.
    Q_INVOKABLE void requestQuit();
    /// Takes the question back.
    Q_INVOKABLE void keepRunning();

    /// Hides the windows at once, ends a run and the program within a second; files stay as they are.
    Q_INVOKABLE void quit(int exitStatus);

Q_SIGNALS:
    void isAskingToQuitChanged();

private:
    void setAskingToQuit(bool asking);
    void updateDesktop();

    HelpState m_helpState;
    SettingsPreferenceStore m_preferences;
    DesktopNotifications m_notifications;
    DesktopFileViewer m_fileViewer;
    SleepInhibitor m_sleepInhibitor;
    TaskbarProgress m_taskbarProgress;
    BurnInEngine m_engine;
    QueueViewModel m_queue;
    DiagnosticsReport m_report;
    bool m_isAskingToQuit = false;
};

} // namespace marrowcut
