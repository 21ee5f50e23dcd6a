import QtQuick
import QtQuick.Templates as T
import Marrowcut.Style

// highlighted gives the look of the default button; its key is handled by the window. If the text changes, otherText holds
// the alternative, and the width stays the same.
T.Button {
    id: control

    property string otherText

    implicitWidth: Math.max(implicitContentWidth, otherLabel.implicitWidth) + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: Math.round(font.pixelSize * 0.9)
    verticalPadding: 4
    font.pixelSize: Theme.bodySize
    opacity: enabled ? 1 : 0.4
    // The template has a press action of its own, which is not reached in Qt 6.4.
    Accessible.onPressAction: clicked()

    contentItem: Text {
        text: control.text
        font: control.font
        color: control.highlighted ? Theme.accentText : Theme.primary
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
    }

    Text {
        id: otherLabel

        visible: false
        text: control.otherText
        font: control.font
    }

    background: RoundedRectangle {
        readonly property color accentColor: Qt.darker(Theme.accentFill, control.down ? 1.3 : control.hovered ? 1.1 : 1)
        readonly property color plainColor: control.down ? Theme.controlPressed : control.hovered ? Theme.controlHover : Theme.controlFill

        radius: 5
        color: control.highlighted ? accentColor : plainColor
        borderWidth: control.highlighted ? 0 : 1
        borderColor: Theme.controlBorder

        FocusRing {
            visible: control.visualFocus
        }
    }
}
