import QtQuick
import QtQuick.Controls.impl
import QtQuick.Templates as T
import Marrowcut.Style

// A menu's name in the menu bar.
T.MenuBarItem {
    id: control

    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    horizontalPadding: 8
    verticalPadding: 4
    font.pixelSize: Theme.bodySize
    Accessible.ignored: true // Qt gives it the role of the menu bar; the label stands for it

    contentItem: MnemonicLabel {
        mnemonicVisible: DesktopAppearance.showsMnemonics
        text: control.text
        font: control.font
        color: control.highlighted ? Theme.accentText : Theme.primary
        Accessible.role: Accessible.MenuItem
        Accessible.name: control.text.replace("&", "") // a screen reader would spell the mark of the underlined letter
        Accessible.onPressAction: control.triggered()
    }

    background: Rectangle {
        color: Theme.accentFill
        visible: control.highlighted
    }
}
