import QtQuick
import Marrowcut.Style

// A choice of one among a few. It shows currentIndex and never sets it: activated reports the user's choice.
Item {
    id: root

    required property list<string> model
    required property int currentIndex
    property int pixelSize: Theme.bodySize - 1

    signal activated(int index)

    function step(index: int) {
        if (index < 0 || index >= model.length)
            return;
        segments.itemAt(index).forceActiveFocus(Qt.TabFocusReason);
        activated(index);
    }

    implicitWidth: 240
    implicitHeight: row.implicitHeight + 4

    RoundedRectangle {
        anchors.fill: parent
        radius: 7
        color: Theme.track
    }

    Row {
        id: row

        x: 2
        y: 2

        Repeater {
            id: segments

            model: root.model

            // qmllint disable unqualified
            Segment {
                required property int index
                required property string modelData

                width: (root.width - 4) / root.model.length
                text: modelData
                font.pixelSize: root.pixelSize
                checked: index === root.currentIndex
                onClicked: root.activated(index)
                onStepped: offset => root.step(index + offset)
            }
            // qmllint enable unqualified
        }
    }
}
