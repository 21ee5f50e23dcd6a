#pragma once

#include <QString>

#include <optional>

namespace marrowcut
{

/// Progress on the program's icon in task bars and docks that understand com.canonical.Unity.LauncherEntry.
/// It is a broadcast: nobody has to listen. Main thread.
class TaskbarProgress
{
public:
    /// The desktop entry's name, without ".desktop".
    explicit TaskbarProgress(const QString &desktopEntry);

    /// A fraction from 0.0 to 1.0, or nothing to show no progress. Sends only changes of the whole
    /// percentage.
    void show(std::optional<double> fraction);

private:
    QString m_application;
    std::optional<int> m_percent;
};

} // namespace marrowcut
