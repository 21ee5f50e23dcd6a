import QtQuick

// A sheet's bottom row under its divider: what the sheet puts in on the left, "Close" on the right.
FocusScope {
    id: root

    default property alias leading: leadingRow.data

    signal closed()

    function focusClose() {
        closeButton.forceActiveFocus();
    }

    implicitHeight: 1 + 16 + closeButton.implicitHeight + 16

    Divider {
        width: parent.width
    }

    Row {
        id: leadingRow

        x: 16
        y: 17
    }

    PushButton {
        id: closeButton

        objectName: "closeButton"
        anchors.right: parent.right
        anchors.rightMargin: 16
        y: 17
        text: "Close"
        highlighted: true
        focus: true
        onClicked: root.closed()
    }
}
