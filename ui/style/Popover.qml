import QtQuick
import QtQuick.Templates as T

// A small panel that hangs below its parent and closes on Escape or a press beside it. A press on the parent leaves
// it open.
T.Popup {
    id: control

    y: parent ? parent.height + 6 : 0
    margins: 8
    padding: 10
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding

    background: Rectangle {
        radius: 8
        color: Theme.controlFill
        border.color: Theme.controlBorder
    }

    // A press on the parent takes the focus away, and Escape with it.
    Shortcut {
        sequence: "Escape"
        enabled: control.visible
        onActivated: control.close()
    }
}
