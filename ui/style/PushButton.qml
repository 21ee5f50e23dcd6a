import QtQuick
import QtQuick.Templates as T

// highlighted is the look of a window's default button; the key that triggers it is the window's.
T.Button {
    id: control

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: Math.round(font.pixelSize * 0.9)
    verticalPadding: 4
    font.pixelSize: Theme.bodySize
    opacity: enabled ? 1 : 0.4
    // The template has a press action of its own, which is not reached in Qt 6.4.
    Accessible.onPressAction: clicked()

    contentItem: Text {
        text: control.text
        font: control.font
        color: control.highlighted ? Theme.accentText : Theme.primary
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    background: Rectangle {
        radius: 5
        color: control.highlighted ? Theme.accentFill : control.down ? Theme.controlPressed : control.hovered ? Theme.controlHover : Theme.controlFill
        border.width: control.highlighted ? 0 : 1
        border.color: Theme.controlBorder

        Rectangle {
            anchors.fill: parent
            radius: parent.radius
            color: "black"
            visible: control.highlighted
            opacity: control.down ? 0.25 : control.hovered ? 0.1 : 0
        }

        FocusRing {
            visible: control.visualFocus
        }
    }
}
