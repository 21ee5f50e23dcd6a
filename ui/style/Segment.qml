import QtQuick
import QtQuick.Templates as T
import Marrowcut.Style

// One choice of a SegmentedPicker. A click does not check it.
T.RadioButton {
    id: control

    signal stepped(int offset)

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: 12
    verticalPadding: 2
    checkable: false
    z: visualFocus ? 1 : 0 // the ring lies over the next segment
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

    background: RoundedRectangle {
        radius: 5
        visible: control.checked || control.visualFocus || control.hovered
        color: control.checked ? Theme.segmentFill : control.hovered ? Theme.controlHover : "transparent"
        borderWidth: control.checked || control.hovered ? 1 : 0
        borderColor: Theme.outline

        FocusRing {
            visible: control.visualFocus
        }
    }
}
