import QtQuick
import QtQuick.Templates as T

// A choice of one among a few. It shows currentIndex and never sets it: activated tells what the user chose.
T.Control {
    id: control

    required property list<string> model
    required property int currentIndex

    signal activated(int index)

    function choose(index: int) {
        if (index < 0 || index >= model.length)
            return;
        activated(index);
        segments.itemAt(index).forceActiveFocus(Qt.TabFocusReason);
    }

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: 2
    font.pixelSize: Theme.bodySize - 1

    contentItem: Row {
        Repeater {
            id: segments

            model: control.model

            Segment {
                required property int index
                required property string modelData

                width: control.availableWidth / control.model.length
                text: modelData
                font: control.font
                checked: index === control.currentIndex
                onClicked: control.activated(index)
                onStepped: step => control.choose(index + step)
            }
        }
    }

    background: Rectangle {
        radius: 7
        color: Theme.track
    }
}
