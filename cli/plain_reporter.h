#pragma once

#include "reporter.h"

#include <QTextStream>

namespace marrowcut::cli
{

/// The failure's detail, each of its lines indented, for printing below the clip's own line.
QString indentedDetail(const ProxyJob &job);

/// The lines that close every run: where each proxy is, then how many are done.
QString closingLines(const QList<ProxyJob> &jobs);

/// Plain lines for files, pipes and logs: one for each change of a status, and the closing lines.
class PlainReporter : public Reporter
{
public:
    void statusChanged(const ProxyJob &job) override;
    void progressed(const ProxyJob &, const QList<ProxyJob> &) override {}
    void finished(const QList<ProxyJob> &jobs) override;
    void interrupted() override;

private:
    QTextStream m_out{stdout};
    QTextStream m_err{stderr};
};

/// Failures only, on standard error.
class QuietReporter : public Reporter
{
public:
    void statusChanged(const ProxyJob &job) override;
    void progressed(const ProxyJob &, const QList<ProxyJob> &) override {}
    void finished(const QList<ProxyJob> &) override {}
    void interrupted() override {}

private:
    QTextStream m_err{stderr};
};

} // namespace marrowcut::cli
