#pragma once

#include "engine/model/proxy_job.h"
#include "engine/video_files.h"
#include "media/probe.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QTextStream>

#include <optional>

namespace marrowcut::cli
{

/// Why an item was refused, for the user. Looks into the subfolders of a folder without clips.
QString refusalText(const RefusedItem &item);

/// Whether a refused item makes the run fail: it was named and cannot be processed, unlike what a folder or a
/// wildcard merely brought along.
bool isFailure(RefusedItem::Reason reason);

/// Reports a run to the user. This base prints failures on standard error and nothing else, which is what
/// --quiet does; the others add to it. Main thread only.
class Reporter
{
public:
    virtual ~Reporter() = default;

    /// A named item gives no clip. Called before everything else.
    virtual void refused(const RefusedItem &item);
    /// A job takes part in the run. Once for each, before the run starts.
    virtual void queued(const ProxyJob & /*job*/) {}
    /// The job has to wait because another Marrowcut processes its clip.
    virtual void waiting(const ProxyJob &job);
    /// Called for every change of a job's status.
    virtual void statusChanged(const ProxyJob &job);
    /// Called after every change of the running job, as often as the tools report.
    virtual void progressed(const ProxyJob & /*runningJob*/, const QList<ProxyJob> & /*jobs*/) {}
    /// Like progressed(), but at most ten times a second.
    virtual void redraw(const ProxyJob & /*runningJob*/, const QList<ProxyJob> & /*jobs*/) {}
    /// The manifest line, line feed included, of a job that is done or failed was written.
    /// The probe's result is absent when the probe failed.
    virtual void recorded(const ProxyJob & /*job*/, const QString & /*manifestLine*/,
                          const std::optional<media::ProbedMetadata> & /*meta*/)
    {
    }
    /// The run is over.
    virtual void finished(const QList<ProxyJob> & /*jobs*/) {}
    /// The user interrupted the run.
    virtual void interrupted() {}

protected:
    QTextStream m_out{stdout};
};

/// For pipes and logs: one line for each change of a status, and the closing list of proxies.
class PlainReporter : public Reporter
{
public:
    void statusChanged(const ProxyJob &job) override;
    void recorded(const ProxyJob &job, const QString &manifestLine,
                  const std::optional<media::ProbedMetadata> &meta) override;
    void finished(const QList<ProxyJob> &jobs) override;

private:
    qsizetype m_withoutTimecode = 0; ///< proxies of clips that have no timecode tag
};

/// For terminals: a line for each finished clip; below them, redrawn in place, a line for the running clip
/// with bar, percentage and remaining time, and one for the whole run. The cursor always rests at the start
/// of the line below, so the terminal is usable whenever the program ends.
class LiveReporter : public PlainReporter
{
public:
    /// Whether standard output is a terminal that can move its cursor.
    static bool isPossible();

    void waiting(const ProxyJob &job) override;
    void statusChanged(const ProxyJob &job) override;
    void redraw(const ProxyJob &runningJob, const QList<ProxyJob> &jobs) override;
    void finished(const QList<ProxyJob> &jobs) override;
    void interrupted() override;

private:
    void write(const QStringList &drawnLines);

    QString m_finishedLines;  ///< written with the next redraw
    QList<int> m_drawnWidths; ///< of the drawn lines, in columns
};

/// For programs: one JSON object per line and event on standard output, each line written at once.
/// docs/json-events.md is the contract; what it promises changes only together with its version.
class JsonReporter : public Reporter
{
public:
    void refused(const RefusedItem &item) override;
    void queued(const ProxyJob &job) override;
    void waiting(const ProxyJob &job) override;
    void statusChanged(const ProxyJob &job) override;
    void progressed(const ProxyJob &runningJob, const QList<ProxyJob> &jobs) override;
    void recorded(const ProxyJob &job, const QString &manifestLine,
                  const std::optional<media::ProbedMetadata> &meta) override;
    void finished(const QList<ProxyJob> &jobs) override;
    void interrupted() override;

private:
    qint64 m_refusedCount = 0;
};

} // namespace marrowcut::cli
