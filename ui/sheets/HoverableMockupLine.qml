import QtQuick
import Marrowcut.Style

// One burned-in line of the mock-up; the pointer over it turns it into its explanation.
Item {
    id: root

    required property string display
    required property string explanation
    required property real size
    required property int weight
    readonly property bool isHovering: hover.hovered
    readonly property alias text: label.text

    // An explanation shorter than the line would slip from under the pointer and flicker.
    width: Math.max(background.width, ruler.width + size / 2)
    height: background.height
    Accessible.role: Accessible.StaticText
    Accessible.name: display
    Accessible.description: explanation

    HoverHandler {
        id: hover
    }

    MockupText {
        id: ruler

        visible: false
        size: root.size
        font.weight: root.weight
        text: root.display
    }

    Rectangle {
        id: background

        anchors.right: parent.right
        width: label.width + root.size / 2
        height: label.height + root.size / 5
        radius: 3
        color: root.isHovering ? Qt.alpha(Theme.accentFill, 0.85) : "transparent"

        SoftShadow {
            anchors.fill: label
            visible: !root.isHovering // then the background casts it
            caster: label
        }

        MockupText {
            id: label

            x: root.size / 4
            y: root.size / 10
            size: root.size
            font.weight: root.weight
            text: root.isHovering ? root.explanation : root.display
            color: "white"
        }
    }
}
