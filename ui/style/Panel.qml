import QtQuick
import Marrowcut.Style

// The background of a menu, popover or question, with a soft shadow.
Item {
    id: root

    property real radius: 8
    property real arrowX: -1 // where an arrow points up; negative means no arrow
    readonly property real shadow: 12

    RoundedRectangle {
        anchors.fill: parent
        anchors.margins: -root.shadow
        radius: root.radius
        color: Theme.controlFill
        borderColor: Theme.controlBorder
        borderWidth: 1
        shadow: root.shadow
        arrowX: root.arrowX < 0 ? -1 : root.arrowX + root.shadow
    }
}
