#include "platform/resource_folder.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace marrowcut
{

namespace
{

QString executableFolder()
{
    // Not QCoreApplication's: this must answer before an application object exists, too.
    return QFileInfo(QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget()).absolutePath();
}

QString textOr(const QVariant &value, const QString &fallback)
{
    return value.typeId() == QMetaType::QString ? value.toString() : fallback;
}

} // namespace

QString resourceFolder()
{
    return QDir::cleanPath(executableFolder() + QStringLiteral("/../share/marrowcut"));
}

QString VersionKeys::text() const
{
    return QStringLiteral("%1 (%2)").arg(shortVersion, build);
}

VersionKeys readVersionKeys(const QString &folder)
{
    const QSettings keys(folder + QStringLiteral("/version.ini"), QSettings::IniFormat);
    return {
        textOr(keys.value(QStringLiteral("CFBundleShortVersionString")), QStringLiteral("1.0")),
        textOr(keys.value(QStringLiteral("CFBundleVersion")), QStringLiteral("1")),
    };
}

} // namespace marrowcut
