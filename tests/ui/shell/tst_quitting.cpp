#include "ui/shell/marrowcut_app.h"

#include "support/private_bus.h"
#include "support/stand_in_script.h"
#include "ui/style/desktop_appearance.h"

#include <QDBusUnixFileDescriptor>
#include <QQmlApplicationEngine>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTest>
#include <QTimer>
#include <QtQml/qqmlextensionplugin.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <poll.h>
#include <unistd.h>

Q_IMPORT_QML_PLUGIN(Marrowcut_StylePlugin)
Q_IMPORT_QML_PLUGIN(Marrowcut_SheetsPlugin)
Q_IMPORT_QML_PLUGIN(Marrowcut_MainPlugin)
Q_IMPORT_QML_PLUGIN(Marrowcut_ShellPlugin)

using namespace marrowcut;
using namespace Qt::StringLiterals;

/// The login manager; it sees the inhibition end as the other end of a pipe being closed.
class FakeLoginManager : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")
public:
    int requests = 0;
    int readEnd = -1;

    bool isHeld() const
    {
        pollfd state = {readEnd, POLLIN, 0};
        return poll(&state, 1, 0) == 0;
    }

public Q_SLOTS:
    QDBusUnixFileDescriptor Inhibit(const QString &what, const QString &, const QString &,
                                    const QString &mode)
    {
        if (what == u"idle:sleep"_s && mode == u"block"_s)
            ++requests;
        std::array<int, 2> ends = {-1, -1};
        if (pipe(ends.data()) != 0)
            return QDBusUnixFileDescriptor();
        readEnd = ends[0];
        const QDBusUnixFileDescriptor handedOver(ends[1]); // a copy
        close(ends[1]);
        return handedOver;
    }
};

