import QtQuick
import QtQuick.Templates as T

// A text followed by a symbol.
T.Button {
    id: control

    property string symbol
    property real symbolSize: font.pixelSize + 1
    property color color: Theme.secondary
    property color hoverColor: Theme.primary
    readonly property color shownColor: hovered && enabled ? hoverColor : color

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    spacing: 4
    font.pixelSize: Theme.bodySize
    opacity: down ? 0.6 : enabled ? 1 : 0.4
    Accessible.onPressAction: clicked()

    contentItem: Row {
        spacing: control.spacing

        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: control.text
            font: control.font
            color: control.shownColor
        }

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            name: control.symbol
            size: control.symbolSize
            color: control.shownColor
        }
    }

    background: Item {
        FocusRing {
            visible: control.visualFocus
            innerRadius: 3
        }
    }
}
