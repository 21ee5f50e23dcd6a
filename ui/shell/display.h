#pragma once

#include <QtGlobal>

namespace marrowcut
{

/// Lives while the application object is created. Without a display, the program ends with status 1 and a
/// message of one line, where Qt would abort with advice to reinstall the application.
class NoDisplayGuard
{
public:
    NoDisplayGuard();
    ~NoDisplayGuard();
    Q_DISABLE_COPY(NoDisplayGuard)
};

/// Draws in software where OpenGL is missing, or is itself software and slower. A choice made in the
/// environment is kept. To be called between creating the application object and any window.
void setUpDrawing();

} // namespace marrowcut
