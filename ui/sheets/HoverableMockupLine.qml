import QtQuick
import Marrowcut.Style

// One burned-in line of the mock-up. Under the pointer it shows its explanation on a coloured background. The shadow is made
// of faint copies, since the software renderer has no blur.
Item {
    id: root

    required property string display
    required property string explanation
    required property real size
    required property int weight
    readonly property bool isHovering: hover.hovered
    readonly property alias text: label.text

    // Not narrower than the line itself: a shorter explanation would slip from under the pointer and flicker.
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

    Repeater {
        model: root.isHovering ? 3 : 0

        // qmllint disable unqualified
        RoundedRectangle {
            required property int index

            anchors.fill: background
            anchors.margins: -index
            radius: background.radius + index
            color: "#30000000"
        }
        // qmllint enable unqualified
    }

    RoundedRectangle {
        id: background

        anchors.right: parent.right
        width: label.width + root.size / 2
        height: label.height + root.size / 5
        radius: 3
        color: root.isHovering ? Qt.alpha(Theme.accentFill, 0.85) : "transparent"

        Repeater {
            model: root.isHovering ? 0 : 16

            // qmllint disable unqualified
            MockupText {
                required property int index
                readonly property bool isOuter: index % 2 === 0
                readonly property real distance: isOuter ? 1.6 : 0.8

                x: label.x + distance * Math.cos(index * Math.PI / 8)
                y: label.y + distance * Math.sin(index * Math.PI / 8)
                size: root.size
                font.weight: root.weight
                text: label.text
                color: Qt.rgba(0, 0, 0, isOuter ? 0.1 : 0.16)
            }
            // qmllint enable unqualified
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
