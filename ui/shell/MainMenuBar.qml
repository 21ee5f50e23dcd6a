import QtQuick
import QtQuick.Controls
import Marrowcut.Style

// The menus. F10 or Alt with the underlined letter opens them.
MenuBar {
    id: root

    signal aboutRequested()
    signal quitRequested()
    signal helpRequested()
    signal reportRequested()

    background: Rectangle {
        color: Theme.window

        Divider {
            anchors.bottom: parent.bottom
            width: parent.width
        }
    }

    // A screen reader would spell the mark of the underlined letter.
    delegate: MenuBarItem {
        Accessible.name: text.replace("&", "")
    }

    NamedMenu {
        title: "&Marrowcut"

        Action {
            text: "About Marrowcut"
            onTriggered: root.aboutRequested()
        }

        MenuSeparator {}

        Action {
            text: "Quit"
            shortcut: "Ctrl+Q"
            onTriggered: root.quitRequested()
        }
    }

    NamedMenu {
        title: "&Help"

        Action {
            text: "Marrowcut Help"
            onTriggered: root.helpRequested()
        }

        Action {
            text: "Report a Problem…"
            onTriggered: root.reportRequested()
        }
    }

    Shortcut {
        sequence: "F10"
        onActivated: (root.itemAt(0) as MenuBarItem).triggered()
    }
}
