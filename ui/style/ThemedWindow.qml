import QtQuick

// A window on the theme's ground.
Window {
    color: Theme.window
}
