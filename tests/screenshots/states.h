#pragma once

#include "support/staged_engine.h"

#include <QQuickWindow>

#include <functional>

namespace marrowcut
{

/// What can be put into a state: the window, and the queue that it shows.
struct Stage {
    QQuickWindow &window;
    StagedEngine &queue;
};

/// A state of the window worth a look.
struct State {
    QString name;
    std::function<void(const Stage &)> enter; ///< from an empty queue and a window as it starts
};

QList<State> allStates();

} // namespace marrowcut
