#pragma once

#include <QColor>
#include <QObject>
#include <QtQml/qqmlregistration.h>

#include <chrono>

class QJSEngine;
class QQmlEngine;

namespace marrowcut
{

class PortalAppearance;

/// How the desktop wants windows to look, followed while the program runs. Main thread only.
///
/// The desktop portal is queried on first use. Until it replies, and where there is none, the platform's own
/// palette decides between light and dark, and there is no accent colour.
class DesktopAppearance : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool dark READ dark NOTIFY darkChanged)
    /// Invalid where the desktop offers none.
    Q_PROPERTY(QColor accent READ accent NOTIFY accentChanged)
    /// The family of the desktop's monospaced font.
    Q_PROPERTY(QString monospaced READ monospaced CONSTANT)
    /// Whether mnemonics are underlined: while Alt is held.
    Q_PROPERTY(bool showsMnemonics READ showsMnemonics NOTIFY showsMnemonicsChanged)
    Q_PROPERTY(Choice choice READ choice WRITE setChoice NOTIFY choiceChanged)
public:
    enum Choice { Desktop, Light, Dark };
    Q_ENUM(Choice)

    /// The one instance, created on first use and owned by the application.
    static DesktopAppearance *instance();
    static DesktopAppearance *create(QQmlEngine *, QJSEngine *);

    /// Runs the event loop until the portal has replied or the limit is over: a window created afterwards
    /// shows its first frame in the right colours. Returns at once where there is nothing to wait for.
    void awaitDesktop(std::chrono::milliseconds limit);

    bool dark() const { return m_dark; }
    QColor accent() const { return m_accent; }
    QString monospaced() const;
    bool showsMnemonics() const { return m_showsMnemonics; }

    /// Anything but Desktop overrides the desktop's setting. Initially from the environment variable
    /// MARROWCUT_COLOR_SCHEME ("light" or "dark"), else Desktop.
    Choice choice() const { return m_choice; }
    void setChoice(Choice choice);

    /// The colour, lightened or darkened until its contrast with the other is 4.5:1.
    Q_INVOKABLE static QColor legible(QColor color, const QColor &other);

Q_SIGNALS:
    void darkChanged();
    void accentChanged();
    void showsMnemonicsChanged();
    void choiceChanged();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit DesktopAppearance(QObject *parent);
    void update();
    void setShowsMnemonics(bool shows);
    bool wantsDark() const;

    PortalAppearance *m_portal;
    Choice m_choice;
    bool m_dark = false;
    bool m_showsMnemonics = false;
    QColor m_accent;
};

} // namespace marrowcut
