import QtQuick

// The hint below the mock-up's lines. While shown, it pulses and cycles through the colours.
Column {
    id: root

    required property real size
    property real hue
    readonly property color color: Qt.hsva(hue / 360 % 1, 1, 1, 1)

    spacing: size / 5

    SequentialAnimation on opacity {
        running: root.visible
        loops: Animation.Infinite

        NumberAnimation {
            from: 0.3
            to: 0.9
            duration: 1800
            easing.type: Easing.InOutQuad
        }

        NumberAnimation {
            from: 0.9
            to: 0.3
            duration: 1800
            easing.type: Easing.InOutQuad
        }
    }

    NumberAnimation on hue {
        running: root.visible
        loops: Animation.Infinite
        from: 0
        to: 360
        duration: 5000
    }

    MockupText {
        anchors.horizontalCenter: parent.horizontalCenter
        size: root.size
        font.weight: Font.Medium
        text: "mouseover any line"
        color: root.color
    }

    MockupText {
        anchors.horizontalCenter: parent.horizontalCenter
        size: root.size
        font.weight: Font.Medium
        text: "to see what it means"
        color: root.color
    }
}
