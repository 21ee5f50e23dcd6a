import QtQuick

// A modal sheet: a dialog window of fixed size over its transient parent, with a "Close" button in a row at the
// bottom that takes further buttons as children. The content above the row is made anew each time that the sheet is
// shown; it gets the keys that nobody else takes. The button, Return (except where another button shows the focus), Escape and the
// window manager emit dismissed; the owner then sets shown to false.
ThemedWindow {
    id: root

    required property bool shown
    property Component content
    readonly property real contentHeight: loader.implicitHeight
    readonly property real footerHeight: footer.height
    default property alias buttons: footer.leading

    signal dismissed()

    function pressReturn() {
        const button = activeFocusItem as PushButton;
        button && button.visualFocus ? button.clicked() : dismissed();
    }

    flags: Qt.Dialog
    modality: Qt.WindowModal
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height
    visible: shown && loader.status === Loader.Ready
    onClosing: dismissed()

    Shortcut {
        sequences: ["Return", "Enter"]
        onActivated: root.pressReturn()
    }

    Shortcut {
        sequence: "Escape"
        onActivated: root.dismissed()
    }

    FocusScope {
        anchors.fill: parent
        focus: true
        Keys.onReturnPressed: root.pressReturn()
        Keys.onEnterPressed: root.pressReturn()
        Keys.onEscapePressed: root.dismissed()
        Keys.forwardTo: [loader.item]

        Loader {
            id: loader

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.top: parent.top
            anchors.bottom: footer.top
            active: root.shown
            sourceComponent: root.content
            onLoaded: footer.focusClose()
        }

        SheetFooter {
            id: footer

            anchors.left: parent.left
            anchors.right: parent.right
            anchors.bottom: parent.bottom
            onClosed: root.dismissed()
        }
    }
}
