#pragma once

#include <QObject>

#include <memory>

namespace marrowcut
{

/// Keeps the machine from falling asleep, through org.freedesktop.login1 on the system bus. Where there is
/// none, or it refuses, nothing happens. Main thread. Ends with the object and with the program.
class SleepInhibitor : public QObject
{
    Q_OBJECT
public:
    explicit SleepInhibitor(QObject *parent = nullptr);
    ~SleepInhibitor() override;

    /// Takes or releases the inhibition. Returns at once.
    void setHeld(bool held);

private:
    struct Lock;

    void request();

    bool m_wanted = false;
    bool m_awaited = false;
    std::unique_ptr<Lock> m_lock;
};

} // namespace marrowcut
