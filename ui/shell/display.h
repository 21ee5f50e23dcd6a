#pragma once

#include <QtGlobal>

namespace marrowcut
{

/// Create it before the application object, and destroy it afterwards. Without a display, the program then
/// ends with status 1 and a message of one line, where Qt would abort with advice to reinstall the
/// application.
class NoDisplayGuard
{
public:
    NoDisplayGuard();
    ~NoDisplayGuard();
    Q_DISABLE_COPY(NoDisplayGuard)
};

/// Chooses how text and shapes are drawn: in software where OpenGL is missing, or is itself software and
/// slower. A choice made in the environment is kept. To be called after creating the application object,
/// before any window.
void setUpDrawing();

} // namespace marrowcut
