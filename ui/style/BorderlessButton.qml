import QtQuick
import QtQuick.Templates as T

// Text, a symbol, or the text with the symbol behind it. One that shows only a symbol needs an Accessible.name.
T.Button {
    id: control

    property string symbol
    property real symbolSize: font.pixelSize + 1
    property color color: Theme.secondary
    property color hoverColor: Theme.primary
    property color symbolColor: shownColor
    property int alignment: Qt.AlignHCenter
    readonly property color shownColor: hovered && enabled ? hoverColor : color

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    padding: 0
    spacing: 4
    font.pixelSize: Theme.bodySize
    opacity: down ? 0.6 : enabled ? 1 : 0.4

    contentItem: Item {
        implicitWidth: row.implicitWidth
        implicitHeight: row.implicitHeight

        Row {
            id: row

            x: control.alignment & Qt.AlignLeft ? 0 : (parent.width - width) / 2
            anchors.verticalCenter: parent.verticalCenter
            spacing: control.spacing

            Text {
                anchors.verticalCenter: parent.verticalCenter
                visible: text.length > 0
                text: control.text
                font: control.font
                color: control.shownColor
            }

            Symbol {
                anchors.verticalCenter: parent.verticalCenter
                visible: name.length > 0
                name: control.symbol
                size: control.symbolSize
                color: control.symbolColor
            }
        }
    }

    background: Item {
        FocusRing {
            visible: control.visualFocus
            innerRadius: control.text.length > 0 ? 3 : control.height / 2
        }
    }
}
