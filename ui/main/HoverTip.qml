import QtQuick
import QtQuick.Controls
import Marrowcut.Style

// Says more about its parent while the pointer rests there. Without text there is nothing to say.
Item {
    id: root

    required property string text

    anchors.fill: parent

    HoverHandler {
        id: pointer
    }

    // Made only when wanted: every row has some.
    Loader {
        active: pointer.hovered && root.text.length > 0

        // qmllint disable unqualified
        sourceComponent: ToolTip {
            objectName: "tip"
            parent: root
            visible: true
            delay: 700
            text: root.text
            verticalPadding: 4
            horizontalPadding: 8

            // Names and the tools' messages come from outside: no markup in them counts.
            contentItem: Text {
                text: root.text
                textFormat: Text.PlainText
                font.pixelSize: 11
                color: Theme.primary
                wrapMode: Text.Wrap
            }

            background: Rectangle {
                radius: 5
                color: Theme.controlFill
                border.color: Theme.controlBorder
            }
        }
        // qmllint enable unqualified
    }
}
