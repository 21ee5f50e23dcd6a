import QtQuick

// A text with a symbol behind it.
Item {
    id: root

    property string text
    property string symbol
    property real symbolSize
    property color textColor
    property color symbolColor
    property font font
    property int alignment: Qt.AlignHCenter
    property real spacing

    implicitWidth: row.implicitWidth
    implicitHeight: row.implicitHeight

    Row {
        id: row

        x: root.alignment & Qt.AlignLeft ? 0 : (root.width - width) / 2
        anchors.verticalCenter: parent.verticalCenter
        spacing: root.spacing

        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            font: root.font
            color: root.textColor
        }

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: root.symbol
            size: root.symbolSize
            color: root.symbolColor
        }
    }
}
