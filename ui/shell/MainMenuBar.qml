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

    ThemedMenu {
        title: "&Marrowcut"

        T.Action {
            text: "About Marrowcut"
            onTriggered: root.aboutRequested()
        }

        T.MenuSeparator {
            implicitWidth: implicitContentWidth + leftPadding + rightPadding
            implicitHeight: implicitContentHeight + topPadding + bottomPadding
            verticalPadding: 4
            horizontalPadding: 6
            contentItem: Divider {}
        }

        T.Action {
            text: "Quit"
            shortcut: "Ctrl+Q"
            onTriggered: root.quitRequested()
        }
    }

    ThemedMenu {
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
