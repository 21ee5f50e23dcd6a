#include "ui/sheets/about_information.h"

#include "platform/resources.h"

namespace marrowcut
{

QString AboutInformation::versionString() const
{
    return QStringLiteral("Version ") + readVersionKeys(resourceFolder()).text();
}

} // namespace marrowcut
