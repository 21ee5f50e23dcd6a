import QtQuick
import QtQuick.Templates as T
import Marrowcut.Style

// From 0 to 1. The accessible description has the percentage, since Qt 6.4 exposes no value.
T.ProgressBar {
    id: control

    property color tint: Theme.accent

    implicitWidth: 100
    implicitHeight: 4
    Accessible.description: Math.floor(position * 100) + " percent"

    background: RoundedRectangle {
        radius: height / 2
        color: Theme.track
    }

    contentItem: Item {
        RoundedRectangle {
            width: control.position > 0 ? Math.max(parent.height, control.position * parent.width) : 0
            height: parent.height
            radius: height / 2
            color: control.tint
        }
    }
}
