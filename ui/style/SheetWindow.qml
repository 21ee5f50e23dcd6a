import QtQuick

// A modal sheet: a dialog window of fixed size over its transient parent. The content is made anew each time that
// the sheet is shown. Return, Escape and the window manager emit dismissed; the owner then sets shown to false.
ThemedWindow {
    id: root

    required property bool shown
    property Component content

    signal dismissed()

    flags: Qt.Dialog
    modality: Qt.WindowModal
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height
    visible: shown
    onClosing: dismissed()

    Shortcut {
        sequences: ["Return", "Enter", "Escape"]
        onActivated: root.dismissed()
    }

    FocusScope {
        anchors.fill: parent
        focus: true
        Keys.onReturnPressed: root.dismissed()
        Keys.onEnterPressed: root.dismissed()
        Keys.onEscapePressed: root.dismissed()

        Loader {
            anchors.fill: parent
            focus: true
            active: root.shown
            sourceComponent: root.content
        }
    }
}
