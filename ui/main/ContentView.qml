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
            visible: root.queue.isEmpty
        }

        JobListView {
            Layout.fillWidth: true
            Layout.fillHeight: true
            visible: !root.queue.isEmpty
            queue: root.queue
        }

        SummaryBar {
            Layout.fillWidth: true
            Layout.margins: 12
            visible: !root.queue.isEmpty
            queue: root.queue
        }
    }

    DropTarget {
        id: dropTarget

        anchors.fill: parent
        queue: root.queue
    }

    HelpView {
        shown: root.helpState.showHelp
        onDismissed: root.helpState.showHelp = false
    }

    AboutView {
        shown: root.helpState.showAbout
        onDismissed: root.helpState.showAbout = false
    }

    DiagnosticsView {
        shown: root.helpState.showDiagnostics
        report: root.report
        onDismissed: root.helpState.showDiagnostics = false
    }
}
