import QtQuick
import QtQuick.Templates as T

// Text with a symbol behind it.
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
    Accessible.onPressAction: clicked()

    contentItem: TextWithSymbol {
        text: control.text
        symbol: control.symbol
        symbolSize: control.symbolSize
        textColor: control.shownColor
        symbolColor: control.symbolColor
        font: control.font
        alignment: control.alignment
        spacing: control.spacing
    }

    background: Item {
        FocusRing {
            visible: control.visualFocus
            innerRadius: 3
        }
    }
}
