#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace marrowcut
{

/// Which of the secondary sheets are asked for or showing. Main thread only; never stored.
class HelpState : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool showHelp READ showHelp WRITE setShowHelp NOTIFY showHelpChanged)
    Q_PROPERTY(bool showAbout READ showAbout WRITE setShowAbout NOTIFY showAboutChanged)
    Q_PROPERTY(
        bool showDiagnostics READ showDiagnostics WRITE setShowDiagnostics NOTIFY showDiagnosticsChanged)
public:
    explicit HelpState(QObject *parent = nullptr);

    bool showHelp() const { return m_showHelp; }
    void setShowHelp(bool show);
    bool showAbout() const { return m_showAbout; }
    void setShowAbout(bool show);
    bool showDiagnostics() const { return m_showDiagnostics; }
    void setShowDiagnostics(bool show);

Q_SIGNALS:
    void showHelpChanged();
    void showAboutChanged();
    void showDiagnosticsChanged();

private:
    void set(bool &flag, bool value, void (HelpState::*changed)());

    bool m_showHelp = false;
    bool m_showAbout = false;
    bool m_showDiagnostics = false;
};

} // namespace marrowcut
