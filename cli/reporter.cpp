#include "reporter.h"

#include "console_text.h"
#include "program_exit.h"

#include "engine/failure_advice.h"
#include "platform/outside_text.h"

namespace marrowcut::cli
{

namespace
{

using Reason = RefusedItem::Reason;

/// The clip's name and failure, then the tools' messages and the advice, indented.
QString failureLines(const ProxyJob &job)
{
    QString detail = errorMessages(job);
    if (const QString advice = failureAdvice(job); !advice.isEmpty())
        detail += QStringLiteral("\nWhat to do: ") + advice;
    return QStringLiteral("%1: %2\n").arg(printable(job.fileName()), printable(job.status.label())) +
           indentedLines(detail);
}

} // namespace

QString refusalText(const RefusedItem &item)
{
    switch (item.reason) {
    case Reason::noSuchPath:
        return QStringLiteral("no such file or folder");
    case Reason::notAVideoFile:
        return QStringLiteral("not an MXF, MOV or MP4 file");
    case Reason::folderWithoutVideoFiles:
        return hasVideoFilesInSubfolders(item.path)
                   ? QStringLiteral(
                         "no MXF, MOV or MP4 files in this folder, but in subfolders; use --recursive")
                   : QStringLiteral("no MXF, MOV or MP4 files in this folder");
    case Reason::unreadableFolder:
        return QStringLiteral("this folder cannot be read");
    case Reason::nameIsNotText:
        return QStringLiteral("the name is not valid UTF-8 text; rename it first");
    }
    Q_UNREACHABLE();
}

bool isFailure(Reason reason)
{
    return reason == Reason::noSuchPath || reason == Reason::unreadableFolder ||
           reason == Reason::nameIsNotText;
}

void Reporter::refused(const RefusedItem &item)
{
    printError(QStringLiteral("%1: %2").arg(item.path, refusalText(item)));
}

void Reporter::waiting(const ProxyJob &job)
{
    printError(
        QStringLiteral("%1: waiting for another Marrowcut that is processing this clip").arg(job.fileName()));
}

void Reporter::statusChanged(const ProxyJob &job)
{
    if (job.status.isFailed())
        QTextStream(stderr) << failureLines(job);
}

} // namespace marrowcut::cli
