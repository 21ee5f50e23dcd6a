#pragma once

#include <QList>
#include <QObject>
#include <QString>
#include <QTimer>

#include <functional>

namespace marrowcut
{

/// One desktop notification, delivered at once with the desktop's default sound.
struct NotificationRequest {
    QString identifier; ///< a random UUID as text
    QString title;
    QString body;
};

/// Where desktop notifications go. Main thread; replies are delivered there, too.
class NotificationCenter
{
public:
    virtual ~NotificationCenter() = default;

    /// Asks whether notifications may be shown. The reply is delivered later, once, from the event loop;
    /// it may never come when the center is destroyed first.
    virtual void requestAuthorization(std::function<void(bool granted)> deliver) = 0;

    /// Shows a notification. Errors are not reported.
    virtual void add(const NotificationRequest &request) = 0;

    /// Calls back once no reply of the desktop is pending, at once if none is. A program that ends earlier
    /// may not have shown its notification.
    virtual void whenIdle(const std::function<void()> &then) { then(); }
};

/// Keeps the requests instead of showing them: for tests, and for runs that shall not notify.
class MemoryNotificationCenter : public NotificationCenter
{
public:
    explicit MemoryNotificationCenter(bool granted)
        : m_granted(granted)
    {
    }

    const QList<NotificationRequest> &requests() const { return m_requests; }

    void requestAuthorization(std::function<void(bool granted)> deliver) override
    {
        QTimer::singleShot(0, &m_context,
                           [deliver = std::move(deliver), granted = m_granted] { deliver(granted); });
    }
    void add(const NotificationRequest &request) override { m_requests.append(request); }

private:
    bool m_granted;
    QObject m_context;
    QList<NotificationRequest> m_requests;
};

} // namespace marrowcut
