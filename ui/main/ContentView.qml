import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Marrowcut.Main
import Marrowcut.Sheets
import Marrowcut.Style

// The content of the one window, from its menu bar to its lower edge. The focus comes back to where it was when a menu
// or a popover has closed: Qt drops it.
FocusScope {
    id: root

    required property QueueViewModel queue
    required property HelpState helpState
    required property DiagnosticsReport report
    property alias menuBar: menuBarPlace.data
    readonly property Item focusItem: Window.activeFocusItem
    readonly property bool showsQueue: !queue.isEmpty
    property bool hadQueue: false // what shows a queue is created with the first one
    property bool usesKeyboard: false // the focus was last moved by a key

    function followFocus() {
        if (focusItem === null || focusItem === Window.contentItem)
            takeStrayFocus();
        else if (focusItem instanceof T.Control)
            usesKeyboard = (focusItem as T.Control).visualFocus;
    }

    function takeStrayFocus() {
        if (!Window.active)
            return;
        forceActiveFocus(Qt.TabFocusReason);
        if (usesKeyboard && Window.activeFocusItem === root) // what had the focus is gone
            nextItemInFocusChain().forceActiveFocus(Qt.TabFocusReason);
    }

    focus: true
    onShowsQueueChanged: if (showsQueue) hadQueue = true
    onFocusItemChanged: Qt.callLater(followFocus) // qmllint disable type
    Window.onActiveChanged: if (Window.active) queue.checkTools()
    Component.onCompleted: queue.checkTools()

    Shortcut {
        sequences: ["Ctrl+V", "Shift+Insert"]
        onActivated: root.queue.paste()
    }

    WindowEdge {
        anchors.fill: parent
        color: Theme.window
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: 0

        Item {
            id: menuBarPlace

            Layout.fillWidth: true
            Layout.preferredHeight: childrenRect.height
        }

        MainHeader {
            Layout.fillWidth: true
            queue: root.queue
            onHelpRequested: root.helpState.showHelp = true
        }

        Label {
            objectName: "missingTools"
            Layout.fillWidth: true
            Layout.leftMargin: 12
            Layout.rightMargin: 12
            Layout.bottomMargin: 12
            visible: text.length > 0
            text: root.queue.missingTools
            color: Theme.failure
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            Accessible.role: Accessible.AlertMessage
        }

        DropZone {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: !root.showsQueue
        }

        Loader {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: root.showsQueue
            active: root.hadQueue

            // qmllint disable unqualified
            sourceComponent: JobListView {
                queue: root.queue
            }
            // qmllint enable unqualified
        }

        Loader {
            Layout.fillWidth: true
            Layout.margins: 12
            visible: root.showsQueue
            active: root.hadQueue

            // qmllint disable unqualified
            sourceComponent: SummaryBar {
                queue: root.queue
            }
            // qmllint enable unqualified
        }
    }

    DropTarget {
        anchors.fill: parent
        queue: root.queue
    }

    // qmllint disable unqualified
    Loader {
        active: root.helpState.showHelp

        sourceComponent: HelpView {
            transientParent: root.Window.window
            onDismissed: root.helpState.showHelp = false
        }
    }

    Loader {
        active: root.helpState.showAbout

        sourceComponent: AboutView {
            transientParent: root.Window.window
            onDismissed: root.helpState.showAbout = false
        }
    }

    Loader {
        active: root.helpState.showDiagnostics

        sourceComponent: DiagnosticsView {
            transientParent: root.Window.window
            report: root.report
            onDismissed: root.helpState.showDiagnostics = false
        }
    }
    // qmllint enable unqualified
}
