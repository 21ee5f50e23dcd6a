import QtQuick
import QtQuick.Templates as T

// A menu that stands out from the window in dark too.
T.Menu {
    id: control

    implicitWidth: Math.max(200, contentWidth + leftPadding + rightPadding)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    margins: 0
    padding: 4
    delegate: MenuEntry {}

    contentItem: ListView {
        implicitHeight: contentHeight
        model: control.contentModel
        interactive: false
        currentIndex: control.currentIndex
    }

    background: Rectangle {
        radius: 6
        color: Theme.controlFill
        border.color: Theme.controlBorder
    }
}
