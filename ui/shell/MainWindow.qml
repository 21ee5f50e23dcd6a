import QtQuick
import Marrowcut.Main
import Marrowcut.Shell
import Marrowcut.Style

// The application's one window. The content extends under the menu bar, so that drops are accepted there too.
Window {
    id: root

    required property MarrowcutApp app

    title: "Marrowcut"
    color: Theme.window
    width: 480
    height: 460 + menuBar.height
    minimumWidth: 480
    minimumHeight: 360 + menuBar.height // the menu bar is not part of the content's size
    visible: true
    onClosing: close => {
        close.accepted = false;
        root.app.requestQuit();
    }

    ContentView {
        anchors.fill: parent
        queue: root.app.queue
        helpState: root.app.helpState
        report: root.app.report

        menuBar: MainMenuBar {
            id: menuBar

            width: root.width
            onAboutRequested: root.app.helpState.showAbout = true
            onQuitRequested: root.app.requestQuit()
            onHelpRequested: root.app.helpState.showHelp = true
            onReportRequested: root.app.helpState.showDiagnostics = true
        }
    }

    QuitQuestion {
        shown: root.app.isAskingToQuit
        onKeepRunning: root.app.keepRunning()
        onQuit: root.app.quit(0)
    }
}
