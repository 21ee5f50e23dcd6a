#include "notification_module.h"

#include "platform/resource_folder.h"

#include <QLibrary>

namespace marrowcut::cli
{

std::unique_ptr<NotificationCenter> loadNotificationModule()
{
    QLibrary module(moduleFolder() + QStringLiteral("/notifications.so"));
    using Create = NotificationCenter *(*)();
    const auto create = reinterpret_cast<Create>(module.resolve("marrowcutNotificationCenter"));
    if (!create)
        return std::make_unique<MemoryNotificationCenter>(false);
    return std::unique_ptr<NotificationCenter>(create());
}

} // namespace marrowcut::cli
