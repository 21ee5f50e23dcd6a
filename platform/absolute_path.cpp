#include "platform/absolute_path.h"

#include <QDir>

namespace marrowcut
{

QString absolutePath(const QString &path)
{
    const QString absolute =
        path.startsWith(QLatin1Char('/')) ? path : QDir::currentPath() + QLatin1Char('/') + path;
    QStringList parts = absolute.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    parts.removeAll(QStringLiteral("."));
    return QLatin1Char('/') + parts.join(QLatin1Char('/'));
}

} // namespace marrowcut
