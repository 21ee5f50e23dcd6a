#pragma once

#include "engine/burn_in_engine.h"
#include "platform/file_viewer.h"
#include "platform/notification_center.h"
#include "platform/preference_store.h"
#include "ui/main/queue_view_model.h"
#include "ui/sheets/diagnostics_report.h"
#include "ui/sheets/help_state.h"

#include <QList>
#include <QQuickView>
#include <QTemporaryDir>
#include <QUrl>

/// Shows the window's content and waits until it is drawn.
void show(QQuickView &view, QSize size, marrowcut::QueueViewModel *model, marrowcut::HelpState &helpState,
          marrowcut::DiagnosticsReport &report);

/// The window on a real engine.
struct EngineWindow {
    EngineWindow(marrowcut::HelpState &helpState, QSize size) { show(view, size, &model, helpState, report); }

    marrowcut::MemoryPreferenceStore preferences;
    marrowcut::MemoryNotificationCenter notifications{false};
    marrowcut::BurnInEngine engine{preferences, notifications};
    marrowcut::DesktopFileViewer viewer{[](const QUrl &) {}};
    marrowcut::QueueViewModel model{engine, viewer};
    marrowcut::DiagnosticsReport report{[this] { return engine.jobs(); }};
    QQuickView view;
};

/// The paths of numbered clips, which do not exist.
QList<QUrl> clips(int count);

/// Creates clips, which are empty, in the folder.
QList<QUrl> fill(const QTemporaryDir &folder, int count);

void runEventLoop(int milliseconds);

/// Processor time that this process has used so far.
double processorSeconds();
