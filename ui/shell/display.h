#pragma once

namespace marrowcut
{

/// Makes Qt Quick draw in software where OpenGL cannot be had, or is itself drawn in software and slower at
/// it. Leaves a choice alone that was made in the environment. After the application object, before any
/// window.
void chooseRenderer();

} // namespace marrowcut
