#pragma once

#include "platform/background_thread.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

namespace marrowcut
{

/// Asks ffmpeg for its version on a thread of its own. Main thread only. One question at a time: a later one
/// replaces it, and destruction ends the tool, both without an answer.
class FFmpegVersionQuestion : public QObject
{
    Q_OBJECT
public:
    using Answer = std::function<void(const QString &versionLine)>;

    /// A tool that has not answered within the limit counts as unavailable.
    FFmpegVersionQuestion(const QString &ffmpegPath, std::chrono::milliseconds limit);

    /// Never answers before it returns.
    void ask(const Answer &answer);

private:
    const QString m_ffmpegPath;
    QTimer m_limit;
    int m_number = 0;
    BackgroundThread m_run; // last: its end is awaited before anything else goes
};

} // namespace marrowcut
