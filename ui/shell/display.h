#pragma once

#include <QtGlobal>

namespace marrowcut
{

/// To exist while the application object is created: without a display, the program then ends with status 1 and one
/// line that says so, where Qt would abort with advice to reinstall the application.
class NoDisplayGuard
{
public:
    NoDisplayGuard();
    ~NoDisplayGuard();
    Q_DISABLE_COPY(NoDisplayGuard)
};

/// How text and shapes are drawn; call it after creating the application object, before any window. Qt Quick draws
/// in software where OpenGL is missing, or is itself drawn in software and slower. A choice made in the environment
/// is kept.
void setUpDrawing();

} // namespace marrowcut
