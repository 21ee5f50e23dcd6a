#pragma once

#include "reporter.h"

#include <QStringList>
#include <QTextStream>

namespace marrowcut::cli
{

/// Whether standard output is a terminal that can move its cursor.
bool standardOutputIsTerminal();

/// For a terminal: a line stays for each clip that is finished; below them, redrawn in place, the line
/// of the running clip with bar, percentage and remaining time, and one for the whole run. The cursor
/// always rests at the start of the line below, so the terminal is sane whenever the program ends.
class LiveReporter : public Reporter
{
public:
    void statusChanged(const ProxyJob &job) override;
    void progressed(const ProxyJob &runningJob, const QList<ProxyJob> &jobs) override;
    void finished(const QList<ProxyJob> &jobs) override;
    void interrupted() override;

private:
    void draw(const QStringList &lines);
    QString eraseDrawn();

    QTextStream m_out{stdout};
    qsizetype m_drawnLines = 0;
};

} // namespace marrowcut::cli
