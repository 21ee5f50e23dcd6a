#include "ui/sheets/diagnostics_report.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QQmlEngine>
#include <QWindow>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(Marrowcut_StylePlugin)
Q_IMPORT_QML_PLUGIN(Marrowcut_SheetsPlugin)

/// What the tests see of the desktop, in place of the real one.
class TestDesktop : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *report MEMBER m_report CONSTANT)
    Q_PROPERTY(QList<QUrl> openedLinks MEMBER m_openedLinks NOTIFY linkOpened)
public:
    TestDesktop() { QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "openLink"); }

    ~TestDesktop() override { QDesktopServices::unsetUrlHandler(QStringLiteral("https")); }

    /// A window that is active may not have the keyboard: its transient parent counts as well.
    Q_INVOKABLE QObject *focusWindow() const { return QGuiApplication::focusWindow(); }
    Q_INVOKABLE QString clipboardText() const { return QGuiApplication::clipboard()->text(); }
    Q_INVOKABLE void openLink(const QUrl &url)
    {
        m_openedLinks << url;
        Q_EMIT linkOpened();
    }

Q_SIGNALS:
    void linkOpened();

private:
    static QList<marrowcut::ProxyJob> oneFailedJob()
    {
        auto job = marrowcut::ProxyJob::forSource(QUrl(QStringLiteral("file:///clips/A001.mxf")));
        job.status = marrowcut::JobStatus::failed(QStringLiteral("encode error"));
        job.errorDetail =
            QStringLiteral("Invalid data\n").repeated(24) + QStringLiteral("Conversion failed!");
        return {job};
    }

    QObject *m_report = new marrowcut::DiagnosticsReport(oneFailedJob, this);
    QList<QUrl> m_openedLinks;
};

class Setup : public QObject
{
    Q_OBJECT
public Q_SLOTS:
    void qmlEngineAvailable(QQmlEngine *engine)
    {
        qmlRegisterSingletonType<TestDesktop>("Marrowcut.Tests", 1, 0, "TestDesktop",
                                              [](QQmlEngine *, QJSEngine *) { return new TestDesktop; });
        Q_UNUSED(engine)
    }
};

QUICK_TEST_MAIN_WITH_SETUP(sheets, Setup)

#include "tst_sheets.moc"
