import QtQuick
import Marrowcut.Main
import Marrowcut.Sheets
import Marrowcut.Shell
import Marrowcut.Style

// The window as the application has it, on a staged engine.
Window {
    id: root

    required property QueueViewModel queue
    required property DiagnosticsReport report
    property alias helpState: helpState
    property bool isAskingToQuit: false
    readonly property alias menuBarHeight: menuBar.height

    title: "Marrowcut"
    color: Theme.window
    width: 480
    height: 460
    visible: true

    HelpState {
        id: helpState
    }

    ContentView {
        anchors.fill: parent
        queue: root.queue
        helpState: root.helpState
        report: root.report

        menuBar: MainMenuBar {
            id: menuBar

            width: root.width
        }
    }

    QuitQuestion {
        shown: root.isAskingToQuit
    }
}
