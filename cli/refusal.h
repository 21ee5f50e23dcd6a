#pragma once

#include "engine/video_files.h"

namespace marrowcut::cli
{

/// What a user reads about it.
QString refusalText(RefusedItem::Reason reason);

/// What a script compares: the enumerator's name. Never changes.
QString refusalName(RefusedItem::Reason reason);

/// Something that was meant and cannot be done, unlike what a folder or a wildcard merely brought along.
bool isFailure(RefusedItem::Reason reason);

} // namespace marrowcut::cli
