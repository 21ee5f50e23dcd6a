#pragma once

#include <QtGlobal>

class QWindow;

namespace marrowcut
{

/// To exist while the application object is created: without a display, the program then ends with status 1
/// and one line that says so, where Qt would abort with advice to reinstall the application.
class NoDisplayGuard
{
public:
    NoDisplayGuard();
    ~NoDisplayGuard();
    Q_DISABLE_COPY(NoDisplayGuard)
};

/// How text and shapes are drawn; call it after creating the application object, before any window. Qt Quick
/// draws in software where OpenGL is missing, or is itself drawn in software and slower. A choice made in the
/// environment is kept.
void setUpDrawing();

/// At a scale such as 1.25, lets the window manager resize the window in steps of whole pixels: the software
/// renderer leaves the last row of pixels black where a window's logical size is not a whole number.
void resizeInWholePixels(QWindow &window);

} // namespace marrowcut
