#include "ui/sheets/diagnostics_report.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QMimeData>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QStyleHints>
#include <QtQml/qqmlextensionplugin.h>
#include <QtQuickTest>

Q_IMPORT_QML_PLUGIN(Marrowcut_StylePlugin)
Q_IMPORT_QML_PLUGIN(Marrowcut_SheetsPlugin)
Q_IMPORT_QML_PLUGIN(Marrowcut_MainPlugin)
Q_IMPORT_QML_PLUGIN(Marrowcut_StagedPlugin)

using namespace Qt::StringLiterals;

/// What the tests see of the desktop, and do in another program's place.
class TestDesktop : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QObject *report MEMBER m_report CONSTANT)
    Q_PROPERTY(QList<QUrl> openedLinks MEMBER m_openedLinks NOTIFY linkOpened)
public:
    TestDesktop() { QDesktopServices::setUrlHandler(u"https"_s, this, "openLink"); }
    ~TestDesktop() override { QDesktopServices::unsetUrlHandler(u"https"_s); }

    /// A window that is active may not have the keyboard: its transient parent counts as well.
    /// Asks with the window instead of returning one: JavaScript would own what it is given and delete it.
    Q_INVOKABLE bool hasFocus(QObject *window) const { return window == QGuiApplication::focusWindow(); }
    Q_INVOKABLE void openLink(const QUrl &url)
    {
        m_openedLinks << url;
        Q_EMIT linkOpened();
    }
    Q_INVOKABLE QString takeClipboard()
    {
        const QString text = QGuiApplication::clipboard()->text();
        QGuiApplication::clipboard()->clear();
        return text;
    }
    Q_INVOKABLE void copyFiles(const QList<QUrl> &urls)
    {
        auto *data = new QMimeData;
        data->setUrls(urls);
        QGuiApplication::clipboard()->setMimeData(data);
    }
    /// As while it is held down.
    Q_INVOKABLE void repeatKey(int key)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(QGuiApplication::focusWindow(), &event);
    }
    /// -1: the desktop's own.
    Q_INVOKABLE void setDoubleClickTime(int milliseconds)
    {
        QGuiApplication::styleHints()->setMouseDoubleClickInterval(milliseconds);
    }

Q_SIGNALS:
    void linkOpened();

private:
    static QList<marrowcut::ProxyJob> oneFailedJob()
    {
        auto job = marrowcut::ProxyJob::forSource(QUrl(u"file:///clips/A001.mxf"_s));
        job.status = marrowcut::JobStatus::failed(u"encode error"_s);
        job.errorDetail = u"Invalid data\n"_s.repeated(25);
        return {job};
    }

    QObject *m_report = new marrowcut::DiagnosticsReport(oneFailedJob, this);
    QList<QUrl> m_openedLinks;
};

class Setup : public QObject
{
    Q_OBJECT
public Q_SLOTS:
    void applicationAvailable()
    {
        qmlRegisterSingletonType<TestDesktop>("Marrowcut.Tests", 1, 0, "TestDesktop",
                                              [](QQmlEngine *, QJSEngine *) { return new TestDesktop; });
    }
};

QUICK_TEST_MAIN_WITH_SETUP(views, Setup)

#include "tst_views.moc"
