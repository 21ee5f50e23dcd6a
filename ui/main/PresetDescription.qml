import QtQuick
import Marrowcut.Style

// The meaning of the chosen preset. A change fades, and the height follows it.
Item {
    id: root

    required property string description
    property bool animated: false

    implicitHeight: label.implicitHeight
    Component.onCompleted: animated = true

    Behavior on implicitHeight {
        enabled: root.animated

        NumberAnimation {
            duration: 200
            easing.type: Easing.InOutQuad
        }
    }

    Text {
        id: label

        width: parent.width
        text: root.description
        font.pixelSize: 11
        color: Theme.secondary
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.WordWrap
        Accessible.role: Accessible.StaticText
        Accessible.name: root.description

        Behavior on text {
            enabled: root.animated

            SequentialAnimation {
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
