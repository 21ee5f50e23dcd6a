#include "ui/sheets/about_information.h"

#include "platform/resource_folder.h"

namespace marrowcut
{

QString AboutInformation::versionString() const
{
    return QStringLiteral("Version ") + readVersionKeys(resourceFolder()).text();
}

} // namespace marrowcut
