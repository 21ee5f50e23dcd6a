#pragma once

#include <QObject>

class QProcess;

namespace marrowcut
{

/// To be called first thing in main(), before the application object exists.
/// - The null device becomes standard input, so that children which inherit it never read a
///   terminal: an encoder takes typed keys for commands and is stopped when in the background.
/// - Where the locale's encoding is not UTF-8, C.UTF-8 takes its place: file names are UTF-8.
void setUpProcess();

/// Prepares a child process, before it is started, so that it cannot be left behind or be ended by
/// accident:
/// - it dies when the thread that starts it ends, also when this program is killed;
/// - signals that a terminal or a session sends to the whole process group (interrupt, quit, hang-up,
///   terminate) do not reach it. An encoder would react by finishing a truncated file. This
///   program takes those signals itself and kills its child.
/// Stopping (Ctrl-Z) and continuing still act on program and child together.
void guardChild(QProcess &process);

/// Turns SIGINT, SIGTERM and SIGHUP into a Qt signal for as long as it lives. At most one may exist;
/// main thread. A signal that was ignored when the program started (nohup) stays ignored.
class TerminationSignals : public QObject
{
    Q_OBJECT
public:
    explicit TerminationSignals(QObject *parent = nullptr);
    ~TerminationSignals() override;

Q_SIGNALS:
    void received(int signalNumber);

private:
    void readNumber();

    int m_readEnd = -1;
};

} // namespace marrowcut
