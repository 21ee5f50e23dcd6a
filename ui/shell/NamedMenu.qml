import QtQuick
import QtQuick.Controls
import Marrowcut.Style

// A menu that stands out from the window in dark too, and whose items are read without the mark of the underlined
// letter.
Menu {
    padding: 4

    delegate: MenuItem {
        Accessible.name: text.replace("&", "")
    }

    background: Rectangle {
        implicitWidth: 200
        radius: 6
        color: Theme.controlFill
        border.color: Theme.controlBorder
    }
}
