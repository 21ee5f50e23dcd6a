import QtQuick
import Marrowcut.Style

// The title of the burn-in column. It explains the column in a popover.
BorderlessButton {
    id: root

    property bool showBurnInHelp: false

    objectName: "burnInTitle"
    text: "Burn-in"
    symbol: "questionmark.circle.small"
    symbolSize: 12
    spacing: 3
    font.pixelSize: 9
    font.weight: Font.Medium
    color: Theme.accent
    hoverColor: Theme.accent
    Accessible.name: "What is burn-in?"
    onClicked: showBurnInHelp = true
    onVisibleChanged: if (!visible) showBurnInHelp = false

    Popover {
        objectName: "burnInHelp"
        visible: root.showBurnInHelp
        onAboutToShow: contentItem.parent.Accessible.name = root.Accessible.name // Qt's own item has the role only
        onClosed: root.showBurnInHelp = false

        width: 220 + 2 * padding
        contentItem: Label {
            text: "Turn this off per file if you just need a smaller proxy and don't need the filename/timecode burned into the picture."
            color: Theme.primary
            wrapMode: Text.WordWrap
        }
    }
}
