#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace marrowcut
{

/// Which of the secondary sheets are requested or showing. Main thread only; never stored.
class HelpState : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool showHelp MEMBER m_showHelp NOTIFY showHelpChanged)
    Q_PROPERTY(bool showAbout MEMBER m_showAbout NOTIFY showAboutChanged)
    Q_PROPERTY(bool showDiagnostics MEMBER m_showDiagnostics NOTIFY showDiagnosticsChanged)
public:
    using QObject::QObject;

Q_SIGNALS:
    void showHelpChanged();
    void showAboutChanged();
    void showDiagnosticsChanged();

private:
    bool m_showHelp = false;
    bool m_showAbout = false;
    bool m_showDiagnostics = false;
};

} // namespace marrowcut
