#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <chrono>

class QJSEngine;
class QQmlEngine;

namespace marrowcut
{

class PortalColorScheme;

/// Whether the desktop asks for dark windows, followed while the program runs. Main thread only.
///
/// The desktop portal is asked on first use. Until it answers, and where there is none, the platform's own
/// palette decides.
class DesktopColorScheme : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool dark READ dark NOTIFY darkChanged)
    Q_PROPERTY(Choice choice READ choice WRITE setChoice NOTIFY choiceChanged)
public:
    enum Choice { Desktop, Light, Dark };
    Q_ENUM(Choice)

    /// The one instance, made on first use and owned by the application.
    static DesktopColorScheme *instance();
    static DesktopColorScheme *create(QQmlEngine *, QJSEngine *);

    /// Runs the event loop until the portal has answered, or for so long: a window made afterwards shows its
    /// first frame in the right colours. Returns at once where there is nothing to wait for.
    void awaitDesktop(std::chrono::milliseconds limit);

    bool dark() const { return m_dark; }

    /// Anything but Desktop overrides the desktop's setting. Initially from the environment variable
    /// MARROWCUT_COLOR_SCHEME ("light" or "dark"), else Desktop.
    Choice choice() const { return m_choice; }
    void setChoice(Choice choice);

Q_SIGNALS:
    void darkChanged();
    void choiceChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit DesktopColorScheme(QObject *parent);
    void update();
    bool wanted() const;

    PortalColorScheme *m_portal;
    Choice m_choice;
    bool m_dark = false;
};

} // namespace marrowcut
