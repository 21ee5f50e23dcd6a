import QtQuick
import QtQuick.Layouts
import Marrowcut.Main
import Marrowcut.Style

// The column header, the rows and the control bar.
ColumnLayout {
    id: root

    required property QueueViewModel queue
    readonly property int includeColumnWidth: 20
    readonly property int burnInColumnWidth: 58
    // How much of the burn-in column is there: one value moves its title and every row together.
    property real burnInShare: header.showAdvancedOptions ? 1 : 0

    spacing: 0

    Behavior on burnInShare {
        NumberAnimation {
            duration: 150
            easing.type: Easing.InOutQuad
        }
    }

    JobListHeader {
        id: header

        Layout.fillWidth: true
        Layout.leftMargin: 12
        Layout.rightMargin: 12
        Layout.topMargin: 6
        Layout.bottomMargin: 2
        visible: root.queue.hasQueuedJobs
        includeColumnWidth: root.includeColumnWidth
        burnInColumnWidth: root.burnInColumnWidth
        burnInShare: root.burnInShare
    }

    Rectangle {
        Layout.fillWidth: true
        Layout.fillHeight: true
        color: Theme.base

        JobRows {
            id: rows

            anchors.fill: parent
            queue: root.queue

            // qmllint disable unqualified
            delegate: JobRow {
                width: rows.width
                height: rows.rowHeight
                includeColumnWidth: root.includeColumnWidth
                burnInColumnWidth: root.burnInColumnWidth
                burnInShare: root.burnInShare
                onIncludeToggled: root.queue.toggleSelected(jobId)
                onBurnInToggled: root.queue.toggleBurnIn(jobId)
                onRemoveRequested: rows.removeRow(this)
                onRetryRequested: root.queue.retry(jobId)
                onMenuRequested: place => rows.openErrorMenu(this, place)
                onHasKeyboardFocusChanged: rows.followFocus(this)
                onActiveFocusChanged: if (activeFocus) rows.currentIndex = index
            }
            // qmllint enable unqualified
        }

        // Takes the rest of a double click on what was here before.
        MouseArea {
            anchors.fill: parent
            enabled: rows.isGuarded
            acceptedButtons: Qt.AllButtons
        }

        Divider {
            width: parent.width
        }

        Divider {
            width: parent.width
            anchors.bottom: parent.bottom
        }
    }

    ControlBar {
        Layout.fillWidth: true
        Layout.leftMargin: 12
        Layout.rightMargin: 12
        Layout.topMargin: 10
        Layout.bottomMargin: 10
        visible: !root.queue.isRunning
        queue: root.queue
        onFocusLost: byKeyboard => rows.takeFocus(byKeyboard ? Qt.TabFocusReason : Qt.OtherFocusReason)
    }
}
