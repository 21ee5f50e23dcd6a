#pragma once

#include <QObject>

namespace marrowcut
{

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