/// The application with its real window, on tools that never finish.
class QuittingTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qputenv("XDG_CONFIG_HOME", m_script.folder().toUtf8());
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
        m_script.set("pid @/pid\nwait-for @/never\n");
        m_script.touch(u"clip.mov"_s);
    }

    void init()
    {
        QFile::remove(m_script.path(u"pid"_s));
        m_app = std::make_unique<MarrowcutApp>();
        m_engine = std::make_unique<QQmlApplicationEngine>();
        m_engine->setInitialProperties({{u"app"_s, QVariant::fromValue(m_app.get())}});
        m_engine->load(QUrl(u"qrc:/qt-project.org/imports/Marrowcut/Shell/MainWindow.qml"_s));
        m_window = qobject_cast<QQuickWindow *>(m_engine->rootObjects().value(0));
        QVERIFY(m_window);
        QVERIFY(QTest::qWaitForWindowActive(m_window));
    }

    void cleanup()
    {
        m_engine.reset();
        m_app.reset();
    }

    void withoutARunNothingIsAsked()
    {
        QTimer::singleShot(0, m_window, [this] { m_window->close(); });
        QCOMPARE(QCoreApplication::exec(), 0);
        QVERIFY(!m_app->isAskingToQuit());
    }

    void theSafeAnswerIsTheDefault()
    {
        startRun();
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape, Qt::Key_Space}) {
            m_window->close();
            QVERIFY(m_window->isVisible());
            QTRY_COMPARE(focusName(), u"keepRunningButton"_s);
            QTest::keyClick(m_window, key);
            QTRY_VERIFY(!m_app->isAskingToQuit());
            QVERIFY(m_app->queue()->isRunning());
        }
    }

    void askingAgainKeepsTheQuestion()
    {
        startRun();
        for (int close = 0; close < 3; ++close) { // the rest of a double click
            m_window->close();
            QVERIFY(m_app->isAskingToQuit());
        }
        for (int repeat = 0; repeat < 3; ++repeat) { // held down
            QTest::keyPress(m_window, Qt::Key_Q, Qt::ControlModifier);
            QVERIFY(m_app->isAskingToQuit());
        }
        QTest::keyRelease(m_window, Qt::Key_Q, Qt::ControlModifier);
        QTRY_COMPARE(focusName(), u"keepRunningButton"_s);
        QVERIFY(m_window->isVisible());
        QVERIFY(m_app->queue()->isRunning());
    }

    void theOtherAnswerHidesTheWindowAndQuits()
    {
        startRun();
        QTest::keyClick(m_window, Qt::Key_Q, Qt::ControlModifier);
        QTRY_COMPARE(focusName(), u"keepRunningButton"_s);
        const auto isToolAlive = [this] { return kill(m_script.contents(u"pid"_s).toInt(), 0) == 0; };
        bool wasAliveWhenHidden = false;
        connect(m_window, &QWindow::visibleChanged, this, [&] { wasAliveWhenHidden = isToolAlive(); });
        QTimer::singleShot(0, m_window, [this] {
            QTest::keyClick(m_window, Qt::Key_Backtab, Qt::ShiftModifier);
            QTest::keyClick(m_window, Qt::Key_Return);
        });
        QCOMPARE(QCoreApplication::exec(), 0);
        QVERIFY(wasAliveWhenHidden);
        QVERIFY(!isToolAlive());
    }

    void theEndOfTheRunTakesTheQuestionBack()
    {
        startRun();
        m_window->close();
        QVERIFY(m_app->isAskingToQuit());
        endRun();
        QVERIFY(!m_app->isAskingToQuit());
    }

    void anOpenReportFollowsTheRun()
    {
        m_app->report()->open(m_window);
        startRun();
        endRun(); // the tool has written nothing
        QTRY_VERIFY_WITH_TIMEOUT(m_app->report()->reportText().contains(u"- clip.mov\n"_s), 60000);
    }

    void sleepIsInhibitedDuringARunOnly()
    {
        startRun(); // refused: there is no login manager
        endRun();
        FakeLoginManager logind;
        QVERIFY(m_bus.serve(u"org.freedesktop.login1"_s, u"/org/freedesktop/login1"_s, &logind));
        for (int run = 1; run <= 2; ++run) {
            m_app->queue()->clearCompleted();
            startRun();
            QTRY_VERIFY(logind.requests == run && logind.isHeld());
            endRun();
            QTRY_VERIFY(!logind.isHeld());
        }
    }

    void menusWorkByKeys()
    {
        QTest::keyPress(m_window, Qt::Key_Alt);
        QVERIFY(DesktopAppearance::instance()->showsMnemonics());
        QTest::keyRelease(m_window, Qt::Key_Alt);
        QVERIFY(!DesktopAppearance::instance()->showsMnemonics());

        HelpState *state = m_app->helpState();
        const QList<std::pair<QList<Qt::Key>, const char *>> commands = {
            {{Qt::Key_Down, Qt::Key_Return}, "showAbout"},
            {{Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Up, Qt::Key_Return}, "showHelp"},
            {{Qt::Key_Right, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, "showDiagnostics"}};
        for (const auto &[keys, flag] : commands) {
            QTest::keyClick(m_window, Qt::Key_F10);
            for (const Qt::Key key : keys)
                QTest::keyClick(m_window, key);
            for (const char *other : {"showHelp", "showAbout", "showDiagnostics"})
                QTRY_COMPARE(state->property(other).toBool(), std::string_view(other) == flag);
            QTRY_VERIFY(std::ranges::any_of(QGuiApplication::allWindows(), [this](const QWindow *window) {
                return window->isVisible() && window->transientParent() == m_window;
            }));
            state->setProperty(flag, false);
            m_window->requestActivate();
            QTRY_COMPARE(QGuiApplication::focusWindow(), m_window);
        }

        QTest::keyClick(m_window, Qt::Key_F10);
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Escape, Qt::Key_Escape, Qt::Key_Return})
            QTest::keyClick(m_window, key); // at last it is nobody's any more
        QVERIFY(!state->property("showAbout").toBool());
    }

private:
    void startRun()
    {
        m_app->queue()->handleDrop({QUrl::fromLocalFile(m_script.path(u"clip.mov"_s))});
        QTRY_VERIFY_WITH_TIMEOUT(m_app->queue()->hasSelectedQueuedJobs(), 60000);
        m_app->queue()->start();
        QTRY_VERIFY_WITH_TIMEOUT(!m_script.contents(u"pid"_s).isEmpty(), 60000);
        QTRY_VERIFY_WITH_TIMEOUT(m_app->queue()->isRunning(), 60000);
    }

    void endRun()
    {
        m_script.touch(u"never"_s);
        QTRY_VERIFY_WITH_TIMEOUT(!m_app->queue()->isRunning(), 60000);
        QFile::remove(m_script.path(u"never"_s));
        QFile::remove(m_script.path(u"pid"_s));
    }

    QString focusName() const
    {
        const QQuickItem *item = m_window->activeFocusItem();
        return item ? item->objectName() : QString();
    }

    PrivateBus m_bus;
    StandInScript m_script;
    std::unique_ptr<MarrowcutApp> m_app;
    std::unique_ptr<QQmlApplicationEngine> m_engine;
    QQuickWindow *m_window = nullptr;
};

QTEST_MAIN(QuittingTest)
#include "tst_quitting.moc"
