import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Marrowcut.Main
import Marrowcut.Style

// The column header, the rows and the control bar.
ColumnLayout {
    id: root

    required property QueueViewModel queue
    property bool showAdvancedOptions: false
    readonly property int includeColumnWidth: 20
    readonly property int burnInColumnWidth: 58
    // How much of the burn-in column is there: one value moves its title and every row together.
    property real burnInShare: showAdvancedOptions ? 1 : 0

    spacing: 0

    Behavior on burnInShare {
        NumberAnimation {
            duration: 150
            easing.type: Easing.InOutQuad
        }
    }

    JobListHeader {
        Layout.fillWidth: true
        Layout.leftMargin: 12
        Layout.rightMargin: 12
        Layout.topMargin: 6
        Layout.bottomMargin: 2
        visible: root.queue.hasQueuedJobs
        includeColumnWidth: root.includeColumnWidth
        burnInColumnWidth: root.burnInColumnWidth
        burnInShare: root.burnInShare
        showAdvancedOptions: root.showAdvancedOptions
        onAdvancedToggled: root.showAdvancedOptions = !root.showAdvancedOptions
    }

    Rectangle {
        Layout.fillWidth: true
        Layout.fillHeight: true
        color: Theme.base

        ListView {
            id: list

            readonly property int rowHeight: 36
            function openMenu() {
                const row = currentItem as JobRow;
                if (row)
                    row.requestMenu(Qt.point(12, row.height));
            }

            objectName: "jobList"
            anchors.fill: parent
            // What comes into an emptied list has no current row, and so none that the Tab key reaches.
            onCountChanged: if (currentIndex < 0 && count > 0) currentIndex = 0
            topMargin: 4
            bottomMargin: 4
            model: root.queue.jobs
            reuseItems: true
            highlightMoveDuration: 0 // it is not seen, but draws every frame while it is on its way
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            Accessible.role: Accessible.List
            Accessible.name: "Jobs"
            Keys.onMenuPressed: openMenu()
            Keys.onPressed: event => {
                if (event.key === Qt.Key_F10 && event.modifiers & Qt.ShiftModifier)
                    openMenu();
            }

            // It fits into the rows' padding.
            T.ScrollBar.vertical: ScrollBar {
                objectName: "scrollBar"
                policy: list.visibleArea.heightRatio < 1 ? T.ScrollBar.AlwaysOn : T.ScrollBar.AlwaysOff
            }

            // qmllint disable unqualified
            delegate: JobRow {
                width: list.width
                height: list.rowHeight
                includeColumnWidth: root.includeColumnWidth
                burnInColumnWidth: root.burnInColumnWidth
                burnInShare: root.burnInShare
                onIncludeToggled: root.queue.toggleSelected(jobId)
                onBurnInToggled: root.queue.toggleBurnIn(jobId)
                onRemoveRequested: root.queue.removeFromQueue(jobId)
                onRetryRequested: root.queue.retry(jobId)
                onMenuRequested: place => errorMenu.openFor(this, place)
                onFocusEntered: list.currentIndex = index
            }
            // qmllint enable unqualified
        }

        ErrorMenu {
            id: errorMenu

            onCopyRequested: jobId => root.queue.copyError(jobId)
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
        // The keyboard's place must not go with the control that hides.
        onVisibleChanged: if (!visible && holdsFocus) list.forceActiveFocus(Qt.OtherFocusReason)
        Layout.fillWidth: true
        Layout.leftMargin: 12
        Layout.rightMargin: 12
        Layout.topMargin: 10
        Layout.bottomMargin: 10
        visible: !root.queue.isRunning
        queue: root.queue
    }
}
