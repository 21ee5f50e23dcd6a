pragma Singleton

import QtQuick
import Marrowcut.Style

// The one tooltip. It is a window of its own, since an error message can be longer than the smallest window; below its
// target, or above it at the screen's lower edge. Of a text longer than the screen, the end is shown.
Window {
    id: root

    property Item target: null
    property string text
    readonly property int margin: 8

    function showFor(item: Item, itsText: string) {
        if (item !== target)
            visible = false;
        target = item;
        text = itsText;
        if (!visible)
            delay.restart();
    }

    function hideFor(item: Item) {
        if (item === target)
            target = null;
    }

    function place() {
        const below = target.mapToGlobal(0, target.height + 4);
        const above = target.mapToGlobal(0, -4).y - height;
        const right = Screen.virtualX + Screen.width;
        const bottom = Screen.virtualY + Screen.height;
        x = Math.max(Screen.virtualX, Math.min(below.x, right - width));
        y = below.y + height <= bottom ? below.y : Math.max(Screen.virtualY, above);
    }

    transientParent: target?.Window.window ?? null
    flags: Qt.ToolTip | Qt.WindowTransparentForInput | Qt.WindowDoesNotAcceptFocus
    color: Theme.controlFill
    width: clip.width + 2 * margin
    height: clip.height + 2 * 4
    onTargetChanged: {
        if (target === null) { // also when it is destroyed
            delay.stop();
            visible = false;
        }
    }

    Timer {
        id: delay

        interval: 700
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

        // File names and error messages: markup in them has no effect.
        Text {
            id: label

            objectName: "toolTipText"
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
