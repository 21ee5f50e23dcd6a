import QtQuick

// A soft black shadow of radius 1.5 without offset, to lie under a line of the mock-up: faint copies of the text in
// two rings, since the software renderer knows no blur.
Item {
    id: root

    required property MockupText caster

    Repeater {
        model: 16

        // qmllint disable unqualified
        MockupText {
            required property int index
            readonly property bool isOuter: index % 2 === 0
            readonly property real distance: isOuter ? 1.6 : 0.8

            x: distance * Math.cos(index * Math.PI / 8)
            y: distance * Math.sin(index * Math.PI / 8)
            size: root.caster.size
            font.weight: root.caster.font.weight
            text: root.caster.text
            color: Qt.rgba(0, 0, 0, isOuter ? 0.1 : 0.16)
        }
        // qmllint enable unqualified
    }
}
