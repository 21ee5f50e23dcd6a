import QtQuick

// The mark of the keyboard focus, drawn around its parent.
Rectangle {
    property real distance: 2
    property real innerRadius: 5

    anchors.fill: parent
    anchors.margins: -distance
    radius: innerRadius + distance
    color: "transparent"
    border.color: Theme.accent
    border.width: 2
}
