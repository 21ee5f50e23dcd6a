#include "refusal.h"

namespace marrowcut::cli
{

using Reason = RefusedItem::Reason;

QString refusalText(Reason reason)
{
    switch (reason) {
    case Reason::noSuchPath:
        return QStringLiteral("no such file or folder");
    case Reason::notAVideoFile:
        return QStringLiteral("not an MXF, MOV or MP4 file");
    case Reason::folderWithoutVideoFiles:
        return QStringLiteral("no MXF, MOV or MP4 files in this folder");
    case Reason::unreadableFolder:
        return QStringLiteral("this folder cannot be read");
    case Reason::nameIsNotText:
        return QStringLiteral("the name is not valid UTF-8 text; rename the file first");
    }
    Q_UNREACHABLE();
}

QString refusalName(Reason reason)
{
    switch (reason) {
    case Reason::noSuchPath:
        return QStringLiteral("noSuchPath");
    case Reason::notAVideoFile:
        return QStringLiteral("notAVideoFile");
    case Reason::folderWithoutVideoFiles:
        return QStringLiteral("folderWithoutVideoFiles");
    case Reason::unreadableFolder:
        return QStringLiteral("unreadableFolder");
    case Reason::nameIsNotText:
        return QStringLiteral("nameIsNotText");
    }
    Q_UNREACHABLE();
}

bool isFailure(Reason reason)
{
    return reason == Reason::noSuchPath || reason == Reason::unreadableFolder ||
           reason == Reason::nameIsNotText;
}

} // namespace marrowcut::cli
