import QtQuick
import QtQuick.Controls.impl
import QtQuick.Templates as T
import Marrowcut.Style

// A menu in the theme's colours. Each action shows its text and its shortcut.
T.Menu {
    id: control

    implicitWidth: Math.max(200, contentWidth + leftPadding + rightPadding)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: 0
    padding: 4
    onAboutToShow: contentItem.parent.Accessible.name = title.replace("&", "") // Qt's own item has the role only

    delegate: T.MenuItem {
        id: line

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
            implicitWidth: children[0].implicitWidth + (line.shortcutText ? 24 + children[1].implicitWidth : 0)
            implicitHeight: children[0].implicitHeight

            MnemonicLabel {
                text: line.text
                font: line.font
                color: line.highlighted ? Theme.accentText : Theme.primary
            }

            Text {
                anchors.right: parent.right
                text: line.shortcutText
                font: line.font
                color: line.highlighted ? Theme.accentText : Theme.secondary
            }
        }

        background: RoundedRectangle {
            radius: 4
            color: Theme.accentFill
            visible: line.highlighted
        }
    }

    contentItem: ListView {
        implicitHeight: contentHeight
        model: control.contentModel
        interactive: false
        currentIndex: control.currentIndex
    }

    background: Panel {
        radius: 6
    }
}
