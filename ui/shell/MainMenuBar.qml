import QtQuick
import QtQuick.Templates as T
import Marrowcut.Style

// The menus. F10 or Alt with the underlined letter opens them.
T.MenuBar {
    id: root

    signal aboutRequested()
    signal quitRequested()
    signal helpRequested()
    signal reportRequested()

    implicitWidth: implicitContentWidth
    implicitHeight: implicitContentHeight + bottomPadding
    bottomPadding: 1
    delegate: MenuTitle {}

    contentItem: Row {
        Repeater {
            model: root.contentModel
        }
    }

    background: Rectangle {
        color: Theme.window

        Divider {
            anchors.bottom: parent.bottom
            width: parent.width
        }
    }

    NamedMenu {
        title: "&Marrowcut"

        T.Action {
            text: "About Marrowcut"
            onTriggered: root.aboutRequested()
        }

        MenuLine {}

        T.Action {
            text: "Quit"
            shortcut: "Ctrl+Q"
            onTriggered: root.quitRequested()
        }
    }

    NamedMenu {
        title: "&Help"

        T.Action {
            text: "Marrowcut Help"
            onTriggered: root.helpRequested()
        }

        T.Action {
            text: "Report a Problem…"
            onTriggered: root.reportRequested()
        }
    }

    Shortcut {
        sequence: "F10"
        onActivated: (root.itemAt(0) as T.MenuBarItem).triggered()
    }
}
