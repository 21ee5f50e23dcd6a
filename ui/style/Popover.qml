import QtQuick
import QtQuick.Templates as T

// A small panel that hangs below its parent, with an arrow to it. It closes on Escape or a press outside; a press on
// the parent keeps it open.
T.Popup {
    id: control

    y: parent ? parent.height + 8 : 0
    margins: 8
    padding: 10
    focus: true
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding

    background: Panel {
        arrowX: control.parent.width / 2 - control.x
    }

    // A press on the parent takes the focus away, and Escape with it.
    Shortcut {
        sequence: "Escape"
        enabled: control.visible
        onActivated: control.close()
    }
}
