import QtQuick
import QtQuick.Templates as T

// One choice of a SegmentedPicker. Clicking it does not check it.
T.RadioButton {
    id: control

    signal stepped(int offset)

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: 12
    verticalPadding: 2
    checkable: false
    focusPolicy: checked || activeFocus ? Qt.StrongFocus : Qt.ClickFocus
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: clicked()
    Keys.onLeftPressed: stepped(-1)
    Keys.onRightPressed: stepped(1)

    contentItem: Text {
        text: control.text
        font: control.font
        color: Theme.primary
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    background: Rectangle {
        radius: 5
        visible: control.checked || control.visualFocus || control.hovered
        color: control.checked ? Theme.segmentFill : control.hovered ? Theme.controlHover : "transparent"
        border.width: control.checked ? 1 : 0
        border.color: Theme.controlBorder

        FocusRing {
            visible: control.visualFocus
        }
    }
}
