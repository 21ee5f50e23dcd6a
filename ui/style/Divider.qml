import QtQuick

// A hairline; give it a width.
Rectangle {
    implicitHeight: 1
    color: Theme.separator
}
