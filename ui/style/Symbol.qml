import QtQuick
import QtQuick.Controls.impl

// One of the application's symbols in one colour. Decorative: the control that shows it has the accessible name.
Item {
    id: root

    required property string name
    property real size: 16
    property color color: Theme.secondary

    implicitWidth: size
    implicitHeight: size

    IconImage {
        anchors.fill: parent
        source: root.name ? Qt.resolvedUrl("icons/symbols/" + root.name + ".svg") : ""
        sourceSize.width: root.size
        sourceSize.height: root.size
        color: root.color
    }
}
