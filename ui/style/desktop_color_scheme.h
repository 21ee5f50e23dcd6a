#pragma once

#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <optional>

class QJSEngine;
class QQmlEngine;

namespace marrowcut
{

/// Whether the desktop asks for dark windows, followed while the program runs. Main thread only.
///
/// The desktop portal is asked without waiting for it. Until it answers, and where there is none, the
/// platform's own palette decides.
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

    /// The one instance, made on first use and owned by the application. Calling this early in main()
    /// gives the portal time to answer before the first window shows.
    static DesktopColorScheme *instance();
    static DesktopColorScheme *create(QQmlEngine *, QJSEngine *);

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

private Q_SLOTS:
    void onSettingChanged(const QString &group, const QString &key, const QDBusVariant &value);

private:
    explicit DesktopColorScheme(QObject *parent);
    void askPortal();
    void takeReply(const QDBusPendingCall &call);
    void update();
    bool wanted() const;

    Choice m_choice;
    std::optional<bool> m_portalDark;
    bool m_dark = false;
};

} // namespace marrowcut
