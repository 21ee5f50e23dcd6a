import QtQuick
import QtQuick.Controls.impl
import QtQuick.Templates as T

// One line of a NamedMenu: what it does, and its shortcut.
T.MenuItem {
    id: control

    readonly property string shortcutText: action && action.shortcut ? action.shortcut : ""

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: 10
    verticalPadding: 4
    font.pixelSize: Theme.bodySize
    // The template has no press action.
    Accessible.onPressAction: {
        menu.dismiss();
        action.trigger();
    }

    contentItem: Item {
        implicitWidth: children[0].implicitWidth + (control.shortcutText ? 24 + children[1].implicitWidth : 0)
        implicitHeight: children[0].implicitHeight

        MnemonicLabel {
            text: control.text
            font: control.font
            color: control.highlighted ? Theme.accentText : Theme.primary
        }

        Text {
            anchors.right: parent.right
            text: control.shortcutText
            font: control.font
            color: control.highlighted ? Theme.accentText : Theme.secondary
        }
    }

    background: Rectangle {
        radius: 4
        color: Theme.accentFill
        visible: control.highlighted
    }
}
