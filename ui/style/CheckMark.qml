import QtQuick
import QtQuick.Templates as T
import Marrowcut.Style

// A checkbox without a label. It shows the value bound to checked; a click only emits toggled. Needs an Accessible.name.
T.CheckBox {
    id: control

    property real indicatorX: (width - 14) / 2

    implicitWidth: 14
    implicitHeight: 14
    nextCheckState: () => checkState
    onClicked: toggled()
    Accessible.onPressAction: if (enabled) clicked()
    Accessible.onToggleAction: if (enabled) clicked()

    indicator: RoundedRectangle {
        x: control.indicatorX
        y: (control.height - height) / 2
        width: 14
        height: 14
        radius: 3.5
        color: control.checked ? Theme.accentFill : Theme.controlFill
        borderWidth: control.checked ? 0 : 1
        borderColor: control.hovered ? Theme.primary : Theme.outline
        opacity: control.down ? 0.7 : 1

        Symbol {
            anchors.centerIn: parent
            visible: control.checked
            name: "checkmark"
            size: 12
            color: Theme.accentText
        }

        FocusRing {
            visible: control.visualFocus
            innerRadius: 3.5
        }
    }
}
