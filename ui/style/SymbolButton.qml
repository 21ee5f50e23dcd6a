import QtQuick
import QtQuick.Templates as T

// A button that shows only a symbol. Needs an Accessible.name.
T.Button {
    id: control

    property string symbol
    property real symbolSize: Theme.bodySize

    implicitWidth: symbolSize + leftPadding + rightPadding
    implicitHeight: symbolSize + topPadding + bottomPadding
    opacity: down ? 0.6 : enabled ? 1 : 0.4
    Accessible.onPressAction: clicked()

    contentItem: Symbol {
        name: control.symbol
        size: control.symbolSize
        color: control.hovered && control.enabled ? Theme.primary : Theme.secondary
    }

    background: Item {
        FocusRing {
            visible: control.visualFocus
            innerRadius: control.height / 2
        }
    }
}
