#pragma once

#include "engine/burn_in_engine.h"
#include "platform/desktop_file_viewer.h"
#include "platform/desktop_notifications.h"
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

/// The application: owns what the window shows and what the desktop gives. One per process, on the main
/// thread, for as long as the program runs.
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

    /// Whether the user is being asked if the program shall end in the middle of a run.
    bool isAskingToQuit() const { return m_isAskingToQuit; }
    /// Quits; in the middle of a run the first request only makes it ask.
    Q_INVOKABLE void requestQuit();
    /// The answer to the question that lets the run go on.
    Q_INVOKABLE void keepRunning();

    /// Breaks a run off and ends the program with the status, within a second; files stay as they are.
    void quit(int exitStatus);

Q_SIGNALS:
    void isAskingToQuitChanged();

private:
    void setAskingToQuit(bool asking);
    void tellDesktop();

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
