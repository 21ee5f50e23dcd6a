import QtQuick
import Marrowcut.Style

// A tip below its target, or above it where the screen ends. It is a window of its own: what the tools say of a failure
// is longer than the smallest window. Of what is longer than the screen, the end is shown.
Window {
    id: root

    required property string text
    required property Item target
    readonly property int margin: 8

    function place() {
        const below = target.mapToGlobal(0, target.height + 4);
        const above = target.mapToGlobal(0, -4).y - height;
        const right = Screen.virtualX + Screen.width;
        const bottom = Screen.virtualY + Screen.height;
        x = Math.max(Screen.virtualX, Math.min(below.x, right - width));
        y = below.y + height <= bottom ? below.y : Math.max(Screen.virtualY, above);
    }

    transientParent: target.Window.window
    flags: Qt.ToolTip | Qt.WindowTransparentForInput | Qt.WindowDoesNotAcceptFocus
    color: Theme.controlFill
    width: clip.width + 2 * margin
    height: clip.height + 2 * 4

    Timer {
        interval: 700
        running: true
        onTriggered: {
            root.place();
            root.visible = true;
        }
    }

    Rectangle {
        anchors.fill: parent
        color: "transparent"
        border.color: Theme.controlBorder
    }

    Item {
        id: clip

        x: root.margin
        y: 4
        width: Math.ceil(label.contentWidth)
        height: Math.min(label.implicitHeight, Math.floor(Screen.height * 0.9))
        clip: true

        // Names and the tools' messages come from outside: no markup in them counts.
        Text {
            id: label

            objectName: "tipText"
            anchors.bottom: parent.bottom
            width: Math.min(implicitWidth, 560, Screen.width - 2 * root.margin)
            text: root.text
            textFormat: Text.PlainText
            font.pixelSize: 11
            color: Theme.primary
            wrapMode: Text.Wrap
        }
    }
}
