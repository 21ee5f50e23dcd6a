import QtQuick
import Marrowcut.Style

// A modal sheet: a dialog window of fixed size over its transient parent. Its children show above a row with a "Close"
// button and the other buttons. The button, Return (except where another button shows the focus), Escape and the window
// manager emit dismissed; the owner then destroys the sheet.
Window {
    id: root

    required property int sheetWidth
    required property int sheetHeight
    property Item keyTarget: null // gets the keys that nobody else takes
    property alias buttons: buttonRow.data
    default property alias content: contentPlace.data
    readonly property int footerHeight: 1 + 16 + closeButton.implicitHeight + 16

    signal dismissed()

    function pressReturn() {
        const button = activeFocusItem as PushButton;
        button && button.visualFocus ? button.clicked() : dismissed();
    }

    color: Theme.window
    flags: Qt.Dialog
    modality: Qt.WindowModal
    width: sheetWidth
    height: sheetHeight
    minimumWidth: sheetWidth
    maximumWidth: sheetWidth
    minimumHeight: sheetHeight
    maximumHeight: sheetHeight
    visible: true
    onClosing: dismissed()

    Shortcut {
        sequences: ["Return", "Enter"]
        onActivated: root.pressReturn()
    }

    Shortcut {
        sequence: "Escape"
        onActivated: root.dismissed()
    }

    WindowEdge {
        anchors.fill: parent
        color: root.color
    }

    FocusScope {
        anchors.fill: parent
        focus: true
        Keys.onReturnPressed: root.pressReturn()
        Keys.onEnterPressed: root.pressReturn()
        Keys.onEscapePressed: root.dismissed()
        Keys.forwardTo: root.keyTarget ? [root.keyTarget] : []

        Item {
            id: contentPlace

            width: parent.width
            anchors.top: parent.top
            anchors.bottom: divider.top
        }

        Divider {
            id: divider

            width: parent.width
            y: parent.height - root.footerHeight
        }

        Row {
            id: buttonRow

            x: 16
            y: divider.y + 17
        }

        PushButton {
            id: closeButton

            objectName: "closeButton"
            anchors.right: parent.right
            anchors.rightMargin: 16
            y: divider.y + 17
            text: "Close"
            highlighted: true
            focus: true
            onClicked: root.dismissed()
        }
    }
}
