import QtQuick
import Marrowcut.Style

// The meaning of the chosen preset. A change fades, and the height follows it.
Item {
    id: root

    required property string description

    implicitHeight: label.implicitHeight

    // Not when the width changes: then the height has to be right at once.
    Behavior on implicitHeight {
        enabled: fade.running

        NumberAnimation {
            duration: 200
            easing.type: Easing.InOutQuad
        }
    }

    Label {
        id: label

        width: parent.width
        text: root.description
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.WordWrap
        Accessible.name: root.description

        Behavior on text {
            enabled: label.width > 0

            SequentialAnimation {
                id: fade

                NumberAnimation {
                    target: label
                    property: "opacity"
                    to: 0
                    duration: 100
                }
                PropertyAction {}
                NumberAnimation {
                    target: label
                    property: "opacity"
                    to: 1
                    duration: 150
                }
            }
        }
    }
}
