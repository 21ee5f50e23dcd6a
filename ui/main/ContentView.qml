import QtQuick
import QtQuick.Layouts
import Marrowcut.Main
import Marrowcut.Sheets
import Marrowcut.Style

// The content of the one window, from its menu bar to its lower edge. The focus comes back to where it was when a menu
// or a popover has closed: Qt gives it to nobody.
FocusScope {
    id: root

    required property QueueViewModel queue
    required property HelpState helpState
    required property DiagnosticsReport report
    property alias menuBar: menuBarPlace.data
    readonly property alias isTargeted: dropTarget.isTargeted
    readonly property Item focusItem: Window.activeFocusItem
    readonly property bool showsQueue: !queue.isEmpty
    property bool started: false // what only a queue needs is made once the window is there

    function takeStrayFocus() {
        if (Window.active && (focusItem === null || focusItem === Window.contentItem))
            forceActiveFocus(Qt.TabFocusReason);
    }

    focus: true
    onFocusItemChanged: afterClosing.restart()

    Timer {
        id: afterClosing

        interval: 0
        onTriggered: root.takeStrayFocus()
    }

    Connections {
        target: root.Window.window
        enabled: !root.started

        function onFrameSwapped() {
            root.started = true;
        }
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
            presetNames: root.queue.presetNames // qmllint disable type
            presetIndex: root.queue.presetIndex
            presetDescription: root.queue.presetDescription
            onPresetChosen: index => root.queue.choosePreset(index)
            onHelpRequested: root.helpState.showHelp = true
        }

        DropZone {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: !root.showsQueue
        }

        OnDemand {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: root.showsQueue
            wanted: root.started || root.showsQueue
            file: Qt.resolvedUrl("JobListView.qml")
            values: ({ queue: root.queue })
        }

        OnDemand {
            Layout.fillWidth: true
            Layout.margins: 12
            visible: root.showsQueue
            wanted: root.started || root.showsQueue
            file: Qt.resolvedUrl("SummaryBar.qml")
            values: ({ queue: root.queue })
        }
    }

    DropTarget {
        id: dropTarget

        anchors.fill: parent
        queue: root.queue
    }

    SheetPlace {
        name: "HelpView"
        shown: root.helpState.showHelp
        onDismissed: root.helpState.showHelp = false
    }

    SheetPlace {
        name: "AboutView"
        shown: root.helpState.showAbout
        onDismissed: root.helpState.showAbout = false
    }

    SheetPlace {
        name: "DiagnosticsView"
        shown: root.helpState.showDiagnostics
        furtherValues: ({ report: root.report })
        onDismissed: root.helpState.showDiagnostics = false
    }
}
