import QtQuick
import QtQuick.Templates as T
import Marrowcut.Style

// A view's scroll bar. When there is nothing to scroll, the thumb fills the track.
T.ScrollBar {
    id: control

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: 2
    minimumSize: 24 / Math.max(24, height) // else it cannot be caught in a long view
    visible: policy !== T.ScrollBar.AlwaysOff
    Accessible.ignored: true // the view scrolls by keys

    contentItem: RoundedRectangle {
        implicitWidth: 7
        implicitHeight: 7
        radius: width / 2
        color: control.pressed ? Theme.secondary : control.hovered ? Theme.tertiary : Theme.outline
    }

    background: Rectangle {
        color: Theme.track
        opacity: 0.5
    }
}
