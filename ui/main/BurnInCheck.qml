import QtQuick
import Marrowcut.Style

// One row's switch for the text in the picture.
Item {
    id: root

    required property bool checked
    required property string name
    required property bool isTabStop

    signal toggled()

    implicitHeight: mark.height + 2 * 3

    Rectangle {
        anchors.fill: parent
        radius: 4
        color: Theme.accent
        opacity: 0.1
    }

    CheckMark {
        id: mark

        anchors.verticalCenter: parent.verticalCenter
        focusPolicy: root.isTabStop || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
        checked: root.checked
        Accessible.name: "Burn in filename and timecode, " + root.name
        onToggled: root.toggled()
    }

    HoverTip {
        text: "Burn in filename and timecode"
    }
}
