#pragma once

#include "platform/notification_center.h"

#include <memory>

namespace marrowcut::cli
{

/// The desktop's notifications, loaded now. Where the module is not installed beside the program, a center
/// that refuses. Main thread; the module stays loaded.
std::unique_ptr<NotificationCenter> loadNotificationModule();

} // namespace marrowcut::cli
